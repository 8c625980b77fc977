// Menus as handles: nobody ever sees one, so of its items only the submenus are kept, which go with it. A menu belongs
// to its window once the window's creation has taken it, and dies with that window.
#pragma once

#include "platform/headless/desktop/user.h"

HMENU CreateMenu();
HMENU CreatePopupMenu();
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text);
