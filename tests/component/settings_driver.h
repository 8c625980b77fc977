// The settings dialog as a person drives it, for the tests of every layer that shows one: a host in memory with a
// definition tree, and a driver that runs steps while the modal dialog waits for input. It reaches the dialog through
// its windows and the host's live layouts only, so it serves the dialog in the DLL as well as one linked in.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/property_sheet.h"
#include "host/libraries/layout.h"
#include "host/libraries/message_box.h"
#include "host/services/memory_session_data.h"
#include "host/services/multi_user_manager.h"
#include "platform/user.h"

namespace qvtest {

inline constexpr const wchar_t* kOptionKey = L"option-configuration";

// Session data with a definition tree under kOptionKey, and a user who may do everything.
class TestHost {
public:
    using Attributes = std::initializer_list<std::pair<std::wstring_view, std::wstring_view>>;

    TestHost();
    void DefinePage(std::wstring_view number, std::wstring_view title);
    // itemKey: key/name below the option key. "globaldata" 0 (the user's data) is added.
    void DefineItem(std::wstring_view itemKey, Attributes attributes);
    // One page with an item of each plain kind: flag (boolean), count (integer 0 to 10, default 4), ratio (floating
    // point 0.5 to 2.5, default 2), name (text), unit (list mm, cm), all under key "common", all stored.
    void DefinePlainPage();
    // What is stored for the item in the user's data; "(none)" when nothing is.
    [[nodiscard]] std::wstring Stored(std::wstring_view itemKey) const;

    qv::ComPtr<qv::MemorySessionData> session;
    qv::ComPtr<qv::MultiUserManager> users;
};

// Nothing of the window is cut off by a window around it.
[[nodiscard]] bool IsWhollySeen(HWND window);

// One test's dialog. Message boxes are recorded and answered with OK.
class SettingsDriver {
public:
    using Steps = std::vector<std::function<void()>>;

    SettingsDriver();
    ~SettingsDriver();
    SettingsDriver(const SettingsDriver&) = delete;
    SettingsDriver& operator=(const SettingsDriver&) = delete;

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

    std::vector<qv::MessageBoxCall> boxes;

private:
    bool OnIdle(Steps& steps);

    qv::User m_user;
    qv::MessageBoxSink m_sinkBefore;
    std::size_t m_next = 0;
    bool m_inStep = false;
    int m_leftOpen = 0;
};

}  // namespace qvtest
