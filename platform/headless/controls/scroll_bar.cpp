#include "platform/headless/controls/scroll_bar.h"

#include <algorithm>

namespace qv::headless {

LRESULT ScrollBar::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_KEYDOWN:
            OnKey(static_cast<UINT>(wParam));
            return 0;
        case SBM_SETPOS: {
            const int before = m_position;
            m_position = static_cast<int>(wParam);
            ClampPosition();
            return before;
        }
        case SBM_GETPOS:
            return m_position;
        case SBM_SETRANGE:
        case SBM_SETRANGEREDRAW: {
            const int before = m_position;
            m_minimum = static_cast<int>(wParam);
            m_maximum = static_cast<int>(lParam);
            ClampPosition();
            return before;
        }
        case SBM_GETRANGE:
            if (wParam != 0) *reinterpret_cast<int*>(wParam) = m_minimum;
            if (lParam != 0) *reinterpret_cast<int*>(lParam) = m_maximum;
            return 0;
        case SBM_SETSCROLLINFO:
            return SetInfo(*reinterpret_cast<const SCROLLINFO*>(lParam));
        case SBM_GETSCROLLINFO:
            return GetInfo(*reinterpret_cast<SCROLLINFO*>(lParam));
        default:
            return Default(message, wParam, lParam);
    }
}

int ScrollBar::SetInfo(const SCROLLINFO& info) {
    if ((info.fMask & SIF_RANGE) != 0) {
        m_minimum = info.nMin;
        m_maximum = info.nMax;
    }
    if ((info.fMask & SIF_PAGE) != 0) m_page = static_cast<int>(info.nPage);
    if ((info.fMask & SIF_POS) != 0) m_position = info.nPos;
    m_page = std::clamp(m_page, 0, std::max(0, m_maximum - m_minimum + 1));
    ClampPosition();
    return m_position;
}

BOOL ScrollBar::GetInfo(SCROLLINFO& info) const {
    if ((info.fMask & SIF_RANGE) != 0) {
        info.nMin = m_minimum;
        info.nMax = m_maximum;
    }
    if ((info.fMask & SIF_PAGE) != 0) info.nPage = static_cast<UINT>(m_page);
    if ((info.fMask & SIF_POS) != 0) info.nPos = m_position;
    if ((info.fMask & SIF_TRACKPOS) != 0) info.nTrackPos = m_position;
    return TRUE;
}

void ScrollBar::ClampPosition() {
    const int last = m_maximum - std::max(0, m_page - 1);
    m_position = std::max(m_minimum, std::min(m_position, last));
}

void ScrollBar::OnKey(UINT key) const {
    int code = 0;
    switch (key) {
        case VK_PRIOR:
            code = SB_PAGEUP;
            break;
        case VK_NEXT:
            code = SB_PAGEDOWN;
            break;
        case VK_HOME:
            code = SB_TOP;
            break;
        case VK_END:
            code = SB_BOTTOM;
            break;
        case VK_LEFT:
        case VK_UP:
            code = SB_LINEUP;
            break;
        case VK_RIGHT:
        case VK_DOWN:
            code = SB_LINEDOWN;
            break;
        default:
            return;
    }
    SendMessageW(Parent(), Has(SBS_VERT) ? WM_VSCROLL : WM_HSCROLL, static_cast<WPARAM>(code),
                 reinterpret_cast<LPARAM>(m_window));
}

}  // namespace qv::headless
