// What the framework's tests share: a visible top-level window to stand on, and a dialog that a test drives from the
// idle handler of its modal loop, as a person would.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "framework/app.h"
#include "framework/dialog.h"
#include "platform/user.h"

// A top-level window of the framework's plain class, visible and active.
class TopWindow : public CWnd {
public:
    explicit TopWindow(const RECT& rect = {50, 50, 650, 450}) {
        CreateEx(0, nullptr, L"top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, rect, nullptr, 0);
        ::SetActiveWindow(m_hWnd);
        PumpPending();
    }
};

inline qv::User MakeUser() {
    return qv::User([] { PumpPending(); });
}

// Sets an idle handler for its lifetime that runs the steps one after the other.
class Script {
public:
    explicit Script(std::vector<std::function<void()>> steps) {
        m_previous = SetIdleHandler([steps = std::move(steps), next = std::size_t{0}](int) mutable {
            if (next == steps.size()) return false;
            // Counted first, since a step may run a loop of its own.
            steps[next++]();
            return true;
        });
    }
    ~Script() { SetIdleHandler(m_previous); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

private:
    IdleHandler m_previous;
};
