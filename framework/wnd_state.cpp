// CWnd: text, state, place in the tree and on the screen.
#include "base/wipe.h"
#include "framework/dialog_focus.h"
#include "framework/wnd.h"

std::wstring CWnd::GetWindowText() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLength()), L'\0');
    if (text.empty()) return text;
    const int copied = ::GetWindowTextW(m_hWnd, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void CWnd::SetWindowText(std::wstring_view text) {
    std::wstring terminated(text);
    ::SetWindowTextW(m_hWnd, terminated.c_str());
    qv::Wipe(terminated);  // it may have been a password
}

int CWnd::GetWindowTextLength() const {
    return m_hWnd != nullptr ? ::GetWindowTextLengthW(m_hWnd) : 0;
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE));
}

namespace {

bool ModifyLong(HWND window, int index, DWORD remove, DWORD add, UINT flags) {
    const auto before = static_cast<DWORD>(::GetWindowLongW(window, index));
    const DWORD after = (before & ~remove) | add;
    if (before == after) return false;
    ::SetWindowLongW(window, index, static_cast<LONG>(after));
    if (flags != 0) {
        ::SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    }
    return true;
}

}  // namespace

bool CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags) {
    return ModifyLong(m_hWnd, GWL_STYLE, remove, add, flags);
}

bool CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT flags) {
    return ModifyLong(m_hWnd, GWL_EXSTYLE, remove, add, flags);
}

bool CWnd::EnableWindow(bool enable) {
    if (!enable) qv::detail::PassFocusOn(m_hWnd);
    return ::EnableWindow(m_hWnd, enable ? TRUE : FALSE) != FALSE;
}

bool CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(m_hWnd) != FALSE;
}

bool CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command) != FALSE;
}

bool CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd) != FALSE;
}

CWnd* CWnd::SetFocus() {
    // No window means something of its own to the platform, here and below: to take the focus from everybody.
    return m_hWnd != nullptr ? FromHandle(::SetFocus(m_hWnd)) : nullptr;
}

CWnd* CWnd::GetFocus() {
    return FromHandle(::GetFocus());
}

CWnd* CWnd::GetParent() const {
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::GetDlgItem(int id) const {
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* control, bool previous) const {
    return FromHandle(
        ::GetNextDlgTabItem(m_hWnd, control != nullptr ? control->m_hWnd : nullptr, previous ? TRUE : FALSE));
}

CWnd* CWnd::GetTopLevelParent() const {
    return FromHandle(::GetAncestor(m_hWnd, GA_ROOT));
}

void CWnd::SetFont(HFONT font, bool redraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw ? TRUE : FALSE);
}

HFONT CWnd::GetFont() const {
    return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
}

void CWnd::SetIcon(HICON icon, bool big) {
    SendMessage(WM_SETICON, big ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

void CWnd::MoveWindow(int x, int y, int cx, int cy, bool repaint) {
    ::MoveWindow(m_hWnd, x, y, cx, cy, repaint ? TRUE : FALSE);
}

void CWnd::MoveWindow(const RECT& rect, bool repaint) {
    MoveWindow(static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right - rect.left),
               static_cast<int>(rect.bottom - rect.top), repaint);
}

bool CWnd::SetWindowPos(HWND insertAfter, int x, int y, int cx, int cy, UINT flags) {
    return ::SetWindowPos(m_hWnd, insertAfter, x, y, cx, cy, flags) != FALSE;
}

CRect CWnd::GetWindowRect() const {
    CRect rect;
    ::GetWindowRect(m_hWnd, &rect);
    return rect;
}

CRect CWnd::GetClientRect() const {
    CRect rect;
    ::GetClientRect(m_hWnd, &rect);
    return rect;
}

void CWnd::ClientToScreen(CRect& rect) const {
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(static_cast<RECT*>(&rect)), 2);
}

void CWnd::ScreenToClient(CRect& rect) const {
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(static_cast<RECT*>(&rect)), 2);
}

bool CWnd::GetWindowPlacement(WINDOWPLACEMENT& placement) const {
    placement.length = sizeof placement;
    return ::GetWindowPlacement(m_hWnd, &placement) != FALSE;
}

bool CWnd::SetWindowPlacement(const WINDOWPLACEMENT& placement) {
    WINDOWPLACEMENT copy = placement;
    copy.length = sizeof copy;
    return ::SetWindowPlacement(m_hWnd, &copy) != FALSE;
}

namespace {

CRect WorkAreaFor(HWND window) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info) != FALSE) return info.rcWork;
    return {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

int CenteredStart(int low, int high, int size) {
    return low + (high - low - size) / 2;
}

// The nearest start at which [start, start + size) lies inside; the low end wins where it does not fit.
int KeptInside(int start, int size, int low, int high) {
    if (start + size > high) start = high - size;
    return start < low ? low : start;
}

}  // namespace

void CWnd::CenterWindow(bool onScreen) {
    const CRect own = GetWindowRect();
    const int cx = own.Width();
    const int cy = own.Height();
    CRect around;
    CRect bounds;
    if ((GetStyle() & WS_CHILD) != 0) {
        ::GetClientRect(::GetParent(m_hWnd), &around);
        bounds = around;
    } else {
        HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
        const bool useOwner =
            !onScreen && owner != nullptr && ::IsWindowVisible(owner) != FALSE && ::IsIconic(owner) == FALSE;
        bounds = WorkAreaFor(useOwner ? owner : m_hWnd);
        around = bounds;
        if (useOwner) ::GetWindowRect(owner, &around);
    }
    const int x = CenteredStart(static_cast<int>(around.left), static_cast<int>(around.right), cx);
    const int y = CenteredStart(static_cast<int>(around.top), static_cast<int>(around.bottom), cy);
    SetWindowPos(nullptr, KeptInside(x, cx, static_cast<int>(bounds.left), static_cast<int>(bounds.right)),
                 KeptInside(y, cy, static_cast<int>(bounds.top), static_cast<int>(bounds.bottom)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::Invalidate(bool erase) {
    if (m_hWnd != nullptr) ::InvalidateRect(m_hWnd, nullptr, erase ? TRUE : FALSE);
}
