// The accessible object of a window that goes by a name of its own. CWnd hands it to accessibility clients; everything
// but what CWnd answers itself comes from the platform's standard object.
#pragma once

#include "framework/wnd.h"

namespace qv {

// The answer to WM_GETOBJECT for the window's client object. 0 or less when none could be made (COM has to be
// initialised on this thread); the default answer then leaves the client with the standard object.
[[nodiscard]] LRESULT AccessibleObjectResult(const CWnd& window, WPARAM wParam);

}  // namespace qv
