// The settings dialog as a person drives it, for the tests of every layer that shows one: steps that run while the
// modal dialog waits for input. It reaches the dialog through its windows and the host's live layouts only, so it
// serves the dialog in the DLL as well as one linked in.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/property_sheet.h"
#include "host/libraries/layout.h"
#include "platform/user.h"
#include "tests/support/recorders.h"

namespace qvtest {

// Nothing of the window is cut off by a window around it.
[[nodiscard]] bool IsWhollySeen(HWND window);

// One test's dialog. Message boxes are recorded and answered with OK.
class SettingsDriver : public MessageBoxRecorder {
public:
    using Steps = std::vector<std::function<void()>>;

    // Calls show, which opens a modal dialog, and runs the steps one by one whenever its loop is idle. The test fails
    // when the dialog ends before all steps ran, or is still open after the last one. Returns what show returned.
    int Run(const std::function<int()>& show, Steps steps);

    // Only while the dialog is open.
    [[nodiscard]] CWnd& Frame() const;
    [[nodiscard]] CWnd& Dialog() const;
    [[nodiscard]] CPropertySheet& Sheet() const;
    [[nodiscard]] std::vector<std::wstring> TabTitles() const;
    // Null when there is no such row, or no window in it.
    [[nodiscard]] CWnd* Control(std::wstring_view itemKey) const;
    // What the row shows: an edit's text, a check box as "1" or "0", a combo box's chosen text.
    [[nodiscard]] std::wstring Shown(std::wstring_view itemKey) const;
    [[nodiscard]] bool IsEnabled(int buttonId) const;
    [[nodiscard]] bool HasFocus(const CWnd* window) const;

    // False when a person could not do it.
    bool Press(int buttonId);
    bool PressKey(int virtualKey);
    bool SwitchPage(int index);
    bool FocusRow(std::wstring_view itemKey);
    bool Type(std::wstring_view itemKey, std::wstring_view text);  // replaces what the edit shows
    bool Toggle(std::wstring_view itemKey);
    bool Choose(std::wstring_view itemKey, int index);

private:
    bool OnIdle(Steps& steps);

    qv::User m_user{[] { PumpPending(); }};
    std::size_t m_next = 0;
    bool m_inStep = false;
    int m_leftOpen = 0;
};

}  // namespace qvtest
