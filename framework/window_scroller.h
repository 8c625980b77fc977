// WindowScroller: scrolls the children of a window by the window's own scroll bars. Scroll views and layouts that may
// be larger than their page are built on it; it decides when a bar is there, and asks nobody what the content is.
#pragma once

#include "framework/wnd.h"

class WindowScroller {
public:
    WindowScroller() = default;
    // window: whose children are moved; null for none. It outlives the scroller or is taken back before it goes.
    void SetWindow(CWnd* window) noexcept { m_window = window; }

    // Pixels. total: the content's size; page and line: what a click into the bar and on its arrows moves by. Shows,
    // hides and sizes the bars, which may change the client area and so come back with a WM_SIZE before this returns.
    void SetSizes(SIZE total, SIZE page, SIZE line);
    // The same with the sizes as they are, for a window that has another size now.
    void UpdateBars();

    // Pixels from the content's top left corner to the client area's: how far the children have been moved.
    [[nodiscard]] POINT Position() const noexcept { return m_position; }
    // The nearest position that the content allows.
    void ScrollTo(POINT position);
    // Scrolls as little as shows the rectangle (client coordinates) whole; what is larger than the client area shows
    // its near edges.
    void BringIntoView(const RECT& rect);

    // WM_HSCROLL and WM_VSCROLL of the window's own bars, WM_MOUSEWHEEL and WM_MOUSEHWHEEL. False for every other
    // message, and for a wheel that there is no bar for or that turns beyond an end: an outer window may use it.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

private:
    [[nodiscard]] bool IsUsable() const { return m_window != nullptr && m_window->m_hWnd != nullptr; }
    [[nodiscard]] CRect AreaWithoutBars() const;
    [[nodiscard]] int ThumbPosition(int bar, int thumb) const;
    void Scroll(int bar, UINT request, int thumb);
    bool Turn(int bar, int notches);
    // Moves the children to where the bars say that they are.
    void FollowBars();

    CWnd* m_window = nullptr;
    SIZE m_total{0, 0};
    SIZE m_page{0, 0};
    SIZE m_line{0, 0};
    POINT m_position{0, 0};
    bool m_insideUpdate = false;
};
