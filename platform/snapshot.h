// A picture of a window as the person at the screen sees it.
#pragma once

#include <string>

#include "platform/platform.h"

namespace qv {

enum class SnapshotResult { Saved, NoScreen, CannotRead, CannotWrite };

// Saves the screen's content under the window's rectangle as a PNG. NoScreen where nothing is drawn (the headless
// build).
[[nodiscard]] SnapshotResult SaveSnapshot(HWND window, const std::wstring& file);

}  // namespace qv
