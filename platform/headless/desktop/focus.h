// Which windows input goes to.
#pragma once

#include "platform/headless/desktop/user.h"

namespace qv::headless {

struct InputState {
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
};

[[nodiscard]] InputState& Input();

void ActivateAnother(HWND leaving);
[[nodiscard]] bool HasSuccessor(HWND leaving);
[[nodiscard]] bool Activate(HWND handle, bool byMouse, bool setFocus);
void ForgetWindow(HWND handle);

}  // namespace qv::headless
