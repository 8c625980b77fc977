// Focus, activation, mouse capture, and what disabling a window does to them.
#include "platform/headless/desktop/focus.h"

#include <utility>

#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

InputState& Input() {
    static InputState s_input;
    return s_input;
}

namespace {

bool CanActivate(const Window* window) {
    constexpr DWORD kBarred = WS_MINIMIZE | WS_DISABLED;
    return window && window->parent == Windows().root && !IsChildStyle(*window) && (window->style & WS_VISIBLE) &&
           !(window->style & kBarred) && !(window->exStyle & WS_EX_NOACTIVATE) && !window->destroying;
}

// The messages of a change of focus: the old window hears first, and may take the change elsewhere.
void MoveFocus(HWND to) {
    InputState& input = Input();
    const HWND from = std::exchange(input.focus, to);
    if (from == to) return;
    if (Peek(from)) {
        SendMessageW(from, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
        if (input.focus != to) return;
    }
    if (Peek(to)) SendMessageW(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(Peek(from) ? from : nullptr), 0);
}

bool FocusLiesIn(HWND top) {
    const Window* focus = Peek(Input().focus);
    const Window* window = Peek(top);
    return focus && window && (focus == window || IsDescendant(window, focus));
}

}  // namespace

bool Activate(HWND handle, bool byMouse, bool setFocus) {
    const HWND previous = Input().active;
    if (previous == handle) return true;
    if (HasHook(WH_CBT) && handle) {
        struct {
            BOOL fMouse;
            HWND hWndActive;
        } activation{byMouse, previous};
        if (CallHooks(WH_CBT, HCBT_ACTIVATE, reinterpret_cast<WPARAM>(handle), reinterpret_cast<LPARAM>(&activation))) {
            return false;
        }
    }
    if (const Window* old = Peek(previous)) {
        const bool minimised = (old->style & WS_MINIMIZE) != 0;
        SendMessageW(previous, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(handle));
        SendMessageW(previous, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, minimised), reinterpret_cast<LPARAM>(handle));
    }
    Input().active = handle;
    if (!handle) {
        SendMessageW(previous, WM_ACTIVATEAPP, FALSE, 0);
        MoveFocus(nullptr);
        return true;
    }
    Window* window = Peek(handle);
    if (!window) {
        Input().active = nullptr;
        return false;
    }
    if (window->previous && window->parent == Windows().root) {
        Window& parent = *window->parent;
        Unlink(*window);
        Link(*window, parent, HWND_TOP);
    }
    if (!previous) SendMessageW(handle, WM_ACTIVATEAPP, TRUE, 0);
    window = Peek(handle);
    if (!window || Input().active != handle) return window != nullptr;
    const bool minimised = (window->style & WS_MINIMIZE) != 0;
    const LPARAM other = reinterpret_cast<LPARAM>(Peek(previous) ? previous : nullptr);
    SendMessageW(handle, WM_NCACTIVATE, TRUE, other);
    SendMessageW(handle, WM_ACTIVATE, MAKEWPARAM(byMouse ? WA_CLICKACTIVE : WA_ACTIVE, minimised), other);
    if (setFocus && Input().active == handle && !FocusLiesIn(handle) && Peek(handle)) MoveFocus(handle);
    return Peek(handle) != nullptr;
}

namespace {

// The owner of a window that goes is the natural successor, then whatever lies next below it, then the topmost one.
HWND SuccessorOf(const Window& leaving) {
    if (CanActivate(Peek(leaving.owner))) return leaving.owner;
    for (const Window* below = leaving.next; below; below = below->next) {
        if (CanActivate(below)) return below->handle;
    }
    for (const Window* other = Windows().root->first; other; other = other->next) {
        if (other != &leaving && CanActivate(other)) return other->handle;
    }
    return nullptr;
}

}  // namespace

bool HasSuccessor(HWND leaving) {
    const Window* window = Peek(leaving);
    return window && SuccessorOf(*window) != nullptr;
}

