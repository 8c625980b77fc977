#include <algorithm>
#include <cwchar>
#include <unordered_map>

#include "platform/headless/desktop_state.h"

namespace qv::desk {
namespace {

struct MenuItem {
    UINT id = 0;
    UINT type = MFT_STRING;
    UINT state = 0;
    HMENU submenu = nullptr;
    ULONG_PTR data = 0;
    std::wstring text;
};

struct Menu {
    std::vector<MenuItem> items;
};

std::unordered_map<HMENU, Menu>& Menus() {
    static auto& menus = *new std::unordered_map<HMENU, Menu>;
    return menus;
}

Menu* FindMenu(HMENU handle) {
    const auto found = Menus().find(handle);
    if (found != Menus().end()) return &found->second;
    SetLastError(kErrorInvalidMenuHandle);
    return nullptr;
}

// By command, submenus are searched too. The menu that holds the item is stored where asked for.
MenuItem* FindItem(HMENU handle, UINT item, bool byPosition, HMENU* holder = nullptr) {
    Menu* menu = FindMenu(handle);
    if (!menu) return nullptr;
    if (holder) *holder = handle;
    if (byPosition) return item < menu->items.size() ? &menu->items[item] : nullptr;
    for (MenuItem& candidate : menu->items) {
        if (candidate.submenu && IsMenu(candidate.submenu)) {
            if (MenuItem* inside = FindItem(candidate.submenu, item, false, holder)) return inside;
        } else if (candidate.id == item && !(candidate.type & MFT_SEPARATOR)) {
            if (holder) *holder = handle;
            return &candidate;
        }
    }
    return nullptr;
}

HMENU NewMenu() {
    static std::uintptr_t next = 0x30001;
    const HMENU handle = reinterpret_cast<HMENU>(next++);
    Menus()[handle];
    return handle;
}

void EraseItem(HMENU holder, const MenuItem* item) {
    auto& items = Menus()[holder].items;
    items.erase(items.begin() + (item - items.data()));
}

}  // namespace

std::size_t LiveMenus() noexcept {
    return Menus().size();
}

void DestroyMenuOf(Window& window) {
    if (!IsChildStyle(window) && window.menu && IsMenu(window.menu)) DestroyMenu(window.menu);
}

}  // namespace qv::desk

using namespace qv::desk;

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
    const Menu* menu = FindMenu(handle);
    if (!menu) return FALSE;
    const Menu dying = *menu;
    Menus().erase(handle);
    for (const MenuItem& item : dying.items) {
        if (item.submenu && IsMenu(item.submenu)) DestroyMenu(item.submenu);
    }
    return TRUE;
}

BOOL AppendMenuW(HMENU handle, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text) {
    Menu* menu = FindMenu(handle);
    if (!menu) return FALSE;
    MenuItem item;
    item.id = static_cast<UINT>(idOrSubmenu);
    item.state = flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED);
    if (flags & MF_SEPARATOR) item.type = MFT_SEPARATOR;
    if (flags & MF_POPUP) item.submenu = reinterpret_cast<HMENU>(idOrSubmenu);
    if (!(flags & MF_SEPARATOR) && text) item.text = text;
    menu->items.push_back(std::move(item));
    return TRUE;
}

BOOL RemoveMenu(HMENU handle, UINT item, UINT flags) {
    HMENU holder = nullptr;
    const MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0, &holder);
    if (!found) return FALSE;
    EraseItem(holder, found);
    return TRUE;
}

BOOL DeleteMenu(HMENU handle, UINT item, UINT flags) {
    HMENU holder = nullptr;
    const MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0, &holder);
    if (!found) return FALSE;
    if (found->submenu) DestroyMenu(found->submenu);
    EraseItem(holder, found);
    return TRUE;
}

BOOL SetMenu(HWND handle, HMENU menu) {
    Window* window = Find(handle);
    if (!window || IsChildStyle(*window)) return FALSE;
    if (menu && !FindMenu(menu)) return FALSE;
    window->menu = menu;
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return TRUE;
}

HMENU GetMenu(HWND handle) {
    const Window* window = Find(handle);
    return window && !IsChildStyle(*window) ? window->menu : nullptr;
}

HMENU GetSubMenu(HMENU handle, int position) {
    const MenuItem* item = FindItem(handle, static_cast<UINT>(position), true);
    return item ? item->submenu : nullptr;
}

