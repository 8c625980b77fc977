#include "framework/view.h"

QV_RUNTIME_CLASS(CView, CWnd)

CView::~CView() = default;

const MessageMap* CView::GetThisMessageMap() {
    static const MessageMap map{CWnd::GetThisMessageMap(), {}};
    return &map;
}

const MessageMap* CView::GetMessageMap() const {
    return GetThisMessageMap();
}

void CView::OnInitialUpdate() {}

bool CView::BelongsToWindow() const {
    return true;
}
