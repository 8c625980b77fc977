// Dialog templates and the windows made from them: what dialogs, property pages and form views share. Used inside the
// framework only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "framework/wnd.h"

namespace qv::detail {

// The bytes of a template resource of the current module; empty when there is none with that number.
[[nodiscard]] std::span<const std::byte> FindDialogTemplate(UINT id);

// A copy with styles taken away and added, aligned as the platform wants it. Both template formats are understood.
// Empty for bytes too few to be a template.
[[nodiscard]] std::vector<DWORD> RestyledTemplate(std::span<const std::byte> dialogTemplate, DWORD remove, DWORD add,
                                                  DWORD addExtended);

// Makes the window and attaches the object before its first message; WM_INITDIALOG goes to the object. Null when the
// window could not be created, or went again on the way; the object is unattached then and stays its creator's.
HWND CreateFromDialogTemplate(CWnd& object, const DWORD* dialogTemplate, HWND parent);

}  // namespace qv::detail
