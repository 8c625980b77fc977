#include "platform/headless/controls/static.h"

namespace qv::headless {

LRESULT Static::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFONT:
            SetFont(wParam);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_NCHITTEST:
            return Has(SS_NOTIFY) ? HTCLIENT : HTTRANSPARENT;
        case WM_LBUTTONDOWN:
            if (Has(SS_NOTIFY)) Notify(STN_CLICKED);
            return 0;
        case WM_LBUTTONDBLCLK:
            if (Has(SS_NOTIFY)) Notify(STN_DBLCLK);
            return 0;
        case WM_ENABLE:
            if (Has(SS_NOTIFY)) Notify(wParam != 0 ? STN_ENABLE : STN_DISABLE);
            return 0;
        case STM_SETICON:
            return SetImage(static_cast<LPARAM>(wParam));
        case STM_SETIMAGE:
            return SetImage(lParam);
        case STM_GETICON:
        case STM_GETIMAGE:
            return m_image;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT Static::SetImage(LPARAM image) {
    const LPARAM before = m_image;
    m_image = image;
    return before;
}

}  // namespace qv::headless
