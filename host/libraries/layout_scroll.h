// The rows of a layout inside a page that is too small for them: the page's own scroll bars, and the row of the control
// that has the focus brought into view. Used by the layout alone.
#pragma once

#include "framework/window_scroller.h"
#include "host/libraries/layout.h"

class XLayout::PageScroll {
public:
    // Both outlive it; the page's window may go before.
    PageScroll(const XLayout& layout, CWnd& page);
    PageScroll(const PageScroll&) = delete;
    PageScroll& operator=(const PageScroll&) = delete;

    // Pixels: all rows at their least with the page's margins around them, and the distance of two rows. The page may
    // come back with a new size before this returns.
    void SetContent(SIZE content, int rowDistance);
    // How far the rows are moved up and to the left.
    [[nodiscard]] POINT Position() const noexcept { return m_scroller.Position(); }
    // The page's messages; true when one is used up.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Brings a row's control into view, with its row as far as there is room. Other windows are passed over.
    void BringIntoView(HWND control);

private:
    const XLayout& m_layout;
    CWnd& m_page;
    WindowScroller m_scroller;
};
