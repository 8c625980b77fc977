// From window handles to the objects attached to them, process-wide. For the framework's own files.
#pragma once

#include "platform/platform.h"

class CWnd;

namespace qv::detail {

// The permanent object of a window, or null.
[[nodiscard]] CWnd* FindPermanent(HWND handle);
void AddPermanent(HWND handle, CWnd* object);
// Does nothing when the window is another object's by now.
void RemovePermanent(HWND handle, const CWnd* object);

// Windows that an object has given up while somebody else's procedure lay above ours: ours stays and passes everything
// on to this one.
void AddPassedOn(HWND handle, WNDPROC procedure);
// The procedure for the window's messages; null for a window that no object has given up. It is asked for the last
// time with WM_NCDESTROY, and then forgotten.
[[nodiscard]] WNDPROC FindPassedOn(HWND handle, UINT message);

}  // namespace qv::detail
