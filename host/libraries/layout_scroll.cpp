#include "host/libraries/layout_scroll.h"

#include <algorithm>

#include "host/libraries/layout_row.h"

XLayout::PageScroll::PageScroll(const XLayout& layout, CWnd& page) : m_layout(layout), m_page(page) {
    m_scroller.SetWindow(&page);
}

void XLayout::PageScroll::SetContent(SIZE content, int rowDistance) {
    // A page of the bar shows the last row of the one before again.
    const CRect client = m_page.GetClientRect();
    const auto step = [rowDistance](int visible) { return std::max(rowDistance, visible - rowDistance); };
    m_scroller.SetSizes(content, {step(client.Width()), step(client.Height())}, {rowDistance, rowDistance});
}

bool XLayout::PageScroll::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_scroller.HandleMessage(message, wParam, lParam)) return true;
    // Whoever types into a control that has been scrolled away wants to see it.
    if (message == WM_COMMAND && lParam != 0) {
        const auto control = reinterpret_cast<HWND>(lParam);
        const UINT code = HIWORD(wParam);
        const bool works = code == EN_CHANGE || code == CBN_SELCHANGE || code == CBN_CLOSEUP || code == BN_CLICKED;
        if (works && control == ::GetFocus()) CWnd::TellOfFocus(control);
    }
    return false;
}

void XLayout::PageScroll::BringIntoView(HWND control) {
    // An open list would stay where it is while its box moves.
    if (::SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != 0) return;
    const Row* const row = m_layout.RowOf(control);
    if (row == nullptr) return;

    // The row with its prompt, and at either end the page's margin, as far as there is room; the control before all.
    CRect wanted = row->place;
    ::InflateRect(&wanted, static_cast<int>(m_layout.m_room.left), static_cast<int>(m_layout.m_room.top));
    const CRect client = m_page.GetClientRect();
    CRect part;
    ::GetWindowRect(control, &part);
    m_page.ScreenToClient(part);
    const POINT position = m_scroller.Position();
    ::OffsetRect(&wanted, -static_cast<int>(position.x), -static_cast<int>(position.y));
    if (wanted.Width() > client.Width()) {
        wanted.left = part.left;
        wanted.right = part.right;
    }
    if (wanted.Height() > client.Height()) {
        wanted.top = part.top;
        wanted.bottom = part.bottom;
    }
    m_scroller.BringIntoView(wanted);
}
