// Moving and sizing: the steps that placing, showing and making windows share.
#pragma once

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

// Flags of WINDOWPOS beside the documented ones: they travel from placing a window to its default procedure.
inline constexpr UINT kSwpNoClientSize = 0x0800;
inline constexpr UINT kSwpNoClientMove = 0x1000;
inline constexpr UINT kSwpStateChanged = 0x8000;

[[nodiscard]] MINMAXINFO QueryMinMax(HWND handle);
[[nodiscard]] bool HasTrackSize(DWORD style) noexcept;
// Asks the window for its client rectangle and stores it.
void CalculateClient(Window& window);
[[nodiscard]] bool PlaceWindow(WINDOWPOS position);

}  // namespace qv::headless
