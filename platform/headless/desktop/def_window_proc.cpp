// What a window does when its own procedure has no opinion.
#include <algorithm>
#include <cwchar>
#include <utility>

#include "platform/headless/desktop/classes.h"
#include "platform/headless/desktop/focus.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/menu.h"
#include "platform/headless/desktop/placement.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {
namespace {

LRESULT CalculateClientDefault(const Window& window, RECT& rect) {
    if (window.style & WS_MINIMIZE) {
        rect.right = rect.left;
        rect.bottom = rect.top;
        return 0;
    }
    RECT frame{};
    AdjustWindowRectEx(&frame, window.style, FALSE, window.exStyle);
    rect.left -= frame.left;
    rect.top -= frame.top;
    rect.right -= frame.right;
    rect.bottom -= frame.bottom;
    if (!IsChildStyle(window) && window.menu && IsMenu(window.menu)) rect.top += GetSystemMetrics(SM_CYMENU);
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    if ((window.style & WS_VSCROLL) && WidthOf(rect) >= bar) {
        if (window.exStyle & WS_EX_LEFTSCROLLBAR) {
            rect.left += bar;
        } else {
            rect.right -= bar;
        }
    }
    if ((window.style & WS_HSCROLL) && HeightOf(rect) > bar) rect.bottom -= bar;
    rect.right = std::max(rect.right, rect.left);
    rect.bottom = std::max(rect.bottom, rect.top);
    return 0;
}

// Sizes in a position change obey the window's limits.
void LimitSize(HWND handle, WINDOWPOS& position) {
    const Window* window = Peek(handle);
    if ((position.flags & SWP_NOSIZE) || !HasTrackSize(window->style)) return;
    const MINMAXINFO limits = QueryMinMax(handle);
    window = Peek(handle);
    if (!window) return;
    position.cx = std::min<int>(position.cx, limits.ptMaxTrackSize.x);
    position.cy = std::min<int>(position.cy, limits.ptMaxTrackSize.y);
    if (!(window->style & WS_MINIMIZE)) {
        position.cx = std::max<int>(position.cx, limits.ptMinTrackSize.x);
        position.cy = std::max<int>(position.cy, limits.ptMinTrackSize.y);
    }
}

// Moves and sizes become the messages that most windows listen to.
void ReportPosition(HWND handle, const WINDOWPOS& position) {
    const Window* window = Peek(handle);
    const RECT client = window->client;
    if (!(position.flags & kSwpNoClientMove)) {
        const POINT corner{window->place.left + client.left, window->place.top + client.top};
        SendMessageW(handle, WM_MOVE, 0,
                     MAKELPARAM(static_cast<std::uintptr_t>(corner.x), static_cast<std::uintptr_t>(corner.y)));
        window = Peek(handle);
    }
    if (window && (!(position.flags & kSwpNoClientSize) || (position.flags & kSwpStateChanged))) {
        WPARAM kind = SIZE_RESTORED;
        if (window->style & WS_MAXIMIZE) kind = SIZE_MAXIMIZED;
        if (window->style & WS_MINIMIZE) kind = SIZE_MINIMIZED;
        SendMessageW(handle, WM_SIZE, kind,
                     MAKELPARAM(static_cast<std::uintptr_t>(WidthOf(window->client)),
                                static_cast<std::uintptr_t>(HeightOf(window->client))));
    }
}

LRESULT CopyText(const Window& window, WPARAM room, wchar_t* buffer) {
    if (!buffer || room == 0) return 0;
    const std::size_t length = std::min(window.text.size(), static_cast<std::size_t>(room - 1));
    std::wmemcpy(buffer, window.text.c_str(), length);
    buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

LRESULT SystemCommand(HWND handle, WPARAM wParam) {
    constexpr WPARAM kCommandMask = 0xFFF0;
    if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_SYSCOMMAND, wParam, 0) != 0) return 0;
    switch (wParam & kCommandMask) {
        case SC_CLOSE:
            return SendMessageW(handle, WM_CLOSE, 0, 0);
        case SC_MINIMIZE:
            ShowWindow(handle, SW_MINIMIZE);
            return 0;
        case SC_MAXIMIZE:
            ShowWindow(handle, SW_MAXIMIZE);
            return 0;
        case SC_RESTORE:
            ShowWindow(handle, SW_RESTORE);
            return 0;
        default:
            return 0;
    }
}

LRESULT HitTest(const Window& window, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const RECT frame = ScreenRect(window);
    if (!PtInRect(&frame, point)) return HTNOWHERE;
    RECT client = window.client;
    OffsetRect(&client, frame.left, frame.top);
    if (PtInRect(&client, point)) return HTCLIENT;
    if (point.x >= client.right && (window.style & WS_VSCROLL)) return HTVSCROLL;
    if (point.y >= client.bottom && (window.style & WS_HSCROLL)) return HTHSCROLL;
    return (window.style & WS_CAPTION) == WS_CAPTION && point.y < client.top ? HTCAPTION : HTBORDER;
}

