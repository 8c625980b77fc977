// A host whose program has dialogs of its own under the component's numbers.
#include <array>

#include "base/module_state.h"
#include "platform/module_resources.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/com/component_dll.h"

namespace {

constexpr std::array<WORD, 4> kSharedNumbers{IDD_SETTINGS_PAGE, IDD_SETTINGS_FRAME, IDD_SETTINGS_FORMVIEW,
                                             IDD_SETTINGS_FOR_VIEW};
constexpr std::array<BYTE, 32> kEmptyDialog{1, 0, 0xFF, 0xFF};  // an extended template; all else is 0
const LPCWSTR kDialogType = MAKEINTRESOURCEW(5);

class HostWithTheSameNumbers : public ComponentDll {
protected:
    // Where the program's file holds resources, host_templates.rc is in it already.
    HostWithTheSameNumbers() {
        for (const WORD number : kSharedNumbers) {
            qv::RegisterModuleResource(program, kDialogType, number, 0, kEmptyDialog);
        }
    }
    ~HostWithTheSameNumbers() override { qv::UnregisterModuleResources(program); }

    const HMODULE program = GetModuleHandleW(nullptr);
};

TEST_F(HostWithTheSameNumbers, SeesTheComponentsDialogAndKeepsItsOwn) {
    host.DefinePlainPage();
    for (const WORD number : kSharedNumbers) {
        ASSERT_NE(FindResourceW(program, MAKEINTRESOURCEW(number), kDialogType), nullptr) << number;
    }
    const HMODULE resourcesBefore = GetResourceHandle();
    const auto manager = CreateConnected();
    LONG result = 0;
    driver.Run(
        [&] {
            EXPECT_EQ(manager->CreateModalDialogEx(qv::Bstr(L"Caption").Get(), nullptr, &result), S_OK);
            return static_cast<int>(result);
        },
        {
            [this] {
                EXPECT_EQ(driver.Shown(L"common/name"), L"Anna");
                for (const int button : {IDOK, IDCANCEL, IDC_APPLY_BUTTON, IDC_HELP_BUTTON, IDC_DEFAULT_BUTTON}) {
                    EXPECT_NE(driver.Dialog().GetDlgItem(button), nullptr) << button;
                }
            },
            [this] { EXPECT_TRUE(driver.Press(IDCANCEL)); },
        });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(GetResourceHandle(), resourcesBefore);
}

}  // namespace
