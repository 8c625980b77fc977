#include "tests/component/dialogs/whole_dialog.h"

int WholeDialog::Show(qvtest::SettingsDriver::Steps steps) {
    return driver.Run(
        [this] {
            XConstructionSet constructionSet(qvtest::kOptionKey, SDT_machineData, nullptr,
                                             qv::ComPtr<ISessionDataManager>(host.session.Get()),
                                             qv::ComPtr<IMultiUserManager>(host.users.Get()));
            XDynDialogScroll frame(L"Test settings", constructionSet, true, nullptr);
            return static_cast<int>(frame.DoModal());
        },
        std::move(steps));
}

XDynDialog& WholeDialog::Dialog() const {
    return *DynamicDownCast<XDynDialog>(&driver.Dialog());
}

XDynPropertySheet& WholeDialog::Sheet() const {
    return *DynamicDownCast<XDynPropertySheet>(&driver.Sheet());
}
