#include "qvclient/qvsettingsdialog/controls/color_button.h"

#include "base/text.h"

namespace {

// Signed, as the text is read; -1 is all 32 bits set.
COLORREF ColorOf(const std::wstring& text) {
    return static_cast<COLORREF>(qv::LeadingInteger(text));
}

}  // namespace

QV_RUNTIME_CLASS(XDynColorBtn, XColorBtn)

bool XDynColorBtn::CreateOnPage(CWnd& page, UINT id) {
    return XColorBtn::Create(POINT{0, 0}, &page, id);
}

void XDynColorBtn::ShowInitValue() {
    SetSelColor(ColorOf(m_initValue));
    if (IsReadOnly()) EnableWindow(false);
}

void XDynColorBtn::ShowDefaultValue() {
    SetSelColor(ColorOf(m_defaultValue));
    Invalidate(true);
}

std::wstring XDynColorBtn::GetValue() {
    m_initValue = qv::Format(L"%.0f", static_cast<double>(GetSelColor()));
    return m_initValue;
}
