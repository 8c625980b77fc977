// How high a field of one line is and where its text stands in it, so that fields of every kind look alike side by
// side. Used by the layout and the choosers.
#pragma once

#include "platform/platform.h"

namespace qv {

// Of a field whose font has lines of that height, in pixels: as high as a closed combo box makes itself. A field writes
// at its top and has no use for more; the resolution is in the line's height.
[[nodiscard]] int TextFieldHeight(int lineHeight);

// From the top of an edit control's window, frame included, down to its line of text, in pixels. The window has its
// height and its font.
[[nodiscard]] int TextTopInField(HWND edit);

// From the top of a closed combo box down to its text.
[[nodiscard]] int TextTopInCombo(HWND combo, int lineHeight);

// Makes a combo box as high as the fields around it, where the platform's is not; it has its font.
void FitComboHeight(HWND combo, int lineHeight);

}  // namespace qv
