// The sample host's window: a menu with Tools > Settings > Change... and a log of what happened, in plain words.
#pragma once

#include <functional>
#include <string_view>

#include "framework/controls.h"

namespace qv {

class MainWindow : public CWnd {
public:
    // change: called for Tools > Settings > Change...
    explicit MainWindow(std::function<void()> change) : m_change(std::move(change)) {}

    // A top-level window titled for the definition file; not yet visible. False when the platform refuses.
    bool CreateMain(std::wstring_view title);
    // Appends a line to the log.
    void Log(std::wstring_view line);
    // Runs the menu command once the message loop is reached; closeAfter ends the program with it.
    void PostChangeSettings(bool closeAfter);

    const MessageMap* GetMessageMap() const override;

private:
    void OnChangeSettings();
    void OnExit();
    void OnWindowDestroyed();
    void OnSizeLog(UINT type, int cx, int cy);
    void OnFocus();

    std::function<void()> m_change;
    CEdit m_log;
    bool m_closeAfter = false;
};

}  // namespace qv
