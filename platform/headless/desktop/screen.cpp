// The screen and its measures. One monitor; measures are those of the platform's plain theme at 96 dots an inch,
// scaled.
#include <algorithm>
#include <cwchar>

#include "platform/headless/desktop/desktop_state.h"

using namespace qv::desk;

namespace {

constexpr int kScrollBar = 17;
constexpr int kCaption = 19;
constexpr int kSmallCaption = 16;
constexpr int kMenuBar = 19;
constexpr int kFixedFrame = 3;
constexpr int kSizeFrame = 4;
constexpr int kEdge = 2;
constexpr int kIcon = 32;
constexpr int kSmallIcon = 16;

int Scaled(int pixels) {
    return MulDiv(pixels, static_cast<int>(Desk().dpi), USER_DEFAULT_SCREEN_DPI);
}

const HMONITOR kMonitor = reinterpret_cast<HMONITOR>(std::uintptr_t{0x10001});

LOGFONTW InterfaceFont(LONG weight) {
    LOGFONTW font{};
    font.lfHeight = -Scaled(11);
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    std::wcscpy(font.lfFaceName, L"MS Shell Dlg");
    return font;
}

bool FillNonClientMetrics(UINT size, void* data) {
    auto* metrics = static_cast<NONCLIENTMETRICSW*>(data);
    const bool known = metrics && metrics->cbSize <= sizeof(NONCLIENTMETRICSW) &&
                       metrics->cbSize >= sizeof(NONCLIENTMETRICSW) - sizeof(int);
    if (!known || (size != 0 && size < metrics->cbSize)) return false;
    NONCLIENTMETRICSW full{};
    full.cbSize = metrics->cbSize;
    full.iBorderWidth = 1;
    full.iScrollWidth = full.iScrollHeight = Scaled(kScrollBar);
    full.iCaptionWidth = full.iCaptionHeight = Scaled(kCaption - 1);
    full.iSmCaptionWidth = full.iSmCaptionHeight = Scaled(kSmallCaption - 1);
    full.iMenuWidth = full.iMenuHeight = Scaled(kMenuBar - 1);
    full.lfCaptionFont = full.lfSmCaptionFont = InterfaceFont(FW_BOLD);
    full.lfMenuFont = full.lfStatusFont = full.lfMessageFont = InterfaceFont(FW_NORMAL);
    std::copy_n(reinterpret_cast<const std::byte*>(&full), full.cbSize, static_cast<std::byte*>(data));
    return true;
}

}  // namespace

int GetSystemMetrics(int index) {
    const State& state = Desk();
    switch (index) {
        case SM_CXSCREEN:
        case SM_CXVIRTUALSCREEN:
            return state.screen.cx;
        case SM_CYSCREEN:
        case SM_CYVIRTUALSCREEN:
            return state.screen.cy;
        case SM_CXVSCROLL:
        case SM_CYHSCROLL:
        case SM_CYVSCROLL:
        case SM_CXHSCROLL:
        case SM_CYVTHUMB:
        case SM_CXHTHUMB:
            return Scaled(kScrollBar);
        case SM_CYCAPTION:
            return Scaled(kCaption);
        case SM_CYSMCAPTION:
            return Scaled(kSmallCaption);
        case SM_CYMENU:
            return Scaled(kMenuBar);
        case SM_CXBORDER:
        case SM_CYBORDER:
            return 1;
        case SM_CXFIXEDFRAME:
        case SM_CYFIXEDFRAME:
            return kFixedFrame;
        case SM_CXSIZEFRAME:
        case SM_CYSIZEFRAME:
            return kSizeFrame;
        case SM_CXEDGE:
        case SM_CYEDGE:
            return kEdge;
        case SM_CXICON:
        case SM_CYICON:
        case SM_CXCURSOR:
        case SM_CYCURSOR:
            return Scaled(kIcon);
        case SM_CXSMICON:
        case SM_CYSMICON:
            return Scaled(kSmallIcon);
        case SM_CXMENUCHECK:
        case SM_CYMENUCHECK:
            return Scaled(15);
        case SM_CXSIZE:
        case SM_CYSIZE:
            return Scaled(kCaption - 1);
        case SM_CXMIN:
        case SM_CXMINTRACK:
            return Scaled(112);
        case SM_CYMIN:
        case SM_CYMINTRACK:
            return Scaled(kCaption) + 2 * kSizeFrame;
        case SM_CXMAXIMIZED:
            return WidthOf(state.workArea) + 2 * kSizeFrame;
        case SM_CYMAXIMIZED:
            return HeightOf(state.workArea) + 2 * kSizeFrame;
        case SM_CXMAXTRACK:
            return state.screen.cx + 4 + 2 * kSizeFrame;
        case SM_CYMAXTRACK:
            return state.screen.cy + 4 + 2 * kSizeFrame;
        case SM_CXMINIMIZED:
            return Scaled(160);
        case SM_CYMINIMIZED:
            return Scaled(kCaption) + 5;
        case SM_CXDOUBLECLK:
        case SM_CYDOUBLECLK:
        case SM_CXDRAG:
        case SM_CYDRAG:
            return 4;
        case SM_CMONITORS:
        case SM_MOUSEPRESENT:
            return 1;
        default:
            return 0;
    }
}

