// The one screen and its resolution.
#pragma once

#include "platform/headless/desktop/user.h"

namespace qv::headless {

// Pixels; the environment variables QV_DPI and QV_SCREEN ("1366x768") say what a process begins with.
struct ScreenState {
    ScreenState();

    SIZE size{};
    RECT workArea{};
    UINT dpi = USER_DEFAULT_SCREEN_DPI;
};

[[nodiscard]] ScreenState& Screen();

}  // namespace qv::headless
