// The screen and its measures. One monitor; measures are those of the platform's plain theme at 96 dots an inch,
// scaled.
#include "platform/headless/desktop/screen.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

namespace {

constexpr int kUsualWidth = 1920;
constexpr int kUsualHeight = 1200;

// The resolution that the desktop has at first: QV_DPI, so that whole test programs can run at another one.
UINT FirstDpi() {
    const char* text = std::getenv("QV_DPI");
    const int dpi = text != nullptr ? std::atoi(text) : 0;
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

// What QV_SCREEN says ("1366x768"), or as many pixels as make the usual screen as large to the eye at the resolution.
SIZE FirstScreen() {
    SIZE size{};
    if (const char* text = std::getenv("QV_SCREEN"); text != nullptr) {
        char* end = nullptr;
        size.cx = static_cast<LONG>(std::strtol(text, &end, 10));
        if (*end == 'x') size.cy = static_cast<LONG>(std::strtol(end + 1, nullptr, 10));
        if (size.cx > 0 && size.cy > 0) return size;
    }
    const int dpi = static_cast<int>(FirstDpi());
    return {MulDiv(kUsualWidth, dpi, USER_DEFAULT_SCREEN_DPI), MulDiv(kUsualHeight, dpi, USER_DEFAULT_SCREEN_DPI)};
}

}  // namespace

ScreenState::ScreenState() : size(FirstScreen()), workArea{0, 0, size.cx, size.cy}, dpi(FirstDpi()) {}

ScreenState& Screen() {
    static ScreenState s_screen;
    return s_screen;
}

}  // namespace qv::headless

using namespace qv::headless;

namespace {

constexpr int kScrollBar = 17;
constexpr int kCaption = 19;
constexpr int kSmallCaption = 16;
constexpr int kMenuBar = 19;
constexpr int kFixedFrame = 3;
constexpr int kSizeFrame = 4;
constexpr int kEdge = 2;

int Scaled(int pixels) {
    return MulDiv(pixels, static_cast<int>(Screen().dpi), USER_DEFAULT_SCREEN_DPI);
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
    const ScreenState& screen = Screen();
    switch (index) {
        case SM_CXSCREEN:
            return screen.size.cx;
        case SM_CYSCREEN:
            return screen.size.cy;
        case SM_CXVSCROLL:
        case SM_CYHSCROLL:
            return Scaled(kScrollBar);
        case SM_CYCAPTION:
            return Scaled(kCaption);
        case SM_CYSMCAPTION:
            return Scaled(kSmallCaption);
        case SM_CYMENU:
            return Scaled(kMenuBar);
        case SM_CXEDGE:
        case SM_CYEDGE:
            return kEdge;
        case SM_CXMINTRACK:
            return Scaled(112);
        case SM_CYMINTRACK:
            return Scaled(kCaption) + 2 * kSizeFrame;
        case SM_CXMAXTRACK:
            return screen.size.cx + 4 + 2 * kSizeFrame;
        case SM_CYMAXTRACK:
            return screen.size.cy + 4 + 2 * kSizeFrame;
        case SM_CXMINIMIZED:
            return Scaled(160);
        case SM_CYMINIMIZED:
            return Scaled(kCaption) + 5;
        default:
            return 0;
    }
}

BOOL SystemParametersInfoW(UINT action, UINT size, LPVOID data, UINT) {
    switch (action) {
        case SPI_GETWORKAREA:
            if (!data) return FALSE;
            *static_cast<RECT*>(data) = Screen().workArea;
            return TRUE;
        case SPI_GETNONCLIENTMETRICS:
            if (FillNonClientMetrics(size, data)) return TRUE;
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
        case SPI_GETWHEELSCROLLLINES:
            *static_cast<UINT*>(data) = 3;
            return TRUE;
        default:
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
    }
}

HMONITOR MonitorFromRect(LPCRECT rect, DWORD flags) {
    const RECT screen{0, 0, Screen().size.cx, Screen().size.cy};
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
    info->rcMonitor = {0, 0, Screen().size.cx, Screen().size.cy};
    info->rcWork = Screen().workArea;
    info->dwFlags = MONITORINFOF_PRIMARY;
    return TRUE;
}

UINT GetDpiForWindow(HWND window) {
    return Find(window) ? Screen().dpi : 0;
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
