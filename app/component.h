// The settings component as a host meets it: a library beside the program, its class factory, and the framework's
// plug-in interfaces. Nothing else of the component is known here.
#pragma once

#include <string>

#include "base/com.h"
#include "host/interfaces/tpf.h"

namespace qv {

class SettingsComponent {
public:
    SettingsComponent() = default;
    ~SettingsComponent();
    SettingsComponent(const SettingsComponent&) = delete;
    SettingsComponent& operator=(const SettingsComponent&) = delete;

    // Loads qvsettingsdialog.dll from the program's folder, creates its object and connects it to the host. False with
    // one line that says what failed.
    bool Connect(ITPFHost* host, std::wstring& problem);
    // Tools > Settings > Change..., as the framework sends it. False when the component did not take the command.
    bool ChangeSettings();

private:
    ComPtr<ITPFObject> m_object;
    HMODULE m_library = nullptr;
};

}  // namespace qv
