// Device contexts, as the rest of the desktop needs them.
#pragma once

#include <cstddef>

#include "platform/headless/desktop/gdi.h"

namespace qv::headless {

void ReleaseContextsOf(HWND handle);
[[nodiscard]] std::size_t LiveContexts() noexcept;
[[nodiscard]] HFONT FontSelectedInto(HDC dc) noexcept;

}  // namespace qv::headless
