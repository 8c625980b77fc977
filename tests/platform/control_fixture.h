// A parent window that writes down what its controls tell it, for the tests of the standard controls. Messages are sent
// straight to a control, as the message loop would dispatch them, so that both builds see the same input.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/platform.h"

class ControlTest : public ::testing::Test {
protected:
    static constexpr int kControlId = 100;

    void SetUp() override;
    void TearDown() override;

    // The new control, a visible child of m_parent at 10, 10; its notifications up to here are forgotten. Sizes in
    // pixels.
    HWND Create(const wchar_t* className, DWORD style, const wchar_t* text = L"", int width = 200, int height = 24,
                int id = kControlId);

    static int Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return static_cast<int>(SendMessageW(window, message, wParam, lParam));
    }
    static int SendText(HWND window, UINT message, int wParam, const std::wstring& text) {
        return Send(window, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text.c_str()));
    }
    // What the parent was told since the last call, names parted by blanks: "UPDATE CHANGE".
    std::string TakeLog();
    // The answer that the parent gives to the notification or message that is logged under this name.
    void AnswerTo(std::string_view name, LRESULT answer);

    // Key presses with modifiers held, as keyboard messages; Press adds the character that a letter with Ctrl makes.
    static void Press(HWND window, UINT key, bool shift = false, bool control = false);
    // The same with Alt held.
    static void PressAlt(HWND window, UINT key);
    static void Type(HWND window, std::wstring_view text);
    // One step after the other, parted by blanks: keys ("down", "shift+end", "ctrl+home"), characters ("type:ab"), and
    // what the control's own test knows ("click:2").
    using Step = std::function<void(std::string_view verb, std::string_view argument, bool shift, bool control)>;
    static void Act(HWND window, std::string_view script, const Step& other = {});
    // Button down and up at a point of the client area.
    static void Click(HWND window, int x, int y, bool shift = false, bool control = false);
    static std::wstring TextOf(HWND window);
    // "first-last" of the edit's selection.
    static std::string SelectionOf(HWND edit);
    static std::string Narrow(std::wstring_view text);
    static std::wstring Widen(std::string_view text) { return {text.begin(), text.end()}; }

    HWND m_parent = nullptr;
    // Called with the control for every WM_COMMAND, after it was noted.
    std::function<void(HWND)> m_onCommand;
    UINT m_measuredHeight = 17;

private:
    static LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Note(std::string name);
    LRESULT AnswerFor(std::string_view name) const;

    std::string m_log;
    std::string m_answeredName;
    LRESULT m_answer = 0;
};
