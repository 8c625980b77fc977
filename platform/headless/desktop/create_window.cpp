// Making and destroying windows, and giving them another parent.
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/headless/desktop/classes.h"
#include "platform/headless/desktop/device_context.h"
#include "platform/headless/desktop/focus.h"
#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/menu_table.h"
#include "platform/headless/desktop/message_queue.h"
#include "platform/headless/desktop/placement.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/show_window.h"

using namespace qv::headless;

namespace {

// The ancestors hear of a child's creation and destruction, unless the child asks for silence.
void NotifyParents(HWND handle, UINT event) {
    const Window* window = Peek(handle);
    if (!window) return;
    const LPARAM source = reinterpret_cast<LPARAM>(handle);
    const WPARAM what = MAKEWPARAM(event, static_cast<std::uintptr_t>(window->id) & 0xFFFF);
    while (window && IsChildStyle(*window) && !(window->exStyle & WS_EX_NOPARENTNOTIFY) && window->parent) {
        const HWND parent = window->parent->handle;
        if (parent == Windows().root->handle) return;
        SendMessageW(parent, WM_PARENTNOTIFY, what, source);
        window = Peek(parent);
    }
}

// The bottom half of destruction: children go before their parent, each with its last message.
void Release(HWND handle) {
    Window* window = Peek(handle);
    if (!window) return;
    for (const HWND child : ChildrenOf(*window))
        Release(child);
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    window = Peek(handle);
    if (!window) return;
    ForgetWindow(handle);
    DropMessages(handle);
    ReleaseContextsOf(handle);
    DestroyMenuOf(*window);
    Unlink(*window);
    FreeSlot(handle);
}

// The top half: parents hear that they are going before their children do.
void AnnounceDestruction(HWND handle) {
    Window* window = Peek(handle);
    if (!window) return;
    window->destroying = true;
    if (Input().active == handle) ActivateAnother(handle);
    SendMessageW(handle, WM_DESTROY, 0, 0);
    window = Peek(handle);
    if (!window) return;
    for (const HWND child : ChildrenOf(*window)) {
        if (Peek(child)) AnnounceDestruction(child);
    }
}

DWORD CompleteExStyle(DWORD style, DWORD exStyle) {
    if ((exStyle & WS_EX_DLGMODALFRAME) || (!(exStyle & WS_EX_STATICEDGE) && (style & (WS_DLGFRAME | WS_THICKFRAME)))) {
        return exStyle | WS_EX_WINDOWEDGE;
    }
    return exStyle & ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
}

// Where "default" leaves a window: overlapped ones somewhere near the corner, with three quarters of the screen.
void ResolveDefaults(CREATESTRUCTW& create) {
    const bool overlapped = !(static_cast<DWORD>(create.style) & (WS_CHILD | WS_POPUP));
    const SIZE screen = Screen().size;
    if (create.x == CW_USEDEFAULT) create.x = create.y = overlapped ? 26 : 0;
    if (create.cx == CW_USEDEFAULT) {
        create.cx = overlapped ? screen.cx * 3 / 4 - create.x : 0;
        create.cy = overlapped ? screen.cy * 3 / 4 - create.y : 0;
    }
}

// What stands in the way of making a window: an error, or ERROR_SUCCESS.
LONG ObstacleTo(const WindowClass* windowClass, DWORD style, HWND parent, const Window* container) {
    if (!windowClass) return ERROR_CANNOT_FIND_WND_CLASS;
    if (parent && !container) return ERROR_INVALID_WINDOW_HANDLE;
    if ((style & (WS_CHILD | WS_POPUP)) == WS_CHILD && !container) return ERROR_TLW_WITH_WSCHILD;
    WindowTable& table = Windows();
    if (table.liveWindows >= table.windowLimit || (table.failCreation != 0 && --table.failCreation == 0)) {
        return ERROR_NO_MORE_USER_HANDLES;
    }
    return ERROR_SUCCESS;
}

void CompleteStyles(Window& window, DWORD style, DWORD exStyle) {
    window.style = style & ~static_cast<DWORD>(WS_VISIBLE);
    window.exStyle = CompleteExStyle(style, exStyle);
    if (style & WS_CHILD) return;
    window.style |= WS_CLIPSIBLINGS;
    if (style & WS_POPUP) return;
    window.style |= WS_CAPTION;
    window.exStyle |= WS_EX_WINDOWEDGE;
    window.sizePending = true;
}

// Into the table and the tree, before it hears of anything. Null when there is no slot left.
HWND Insert(const CREATESTRUCTW& create, WindowClass& windowClass, Window* container) {
    const WindowTable& table = Windows();
    auto fresh = std::make_unique<Window>();
    fresh->windowClass = &windowClass;
    fresh->procedure = windowClass.info.lpfnWndProc;
    fresh->instance = create.hInstance;
    CompleteStyles(*fresh, static_cast<DWORD>(create.style), create.dwExStyle);
    fresh->extra.resize(static_cast<std::size_t>(windowClass.info.cbWndExtra));
    const bool isChild = IsChildStyle(*fresh);
    const bool isMessageOnly = container == table.messageRoot;
    if (isChild) {
        fresh->id = reinterpret_cast<LONG_PTR>(create.hMenu);
    } else {
        fresh->menu = create.hMenu;
        const Window* top = isMessageOnly ? nullptr : TopLevelOf(container);
        fresh->owner = top == table.root ? nullptr : HandleOf(top);
    }
    const HWND handle = TakeSlot(std::move(fresh));
    if (handle)
        Link(*Peek(handle), isChild || isMessageOnly ? *container : *table.root, isChild ? HWND_BOTTOM : HWND_TOP);
    return handle;
}

// Whoever attaches objects to windows does it here, before the window hears its first message. False when a hook
// refused.
bool AskHook(HWND handle, CREATESTRUCTW& create) {
    CBT_CREATEWNDW hookData{&create, IsChildStyle(*Peek(handle)) ? HWND_BOTTOM : HWND_TOP};
    return !HasHook(WH_CBT) || CallHooks(WH_CBT, HCBT_CREATEWND, reinterpret_cast<WPARAM>(handle),
                                         reinterpret_cast<LPARAM>(&hookData)) == 0;
}

// False when the window went while it was asked for its limits.
bool TakeFirstPlace(HWND handle, CREATESTRUCTW& create) {
    Window* window = Peek(handle);
    if (window && HasTrackSize(window->style)) {
        const MINMAXINFO limits = QueryMinMax(handle);
        create.cx = std::max<int>(std::min<int>(create.cx, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
        create.cy = std::max<int>(std::min<int>(create.cy, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
        window = Peek(handle);
    }
    if (!window) return false;
    create.cx = std::max(create.cx, 0);
    create.cy = std::max(create.cy, 0);
    window->place = window->normal = {create.x, create.y, Sum(create.x, create.cx), Sum(create.y, create.cy)};
    window->client = {0, 0, create.cx, create.cy};
    return true;
}

// The window hears that it is made; false when it refused or has gone.
bool AnnounceCreation(HWND handle, CREATESTRUCTW& create) {
    const auto data = reinterpret_cast<LPARAM>(&create);
    if (!SendMessageW(handle, WM_NCCREATE, 0, data)) return false;
    Window* window = Peek(handle);
    if (!window) return false;
    CalculateClient(*window);
    return Peek(handle) && SendMessageW(handle, WM_CREATE, 0, data) != -1 && Peek(handle);
}

void ReportFirstPlace(HWND handle) {
    const Window& window = *Peek(handle);
    if (window.sizePending) return;
    const RECT client = window.client;
    const POINT origin = IsTopLevel(window) ? ClientOrigin(&window)
                                            : POINT{window.place.left + client.left, window.place.top + client.top};
    SendMessageW(
        handle, WM_SIZE, SIZE_RESTORED,
        MAKELPARAM(static_cast<std::uintptr_t>(WidthOf(client)), static_cast<std::uintptr_t>(HeightOf(client))));
    SendMessageW(handle, WM_MOVE, 0,
                 MAKELPARAM(static_cast<std::uintptr_t>(origin.x), static_cast<std::uintptr_t>(origin.y)));
}

// A window made minimised or maximised takes that state before it is shown.
void TakeFirstState(HWND handle, DWORD style) {
    if (!(style & (WS_MINIMIZE | WS_MAXIMIZE))) return;
    Window& window = *Peek(handle);
    // First as a normal window, so that its place is remembered for restoring it.
    window.style &= ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE);
    const RECT place = ChangeShowState(window, style & WS_MAXIMIZE ? SW_SHOWMAXIMIZED : SW_SHOWMINIMIZED);
    static_cast<void>(PlaceWindow({handle, nullptr, place.left, place.top, WidthOf(place), HeightOf(place),
                                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | kSwpStateChanged}));
}

}  // namespace

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param) {
    WindowClass* windowClass = FindClass(instance, className);
    Window* container = parent == HWND_MESSAGE ? Windows().messageRoot : Peek(parent);
    if (const LONG obstacle = ObstacleTo(windowClass, style, parent, container); obstacle != ERROR_SUCCESS) {
        SetLastError(static_cast<DWORD>(obstacle));
        return nullptr;
    }
    CREATESTRUCTW create{.lpCreateParams = param,
                         .hInstance = instance,
                         .hMenu = menuOrId,
                         .hwndParent = parent,
                         .cy = height,
                         .cx = width,
                         .y = y,
                         .x = x,
                         .style = static_cast<LONG>(style),
                         .lpszName = text,
                         .lpszClass = className,
                         .dwExStyle = exStyle};
    ResolveDefaults(create);
    const HWND handle = Insert(create, *windowClass, container);
    if (!handle) {
        SetLastError(ERROR_NO_MORE_USER_HANDLES);
        return nullptr;
    }
    if (!AskHook(handle, create) || !TakeFirstPlace(handle, create) || !AnnounceCreation(handle, create)) {
        Release(handle);
        return nullptr;
    }
    ReportFirstPlace(handle);
    NotifyParents(handle, WM_CREATE);
    if (!Peek(handle)) return nullptr;
    TakeFirstState(handle, style);
    if (style & WS_VISIBLE) ShowWindow(handle, SW_SHOW);
    return Peek(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle) {
    Window* window = Find(handle);
    if (!window) return FALSE;
    if (window == Windows().root || window == Windows().messageRoot) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_DESTROYWND, reinterpret_cast<WPARAM>(handle), 0) != 0) return FALSE;
    if (!Peek(handle)) return TRUE;
    window->destroying = true;
    if (IsChildStyle(*window)) {
        if (!(window->exStyle & WS_EX_NOPARENTNOTIFY)) NotifyParents(handle, WM_DESTROY);
        if (!Peek(handle)) return TRUE;
    }
    if (window->style & WS_VISIBLE) {
        if (IsChildStyle(*window)) {
            ShowWindow(handle, SW_HIDE);
        } else {
            SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
        }
        if (!Peek(handle)) return TRUE;
    }
    if (!IsChildStyle(*window)) {
        for (const HWND owned : OwnedBy(handle)) {
            if (Peek(owned)) DestroyWindow(owned);
        }
        if (!Peek(handle)) return TRUE;
    }
    AnnounceDestruction(handle);
    Release(handle);
    return TRUE;
}

HWND SetParent(HWND handle, HWND parent) {
    Window* window = Find(handle);
    Window* target = parent == HWND_MESSAGE ? Windows().messageRoot : parent ? Find(parent) : Windows().root;
    if (!window || !target) return nullptr;
    if (window == target || IsDescendant(window, target)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const bool wasVisible = ShowWindow(handle, SW_HIDE) != FALSE;
    window = Peek(handle);
    if (!window) return nullptr;
    const HWND old = HandleOf(window->parent);
    Unlink(*window);
    Link(*window, *target, HWND_BOTTOM);
    SetWindowPos(handle, HWND_TOP, window->place.left, window->place.top, 0, 0, SWP_NOSIZE);
    if (wasVisible) ShowWindow(handle, SW_SHOW);
    return old;
}
