// What has been posted and not retrieved yet, and the timers.
#pragma once

#include <deque>
#include <vector>

#include "platform/headless/desktop/user.h"

namespace qv::headless {

struct Timer {
    HWND window = nullptr;
    UINT_PTR id = 0;
    UINT period = 0;
    TIMERPROC callback = nullptr;
    DWORD due = 0;
};

struct MessageQueue {
    std::deque<MSG> posted;
    bool quitPosted = false;
    int exitCode = 0;
    std::vector<Timer> timers;
    UINT_PTR nextTimer = 1;
    DWORD clock = 0;  // how far waiting for timers has moved the time on
};

[[nodiscard]] MessageQueue& Queue();

// What has been posted to the window, and its timers.
void DropMessages(HWND handle);

}  // namespace qv::headless
