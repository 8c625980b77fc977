#include "qvclient/qvsettingsdialog/com/settings_module.h"

#include <array>

#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/com/settings_dialog_manager.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

QV_RUNTIME_CLASS(CQVSettingsDialogApp, CWinApp)

namespace {

// Any address inside the module tells which one it is.
const int kInsideModule = 0;

}  // namespace

qv::ComModule& SettingsComModule() noexcept {
    static qv::ComModule module;
    return module;
}

std::span<const qv::ObjectMapEntry> SettingsObjectMap() noexcept {
    static const std::array<qv::ObjectMapEntry, 1> map{{
        {&CLSID_QVSettingsDialogManager, &CQVSettingsDialogManager::CreateInstance},
    }};
    return map;
}

bool CQVSettingsDialogApp::InitInstance() {
    ModuleState& state = GetComponentModuleState();
    state.resources = qv::ModuleFromAddress(&kInsideModule);
    RegisterSettingsResources(state.resources);
    return CWinApp::InitInstance();
}

int CQVSettingsDialogApp::ExitInstance() {
    ForgetModuleHost();
    ModuleState& state = GetComponentModuleState();
    UnregisterSettingsResources(state.resources);
    state = ModuleState{};
    return CWinApp::ExitInstance();
}
