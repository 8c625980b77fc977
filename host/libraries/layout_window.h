// How the layout makes the windows of its rows. Used by the layout alone.
#pragma once

#include <string>

#include "framework/wnd.h"

namespace qv {

// A child window of one of the platform's own classes, attached to its object once it stands: such an object wants
// nothing of the creation, and the hook that would tell it costs about as much as the window itself. False when the
// platform refuses.
[[nodiscard]] bool CreateAttached(CWnd& object, const wchar_t* className, const std::wstring& text, DWORD exStyle,
                                  DWORD style, const RECT& place, const CWnd& page, UINT id);

}  // namespace qv
