// Which push buttons below a window wear the frame that says "Enter presses me". Counts by class and style, in every
// window below, shown or not.
#pragma once

#include <vector>

#include "platform/platform.h"

namespace qvtest {

[[nodiscard]] std::vector<HWND> FramedButtons(HWND top);

}  // namespace qvtest
