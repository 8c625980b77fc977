// The two operations on what a page shows: the check of its inputs before anything is stored, and the way back to its
// defaults.
#include "framework/text.h"
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/range.h"

namespace {

// As the message shows it: without decimals when there are none.
std::wstring NumberInMessage(double value) {
    // A number beyond 64 bits counts as having a fraction: converting it would be undefined.
    constexpr double kBeyond = 9223372036854775808.0;
    if (value >= -kBeyond && value < kBeyond) {
        const auto whole = static_cast<std::int64_t>(value);
        // deliberate: only the low 32 bits are shown.
        if (static_cast<double>(whole) == value) return qv::IntegerToText(static_cast<std::int32_t>(whole));
    }
    return qv::DoubleToText(value, L"%g");
}

void FocusSheet(CWnd& page) {
    if (CWnd* sheet = page.GetParent()) sheet->SetFocus();
}

void ReportRange(SettingsPage& page, CWnd& control, std::wstring_view name, const RangePair& range, double value) {
    page.MakeActivePage();
    const CWnd* prompt = page.GetLayout().GetColumnPrompt(name);
    const std::wstring caption = prompt != nullptr ? prompt->GetWindowText() : std::wstring();
    const std::wstring text =
        qv::Format(L"Data out of range !\nRange[%s, %s]\nActValue = %s\nCorrect your inputs",
                   NumberInMessage(range.first), NumberInMessage(range.second), NumberInMessage(value));
    CWnd* sheet = page.PageWindow().GetParent();
    const CWnd* owner = sheet != nullptr ? sheet->GetParent() : nullptr;
    if (owner == nullptr) return;
    CoInfoBox(owner->m_hWnd, caption, text, 0);
    if (!control.IsLive()) return;  // the dialog went while the message stood there
    sheet->SetFocus();
    control.SendMessage(EM_SETSEL, 0, -1);
    control.SetFocus();
}

}  // namespace

bool XConstructionSet::ValidateInputs(SettingsPage& page, PageRecord& record) {
    const XLayout& layout = page.GetLayout();
    for (const XLayout::ColumnReference& row : layout.GetReferenceList()) {
        const RangePair* range = record.FindRange(row.name);
        if (range == nullptr) continue;
        const double value = qv::TextToDouble(row.text);
        if (CheckUpperBound(*range, value) && CheckLowerBound(*range, value)) continue;
        CWnd* control = layout.GetColumnControl(row.name);
        // A row whose control could not be created has no input that could be corrected, and is never stored.
        if (control == nullptr) continue;
        ReportRange(page, *control, row.name, *range, value);
        return false;
    }

    for (const SpecialControlKind kind : {SpecialControlKind::Path, SpecialControlKind::File}) {
        for (const auto& control : record.Controls(kind)) {
            auto* chooser = dynamic_cast<ValidatedControl*>(control.get());
            if (chooser == nullptr || control->Window().GetSafeHwnd() == nullptr || chooser->ValidateValue()) continue;
            if (!control->Window().IsLive()) return false;  // the dialog went while the reason stood there
            page.MakeActivePage();
            FocusSheet(page.PageWindow());
            control->Window().SetFocus();
            chooser->SelectDataInEditCtrl();
            return false;
        }
    }
    return true;
}

void XConstructionSet::SetDefaults(XLayout& layout, PageRecord& record) {
    for (const auto& [itemKey, defaultText] : record.Defaults()) {
        std::wstring text = defaultText;
        if (!qv::IsTextEdit(layout.GetColumn(itemKey))) qv::NormaliseSeparator(text);
        layout.UpdateControl(itemKey, text, nullptr, {});
    }
    for (const SpecialControlKind kind : record.ControlKinds()) {
        for (const auto& control : record.Controls(kind)) {
            if (control->Window().GetSafeHwnd() == nullptr) continue;
            if (!control->IsReadOnly() && control->HasDefault()) control->ShowDefaultValue();
        }
    }
}
