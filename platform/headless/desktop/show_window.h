// Minimised, maximised and restored.
#pragma once

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

// The rectangle a window gets in its new state.
[[nodiscard]] RECT ChangeShowState(Window& window, int show);

}  // namespace qv::headless
