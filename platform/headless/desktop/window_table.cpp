#include "platform/headless/desktop/window_table.h"

#include <utility>

namespace qv::headless {

namespace {

// A handle as the platform makes them: the slot below, the number of the slot's use above.
constexpr std::uintptr_t kSlotMask = 0xFFFF;

}  // namespace

WindowTable& Windows() {
    // Never destroyed: windows of modules that unload late still find it.
    static WindowTable& s_table = *new WindowTable;
    return s_table;
}

HWND TakeSlot(std::unique_ptr<Window> window) {
    WindowTable& table = Windows();
    std::size_t slot = 0;
    // Slots rest before they are used again, so that a stale handle stays stale for long.
    constexpr std::size_t kRestingSlots = 256;
    if (table.freeSlots.size() > kRestingSlots || table.slots.size() > kSlotMask) {
        if (table.freeSlots.empty()) return nullptr;
        slot = table.freeSlots.front();
        table.freeSlots.pop_front();
    } else {
        slot = table.slots.size();
        table.slots.emplace_back();
        table.uses.push_back(0);
    }
    table.uses[slot] = static_cast<std::uint16_t>((table.uses[slot] % 0x7FFF) + 1);
    window->handle = reinterpret_cast<HWND>(slot | (static_cast<std::uintptr_t>(table.uses[slot]) << 16));
    const HWND handle = window->handle;
    table.slots[slot] = std::move(window);
    ++table.liveWindows;
    return handle;
}

void FreeSlot(HWND handle) {
    WindowTable& table = Windows();
    const auto slot = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(handle) & kSlotMask);
    table.slots[slot].reset();
    table.freeSlots.push_back(slot);
    --table.liveWindows;
}

Window* AddRoot(std::unique_ptr<Window> window) {
    WindowTable& table = Windows();
    window->handle = reinterpret_cast<HWND>(table.slots.size() | (std::uintptr_t{1} << 16));
    table.uses.push_back(1);
    return table.slots.emplace_back(std::move(window)).get();
}

Window* Peek(HWND handle) noexcept {
    const WindowTable& table = Windows();
    const auto slot = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(handle) & kSlotMask);
    if (slot >= table.slots.size()) return nullptr;
    Window* window = table.slots[slot].get();
    return window && window->handle == handle ? window : nullptr;
}

Window* Find(HWND handle) noexcept {
    Window* window = Peek(handle);
    if (!window) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

bool IsTopLevel(const Window& window) noexcept {
    return window.parent == Windows().root || window.parent == Windows().messageRoot;
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
    for (; window && window != Windows().root; window = window->parent) {
        if (!(window->style & WS_VISIBLE) || window == Windows().messageRoot) return false;
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
    for (const Window* window = Windows().root->first; window; window = window->next) {
        if (window->owner == owner) owned.push_back(window->handle);
    }
    return owned;
}

}  // namespace qv::headless
