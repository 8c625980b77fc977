// What Help asks of the shell: seen natively only, where the shell's calls are recorded instead of carried out.
#include "framework/app.h"
#include "platform/headless/doors/shell_hooks.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

using qv::headless::Execution;

namespace {

class HelpButton : public WholeDialog {
protected:
    HelpButton() {
        host.DefinePlainPage();
        m_mainWindow.CreateEx(0, L"STATIC", L"host", WS_POPUP, CRect(0, 0, 100, 100), nullptr, 0);
        SetMainWnd(&m_mainWindow);
        qv::headless::ClearExecutions();
    }
    ~HelpButton() override {
        SetMainWnd(nullptr);
        m_mainWindow.DestroyWindow();
    }

    // What one press asked for.
    std::vector<Execution> PressHelp() {
        InDialog([this] { EXPECT_TRUE(driver.Press(IDC_HELP_BUTTON)); });
        return qv::headless::Executions();
    }

    CWnd m_mainWindow;
};

TEST_F(HelpButton, OpensTheManualForTheHostsMainWindow) {
    host.session->Put(SDT_machineData, L"Common", L"help_path", L"C:\\Help");
    host.session->Put(SDT_userData, L"common", L"languageid", L"1031");
    const std::vector<Execution> executions = PressHelp();
    ASSERT_EQ(executions.size(), 1U);
    EXPECT_EQ(executions[0].owner, m_mainWindow.GetSafeHwnd());
    EXPECT_EQ(executions[0].verb, L"open");
    EXPECT_EQ(executions[0].file, L"C:\\Help\\1031\\Settingsmanual.pdf");
    EXPECT_EQ(executions[0].parameters, L"");
    EXPECT_EQ(executions[0].folder, L"");
    EXPECT_EQ(executions[0].show, SW_SHOWNORMAL);
}

TEST_F(HelpButton, SaysNothingWhenTheManualCannotBeOpened) {
    host.session->Put(SDT_machineData, L"Common", L"help_path", L"C:\\Help");
    qv::headless::SetExecutionResult(2);  // no such file
    EXPECT_EQ(PressHelp().size(), 1U);
    qv::headless::SetExecutionResult(33);
    EXPECT_TRUE(driver.boxes.empty());
}

TEST_F(HelpButton, AsksNothingOfTheShellWithoutAHelpPath) {
    EXPECT_TRUE(PressHelp().empty());
    EXPECT_TRUE(driver.boxes.empty());
}

TEST_F(HelpButton, OpensNothingOnceItsDialogIsGone) {
    host.session->Put(SDT_machineData, L"Common", L"help_path", L"C:\\Help");
    EXPECT_EQ(Show({[this] {
                  host.session->SetFault([this](const qv::SessionCall& call) {
                      if (call.name == L"languageid") driver.Frame().DestroyWindow();
                      return S_OK;
                  });
                  driver.Press(IDC_HELP_BUTTON);
              }}),
              IDCANCEL);
    EXPECT_TRUE(qv::headless::Executions().empty());
}

}  // namespace
