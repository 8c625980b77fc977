#include "host/libraries/search_ctrl.h"

#include <algorithm>

#include "base/raised_flag.h"
#include "framework/gdi.h"
#include "host/libraries/pickers.h"
#include "host/libraries/text_field.h"

namespace {

// Above the numbers that a dialog gives its own buttons: a press that reached the dialog must mean nothing there.
constexpr UINT kEditId = 0x7001;
constexpr UINT kButtonId = 0x7002;
constexpr const wchar_t* kButtonCaption = L"...";
constexpr int kButtonPadding = 6;  // pixels at 96 dpi, on either side of the caption
constexpr int kGap = 2;
constexpr COLORREF kWarningColor = RGB(192, 0, 0);

int ScaledFor(HWND window, int pixels) {
    const int dpi = static_cast<int>(::GetDpiForWindow(window));
    return dpi > 0 ? pixels * dpi / 96 : pixels;
}

}  // namespace

QV_RUNTIME_CLASS(XBaseSearchCtrl, CWnd)
QV_RUNTIME_CLASS(XSearchFolderCtrl, XBaseSearchCtrl)
QV_RUNTIME_CLASS(XSearchFileCtrl, XBaseSearchCtrl)

XBaseSearchCtrl::XBaseSearchCtrl() = default;

XBaseSearchCtrl::~XBaseSearchCtrl() {
    // While field and button still exist: their windows go with this one and report to it.
    if (IsLive()) XBaseSearchCtrl::DestroyWindow();
}

const MessageMap* XBaseSearchCtrl::GetThisMessageMap() {
    static const MessageMap map{CWnd::GetThisMessageMap(),
                                {
                                    on::Size<&XBaseSearchCtrl::OnSize>(),
                                    on::Message<&XBaseSearchCtrl::OnSetText>(WM_SETTEXT),
                                    on::Message<&XBaseSearchCtrl::OnGetText>(WM_GETTEXT),
                                    on::Message<&XBaseSearchCtrl::OnGetTextLength>(WM_GETTEXTLENGTH),
                                    on::Message<&XBaseSearchCtrl::OnSetFont>(WM_SETFONT),
                                    on::Message<&XBaseSearchCtrl::OnGetFont>(WM_GETFONT),
                                    on::Message<&XBaseSearchCtrl::OnSetFocus>(WM_SETFOCUS),
                                    on::Message<&XBaseSearchCtrl::OnEnable>(WM_ENABLE),
                                    on::Message<&XBaseSearchCtrl::OnColorEdit>(WM_CTLCOLOREDIT),
                                }};
    return &map;
}

const MessageMap* XBaseSearchCtrl::GetMessageMap() const {
    return GetThisMessageMap();
}

bool XBaseSearchCtrl::Create(std::wstring_view text, UINT id, const RECT& rect, HFONT font, CWnd* parent) {
    // Without WS_CLIPCHILDREN: a page that paints itself anew paints over field and button, and only then do they hear
    // of it.
    if (!CreateEx(WS_EX_CONTROLPARENT, nullptr, L"", WS_CHILD | WS_VISIBLE, rect,
                  parent != nullptr ? parent->m_hWnd : nullptr, id)) {
        return false;
    }
    const RECT nowhere{0, 0, 0, 0};
    if (!m_edit.CreateEx(WS_EX_CLIENTEDGE, L"EDIT", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, nowhere,
                         m_hWnd, kEditId) ||
        !m_button.Create(kButtonCaption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, nowhere, this,
                         kButtonId)) {
        DestroyWindow();
        return false;
    }
    if (font != nullptr) SetFont(font, false);
    const CRect client = GetClientRect();
    LayOut(client.Width(), client.Height());
    UpdateWarning();
    return true;
}

void XBaseSearchCtrl::SetValidation(bool validate) {
    m_validate = validate;
    UpdateWarning();
}

void XBaseSearchCtrl::MakeReadOnly() {
    m_readOnly = true;
    if (m_edit.IsLive()) m_edit.SetReadOnly();
    if (m_button.IsLive()) m_button.EnableWindow(false);
    UpdateWarning();
}

void XBaseSearchCtrl::SelectDataInEditCtrl() {
    if (m_edit.IsLive()) m_edit.SetSel(0, -1);
}

void XBaseSearchCtrl::SetAccessibleName(std::wstring_view name) {
    CWnd::SetAccessibleName(name);
    m_edit.SetAccessibleName(name);
    m_button.SetAccessibleName(std::wstring(name) + L" " + kButtonCaption);
}

HWND XBaseSearchCtrl::OnDescendantFocused(HWND descendant) {
    CWnd::OnDescendantFocused(descendant);
    return m_hWnd;
}

HWND XBaseSearchCtrl::DialogOwner() const {
    const CWnd* top = GetTopLevelParent();
    return top != nullptr ? top->m_hWnd : nullptr;
}

