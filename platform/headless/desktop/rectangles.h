// Where windows are, and arithmetic on coordinates.
#pragma once

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

[[nodiscard]] POINT ClientOrigin(const Window* window) noexcept;
[[nodiscard]] RECT ScreenRect(const Window& window) noexcept;
// Coordinates that callers hand in may be anything: their sums and differences wrap around, as the platform's do.
[[nodiscard]] constexpr LONG Sum(LONG a, LONG b) noexcept {
    return static_cast<LONG>(static_cast<ULONG>(a) + static_cast<ULONG>(b));
}
[[nodiscard]] constexpr LONG Difference(LONG a, LONG b) noexcept {
    return static_cast<LONG>(static_cast<ULONG>(a) - static_cast<ULONG>(b));
}
[[nodiscard]] inline LONG WidthOf(const RECT& rect) noexcept {
    return Difference(rect.right, rect.left);
}
[[nodiscard]] inline LONG HeightOf(const RECT& rect) noexcept {
    return Difference(rect.bottom, rect.top);
}

}  // namespace qv::headless
