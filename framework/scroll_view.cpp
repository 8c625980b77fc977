#include <algorithm>

#include "framework/view.h"

QV_RUNTIME_CLASS(CScrollView, CView)

namespace {

LONG OrTenth(LONG given, LONG whole) {
    return given > 0 ? given : std::max<LONG>(1, whole / 10);
}

}  // namespace

CScrollView::CScrollView() {
    m_scroller.SetWindow(this);
}

CScrollView::~CScrollView() = default;

const MessageMap* CScrollView::GetThisMessageMap() {
    static const MessageMap map{CView::GetThisMessageMap(),
                                {
                                    on::Size<&CScrollView::OnSize>(),
                                }};
    return &map;
}

const MessageMap* CScrollView::GetMessageMap() const {
    return GetThisMessageMap();
}

void CScrollView::SetScrollSizes(SIZE total, SIZE page, SIZE line) {
    page = {OrTenth(page.cx, total.cx), OrTenth(page.cy, total.cy)};
    line = {OrTenth(line.cx, page.cx), OrTenth(line.cy, page.cy)};
    m_scroller.SetSizes(total, page, line);
}

POINT CScrollView::GetScrollPosition() const {
    return m_scroller.Position();
}

void CScrollView::ScrollToPosition(POINT position) {
    m_scroller.ScrollTo(position);
}

HWND CScrollView::OnDescendantFocused(HWND descendant) {
    CRect rect;
    ::GetWindowRect(descendant, &rect);
    ScreenToClient(rect);
    m_scroller.BringIntoView(rect);
    return CView::OnDescendantFocused(descendant);
}

void CScrollView::OnSize(UINT type, int cx, int cy) {
    CView::OnSize(type, cx, cy);
    m_scroller.UpdateBars();
}

bool CScrollView::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (CView::OnWndMsg(message, wParam, lParam, result)) return true;
    if (!m_scroller.HandleMessage(message, wParam, lParam)) return false;
    *result = 0;
    return true;
}
