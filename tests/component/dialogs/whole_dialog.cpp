#include "tests/component/dialogs/whole_dialog.h"

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
