// Dialogs, as their keys and items need them.
#pragma once

#include <deque>

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

// The class of dialogs.
inline constexpr ATOM kDialogAtom = 32770;

[[nodiscard]] DialogState* DialogOf(HWND handle) noexcept;
LRESULT DialogWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Of message boxes, in the order in which they will be shown.
[[nodiscard]] std::deque<int>& MessageBoxAnswers();

}  // namespace qv::headless
