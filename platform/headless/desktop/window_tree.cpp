// Creating and destroying windows, and the tree that they form.
#include <algorithm>

#include "platform/headless/desktop/desktop_state.h"

namespace qv::desk {

namespace {

// A handle as the platform makes them: the slot below, the number of the slot's use above.
constexpr std::uintptr_t kSlotMask = 0xFFFF;

HWND TakeSlot(std::unique_ptr<Window> window) {
    State& state = Desk();
    std::size_t slot = 0;
    // Slots rest before they are used again, so that a stale handle stays stale for long.
    constexpr std::size_t kRestingSlots = 256;
    if (state.freeSlots.size() > kRestingSlots || state.slots.size() > kSlotMask) {
        if (state.freeSlots.empty()) return nullptr;
        slot = state.freeSlots.front();
        state.freeSlots.pop_front();
    } else {
        slot = state.slots.size();
        state.slots.emplace_back();
        state.uses.push_back(0);
    }
    state.uses[slot] = static_cast<std::uint16_t>((state.uses[slot] % 0x7FFF) + 1);
    window->handle = reinterpret_cast<HWND>(slot | (static_cast<std::uintptr_t>(state.uses[slot]) << 16));
    const HWND handle = window->handle;
    state.slots[slot] = std::move(window);
    ++state.liveWindows;
    return handle;
}

void FreeSlot(HWND handle) {
    State& state = Desk();
    const auto slot = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(handle) & kSlotMask);
    state.slots[slot].reset();
    state.freeSlots.push_back(slot);
    --state.liveWindows;
}

// The ancestors hear of a child's creation and destruction, unless the child asks for silence.
void NotifyParents(HWND handle, UINT event) {
    const Window* window = Peek(handle);
    if (!window) return;
    const LPARAM source = reinterpret_cast<LPARAM>(handle);
    const WPARAM what = MAKEWPARAM(event, static_cast<std::uintptr_t>(window->id) & 0xFFFF);
    while (window && IsChildStyle(*window) && !(window->exStyle & WS_EX_NOPARENTNOTIFY) && window->parent) {
        const HWND parent = window->parent->handle;
        if (parent == Desk().root->handle) return;
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
    std::erase_if(Desk().timers, [&](const Timer& timer) { return timer.window == handle; });
    DestroyMenuOf(*window);
    Unlink(*window);
    FreeSlot(handle);
}

// The top half: parents hear that they are going before their children do.
void AnnounceDestruction(HWND handle) {
    Window* window = Peek(handle);
    if (!window) return;
    window->destroying = true;
    if (Desk().active == handle) ActivateAnother(handle);
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
    const SIZE screen = Desk().screen;
    if (create.x == CW_USEDEFAULT) create.x = create.y = overlapped ? 26 : 0;
    if (create.cx == CW_USEDEFAULT) {
        create.cx = overlapped ? screen.cx * 3 / 4 - create.x : 0;
        create.cy = overlapped ? screen.cy * 3 / 4 - create.y : 0;
    }
}

}  // namespace

Window* Peek(HWND handle) noexcept {
    const State& state = Desk();
    const auto slot = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(handle) & kSlotMask);
    if (slot >= state.slots.size()) return nullptr;
    Window* window = state.slots[slot].get();
    return window && window->handle == handle ? window : nullptr;
}

Window* Find(HWND handle) noexcept {
    Window* window = Peek(handle);
    if (!window) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

bool IsTopLevel(const Window& window) noexcept {
    return window.parent == Desk().root || window.parent == Desk().messageRoot;
}

Window* TopLevelOf(Window* window) noexcept {
    while (window && window->parent && !IsTopLevel(*window))
        window = window->parent;
    return window;
}

bool IsDescendant(const Window* ancestor, const Window* window) noexcept {
    if (!ancestor || !window) return false;
    for (const Window* up = window->parent; up; up = up->parent) {
        if (up == ancestor) return true;
    }
    return false;
}

bool IsShown(const Window* window) noexcept {
    if (!window) return false;
    for (; window && window != Desk().root; window = window->parent) {
        if (!(window->style & WS_VISIBLE) || window == Desk().messageRoot) return false;
    }
    return true;
}

void Link(Window& window, Window& parent, HWND insertAfter) {
    window.parent = &parent;
    Window* after = nullptr;
    if (insertAfter == HWND_BOTTOM) {
        after = parent.last;
    } else if (insertAfter != HWND_TOP && insertAfter != HWND_TOPMOST && insertAfter != HWND_NOTOPMOST) {
        after = Peek(insertAfter);
        if (after && after->parent != &parent) after = nullptr;
    }
    window.previous = after;
    window.next = after ? after->next : parent.first;
    (window.previous ? window.previous->next : parent.first) = &window;
    (window.next ? window.next->previous : parent.last) = &window;
}

void Unlink(Window& window) {
    if (!window.parent) return;
    (window.previous ? window.previous->next : window.parent->first) = window.next;
    (window.next ? window.next->previous : window.parent->last) = window.previous;
    window.parent = window.next = window.previous = nullptr;
}

std::vector<HWND> ChildrenOf(const Window& window) {
    std::vector<HWND> children;
    for (const Window* child = window.first; child; child = child->next)
        children.push_back(child->handle);
    return children;
}

std::vector<HWND> OwnedBy(HWND owner) {
    std::vector<HWND> owned;
    for (const Window* window = Desk().root->first; window; window = window->next) {
        if (window->owner == owner) owned.push_back(window->handle);
    }
    return owned;
}

}  // namespace qv::desk

