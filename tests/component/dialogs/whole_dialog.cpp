#include "tests/component/dialogs/whole_dialog.h"

#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/controls/component_module.h"
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

namespace {

const int kInsideProgram = 0;

ModuleState& ProgramAsComponent() {
    ModuleState& state = GetComponentModuleState();
    state.resources = qv::ModuleFromAddress(&kInsideProgram);
    return state;
}

}  // namespace

WholeDialog::WholeDialog() : m_state(ProgramAsComponent()) {
    RegisterSettingsResources(GetComponentModuleState().resources);
}

WholeDialog::~WholeDialog() {
    UnregisterSettingsResources(GetComponentModuleState().resources);
}

XConstructionSet WholeDialog::MakeModel() const {
    return XConstructionSet(qvtest::kOptionKey, SDT_machineData, nullptr,
                            qv::ComPtr<ISessionDataManager>(host.session.Get()),
                            qv::ComPtr<IMultiUserManager>(host.users.Get()));
}

int WholeDialog::Show(qvtest::SettingsDriver::Steps steps) {
    return driver.Run(
        [this] {
            XConstructionSet model = MakeModel();
            XDynDialogScroll frame(L"Test settings", model, true, nullptr);
            return static_cast<int>(frame.DoModal());
        },
        std::move(steps));
}

int WholeDialog::ShowFree(qvtest::SettingsDriver::Steps steps) {
    return driver.Run(
        [this] {
            XConstructionSet model = MakeModel();
            XDynDialog dialog(model, nullptr);
            return static_cast<int>(dialog.DoModal());
        },
        std::move(steps));
}

XDynDialog& WholeDialog::Dialog() const {
    return *DynamicDownCast<XDynDialog>(&driver.Dialog());
}

XDynPropertySheet& WholeDialog::Sheet() const {
    return *DynamicDownCast<XDynPropertySheet>(&driver.Sheet());
}
