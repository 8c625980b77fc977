// Questions about windows and their places in the tree: parents, owners, neighbours, searches and enumerations.
#include "platform/headless/base/error.h"
#include "platform/headless/desktop/classes.h"
#include "platform/headless/desktop/window_table.h"

using namespace qv::headless;

BOOL IsWindow(HWND window) {
    return Peek(window) != nullptr;
}

BOOL IsChild(HWND parent, HWND window) {
    const Window* up = Peek(window);
    const Window* ancestor = Peek(parent);
    // A popup ends the chain: it is owned, not contained.
    while (up && ancestor && IsChildStyle(*up)) {
        up = up->parent;
        if (up == ancestor) return TRUE;
    }
    return FALSE;
}

HWND GetParent(HWND handle) {
    const Window* window = Find(handle);
    if (!window) return nullptr;
    if (window->style & WS_POPUP) return window->owner;
    return window->style & WS_CHILD ? HandleOf(window->parent) : nullptr;
}

HWND GetAncestor(HWND handle, UINT which) {
    Window* window = Find(handle);
    if (!window || window == Windows().root) return nullptr;
    switch (which) {
        case GA_PARENT:
            return HandleOf(window->parent);
        case GA_ROOT:
            return HandleOf(TopLevelOf(window));
        case GA_ROOTOWNER:
            while (const HWND up = GetParent(window->handle)) {
                if (up == Windows().root->handle) break;
                window = Peek(up);
            }
            return HandleOf(window);
        default:
            return nullptr;
    }
}

HWND GetWindow(HWND handle, UINT relation) {
    const Window* window = Find(handle);
    if (!window) return nullptr;
    switch (relation) {
        case GW_HWNDFIRST:
            return window->parent ? HandleOf(window->parent->first) : nullptr;
        case GW_HWNDLAST:
            return window->parent ? HandleOf(window->parent->last) : nullptr;
        case GW_HWNDNEXT:
            return HandleOf(window->next);
        case GW_HWNDPREV:
            return HandleOf(window->previous);
        case GW_OWNER:
            return window->owner;
        case GW_CHILD:
            return HandleOf(window->first);
        case GW_ENABLEDPOPUP:
            for (const HWND owned : OwnedBy(handle)) {
                const Window* popup = Peek(owned);
                if (IsShown(popup) && !(popup->style & WS_DISABLED)) return owned;
            }
            return handle;
        default:
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
    }
}

HWND GetDesktopWindow() {
    return Windows().root->handle;
}

HWND FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR text) {
    const Window* start = parent == HWND_MESSAGE ? Windows().messageRoot : parent ? Find(parent) : Windows().root;
    if (!start) return nullptr;
    const Window* window = start->first;
    if (after) {
        const Window* previous = Find(after);
        if (!previous || previous->parent != start) return nullptr;
        window = previous->next;
    }
    const std::wstring wanted = className && !IS_INTRESOURCE(className) ? LowerCase(className) : std::wstring();
    for (; window; window = window->next) {
        if (className) {
            const bool sameClass = IS_INTRESOURCE(className)
                                       ? window->windowClass->atom == reinterpret_cast<UINT_PTR>(className)
                                       : LowerCase(window->windowClass->name) == wanted;
            if (!sameClass) continue;
        }
        if (text && window->text != text) continue;
        return window->handle;
    }
    return nullptr;
}

namespace {

BOOL EnumBelow(HWND parent, WNDENUMPROC callback, LPARAM param) {
    const Window* window = Peek(parent);
    if (!window) return TRUE;
    for (const HWND child : ChildrenOf(*window)) {
        if (!Peek(child)) continue;
        if (!callback(child, param) || !EnumBelow(child, callback, param)) return FALSE;
    }
    return TRUE;
}

}  // namespace

BOOL EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM param) {
    const HWND start = parent ? parent : GetDesktopWindow();
    if (!Find(start)) return FALSE;
    return EnumBelow(start, callback, param);
}

BOOL EnumThreadWindows(DWORD, WNDENUMPROC callback, LPARAM param) {
    for (const HWND window : ChildrenOf(*Windows().root)) {
        if (Peek(window) && !callback(window, param)) return FALSE;
    }
    return TRUE;
}
