// The keyboard focus inside a top-level dialog, whatever it nests: which push button shows that Enter means it, and
// where the focus goes when the control that has it drops out. For the framework's own files.
#pragma once

#include "framework/wnd.h"

namespace qv::detail {

// The button that Enter presses while no push button has the focus: the dialog's own default button, else its own OK,
// else the OK nearest below it in dialogs that it holds. Null when there is none.
[[nodiscard]] HWND DefaultButtonOf(HWND dialog);

// Frames the push button with the focus, or the default button when none has it, and no other in the whole dialog. For
// moments when the platform may have moved the frame by itself. Nothing happens outside a top-level CDialog, nor while
// the focus is in another window.
void FrameEnterButton(HWND inside);

// From the first to the last of as many calls, this thread's dialogs follow every change of the focus with the frame.
void StartFollowingFocus();
void StopFollowingFocus();

// To be called before the window is disabled: when it or something inside it has the focus in a dialog, the next tab
// stop behind it gets it. The platform would leave it with nobody.
void PassFocusOn(HWND window);

// Gives a focus that nobody has to the dialog's default button, or to whatever the dialog chooses.
void BringFocusBack(HWND dialog);

}  // namespace qv::detail
