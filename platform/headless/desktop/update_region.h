// What has to be painted again. Regions are bounding rectangles; painting them is painting.cpp's.
#pragma once

#include <deque>

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

// In the order in which they became dirty; some may be clean again, or gone.
[[nodiscard]] std::deque<HWND>& DirtyWindows();

void Invalidate(Window& window, const RECT* rect, bool erase, bool children);
void Validate(Window& window, bool children);

}  // namespace qv::headless
