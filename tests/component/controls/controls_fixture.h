// A window that stands for the settings page, with every notification and message box on record.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/controls.h"
#include "tests/support/recorders.h"

struct PageNotification {
    UINT id;
    UINT code;
    HWND control;
};

class TestPage : public CWnd {
public:
    std::vector<PageNotification> notifications;

    [[nodiscard]] std::vector<PageNotification> Taken(UINT code) const {
        std::vector<PageNotification> found;
        for (const auto& each : notifications) {
            if (each.code == code) found.push_back(each);
        }
        return found;
    }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        notifications.push_back({LOWORD(static_cast<DWORD_PTR>(wParam)), HIWORD(static_cast<DWORD_PTR>(wParam)),
                                 reinterpret_cast<HWND>(lParam)});
        return CWnd::OnCommand(wParam, lParam);
    }
};

class ControlsTest : public testing::Test, protected qvtest::MessageBoxRecorder {
protected:
    static constexpr UINT kControlId = 20000;

    void SetUp() override {
        ASSERT_TRUE(page.CreateEx(WS_EX_CONTROLPARENT, nullptr, L"page", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  RECT{0, 0, 400, 300}, nullptr, 0));
        ::SetActiveWindow(page.m_hWnd);
    }
    void TearDown() override { page.DestroyWindow(); }

    // Creates the control as the page does and gives it a place to be seen.
    template <class Control>
    void Show(Control& control) {
        ASSERT_TRUE(control.CreateOnPage(page, kControlId));
        control.ShowInitValue();
        control.Window().MoveWindow(10, 10, 200, 24);
        control.Window().ShowWindow(SW_SHOW);
        page.notifications.clear();
    }

    TestPage page;
};
