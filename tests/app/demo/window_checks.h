// What a person sees at a glance and a test has to measure: whether the text of a window fits it, whether windows cover
// each other, whether Tab follows the eye. Each check adds what is wrong to the running test's failures.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace qvtest {

// Where a window stands and what it says, for failure messages.
[[nodiscard]] std::string Describe(HWND window);
[[nodiscard]] std::wstring ClassOf(HWND window);

// The visible children of a window, front to back.
[[nodiscard]] std::vector<HWND> VisibleChildren(HWND parent);

// Labels, buttons, every entry of a combo box or list, and the height of a field's line.
void CheckTextFits(HWND window);
void CheckTabTitlesFit(HWND tabs);
void CheckNoOverlap(HWND parent);
void CheckInside(HWND parent);

// From the top of the screen to the line of text of a field (an edit control or a closed combo box), or of a list's
// first entry when it is not scrolled, in pixels. Asked of the control; where it does not tell, the text is in its
// middle.
[[nodiscard]] LONG TextTopOnScreen(HWND field);

// A window's place on the screen.
[[nodiscard]] RECT OnScreen(HWND window);

// From the first control of a page on, Tab goes down the page and then on to what is outside it.
void CheckTabOrder(HWND dialog, HWND page);

// Name, role and place as an accessibility client gets them.
struct AccessibleFacts {
    std::wstring name;
    LONG role = 0;
    RECT place{};
};
[[nodiscard]] AccessibleFacts AskAccessible(HWND window);

}  // namespace qvtest