// System menus exist as one set of items a window, made when first asked for.
HMENU GetSystemMenu(HWND handle, BOOL revert) {
    const Window* window = Find(handle);
    if (!window || !(window->style & WS_SYSMENU)) return nullptr;
    constexpr const wchar_t* kProperty = L"qv system menu";
    const HMENU known = static_cast<HMENU>(GetPropW(handle, kProperty));
    if (revert) {
        if (known) DestroyMenu(known);
        RemovePropW(handle, kProperty);
        return nullptr;
    }
    if (known) return known;
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, SC_RESTORE, L"&Restore");
    AppendMenuW(menu, MF_STRING, SC_MOVE, L"&Move");
    AppendMenuW(menu, MF_STRING, SC_SIZE, L"&Size");
    AppendMenuW(menu, MF_STRING, SC_MINIMIZE, L"Mi&nimize");
    AppendMenuW(menu, MF_STRING, SC_MAXIMIZE, L"Ma&ximize");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, SC_CLOSE, L"&Close\tAlt+F4");
    SetPropW(handle, kProperty, menu);
    return menu;
}

int GetMenuItemCount(HMENU handle) {
    const Menu* menu = FindMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU handle, int position) {
    const MenuItem* item = FindItem(handle, static_cast<UINT>(position), true);
    return item && !item->submenu ? item->id : static_cast<UINT>(-1);
}

UINT GetMenuState(HMENU handle, UINT item, UINT flags) {
    const MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0);
    if (!found) return static_cast<UINT>(-1);
    if (found->submenu) {
        const auto count = static_cast<UINT>(std::max(GetMenuItemCount(found->submenu), 0));
        return (count << 8) | ((found->state | found->type | MF_POPUP) & 0xFF);
    }
    return found->type | found->state;
}

int GetMenuStringW(HMENU handle, UINT item, LPWSTR buffer, int room, UINT flags) {
    const MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0);
    if (!found) return 0;
    if (!buffer || room <= 0) return static_cast<int>(found->text.size());
    const std::size_t length = std::min(found->text.size(), static_cast<std::size_t>(room - 1));
    std::wmemcpy(buffer, found->text.c_str(), length);
    buffer[length] = L'\0';
    return static_cast<int>(length);
}

BOOL EnableMenuItem(HMENU handle, UINT item, UINT flags) {
    MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0);
    if (!found) return -1;
    constexpr UINT kBits = MF_GRAYED | MF_DISABLED;
    const UINT old = found->state & kBits;
    found->state = (found->state & ~kBits) | (flags & kBits);
    return static_cast<BOOL>(old);
}

DWORD CheckMenuItem(HMENU handle, UINT item, UINT flags) {
    MenuItem* found = FindItem(handle, item, (flags & MF_BYPOSITION) != 0);
    if (!found) return static_cast<DWORD>(-1);
    constexpr UINT kBit = MF_CHECKED;
    const UINT old = found->state & kBit;
    found->state = (found->state & ~kBit) | (flags & kBit);
    return old;
}

BOOL GetMenuItemInfoW(HMENU handle, UINT item, BOOL byPosition, MENUITEMINFOW* info) {
    const MenuItem* found = FindItem(handle, item, byPosition != FALSE);
    if (!found || !info) return FALSE;
    if (info->fMask & (MIIM_TYPE | MIIM_FTYPE)) info->fType = found->type;
    if (info->fMask & MIIM_STATE) info->fState = found->state;
    if (info->fMask & MIIM_ID) info->wID = found->id;
    if (info->fMask & MIIM_SUBMENU) info->hSubMenu = found->submenu;
    if (info->fMask & MIIM_DATA) info->dwItemData = found->data;
    if (info->fMask & (MIIM_TYPE | MIIM_STRING)) {
        const auto length = static_cast<UINT>(found->text.size());
        if (info->dwTypeData && info->cch) {
            const UINT copied = std::min(length, info->cch - 1);
            std::wmemcpy(info->dwTypeData, found->text.c_str(), copied);
            info->dwTypeData[copied] = L'\0';
            info->cch = copied;
        } else {
            info->cch = length;
        }
    }
    return TRUE;
}

BOOL SetMenuItemInfoW(HMENU handle, UINT item, BOOL byPosition, const MENUITEMINFOW* info) {
    MenuItem* found = FindItem(handle, item, byPosition != FALSE);
    if (!found || !info) return FALSE;
    if (info->fMask & (MIIM_TYPE | MIIM_FTYPE)) found->type = info->fType;
    if (info->fMask & MIIM_STATE) found->state = info->fState;
    if (info->fMask & MIIM_ID) found->id = info->wID;
    if (info->fMask & MIIM_SUBMENU) found->submenu = info->hSubMenu;
    if (info->fMask & MIIM_DATA) found->data = info->dwItemData;
    if ((info->fMask & (MIIM_TYPE | MIIM_STRING)) && info->dwTypeData) found->text = info->dwTypeData;
    return TRUE;
}

BOOL DrawMenuBar(HWND window) {
    return Find(window) != nullptr;
}
