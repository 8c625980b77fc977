// A host that runs a message loop while it stores, so that people can press buttons meanwhile: whatever they press is
// passed over until the first OK or Apply has come to its end.
#include <optional>

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

TEST_F(StoringAgain, OkIsCarriedOutOnceAndEndsTheDialog) {
    const auto ok = [this] { driver.Press(IDOK); };
    const auto create = [&](auto& dialog, UINT templateId) {
        ASSERT_TRUE(dialog.Create(templateId, nullptr));
        dialog.ShowWindow(SW_SHOW);
        PumpPending();
        ok();
        EXPECT_FALSE(dialog.IsLive()) << "destroyed when it is done";
    };
    const struct {
        const char* name;
        std::function<void()> show;
    } dialogs[] = {
        {"framed", [&] { EXPECT_EQ(Show({ok}), IDOK); }},
        {"free-standing", [&] { EXPECT_EQ(ShowFree({ok}), IDOK); }},
        {"modeless frame",
         [&] {
             XConstructionSet model = MakeModel();
             XDynDialogScroll frame(L"Test settings", model, false, nullptr);
             create(frame, IDD_SETTINGS_FRAME);
             EXPECT_TRUE(qv::LiveLayouts().empty());
         }},
        {"modeless",
         [&] {
             XConstructionSet model = MakeModel();
             XDynDialogModeless dialog(model, nullptr);
             create(dialog, IDD_SETTINGS_MODELESS);
         }},
    };
    for (const auto& dialog : dialogs) {
        for (const Press& each : Presses()) {
            SCOPED_TRACE(std::string(dialog.name) + ", " + each.name);
            HoldUpWriting(each.act);
            dialog.show();
            ExpectStoredOnce();
        }
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
    host.DefineItem(L"common/folder", 7, 1, {{L"checkpath", L"1"}});
    host.session->Put(SDT_userData, L"common", L"folder", L"?:\\none");
    for (const Press& each : Presses()) {
        SCOPED_TRACE(each.name);
        int boxes = 0;
        std::optional<qvtest::ScopedMessageBoxSink> sink;
        const auto pressOk = [&] {
            boxes = 0;
            sink.emplace([&](const qv::MessageBoxCall&) {
                if (++boxes == 1) each.act();
                return IDOK;
            });
            driver.Press(IDOK);
        };
        const auto lookAndCancel = [&] {
            sink.reset();
            EXPECT_EQ(boxes, 1);
            EXPECT_EQ(driver.Shown(L"common/count"), L"7");
            EXPECT_TRUE(host.session->CallsOf(SessionOperation::WriteData).empty());
            EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
            driver.Press(IDCANCEL);
        };
        EXPECT_EQ(Show({pressOk, lookAndCancel}), IDCANCEL);
        EXPECT_EQ(ShowFree({pressOk, lookAndCancel}), IDCANCEL);
    }
}

}  // namespace
