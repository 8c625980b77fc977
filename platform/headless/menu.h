// Menus as data: items with identifier, text, state and submenu. A menu belongs to its window once SetMenu or the
// window's creation has taken it, and dies with that window; nobody ever sees one.
#pragma once

#include "platform/headless/user.h"

struct MENUITEMINFOW {
    UINT cbSize;
    UINT fMask;
    UINT fType;
    UINT fState;
    UINT wID;
    HMENU hSubMenu;
    HBITMAP hbmpChecked;
    HBITMAP hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPWSTR dwTypeData;
    UINT cch;
    HBITMAP hbmpItem;
};

HMENU CreateMenu();
HMENU CreatePopupMenu();
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text);
BOOL DeleteMenu(HMENU menu, UINT item, UINT flags);
BOOL RemoveMenu(HMENU menu, UINT item, UINT flags);
BOOL SetMenu(HWND window, HMENU menu);
HMENU GetMenu(HWND window);
HMENU GetSubMenu(HMENU menu, int position);
HMENU GetSystemMenu(HWND window, BOOL revert);
int GetMenuItemCount(HMENU menu);
UINT GetMenuItemID(HMENU menu, int position);
// The previous state, or UINT(-1) when there is no such item.
UINT GetMenuState(HMENU menu, UINT item, UINT flags);
int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int room, UINT flags);
BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags);
DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags);
BOOL GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFOW* info);
BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOW* info);
BOOL DrawMenuBar(HWND window);
