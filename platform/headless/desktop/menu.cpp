#include "platform/headless/desktop/menu_table.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {
namespace {

// Every live menu with its submenus. Never destroyed, as the windows that have them are not.
std::unordered_map<HMENU, std::vector<HMENU>>& Menus() {
    static auto& menus = *new std::unordered_map<HMENU, std::vector<HMENU>>;
    return menus;
}

HMENU NewMenu() {
    static std::uintptr_t next = 0x30001;  // apart from the handles of other things
    const HMENU handle = reinterpret_cast<HMENU>(next++);
    Menus().try_emplace(handle);
    return handle;
}

}  // namespace

std::size_t LiveMenus() noexcept {
    return Menus().size();
}

void DestroyMenuOf(Window& window) {
    if (!IsChildStyle(window) && window.menu && IsMenu(window.menu)) DestroyMenu(window.menu);
}

}  // namespace qv::headless

using namespace qv::headless;

HMENU CreateMenu() {
    return NewMenu();
}
HMENU CreatePopupMenu() {
    return NewMenu();
}
BOOL IsMenu(HMENU menu) {
    return Menus().contains(menu);
}

BOOL DestroyMenu(HMENU handle) {
    const auto found = Menus().find(handle);
    if (found == Menus().end()) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    const std::vector<HMENU> submenus = std::move(found->second);
    Menus().erase(found);
    for (const HMENU submenu : submenus) {
        if (IsMenu(submenu)) DestroyMenu(submenu);
    }
    return TRUE;
}

BOOL AppendMenuW(HMENU handle, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR) {
    const auto found = Menus().find(handle);
    if (found == Menus().end()) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    if (flags & MF_POPUP) found->second.push_back(reinterpret_cast<HMENU>(idOrSubmenu));
    return TRUE;
}
