// Windows that write down the messages they hear, shared by the tests of the windowing calls. A log holds only messages
// that the layers above handle.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qv::test {

// "name MESSAGE details", in the order of arrival.
using MessageLog = std::vector<std::string>;

// Makes top-level and child windows of one logging class, and destroys what is left of them.
class WindowFixture : public testing::Test {
public:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    WindowFixture();
    ~WindowFixture() override;

    // The window's name in the log is its text. Its parent is owner or parent, by style.
    HWND Make(const char* name, DWORD style, HWND parent = nullptr, RECT place = {10, 20, 310, 220}, DWORD exStyle = 0,
              int id = 0);
    HWND Top(const char* name) { return Make(name, WS_OVERLAPPEDWINDOW | WS_VISIBLE); }
    HWND Child(const char* name, HWND parent, DWORD style = WS_VISIBLE, int id = 0) {
        return Make(name, WS_CHILD | style, parent, {5, 6, 65, 36}, 0, id);
    }

    // What was logged since the last call.
    MessageLog TakeLog();

    // Runs instead of the default for messages of any window of the fixture when set; returns true when it has
    // answered.
    std::function<bool(HWND, UINT, WPARAM, LPARAM, LRESULT&)> m_handler;

private:
    std::vector<HWND> m_windows;
};

}  // namespace qv::test
