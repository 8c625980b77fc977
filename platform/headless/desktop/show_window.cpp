// Showing, hiding, minimising, maximising, and the placement record that remembers all of it.
#include "platform/headless/desktop/show_window.h"

#include <algorithm>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/focus.h"
#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/placement.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

namespace {

constexpr POINT kUnset{-1, -1};

bool IsSet(POINT point) {
    return point.x != kUnset.x || point.y != kUnset.y;
}

RECT MaximisedRect(HWND handle) {
    const MINMAXINFO limits = QueryMinMax(handle);
    const POINT corner = limits.ptMaxPosition;
    const LONG width = std::max(std::min(limits.ptMaxSize.x, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
    const LONG height = std::max(std::min(limits.ptMaxSize.y, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
    return {corner.x, corner.y, Sum(corner.x, width), Sum(corner.y, height)};
}

// Minimised top-level windows line up at the bottom of the work area, children at the bottom of their parent.
RECT MinimisedRect(Window& window) {
    const LONG width = GetSystemMetrics(SM_CXMINIMIZED);
    const LONG height = GetSystemMetrics(SM_CYMINIMIZED);
    if (!IsSet(window.minimised)) {
        const RECT space = IsTopLevel(window)
                               ? Screen().workArea
                               : RECT{0, 0, WidthOf(window.parent->client), HeightOf(window.parent->client)};
        window.minimised = {space.left, space.bottom - height};
    }
    return {window.minimised.x, window.minimised.y, Sum(window.minimised.x, width), Sum(window.minimised.y, height)};
}

}  // namespace

RECT ChangeShowState(Window& window, int show) {
    const HWND handle = window.handle;
    if (!(window.style & (WS_MINIMIZE | WS_MAXIMIZE))) window.normal = window.place;
    switch (show) {
        case SW_MINIMIZE:
        case SW_SHOWMINNOACTIVE:
        case SW_SHOWMINIMIZED:
        case SW_FORCEMINIMIZE:
            window.restoreToMaximised =
                (window.style & WS_MAXIMIZE) != 0 || ((window.style & WS_MINIMIZE) && window.restoreToMaximised);
            window.style = (window.style & ~static_cast<DWORD>(WS_MAXIMIZE)) | WS_MINIMIZE;
            return MinimisedRect(window);
        case SW_SHOWMAXIMIZED: {
            const RECT rect = MaximisedRect(handle);
            Window* again = Peek(handle);
            if (!again) return {};
            again->style = (again->style & ~static_cast<DWORD>(WS_MINIMIZE)) | WS_MAXIMIZE;
            again->restoreToMaximised = true;
            return rect;
        }
        default:
            if (window.style & WS_MINIMIZE) {
                if (window.restoreToMaximised && show != SW_SHOWNORMAL) {
                    const RECT rect = MaximisedRect(handle);
                    Window* again = Peek(handle);
                    if (!again) return {};
                    again->style = (again->style & ~static_cast<DWORD>(WS_MINIMIZE)) | WS_MAXIMIZE;
                    return rect;
                }
            }
            window.style &= ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE);
            window.restoreToMaximised = false;
            return window.normal;
    }
}

namespace {

bool IsMinimising(int show) {
    return show == SW_MINIMIZE || show == SW_SHOWMINNOACTIVE || show == SW_SHOWMINIMIZED || show == SW_FORCEMINIMIZE;
}

bool ChangesState(const Window& window, int show) {
    switch (show) {
        case SW_MINIMIZE:
        case SW_SHOWMINNOACTIVE:
        case SW_SHOWMINIMIZED:
        case SW_FORCEMINIMIZE:
            return !(window.style & WS_MINIMIZE);
        case SW_SHOWMAXIMIZED:
            return !(window.style & WS_MAXIMIZE);
        case SW_SHOWNOACTIVATE:
        case SW_SHOWNORMAL:
        case SW_RESTORE:
        case SW_SHOWDEFAULT:
            return (window.style & (WS_MINIMIZE | WS_MAXIMIZE)) != 0;
        default:
            return false;
    }
}

UINT PositionFlags(const Window& window, int show) {
    constexpr UINT kInPlace = SWP_NOSIZE | SWP_NOMOVE;
    const bool child = IsChildStyle(window);
    UINT flags = SWP_SHOWWINDOW;
    switch (show) {
        case SW_HIDE:
            return SWP_HIDEWINDOW | kInPlace | (child ? SWP_NOACTIVATE | SWP_NOZORDER : 0u);
        case SW_SHOWMINNOACTIVE:
        case SW_MINIMIZE:
        case SW_FORCEMINIMIZE:
        case SW_SHOWNOACTIVATE:
        case SW_SHOWNA:
            flags |= SWP_NOACTIVATE | (show == SW_SHOWNA && !child ? 0u : static_cast<UINT>(SWP_NOZORDER));
            break;
        default:
            break;
    }
    if (ChangesState(window, show)) return flags | SWP_FRAMECHANGED | kSwpStateChanged;
    flags |= kInPlace;
    if (child) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    return flags;
}

// A window that has gone leaves the focus to its parent and the activation to another window.
void LeaveFocus(HWND handle) {
    if (Input().active == handle) ActivateAnother(handle);
    const Window* window = Peek(handle);
    const Window* focus = Peek(Input().focus);
    // A child inside keeps the focus although nobody sees it any more.
    if (!window || focus != window) return;
    const HWND parent = IsTopLevel(*window) ? nullptr : HandleOf(window->parent);
    SetFocus(parent);
}

void SendPendingSize(HWND handle) {
    Window* window = Peek(handle);
    if (!window || !window->sizePending) return;
    window->sizePending = false;
    const RECT client = window->client;
    const POINT origin{window->place.left + client.left, window->place.top + client.top};
    WPARAM kind = SIZE_RESTORED;
    if (window->style & WS_MAXIMIZE) kind = SIZE_MAXIMIZED;
    if (window->style & WS_MINIMIZE) kind = SIZE_MINIMIZED;
    SendMessageW(
        handle, WM_SIZE, kind,
        MAKELPARAM(static_cast<std::uintptr_t>(WidthOf(client)), static_cast<std::uintptr_t>(HeightOf(client))));
    SendMessageW(handle, WM_MOVE, 0,
                 MAKELPARAM(static_cast<std::uintptr_t>(origin.x), static_cast<std::uintptr_t>(origin.y)));
}

void ToggleInHiddenParent(Window& window, bool visible) {
    if (visible) {
        window.style |= WS_VISIBLE;
    } else {
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

BOOL ShowWindow(HWND handle, int show) {
    Window* window = Find(handle);
    if (!window || window == Windows().root) return FALSE;
    if (show < SW_HIDE || show > SW_FORCEMINIMIZE) {
        SetLastError(ERROR_INVALID_SHOWWIN_COMMAND);
        return FALSE;
    }
    const bool wasVisible = (window->style & WS_VISIBLE) != 0;
    const bool visible = show != SW_HIDE;
    const bool changesState = ChangesState(*window, show);
    if (visible == wasVisible && !changesState && show != SW_SHOWNA) return wasVisible;
    if (HasHook(WH_CBT) && changesState &&
        CallHooks(WH_CBT, HCBT_MINMAX, reinterpret_cast<WPARAM>(handle), static_cast<LPARAM>(show)) != 0) {
        return wasVisible;
    }
    const bool wasMinimised = (window->style & WS_MINIMIZE) != 0;
    const UINT flags = PositionFlags(*window, show);
    RECT place = window->place;
    if (changesState && IsMinimising(show) && Input().focus == handle) SetFocus(nullptr);
    if (changesState) {
        place = ChangeShowState(*window, show);
        if (!Peek(handle)) return wasVisible;
    }
    if ((visible != wasVisible || show == SW_SHOWNA) && show != SW_SHOWMAXIMIZED && !changesState) {
        SendMessageW(handle, WM_SHOWWINDOW, visible, 0);
        window = Peek(handle);
        if (!window) return wasVisible;
    }
    const bool toggles = IsChildStyle(*window) && !IsShown(window->parent) && !changesState;
    if (toggles) {
        ToggleInHiddenParent(*window, visible);
    } else {
        static_cast<void>(
            PlaceWindow({handle, HWND_TOP, place.left, place.top, WidthOf(place), HeightOf(place), flags}));
        if (!Peek(handle)) return wasVisible;
    }
    if (!visible) {
        LeaveFocus(handle);
        return wasVisible;
    }
    SendPendingSize(handle);
    window = Peek(handle);
    if (window && wasMinimised && !(window->style & WS_MINIMIZE)) SetFocus(handle);
    if (window && show == SW_MINIMIZE && Input().active == handle && HasSuccessor(handle)) ActivateAnother(handle);
    return wasVisible;
}

BOOL IsWindowVisible(HWND handle) {
    const Window* window = Find(handle);
    return window && (window == Windows().root || IsShown(window));
}

BOOL IsIconic(HWND handle) {
    const Window* window = Find(handle);
    return window && (window->style & WS_MINIMIZE) != 0;
}

BOOL IsZoomed(HWND handle) {
    const Window* window = Find(handle);
    return window && (window->style & WS_MAXIMIZE) != 0;
}

namespace {

// Between screen and workspace coordinates; tool windows and children have no workspace.
POINT WorkspaceOffset(const Window& window) {
    if (!IsTopLevel(window) || (window.exStyle & WS_EX_TOOLWINDOW)) return {0, 0};
    return {Screen().workArea.left, Screen().workArea.top};
}

// A window that would lie off the screen altogether is brought back onto it.
void BringOnScreen(const Window& window, RECT& rect) {
    if (!IsTopLevel(window)) return;
    const ScreenState& screenState = Screen();
    const RECT screen{0, 0, screenState.size.cx, screenState.size.cy};
    RECT common{};
    if (IntersectRect(&common, &rect, &screen)) return;
    const RECT& area = screenState.workArea;
    const LONG width = WidthOf(rect);
    const LONG height = HeightOf(rect);
    rect.left = std::max(area.left, std::min(rect.left, Difference(area.right, width)));
    rect.top = std::max(area.top, std::min(rect.top, Difference(area.bottom, height)));
    rect.right = Sum(rect.left, width);
    rect.bottom = Sum(rect.top, height);
}

}  // namespace

BOOL GetWindowPlacement(HWND handle, WINDOWPLACEMENT* placement) {
    const Window* window = Find(handle);
    if (!window || !placement) return FALSE;
    placement->length = sizeof(WINDOWPLACEMENT);
    placement->flags = 0;
    placement->showCmd = SW_SHOWNORMAL;
    if (window->style & WS_MINIMIZE) {
        placement->showCmd = SW_SHOWMINIMIZED;
        if (window->restoreToMaximised) placement->flags = WPF_RESTORETOMAXIMIZED;
    } else if (window->style & WS_MAXIMIZE) {
        placement->showCmd = SW_SHOWMAXIMIZED;
    }
    placement->ptMinPosition =
        window->style & WS_MINIMIZE ? POINT{window->place.left, window->place.top} : window->minimised;
    placement->ptMaxPosition = window->maximised;
    placement->rcNormalPosition = window->style & (WS_MINIMIZE | WS_MAXIMIZE) ? window->normal : window->place;
    const POINT offset = WorkspaceOffset(*window);
    OffsetRect(&placement->rcNormalPosition, -offset.x, -offset.y);
    return TRUE;
}

BOOL SetWindowPlacement(HWND handle, const WINDOWPLACEMENT* placement) {
    Window* window = Find(handle);
    if (!window || !placement) return FALSE;
    if (placement->length != 0 && placement->length != sizeof(WINDOWPLACEMENT)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    RECT normal = placement->rcNormalPosition;
    const POINT offset = WorkspaceOffset(*window);
    OffsetRect(&normal, offset.x, offset.y);
    BringOnScreen(*window, normal);
    window->maximised = placement->ptMaxPosition;
    window->normal = normal;
    constexpr UINT kQuiet = SWP_NOZORDER | SWP_NOACTIVATE;
    if (window->style & WS_MINIMIZE) {
        if (placement->flags & WPF_SETMINPOSITION) {
            window->minimised = placement->ptMinPosition;
            SetWindowPos(handle, nullptr, window->minimised.x, window->minimised.y, 0, 0, kQuiet | SWP_NOSIZE);
        }
    } else if (window->style & WS_MAXIMIZE) {
        if (IsSet(placement->ptMaxPosition)) {
            SetWindowPos(handle, nullptr, placement->ptMaxPosition.x, placement->ptMaxPosition.y, 0, 0,
                         kQuiet | SWP_NOSIZE);
        }
    } else {
        SetWindowPos(handle, nullptr, normal.left, normal.top, WidthOf(normal), HeightOf(normal), kQuiet);
    }
    if (!Peek(handle)) return TRUE;
    ShowWindow(handle, static_cast<int>(placement->showCmd));
    window = Peek(handle);
    if (!window) return TRUE;
    window->normal = (window->style & (WS_MINIMIZE | WS_MAXIMIZE)) ? normal : window->normal;
    if ((window->style & WS_MINIMIZE) && (placement->flags & WPF_RESTORETOMAXIMIZED)) window->restoreToMaximised = true;
    return TRUE;
}
