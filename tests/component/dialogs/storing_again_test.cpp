// A host that runs a message loop while it stores, so that people can press buttons meanwhile: whatever they press is
// passed over until the first OK or Apply has come to its end.
#include "framework/app.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

using qv::SessionOperation;

namespace {

constexpr std::size_t kItems = 5;

class StoringAgain : public WholeDialog {
protected:
    StoringAgain() { host.DefinePlainPage(); }
    ~StoringAgain() override { host.session->SetFault({}); }

    struct Press {
        const char* name;
        std::function<void()> act;
    };
    void Command(int id) const { driver.Dialog().SendMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED)); }
    // What a person can press in every dialog.
    std::vector<Press> Presses() {
        return {
            {"OK", [this] { Command(IDOK); }},
            {"Cancel", [this] { Command(IDCANCEL); }},
            {"Default", [this] { Command(IDC_DEFAULT_BUTTON); }},
            {"Apply", [this] { Command(IDC_APPLY_BUTTON); }},
            {"close box",
             [this] {
                 driver.Dialog().GetTopLevelParent()->SendMessage(WM_CLOSE);
                 PumpPending();
             }},
            {"Enter", [this] { driver.PressKey(VK_RETURN); }},
            {"Escape", [this] { driver.PressKey(VK_ESCAPE); }},
        };
    }
    // The next value that is written is held up by it.
    void HoldUpWriting(const std::function<void()>& act) {
        host.session->ClearCalls();
        host.session->Put(SDT_userData, L"common", L"count", L"7");
        host.session->SetFault([this, act](const qv::SessionCall& call) {
            if (call.operation != SessionOperation::WriteData) return S_OK;
            host.session->SetFault({});
            act();
            EXPECT_EQ(driver.Shown(L"common/count"), L"7") << "gone, or put back to its default";
            return S_OK;
        });
    }
    void ExpectStoredOnce() const {
        EXPECT_EQ(host.session->CallsOf(SessionOperation::WriteData).size(), kItems);
        EXPECT_EQ(host.session->CallsOf(SessionOperation::SaveData).size(), kItems);
        EXPECT_EQ(host.Stored(L"common/count"), L"7") << "the default, which nobody has validated";
    }
};

TEST_F(StoringAgain, OkOfTheFramedDialogIsCarriedOutOnce) {
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        HoldUpWriting(each.act);
        EXPECT_EQ(Show({
                      [this] { driver.Type(L"common/name", L"Berta"); },
                      [this] { driver.Press(IDOK); },
                  }),
                  IDOK);
        ExpectStoredOnce();
    }
}

TEST_F(StoringAgain, ApplyIsCarriedOutOnceAndTheDialogStays) {
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        HoldUpWriting(each.act);
        EXPECT_EQ(Show({
                      [this] { driver.Type(L"common/name", L"Berta"); },
                      [this] { driver.Press(IDC_APPLY_BUTTON); },
                      [this] {
                          ExpectStoredOnce();
                          EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
                          EXPECT_EQ(driver.Shown(L"common/count"), L"7");
                      },
                      // And then everything is as it was.
                      [this] { driver.Press(IDC_DEFAULT_BUTTON); },
                      [this] {
                          EXPECT_EQ(driver.Shown(L"common/count"), L"4");
                          EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
                      },
                      [this] { driver.Press(IDCANCEL); },
                  }),
                  IDCANCEL);
    }
}

// The message stands there while it is pressed.
TEST_F(StoringAgain, AnswersWhileAnInputIsRefusedAreNoSecondOk) {
    // Refused as it was stored: nobody has changed anything.
    host.DefineItem(L"common/folder", {{L"type", L"7"}, {L"pagenumber", L"1"}, {L"checkpath", L"1"}});
    host.session->Put(SDT_userData, L"common", L"folder", L"?:\\none");
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        int boxes = 0;
        qv::MessageBoxSink before;
        const auto pressOk = [&] {
            boxes = 0;
            before = qv::SetMessageBoxSink([&](const qv::MessageBoxCall&) {
                if (++boxes == 1) each.act();
                return IDOK;
            });
            driver.Press(IDOK);
        };
        const auto lookAndCancel = [&] {
            qv::SetMessageBoxSink(before);
            EXPECT_EQ(boxes, 1);
            EXPECT_EQ(driver.Shown(L"common/count"), L"7");
            EXPECT_TRUE(host.session->CallsOf(SessionOperation::WriteData).empty());
            EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
            driver.Press(IDCANCEL);
        };
        EXPECT_EQ(Show({pressOk, lookAndCancel}), IDCANCEL);

        XConstructionSet model(qvtest::kOptionKey, SDT_machineData, nullptr,
                               qv::ComPtr<ISessionDataManager>(host.session.Get()),
                               qv::ComPtr<IMultiUserManager>(host.users.Get()));
        XDynDialog free(model, nullptr);
        EXPECT_EQ(driver.Run([&] { return static_cast<int>(free.DoModal()); }, {pressOk, lookAndCancel}), IDCANCEL);
    }
}

TEST_F(StoringAgain, OkOfAModelessFrameDestroysItWhenItIsDone) {
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        XConstructionSet model(qvtest::kOptionKey, SDT_machineData, nullptr,
                               qv::ComPtr<ISessionDataManager>(host.session.Get()),
                               qv::ComPtr<IMultiUserManager>(host.users.Get()));
        XDynDialogScroll frame(L"Test settings", model, false, nullptr);
        ASSERT_TRUE(frame.Create(IDD_SETTINGS_FRAME, nullptr));
        frame.ShowWindow(SW_SHOW);
        PumpPending();
        HoldUpWriting(each.act);
        driver.Press(IDOK);
        EXPECT_FALSE(frame.IsLive());
        EXPECT_TRUE(qv::LiveLayouts().empty());
        ExpectStoredOnce();
    }
}

TEST_F(StoringAgain, OkOfAFreeStandingDialogIsCarriedOutOnce) {
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        XConstructionSet model(qvtest::kOptionKey, SDT_machineData, nullptr,
                               qv::ComPtr<ISessionDataManager>(host.session.Get()),
                               qv::ComPtr<IMultiUserManager>(host.users.Get()));
        HoldUpWriting(each.act);
        XDynDialog dialog(model, nullptr);
        EXPECT_EQ(driver.Run([&] { return static_cast<int>(dialog.DoModal()); }, {[this] { driver.Press(IDOK); }}),
                  IDOK);
        ExpectStoredOnce();
    }
}

TEST_F(StoringAgain, OkOfAModelessDialogDestroysItWhenItIsDone) {
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        XConstructionSet model(qvtest::kOptionKey, SDT_machineData, nullptr,
                               qv::ComPtr<ISessionDataManager>(host.session.Get()),
                               qv::ComPtr<IMultiUserManager>(host.users.Get()));
        XDynDialogModeless dialog(model, nullptr);
        ASSERT_TRUE(dialog.Create(IDD_SETTINGS_MODELESS, nullptr));
        dialog.ShowWindow(SW_SHOW);
        PumpPending();
        HoldUpWriting(each.act);
        driver.Press(IDOK);
        EXPECT_FALSE(dialog.IsLive());
        ExpectStoredOnce();
    }
}

}  // namespace
