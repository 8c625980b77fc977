#include <algorithm>

#include "framework/view.h"

QV_RUNTIME_CLASS(CScrollView, CView)

namespace {

constexpr int kLinesPerNotch = 3;
constexpr int kNotch = 120;  // what one click of the wheel counts

int OrTenth(LONG given, LONG whole) {
    return static_cast<int>(given > 0 ? given : std::max<LONG>(1, whole / 10));
}

}  // namespace

CScrollView::~CScrollView() = default;

const MessageMap* CScrollView::GetThisMessageMap() {
    static const MessageMap map{CView::GetThisMessageMap(),
                                {
                                    on::Size<&CScrollView::OnSize>(),
                                    on::Message<&CScrollView::OnHScroll>(WM_HSCROLL),
                                    on::Message<&CScrollView::OnVScroll>(WM_VSCROLL),
                                    on::Message<&CScrollView::OnMouseWheel>(WM_MOUSEWHEEL),
                                }};
    return &map;
}

const MessageMap* CScrollView::GetMessageMap() const {
    return GetThisMessageMap();
}

void CScrollView::SetScrollSizes(SIZE total, SIZE page, SIZE line) {
    m_total = total;
    m_page = {OrTenth(page.cx, total.cx), OrTenth(page.cy, total.cy)};
    m_line = {OrTenth(line.cx, m_page.cx), OrTenth(line.cy, m_page.cy)};
    UpdateBars();
}

POINT CScrollView::GetScrollPosition() const {
    return {::GetScrollPos(m_hWnd, SB_HORZ), ::GetScrollPos(m_hWnd, SB_VERT)};
}

// The client area as it would be without scroll bars, at the origin.
CRect CScrollView::VisibleArea() const {
    CRect area = GetClientRect();
    const DWORD style = GetStyle();
    if ((style & WS_VSCROLL) != 0) area.right += ::GetSystemMetrics(SM_CXVSCROLL);
    if ((style & WS_HSCROLL) != 0) area.bottom += ::GetSystemMetrics(SM_CYHSCROLL);
    return area;
}

void CScrollView::UpdateBars() {
    // Showing a bar changes the client size, which leads here again.
    if (m_hWnd == nullptr || m_insideUpdate) return;
    m_insideUpdate = true;
    CRect area = VisibleArea();
    const int barWidth = ::GetSystemMetrics(SM_CXVSCROLL);
    const int barHeight = ::GetSystemMetrics(SM_CYHSCROLL);
    // Each bar takes room that the other direction may then lack.
    bool horizontal = m_total.cx > area.Width();
    const bool vertical = m_total.cy > area.Height() - (horizontal ? barHeight : 0);
    horizontal = horizontal || (vertical && m_total.cx > area.Width() - barWidth);
    const int cx = std::max(0, area.Width() - (vertical ? barWidth : 0));
    const int cy = std::max(0, area.Height() - (horizontal ? barHeight : 0));

    const POINT before = GetScrollPosition();
    const auto set = [this](int bar, bool needed, int total, int visible, int position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = needed ? total - 1 : 0;
        info.nPage = needed ? static_cast<UINT>(visible) : 0;
        info.nPos = needed ? std::clamp(position, 0, std::max(0, total - visible)) : 0;
        ::ShowScrollBar(m_hWnd, bar, needed ? TRUE : FALSE);
        ::SetScrollInfo(m_hWnd, bar, &info, TRUE);
    };
    set(SB_HORZ, horizontal, static_cast<int>(m_total.cx), cx, static_cast<int>(before.x));
    set(SB_VERT, vertical, static_cast<int>(m_total.cy), cy, static_cast<int>(before.y));
    const POINT after = GetScrollPosition();
    const int dx = static_cast<int>(before.x - after.x);
    const int dy = static_cast<int>(before.y - after.y);
    if (dx != 0 || dy != 0) ::ScrollWindow(m_hWnd, dx, dy, nullptr, nullptr);
    m_insideUpdate = false;
}

void CScrollView::ScrollToPosition(POINT position) {
    if (m_hWnd == nullptr) return;
    const POINT before = GetScrollPosition();
    const CRect client = GetClientRect();
    const auto move = [this](int bar, LONG wanted, LONG total, int visible) {
        const auto furthest = std::max(0, static_cast<int>(total) - visible);
        ::SetScrollPos(m_hWnd, bar, std::clamp(static_cast<int>(wanted), 0, furthest), TRUE);
    };
    move(SB_HORZ, position.x, m_total.cx, client.Width());
    move(SB_VERT, position.y, m_total.cy, client.Height());
    const POINT after = GetScrollPosition();
    const int dx = static_cast<int>(before.x - after.x);
    const int dy = static_cast<int>(before.y - after.y);
    if (dx == 0 && dy == 0) return;
    ::ScrollWindow(m_hWnd, dx, dy, nullptr, nullptr);
    ::UpdateWindow(m_hWnd);
}

void CScrollView::OnDescendantFocused(HWND descendant) {
    CRect rect;
    ::GetWindowRect(descendant, &rect);
    ScreenToClient(rect);
    const CRect client = GetClientRect();
    POINT position = GetScrollPosition();
    // As little as shows the control's far edge, but never at the price of its near one.
    const auto shift = [](LONG low, LONG high, LONG end) { return std::min(low, std::max<LONG>(0, high - end)); };
    position.x += shift(rect.left, rect.right, client.right);
    position.y += shift(rect.top, rect.bottom, client.bottom);
    ScrollToPosition(position);
}

void CScrollView::OnSize(UINT type, int cx, int cy) {
    CView::OnSize(type, cx, cy);
    UpdateBars();
}

// The message carries 16 bits only; a longer content is asked of the bar itself.
int CScrollView::ThumbPosition(int bar, int thumb) const {
    constexpr LONG kLargestInMessage = 0xFFFF;
    if ((bar == SB_HORZ ? m_total.cx : m_total.cy) <= kLargestInMessage) return thumb;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    return ::GetScrollInfo(m_hWnd, bar, &info) != FALSE ? info.nTrackPos : thumb;
}

void CScrollView::Scroll(int bar, UINT request, int thumb) {
    POINT position = GetScrollPosition();
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
    ScrollToPosition(position);
}

LRESULT CScrollView::OnHScroll(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) return Default();  // a scroll bar control's
    Scroll(SB_HORZ, LOWORD(wParam), HIWORD(wParam));
    return 0;
}

LRESULT CScrollView::OnVScroll(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) return Default();
    Scroll(SB_VERT, LOWORD(wParam), HIWORD(wParam));
    return 0;
}

LRESULT CScrollView::OnMouseWheel(WPARAM wParam, LPARAM) {
    if ((GetStyle() & WS_VSCROLL) == 0) return Default();
    const int turned = static_cast<SHORT>(HIWORD(wParam));
    POINT position = GetScrollPosition();
    position.y -= static_cast<LONG>(turned * kLinesPerNotch * static_cast<int>(m_line.cy) / kNotch);
    ScrollToPosition(position);
    return 0;
}
