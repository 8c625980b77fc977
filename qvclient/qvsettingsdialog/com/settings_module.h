// The module: its lock count, its object map and its application object, which fills in the component's module state.
// Every entry into the component switches to that state first.
#pragma once

#include <span>

#include "base/com_guard.h"
#include "base/com_module.h"
#include "base/module_state.h"
#include "framework/app.h"
#include "qvclient/qvsettingsdialog/controls/component_module.h"

[[nodiscard]] qv::ComModule& SettingsComModule() noexcept;
// The one creatable class.
[[nodiscard]] std::span<const qv::ObjectMapEntry> SettingsObjectMap() noexcept;

// Starts and ends the module: between InitInstance and ExitInstance its resources and its COM module are ready. The
// module that this code was linked into is the one whose resources are used.
class CQVSettingsDialogApp : public CWinApp {
    QV_DECLARE_RUNTIME_CLASS
    bool InitInstance() override;
    int ExitInstance() override;
};

// Switches to the module's state for its lifetime: the first thing in everything that the outside calls.
class SettingsModuleEntry {
public:
    SettingsModuleEntry() : m_switch(GetComponentModuleState()) {}

private:
    ModuleStateSwitch m_switch;
};

// Runs one operation that the outside calls in the module's state. Nothing thrown gets out.
template <class Operation>
HRESULT Enter(const Operation& operation) noexcept {
    return qv::Guarded([&operation] {
        const SettingsModuleEntry entry;
        return operation();
    });
}