// A click in a child asks its ancestors first; without a word from them it activates.
LRESULT MouseActivate(const Window& window, WPARAM wParam, LPARAM lParam) {
    if (IsChildStyle(window) && window.parent && window.parent != Windows().root) {
        const LRESULT answer = SendMessageW(window.parent->handle, WM_MOUSEACTIVATE, wParam, lParam);
        if (answer) return answer;
    }
    return LOWORD(static_cast<std::uintptr_t>(lParam)) == HTCAPTION ? MA_NOACTIVATE : MA_ACTIVATE;
}

// Alt+F4 and the Alt key belong to the top-level window.
LRESULT SystemKey(HWND handle, WPARAM key, LPARAM bits) {
    Window* top = TopLevelOf(Peek(handle));
    // System keys without Alt are those of a time when nobody has the focus.
    const bool alt = (HIWORD(static_cast<std::uintptr_t>(bits)) & KF_ALTDOWN) != 0;
    if (key == VK_F4 && alt && top && !(GetClassLongPtrW(top->handle, GCL_STYLE) & CS_NOCLOSE)) {
        PostMessageW(top->handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
    return 0;
}

LRESULT ControlColour(HDC dc, UINT message) {
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(field ? COLOR_WINDOW : COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(field ? COLOR_WINDOW : COLOR_3DFACE));
}

LRESULT SetRedraw(Window& window, bool on) {
    window.redraw = on;
    if (on) {
        window.style |= WS_VISIBLE;
    } else {
        Validate(window, true);
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
    return 0;
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Peek(handle);
    if (!window) return 0;
    switch (message) {
        case WM_NCCREATE: {
            const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
            if (create && create->lpszName && !IS_INTRESOURCE(create->lpszName)) window->text = create->lpszName;
            return TRUE;
        }
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_QUERYENDSESSION:
            return TRUE;

        case WM_NCCALCSIZE:
            return CalculateClientDefault(*window, *reinterpret_cast<RECT*>(lParam));
        case WM_WINDOWPOSCHANGING:
            LimitSize(handle, *reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        case WM_WINDOWPOSCHANGED:
            ReportPosition(handle, *reinterpret_cast<const WINDOWPOS*>(lParam));
            return 0;
        case WM_NCHITTEST:
            return HitTest(*window, lParam);
        case WM_SHOWWINDOW:
            // Sent because the owner was minimised or restored, not because anyone asked for this window.
            if (lParam && !IsChildStyle(*window)) ShowWindow(handle, wParam ? SW_SHOWNOACTIVATE : SW_HIDE);
            return 0;

        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE && !(window->style & WS_MINIMIZE)) SetFocus(handle);
            return 0;
        case WM_NCACTIVATE:
            return TRUE;
        case WM_MOUSEACTIVATE:
            return MouseActivate(*window, wParam, lParam);
        case WM_CANCELMODE:
            if (Input().capture == handle) ReleaseCapture();
            return 0;

        case WM_SETTEXT:
            window->text = lParam ? reinterpret_cast<const wchar_t*>(lParam) : L"";
            return TRUE;
        case WM_GETTEXT:
            return CopyText(*window, wParam, reinterpret_cast<wchar_t*>(lParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_SETREDRAW:
            return SetRedraw(*window, wParam != 0);
        case WM_SETICON:
            if (wParam <= ICON_BIG) {
                return reinterpret_cast<LRESULT>(std::exchange(window->icons[wParam], reinterpret_cast<HICON>(lParam)));
            }
            return 0;
        case WM_GETICON:
            return reinterpret_cast<LRESULT>(window->icons[wParam == ICON_BIG ? ICON_BIG : ICON_SMALL]);
        case WM_NOTIFYFORMAT:
            return lParam == NF_QUERY ? NFR_UNICODE : 0;

        case WM_PAINT: {
            PAINTSTRUCT paint{};
            BeginPaint(handle, &paint);
            EndPaint(handle, &paint);
            return 0;
        }
        case WM_ERASEBKGND:
            return window->windowClass->info.hbrBackground != nullptr;
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORSCROLLBAR:
            return ControlColour(reinterpret_cast<HDC>(wParam), message);

        case WM_SYSCOMMAND:
            return SystemCommand(handle, wParam);
        case WM_SYSKEYDOWN:
            return SystemKey(handle, wParam, lParam);
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case WM_CONTEXTMENU:
        case WM_HELP:
            // What nobody here wants may interest the parent.
            if (IsChildStyle(*window) && window->parent && window->parent != Windows().root) {
                return SendMessageW(window->parent->handle, message, wParam, lParam);
            }
            return 0;
        case WM_RBUTTONUP: {
            POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            ClientToScreen(handle, &point);
            SendMessageW(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                         MAKELPARAM(static_cast<std::uintptr_t>(point.x), static_cast<std::uintptr_t>(point.y)));
            return 0;
        }
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
            return -1;
        default:
            return 0;
    }
}