BOOL SystemParametersInfoW(UINT action, UINT size, LPVOID data, UINT) {
    switch (action) {
        case SPI_GETWORKAREA:
            if (!data) return FALSE;
            *static_cast<RECT*>(data) = Desk().workArea;
            return TRUE;
        case SPI_GETNONCLIENTMETRICS:
            if (FillNonClientMetrics(size, data)) return TRUE;
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
        case SPI_GETICONTITLELOGFONT:
            if (!data) return FALSE;
            *static_cast<LOGFONTW*>(data) = InterfaceFont(FW_NORMAL);
            return TRUE;
        case SPI_GETKEYBOARDCUES:
            *static_cast<BOOL*>(data) = FALSE;
            return TRUE;
        case SPI_GETWHEELSCROLLLINES:
            *static_cast<UINT*>(data) = 3;
            return TRUE;
        default:
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
    }
}

HMONITOR MonitorFromRect(LPCRECT rect, DWORD flags) {
    const RECT screen{0, 0, Desk().screen.cx, Desk().screen.cy};
    RECT common{};
    return flags != MONITOR_DEFAULTTONULL || IntersectRect(&common, rect, &screen) ? kMonitor : nullptr;
}

HMONITOR MonitorFromWindow(HWND window, DWORD flags) {
    RECT rect{};
    if (!GetWindowRect(window, &rect)) return flags == MONITOR_DEFAULTTONULL ? nullptr : kMonitor;
    return MonitorFromRect(&rect, flags);
}

BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO* info) {
    if (monitor != kMonitor || !info || info->cbSize < sizeof(MONITORINFO)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    info->rcMonitor = {0, 0, Desk().screen.cx, Desk().screen.cy};
    info->rcWork = Desk().workArea;
    info->dwFlags = MONITORINFOF_PRIMARY;
    return TRUE;
}

UINT GetDpiForWindow(HWND window) {
    return Find(window) ? Desk().dpi : 0;
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle) {
    if (!rect) return FALSE;
    int border = 0;
    if ((exStyle & (WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME)) == WS_EX_STATICEDGE) {
        border = 1;
    } else if ((exStyle & WS_EX_DLGMODALFRAME) || (style & (WS_THICKFRAME | WS_DLGFRAME))) {
        border = kEdge;
    }
    if (style & WS_THICKFRAME) border += kSizeFrame - kFixedFrame;
    if ((style & (WS_BORDER | WS_DLGFRAME)) || (exStyle & WS_EX_DLGMODALFRAME)) ++border;
    InflateRect(rect, border, border);
    if ((style & WS_CAPTION) == WS_CAPTION) {
        rect->top -= GetSystemMetrics(exStyle & WS_EX_TOOLWINDOW ? SM_CYSMCAPTION : SM_CYCAPTION);
    }
    if (menu) rect->top -= GetSystemMetrics(SM_CYMENU);
    if (exStyle & WS_EX_CLIENTEDGE) InflateRect(rect, kEdge, kEdge);
    return TRUE;
}
