// The window procedure that every window with an object has, and the window class that begins with it. For the
// framework's own files.
#pragma once

#include "framework/wnd.h"

namespace qv::detail {

// The name of the framework's own window class, registered on first use.
[[nodiscard]] const wchar_t* PlainClassName();

// Tells the windows around a control that the focus came to it (WM_SETFOCUS), once no mouse button is down any more
// (WM_LBUTTONUP). Called with the messages of windows that have an object, and by the loop for those that have none.
void AnnounceFocus(HWND window, UINT message);

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// The way into CWnd's private parts.
struct WindowAccess {
    static void AttachRouted(CWnd& object, HWND window);
    static LRESULT Dispatch(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam);
    // Before and after the window's destruction.
    static void BeginEnd(CWnd& object);
    static void FinishEnd(CWnd& object);
    static int& Creations(CWnd& object) { return object.m_creations; }
    static void Forget(CWnd& object) { object.Forget(); }
};

}  // namespace qv::detail
