// The one typeface of the desktop in memory: a proportional face in the manner of the platform's 8-point interface
// font. Its widths are a fixed table for a character height of 11 pixels (8 points at 96 dots an inch) in a cell of 13;
// other heights scale it. Bold adds a pixel a character. Nothing here depends on fonts installed on the machine.
#pragma once

#include <string_view>

#include "platform/headless/desktop/gdi.h"

namespace qv::headless {

// The character height in pixels that a font asks for: negative heights are characters, positive ones cells, 0 a
// default.
[[nodiscard]] LONG EmHeight(const LOGFONTW& font) noexcept;
[[nodiscard]] LONG CharWidth(const LOGFONTW& font, wchar_t unit) noexcept;
[[nodiscard]] LONG TextWidth(const LOGFONTW& font, std::wstring_view text) noexcept;
[[nodiscard]] TEXTMETRICW MetricsOf(const LOGFONTW& font) noexcept;

}  // namespace qv::headless
