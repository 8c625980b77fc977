// The state of every key, as GetKeyboardState answers it.
#pragma once

#include <array>

#include "platform/headless/desktop/user.h"

namespace qv::headless {

[[nodiscard]] std::array<BYTE, 256>& Keys();

}  // namespace qv::headless
