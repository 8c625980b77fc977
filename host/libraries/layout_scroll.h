// The rows of a layout inside a page that is too small for them: the page's own scroll bars, and the row of the control
// that has the focus brought into view. Used by the layout alone.
#pragma once

#include "framework/window_hook.h"
#include "framework/window_scroller.h"
#include "host/libraries/layout.h"

class XLayout::PageScroll final : public WindowHook {
public:
    // Both outlive it; the page's window may go before.
    PageScroll(XLayout& layout, CWnd& page);
    ~PageScroll();
    PageScroll(const PageScroll&) = delete;
    PageScroll& operator=(const PageScroll&) = delete;

    // Pixels: all rows at their least with the page's margins around them, and the distance of two rows. The page may
    // come back with a new size before this returns.
    void SetContent(SIZE content, int rowDistance);
    // How far the rows are moved up and to the left.
    [[nodiscard]] POINT Position() const noexcept { return m_scroller.Position(); }

    bool OnHookedMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnDescendantFocused(HWND descendant) override;
    void OnShowing() override;

private:
    XLayout& m_layout;
    CWnd& m_page;
    HWND m_window;
    WindowScroller m_scroller;
};
