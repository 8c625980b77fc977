#include "host/libraries/layout_check_box.h"

#include <algorithm>

#include "framework/gdi.h"
#include "host/libraries/layout_window.h"

namespace qv {

const MessageMap* CheckBoxPrompt::GetMessageMap() const {
    static const MessageMap map{CStatic::GetThisMessageMap(),
                                {
                                    on::Message<&CheckBoxPrompt::OnPaint>(WM_PAINT),
                                    on::ControlReflect<&CheckBoxPrompt::OnClicked>(STN_CLICKED),
                                }};
    return &map;
}

void CheckBoxPrompt::OnClicked() {
    if (m_box != nullptr && m_box->IsLive() && m_box->IsWindowEnabled()) m_box->SendMessage(BM_CLICK);
}

LRESULT CheckBoxPrompt::OnPaint(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (m_box == nullptr || m_box->m_hWnd == nullptr || ::GetFocus() != m_box->m_hWnd) return result;
    if ((m_box->SendMessage(WM_QUERYUISTATE) & UISF_HIDEFOCUS) != 0) return result;
    CClientDC dc(*this);
    if (!dc.IsValid()) return result;
    dc.SelectFont(GetFont());
    const std::wstring text = GetWindowText();
    const RECT client = GetClientRect();
    RECT frame = client;
    ::DrawTextW(dc.Get(), text.c_str(), static_cast<int>(text.size()), &frame, DT_CALCRECT | DT_WORDBREAK);
    frame.right = std::min<LONG>(frame.right + 2, client.right);
    ::DrawFocusRect(dc.Get(), &frame);
    return result;
}

bool RowCheckBox::Create(std::wstring_view label, CWnd& prompt, const CWnd& page, UINT id) {
    m_prompt = &prompt;
    constexpr DWORD kStyle = WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX;
    return CreateAttached(*this, L"BUTTON", WithoutMnemonic(label), 0, kStyle, CRect(), page, id);
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