bool XBaseSearchCtrl::OnCommand(WPARAM wParam, LPARAM lParam) {
    const auto control = reinterpret_cast<HWND>(lParam);
    const UINT code = HIWORD(static_cast<DWORD_PTR>(wParam));
    if (control != nullptr && control == m_edit.m_hWnd && code == EN_CHANGE) {
        UpdateWarning();
        // The page asks the control of a notification what it is, so the field stands for itself there, under the
        // chooser's number.
        if (const CWnd* parent = GetParent()) {
            parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), EN_CHANGE), lParam);
        }
        return true;
    }
    if (control != nullptr && control == m_button.m_hWnd && code == BN_CLICKED) {
        Browse();
        return true;
    }
    return CWnd::OnCommand(wParam, lParam);
}

LRESULT XBaseSearchCtrl::OnSetText(WPARAM wParam, LPARAM lParam) {
    return m_edit.IsLive() ? m_edit.SendMessage(WM_SETTEXT, wParam, lParam) : Default();
}

LRESULT XBaseSearchCtrl::OnGetText(WPARAM wParam, LPARAM lParam) {
    return m_edit.IsLive() ? m_edit.SendMessage(WM_GETTEXT, wParam, lParam) : Default();
}

LRESULT XBaseSearchCtrl::OnGetTextLength(WPARAM wParam, LPARAM lParam) {
    return m_edit.IsLive() ? m_edit.SendMessage(WM_GETTEXTLENGTH, wParam, lParam) : Default();
}

LRESULT XBaseSearchCtrl::OnSetFont(WPARAM wParam, LPARAM lParam) {
    if (m_edit.IsLive()) m_edit.SendMessage(WM_SETFONT, wParam, lParam);
    if (m_button.IsLive()) m_button.SendMessage(WM_SETFONT, wParam, lParam);
    const CRect client = GetClientRect();
    LayOut(client.Width(), client.Height());
    return 0;
}

LRESULT XBaseSearchCtrl::OnGetFont(WPARAM, LPARAM) {
    return m_edit.IsLive() ? m_edit.SendMessage(WM_GETFONT) : Default();
}

LRESULT XBaseSearchCtrl::OnSetFocus(WPARAM, LPARAM) {
    if (m_edit.IsLive()) m_edit.SetFocus();
    return 0;
}

LRESULT XBaseSearchCtrl::OnEnable(WPARAM wParam, LPARAM) {
    const bool enabled = wParam != FALSE;
    if (m_edit.IsLive()) m_edit.EnableWindow(enabled);
    if (m_button.IsLive()) m_button.EnableWindow(enabled && !m_readOnly);
    return 0;
}

LRESULT XBaseSearchCtrl::OnColorEdit(WPARAM wParam, LPARAM) {
    if (!m_showsWarning) return Default();
    const auto dc = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(dc, kWarningColor);
    ::SetBkColor(dc, ::GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_WINDOW));
}

void XBaseSearchCtrl::OnSize(UINT, int cx, int cy) {
    LayOut(cx, cy);
}

void XBaseSearchCtrl::LayOut(int cx, int cy) {
    if (!m_edit.IsLive() || !m_button.IsLive()) return;
    int caption = 0;
    int line = 0;
    if (CClientDC dc(m_button); dc.IsValid()) {
        dc.SelectFont(m_button.GetFont());
        const SIZE size = dc.GetTextExtent(kButtonCaption);
        caption = static_cast<int>(size.cx);
        line = static_cast<int>(size.cy);
    }
    // Field and button are as high as fields are, and the text is in the middle, however high the chooser is.
    const int height = std::min(cy, qv::TextFieldHeight(line));
    const int wanted = std::max(height, caption + 2 * ScaledFor(m_hWnd, kButtonPadding));
    const int button = std::clamp(wanted, 0, std::max(0, cx / 2));
    const int gap = ScaledFor(m_hWnd, kGap);
    m_edit.MoveWindow(0, 0, std::max(0, cx - button - gap), height);
    const int top = std::clamp((cy - line) / 2 - qv::TextTopInField(m_edit.m_hWnd), 0, cy - height);
    m_edit.MoveWindow(0, top, std::max(0, cx - button - gap), height);
    m_button.MoveWindow(cx - button, top, button, height);
}

void XBaseSearchCtrl::Browse() {
    if (m_isBrowsing || m_readOnly) return;
    {
        const qv::RaisedFlag browsing(m_isBrowsing);
        DoCallDialog();
    }
    if (m_button.IsLive()) m_button.SetFocus();
}

void XBaseSearchCtrl::UpdateWarning() {
    if (!m_edit.IsLive()) return;
    const std::wstring path = m_validate && !m_readOnly ? m_edit.GetWindowText() : std::wstring();
    const bool missing = !path.empty() && !CheckFileExist(path);
    if (missing == m_showsWarning) return;
    m_showsWarning = missing;
    m_edit.Invalidate();
}

bool XSearchFolderCtrl::CheckFileExist(const std::wstring& path) const {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void XSearchFolderCtrl::DoCallDialog() {
    const auto picked = qv::PickFolder({DialogOwner(), DialogTitle(), DialogOkText(), GetWindowText()});
    if (picked && IsLive()) SetWindowText(*picked);
}

bool XSearchFileCtrl::CheckFileExist(const std::wstring& path) const {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void XSearchFileCtrl::DoCallDialog() {
    const auto picked = qv::PickFile({DialogOwner(), DialogTitle(), DialogOkText(), GetWindowText()});
    if (picked && IsLive()) SetWindowText(*picked);
}
