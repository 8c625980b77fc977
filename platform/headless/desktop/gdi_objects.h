// Fonts, brushes and pens, as the rest of the desktop needs them.
#pragma once

#include <cstddef>

#include "platform/headless/desktop/gdi.h"

namespace qv::headless {

[[nodiscard]] std::size_t LiveFonts() noexcept;
[[nodiscard]] std::size_t LiveObjects() noexcept;
// Null for anything that is no font.
[[nodiscard]] const LOGFONTW* FontOf(HGDIOBJ object) noexcept;

}  // namespace qv::headless