using namespace qv::desk;

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param) {
    State& state = Desk();
    WindowClass* windowClass = FindClass(instance, className);
    if (!windowClass) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    const bool isChild = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    Window* parentWindow = parent == HWND_MESSAGE ? state.messageRoot : Peek(parent);
    if (parent && !parentWindow) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    if (isChild && !parentWindow) {
        SetLastError(ERROR_TLW_WITH_WSCHILD);
        return nullptr;
    }
    if (state.liveWindows >= state.windowLimit || (state.failCreation != 0 && --state.failCreation == 0)) {
        SetLastError(ERROR_NO_MORE_USER_HANDLES);
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

    auto fresh = std::make_unique<Window>();
    fresh->windowClass = windowClass;
    fresh->procedure = windowClass->info.lpfnWndProc;
    fresh->instance = instance;
    fresh->style = style & ~static_cast<DWORD>(WS_VISIBLE);
    fresh->exStyle = CompleteExStyle(style, exStyle);
    if (!(style & WS_CHILD)) {
        fresh->style |= WS_CLIPSIBLINGS;
        if (!(style & WS_POPUP)) {
            fresh->style |= WS_CAPTION;
            fresh->exStyle |= WS_EX_WINDOWEDGE;
            fresh->sizePending = true;
        }
    }
    fresh->extra.resize(static_cast<std::size_t>(windowClass->info.cbWndExtra));
    if (isChild) {
        fresh->id = reinterpret_cast<LONG_PTR>(menuOrId);
    } else {
        fresh->menu = menuOrId;
        Window* top = parentWindow == state.messageRoot ? nullptr : TopLevelOf(parentWindow);
        fresh->owner = top == state.root ? nullptr : HandleOf(top);
    }
    Window& treeParent = isChild || parentWindow == state.messageRoot ? *parentWindow : *state.root;
    const HWND handle = TakeSlot(std::move(fresh));
    if (!handle) {
        SetLastError(ERROR_NO_MORE_USER_HANDLES);
        return nullptr;
    }
    Window* window = Peek(handle);
    HWND insertAfter = isChild ? HWND_BOTTOM : HWND_TOP;
    Link(*window, treeParent, insertAfter);

    // Whoever attaches objects to windows does it here, before the window hears its first message.
    CBT_CREATEWNDW hookData{&create, insertAfter};
    if (HasHook(WH_CBT) &&
        CallHooks(WH_CBT, HCBT_CREATEWND, reinterpret_cast<WPARAM>(handle), reinterpret_cast<LPARAM>(&hookData)) != 0) {
        Release(handle);
        return nullptr;
    }
    window = Peek(handle);
    if (!window) return nullptr;
    if (HasTrackSize(window->style)) {
        const MINMAXINFO limits = QueryMinMax(handle);
        window = Peek(handle);
        if (!window) return nullptr;
        create.cx = std::max<int>(std::min<int>(create.cx, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
        create.cy = std::max<int>(std::min<int>(create.cy, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
    }
    create.cx = std::max(create.cx, 0);
    create.cy = std::max(create.cy, 0);
    window->place = window->normal = {create.x, create.y, Sum(create.x, create.cx), Sum(create.y, create.cy)};
    window->client = {0, 0, create.cx, create.cy};

    if (!SendMessageW(handle, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&create))) {
        Release(handle);
        return nullptr;
    }
    window = Peek(handle);
    if (!window) return nullptr;
    CalculateClient(*window);
    if (!Peek(handle)) return nullptr;
    if (SendMessageW(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        Release(handle);
        return nullptr;
    }
    window = Peek(handle);
    if (!window) return nullptr;
    if (!window->sizePending) {
        const RECT client = window->client;
        const POINT origin = IsTopLevel(*window)
                                 ? ClientOrigin(window)
                                 : POINT{window->place.left + client.left, window->place.top + client.top};
        SendMessageW(
            handle, WM_SIZE, SIZE_RESTORED,
            MAKELPARAM(static_cast<std::uintptr_t>(WidthOf(client)), static_cast<std::uintptr_t>(HeightOf(client))));
        SendMessageW(handle, WM_MOVE, 0,
                     MAKELPARAM(static_cast<std::uintptr_t>(origin.x), static_cast<std::uintptr_t>(origin.y)));
    }
    NotifyParents(handle, WM_CREATE);
    if (!Peek(handle)) return nullptr;
    // A window made minimised or maximised takes that state before it is shown.
    if (style & (WS_MINIMIZE | WS_MAXIMIZE)) {
        const int show = style & WS_MAXIMIZE ? SW_SHOWMAXIMIZED : SW_SHOWMINIMIZED;
        window = Peek(handle);
        window->style &= ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE);
        const RECT place = ChangeShowState(*window, show);
        WINDOWPOS position{handle,
                           nullptr,
                           place.left,
                           place.top,
                           WidthOf(place),
                           HeightOf(place),
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | kSwpStateChanged};
        static_cast<void>(PlaceWindow(position));
    }
    if (style & WS_VISIBLE) ShowWindow(handle, SW_SHOW);
    return Peek(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle) {
    Window* window = Find(handle);
    if (!window) return FALSE;
    if (window == Desk().root || window == Desk().messageRoot) {
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
