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
#include "tests/support/dialog_template.h"
#include "tests/support/scoped.h"

using Builder = qvtest::DialogTemplateBuilder;

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

// Runs the steps one after the other when a loop is idle.
class Script : public qvtest::ScopedIdleHandler {
public:
    explicit Script(std::vector<std::function<void()>> steps)
        : qvtest::ScopedIdleHandler([steps = std::move(steps), next = std::size_t{0}](int) mutable {
              if (next == steps.size()) return false;
              // Counted first, since a step may run a loop of its own.
              steps[next++]();
              return true;
          }) {}
};
