#include "framework/window_scroller.h"

#include <algorithm>

namespace {

constexpr int kUsualLinesPerNotch = 3;

// What the user has set for the wheel; a page at a time counts as the usual number here.
int LinesPerNotch() {
    UINT lines = kUsualLinesPerNotch;
    constexpr UINT kMost = 100;
    if (::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0) == FALSE || lines > kMost) {
        return kUsualLinesPerNotch;
    }
    return static_cast<int>(lines);
}

}  // namespace

void WindowScroller::SetSizes(SIZE total, SIZE page, SIZE line) {
    m_total = total;
    m_page = page;
    m_line = line;
    UpdateBars();
}

// The client area as it would be without scroll bars, at the origin.
CRect WindowScroller::AreaWithoutBars() const {
    CRect area = m_window->GetClientRect();
    const DWORD style = m_window->GetStyle();
    if ((style & WS_VSCROLL) != 0) area.right += ::GetSystemMetrics(SM_CXVSCROLL);
    if ((style & WS_HSCROLL) != 0) area.bottom += ::GetSystemMetrics(SM_CYHSCROLL);
    return area;
}

void WindowScroller::UpdateBars() {
    // Showing a bar changes the client size, which leads here again.
    if (!IsUsable() || m_insideUpdate) return;
    m_insideUpdate = true;
    const CRect area = AreaWithoutBars();
    const int barWidth = ::GetSystemMetrics(SM_CXVSCROLL);
    const int barHeight = ::GetSystemMetrics(SM_CYHSCROLL);
    // Each bar takes room that the other direction may then lack.
    bool horizontal = m_total.cx > area.Width();
    const bool vertical = m_total.cy > area.Height() - (horizontal ? barHeight : 0);
    horizontal = horizontal || (vertical && m_total.cx > area.Width() - barWidth);
    const int cx = std::max(0, area.Width() - (vertical ? barWidth : 0));
    const int cy = std::max(0, area.Height() - (horizontal ? barHeight : 0));

    HWND window = m_window->m_hWnd;
    const auto set = [window](int bar, bool needed, int total, int visible, int position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = needed ? total - 1 : 0;
        info.nPage = needed ? static_cast<UINT>(visible) : 0;
        info.nPos = needed ? std::clamp(position, 0, std::max(0, total - visible)) : 0;
        ::ShowScrollBar(window, bar, needed ? TRUE : FALSE);
        ::SetScrollInfo(window, bar, &info, TRUE);
    };
    set(SB_HORZ, horizontal, static_cast<int>(m_total.cx), cx, static_cast<int>(m_position.x));
    set(SB_VERT, vertical, static_cast<int>(m_total.cy), cy, static_cast<int>(m_position.y));
    FollowBars();
    m_insideUpdate = false;
}

void WindowScroller::FollowBars() {
    const POINT now{::GetScrollPos(m_window->m_hWnd, SB_HORZ), ::GetScrollPos(m_window->m_hWnd, SB_VERT)};
    const int dx = static_cast<int>(m_position.x - now.x);
    const int dy = static_cast<int>(m_position.y - now.y);
    if (dx == 0 && dy == 0) return;
    m_position = now;
    ::ScrollWindow(m_window->m_hWnd, dx, dy, nullptr, nullptr);
}

void WindowScroller::ScrollTo(POINT position) {
    if (!IsUsable()) return;
    const CRect client = m_window->GetClientRect();
    const auto move = [this](int bar, LONG wanted, LONG total, int visible) {
        const auto furthest = std::max(0, static_cast<int>(total) - visible);
        ::SetScrollPos(m_window->m_hWnd, bar, std::clamp(static_cast<int>(wanted), 0, furthest), TRUE);
    };
    const POINT before = m_position;
    move(SB_HORZ, position.x, m_total.cx, client.Width());
    move(SB_VERT, position.y, m_total.cy, client.Height());
    FollowBars();
    if (before.x != m_position.x || before.y != m_position.y) ::UpdateWindow(m_window->m_hWnd);
}

void WindowScroller::BringIntoView(const RECT& rect) {
    if (!IsUsable()) return;
    const CRect client = m_window->GetClientRect();
    // As little as shows the far edge, but never at the price of the near one.
    const auto shift = [](LONG low, LONG high, LONG end) { return std::min(low, std::max<LONG>(0, high - end)); };
    ScrollTo({m_position.x + shift(rect.left, rect.right, client.right),
              m_position.y + shift(rect.top, rect.bottom, client.bottom)});
}

// The message carries 16 bits only; a longer content is asked of the bar itself.
int WindowScroller::ThumbPosition(int bar, int thumb) const {
    constexpr LONG kLargestInMessage = 0xFFFF;
    if ((bar == SB_HORZ ? m_total.cx : m_total.cy) <= kLargestInMessage) return thumb;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    return ::GetScrollInfo(m_window->m_hWnd, bar, &info) != FALSE ? info.nTrackPos : thumb;
}

void WindowScroller::Scroll(int bar, UINT request, int thumb) {
    POINT position = m_position;
    LONG& value = bar == SB_HORZ ? position.x : position.y;
    const LONG line = bar == SB_HORZ ? m_line.cx : m_line.cy;
    const LONG page = bar == SB_HORZ ? m_page.cx : m_page.cy;
    switch (request) {
        case SB_TOP:
            value = 0;
            break;
        case SB_BOTTOM:
            value = bar == SB_HORZ ? m_total.cx : m_total.cy;
            break;
        case SB_LINEUP:
            value -= line;
            break;
        case SB_LINEDOWN:
            value += line;
            break;
        case SB_PAGEUP:
            value -= page;
            break;
        case SB_PAGEDOWN:
            value += page;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            value = ThumbPosition(bar, thumb);
            break;
        default:
            return;
    }
    ScrollTo(position);
}

// notches: of the wheel times WHEEL_DELTA, positive towards the content's end. False when nothing moved.
bool WindowScroller::Turn(int bar, int notches) {
    const DWORD style = bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL;
    if ((m_window->GetStyle() & style) == 0) return false;
    const POINT before = m_position;
    POINT position = before;
    const LONG line = bar == SB_HORZ ? m_line.cx : m_line.cy;
    (bar == SB_HORZ ? position.x : position.y) += notches * LinesPerNotch() * static_cast<int>(line) / WHEEL_DELTA;
    ScrollTo(position);
    return before.x != m_position.x || before.y != m_position.y;
}

bool WindowScroller::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsUsable()) return false;
    const auto turned = [wParam] { return static_cast<int>(static_cast<SHORT>(HIWORD(wParam))); };
    switch (message) {
        case WM_HSCROLL:
        case WM_VSCROLL:
            if (lParam != 0) return false;  // a scroll bar control's
            Scroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam), HIWORD(wParam));
            return true;
        case WM_MOUSEWHEEL:
            return Turn(SB_VERT, -turned());
        case WM_MOUSEHWHEEL:
            return Turn(SB_HORZ, turned());
        default:
            return false;
    }
}
