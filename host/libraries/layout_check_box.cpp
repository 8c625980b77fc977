#include "host/libraries/layout_check_box.h"

#include <algorithm>

#include "framework/gdi.h"
#include "host/libraries/layout_metrics.h"
#include "host/libraries/layout_window.h"

namespace qv {

namespace {

// The column after the last one with ink between `from` and the measured end of a text; the measured end when there is
// none or it is covered. Empty is what looks like the area's first column, which lies before the text. Needed because a
// screen font may have bitmaps for its small sizes that are narrower than what it measures.
LONG EndOfInk(HDC dc, const RECT& area, LONG from, LONG measuredEnd) {
    for (LONG x = measuredEnd; x > from; --x) {
        for (LONG y = area.top; y < area.bottom; ++y) {
            const COLORREF colour = ::GetPixel(dc, static_cast<int>(x - 1), static_cast<int>(y));
            if (colour == CLR_INVALID) return measuredEnd;  // clipped
            if (colour != ::GetPixel(dc, static_cast<int>(area.left), static_cast<int>(y))) return x;
        }
    }
    return measuredEnd;
}

}  // namespace

const MessageMap* CheckBoxPrompt::GetMessageMap() const {
    static const MessageMap map{CStatic::GetThisMessageMap(),
                                {
                                    on::Message<&CheckBoxPrompt::OnPaint>(WM_PAINT),
                                    on::Message<&CheckBoxPrompt::OnLookChanged>(WM_ENABLE),
                                    on::Message<&CheckBoxPrompt::OnLookChanged>(WM_SETTEXT),
                                    on::ControlReflect<&CheckBoxPrompt::OnClicked>(STN_CLICKED),
                                }};
    return &map;
}

void CheckBoxPrompt::OnClicked() {
    if (m_box != nullptr && m_box->IsLive() && m_box->IsWindowEnabled()) m_box->SendMessage(BM_CLICK);
}

// The platform's label then draws itself at once, and not where this one does.
LRESULT CheckBoxPrompt::OnLookChanged(WPARAM, LPARAM) {
    const LRESULT result = Default();
    Invalidate();
    return result;
}

bool CheckBoxPrompt::ShowsFocus() const {
    if (m_box == nullptr || m_box->m_hWnd == nullptr || ::GetFocus() != m_box->m_hWnd) return false;
    return (m_box->SendMessage(WM_QUERYUISTATE) & UISF_HIDEFOCUS) == 0;
}

CRect CheckBoxPrompt::FocusFrame(HDC dc) const {
    const std::wstring text = GetWindowText();
    const CRect client = GetClientRect();
    RECT label = client;
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &label, DT_CALCRECT | kLabelFormat);
    ::OffsetRect(&label, m_frameRoom, 0);
    const LONG end = EndOfInk(dc, client, label.left, std::min(label.right, client.right));
    CRect frame(static_cast<int>(label.left - m_frameRoom), static_cast<int>(client.top),
                static_cast<int>(end + m_frameRoom), static_cast<int>(client.bottom));
    ::IntersectRect(&frame, &frame, &client);
    return frame;
}

LRESULT CheckBoxPrompt::OnPaint(WPARAM, LPARAM) {
    // As a whole: the frame inverts what is below it, and a part of it that is still there would vanish.
    Invalidate();
    PAINTSTRUCT paint{};
    const HDC dc = ::BeginPaint(m_hWnd, &paint);
    if (dc == nullptr) return 0;
    ::FillRect(
        dc, &paint.rcPaint,
        reinterpret_cast<HBRUSH>(::SendMessageW(::GetParent(m_hWnd), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                                reinterpret_cast<LPARAM>(m_hWnd))));
    const HFONT font = GetFont();
    const HGDIOBJ before = font != nullptr ? ::SelectObject(dc, font) : nullptr;
    ::SetViewportOrgEx(dc, m_frameRoom, 0, nullptr);
    DefWindowProc(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    ::SetViewportOrgEx(dc, 0, 0, nullptr);
    if (ShowsFocus() && GetWindowTextLength() != 0) {
        const RECT frame = FocusFrame(dc);
        ::DrawFocusRect(dc, &frame);
    }
    if (before != nullptr) ::SelectObject(dc, before);
    ::EndPaint(m_hWnd, &paint);
    return 0;
}

bool RowCheckBox::Create(std::wstring_view label, CWnd& prompt, const CWnd& page, DWORD style, const RECT& place,
                         UINT id) {
    m_prompt = &prompt;
    return CreateAttached(*this, L"BUTTON", WithoutMnemonic(label), 0, style | WS_TABSTOP | BS_AUTOCHECKBOX, place,
                          page, id);
}

const MessageMap* RowCheckBox::GetMessageMap() const {
    static const MessageMap map{CButton::GetThisMessageMap(),
                                {
                                    on::Message<&RowCheckBox::OnFocusChanged>(WM_SETFOCUS),
                                    on::Message<&RowCheckBox::OnFocusChanged>(WM_KILLFOCUS),
                                    on::Message<&RowCheckBox::OnFocusChanged>(WM_UPDATEUISTATE),
                                }};
    return &map;
}

LRESULT RowCheckBox::OnFocusChanged(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (m_prompt->IsLive()) m_prompt->Invalidate();
    return result;
}

std::wstring WithoutMnemonic(std::wstring_view label) {
    std::wstring plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        const bool isDoubled = label.substr(i).starts_with(L"&&");
        if (label[i] == L'&' && !isDoubled) continue;
        plain.push_back(label[i]);
        if (isDoubled) plain.push_back(label[++i]);
    }
    return plain;
}

}  // namespace qv
