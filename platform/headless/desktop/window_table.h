// The windows of the desktop as data: who there is, who lies in whom and above whom. Nothing here sends a message.
// Handles go stale whenever one is sent, so a function that sends looks its windows up again by handle afterwards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/user.h"

namespace qv::headless {

struct WindowClass;

struct ScrollBar {
    int minimum = 0;
    int maximum = 100;
    UINT page = 0;
    int position = 0;
    bool disabled = false;
    bool known = false;  // somebody has set it: it answers even without its style
};

// What the dialog manager keeps for one dialog; there as soon as the dialog's procedure has seen the window.
struct DialogState {
    int defaultId = IDOK;
    bool hasDefault = false;
    HWND savedFocus = nullptr;
    HFONT font = nullptr;
    bool ownsFont = false;
    SIZE baseUnits{};
};

struct Window {
    HWND handle = nullptr;
    WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    // Tree and z-order: the first child is the topmost one. Top-level windows are children of the desktop window.
    Window* parent = nullptr;
    HWND owner = nullptr;
    Window* first = nullptr;
    Window* last = nullptr;
    Window* next = nullptr;
    Window* previous = nullptr;
    // Relative to the parent's client area; the client area is relative to this rectangle's corner.
    RECT place{};
    RECT client{};
    std::wstring text;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    HMENU menu = nullptr;
    std::vector<std::byte> extra;
    ScrollBar bars[2];
    HICON icons[2]{};
    // Placement: the rectangle to restore to, and where it was last minimised and maximised.
    RECT normal{};
    POINT minimised{-1, -1};
    POINT maximised{-1, -1};
    bool restoreToMaximised = false;
    bool sizePending = false;  // an overlapped window hears its first WM_SIZE and WM_MOVE when it is first shown
    bool destroying = false;
    bool redraw = true;
    // Update region: empty unless dirty.
    bool dirty = false;
    bool erase = false;
    RECT update{};
    std::unique_ptr<DialogState> dialog;
};

struct WindowTable {
    // By slot; a handle is a slot number and a count of the slot's uses, so that stale handles are recognised.
    // Slot 0 stays unused, so that no handle is null.
    std::vector<std::unique_ptr<Window>> slots = std::vector<std::unique_ptr<Window>>(1);
    std::vector<std::uint16_t> uses = std::vector<std::uint16_t>(1);
    std::deque<std::size_t> freeSlots;
    // The desktop's own: what top-level windows and message windows are children of.
    Window* root = nullptr;
    Window* messageRoot = nullptr;
    std::size_t liveWindows = 0;
    std::size_t windowLimit = 10000;
    std::size_t failCreation = 0;  // 1 fails the next creation, 0 none
};

[[nodiscard]] WindowTable& Windows();

// Null when there is no slot left. The desktop's own windows are not counted.
[[nodiscard]] HWND TakeSlot(std::unique_ptr<Window> window);
void FreeSlot(HWND handle);
[[nodiscard]] Window* AddRoot(std::unique_ptr<Window> window);

// Null for a handle that is no live window; the second form also leaves the error that calls report then.
[[nodiscard]] Window* Peek(HWND handle) noexcept;
[[nodiscard]] Window* Find(HWND handle) noexcept;
[[nodiscard]] inline HWND HandleOf(const Window* window) noexcept {
    return window ? window->handle : nullptr;
}
[[nodiscard]] inline bool IsChildStyle(const Window& window) noexcept {
    return (window.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}
[[nodiscard]] bool IsTopLevel(const Window& window) noexcept;
[[nodiscard]] Window* TopLevelOf(Window* window) noexcept;
[[nodiscard]] bool IsDescendant(const Window* ancestor, const Window* window) noexcept;
// Visible itself and all its ancestors.
[[nodiscard]] bool IsShown(const Window* window) noexcept;

void Link(Window& window, Window& parent, HWND insertAfter);
void Unlink(Window& window);
// Direct children, topmost first: a copy, since callbacks may change the tree.
[[nodiscard]] std::vector<HWND> ChildrenOf(const Window& window);
// The top-level windows that the window owns, topmost first.
[[nodiscard]] std::vector<HWND> OwnedBy(HWND owner);

}  // namespace qv::headless