void ActivateAnother(HWND leaving) {
    if (const Window* window = Peek(leaving)) static_cast<void>(Activate(SuccessorOf(*window), false, true));
}

void ForgetWindow(HWND handle) {
    InputState& input = Input();
    if (input.focus == handle) input.focus = nullptr;
    if (input.active == handle) input.active = nullptr;
    if (input.capture == handle) input.capture = nullptr;
}

}  // namespace qv::headless

using namespace qv::headless;

HWND SetFocus(HWND handle) {
    InputState& input = Input();
    const HWND previous = input.focus;
    if (!handle) {
        if (!previous) return nullptr;
        if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_SETFOCUS, 0, reinterpret_cast<LPARAM>(previous))) return nullptr;
        MoveFocus(nullptr);
        return previous;
    }
    const Window* window = Find(handle);
    if (!window) return nullptr;
    if (handle == previous) return previous;
    // Neither the window nor anything around it may be minimised or disabled.
    for (const Window* up = window;; up = up->parent) {
        if (up->style & (WS_MINIMIZE | WS_DISABLED)) return nullptr;
        if (!IsChildStyle(*up) || IsTopLevel(*up)) break;
    }
    if (HasHook(WH_CBT) &&
        CallHooks(WH_CBT, HCBT_SETFOCUS, reinterpret_cast<WPARAM>(handle), reinterpret_cast<LPARAM>(previous)) != 0) {
        return nullptr;
    }
    window = Peek(handle);
    if (!window) return nullptr;
    const Window* top = TopLevelOf(Peek(handle));
    if (top->handle != input.active) {
        if (!Activate(top->handle, false, false) || !Peek(handle)) return nullptr;
    }
    MoveFocus(handle);
    return Peek(previous) ? previous : nullptr;
}

HWND GetFocus() {
    return Input().focus;
}
HWND GetActiveWindow() {
    return Input().active;
}
HWND GetForegroundWindow() {
    return Input().active;
}

HWND SetActiveWindow(HWND handle) {
    const HWND previous = Input().active;
    if (!handle) {
        static_cast<void>(Activate(nullptr, false, true));
        return previous;
    }
    const Window* window = Find(handle);
    if (!window || IsChildStyle(*window) || (window->style & WS_DISABLED)) return nullptr;
    return Activate(handle, false, true) ? previous : nullptr;
}

BOOL SetForegroundWindow(HWND handle) {
    Window* window = TopLevelOf(Find(handle));
    if (!window || window == Windows().root) return FALSE;
    return Activate(window->handle, false, true);
}

HWND SetCapture(HWND handle) {
    if (handle && !Find(handle)) return nullptr;
    const HWND previous = std::exchange(Input().capture, handle);
    if (Peek(previous)) SendMessageW(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(handle));
    return previous;
}

BOOL ReleaseCapture() {
    if (Input().capture) SetCapture(nullptr);
    return TRUE;
}

HWND GetCapture() {
    return Input().capture;
}

// True when the window was disabled before.
BOOL EnableWindow(HWND handle, BOOL enable) {
    Window* window = Find(handle);
    if (!window) return FALSE;
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (enable) {
        if (!wasDisabled) return FALSE;
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
        SendMessageW(handle, WM_ENABLE, TRUE, 0);
        return TRUE;
    }
    SendMessageW(handle, WM_CANCELMODE, 0, 0);
    window = Peek(handle);
    if (!window || wasDisabled) return wasDisabled;
    window->style |= WS_DISABLED;
    // A disabled window cannot have the focus; its children keep theirs.
    if (Input().focus == handle) SetFocus(nullptr);
    const HWND capture = Input().capture;
    if (capture == handle || IsChild(handle, capture)) ReleaseCapture();
    if (Peek(handle)) SendMessageW(handle, WM_ENABLE, FALSE, 0);
    return FALSE;
}

BOOL IsWindowEnabled(HWND handle) {
    const Window* window = Find(handle);
    return window && !(window->style & WS_DISABLED);
}
