// Menus, as the windows need them that own them.
#pragma once

#include <cstddef>

#include "platform/headless/desktop/menu.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

void DestroyMenuOf(Window& window);
[[nodiscard]] std::size_t LiveMenus() noexcept;

}  // namespace qv::headless
