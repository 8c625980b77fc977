// The dialog without a frame around it: modal with four buttons, modeless with five.
#include "framework/app.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

namespace {

class FreeDialog : public WholeDialog {
protected:
    FreeDialog() { host.DefinePlainPage(); }
};

TEST_F(FreeDialog, FourButtonsStandBelowASheetThatGetsThreePixelsBack) {
    EXPECT_EQ(ShowFree({
                  [this] {
                      // Half a button above and below them, less the three pixels.
                      const CRect sheet = Sheet().GetWindowRect();
                      const CRect ok = Dialog().GetDlgItem(IDOK)->GetWindowRect();
                      EXPECT_NEAR(static_cast<double>(ok.top - sheet.bottom), ok.Height() / 2.0 - 3, 1);
                      EXPECT_NEAR(static_cast<double>(Dialog().GetWindowRect().bottom - ok.bottom), ok.Height() / 2.0,
                                  1);
                      EXPECT_EQ(Dialog().GetDlgItem(IDC_DEFAULT_BUTTON)->GetWindowRect().right, sheet.right - 3);
                      // Default is the last button of this template, so the first focus goes on into the sheet.
                      EXPECT_TRUE(IsChild(Sheet().m_hWnd, GetFocus()));
                      EXPECT_EQ(Dialog().GetWindowText(), L"Settings");
                      EXPECT_EQ(Dialog().GetViewWidth(), 0);
                  },
                  [this] { driver.Type(L"common/name", L"Gerda"); },
                  [this] { driver.Press(IDOK); },
              }),
              IDOK);
    EXPECT_EQ(host.Stored(L"common/name"), L"Gerda");
}

TEST_F(FreeDialog, ItReopensAtItsStoredPlaceButNoSmallerThanItsSheet) {
    host.session->Put(SDT_userData, L"common", L"configdialoginit", L"1");
    for (const auto& [name, text] : std::initializer_list<std::pair<std::wstring_view, std::wstring_view>>{
             {L"top.x", L"30"}, {L"top.y", L"20"}, {L"bottom.x", L"1030"}, {L"bottom.y", L"40"}}) {
        host.session->Put(SDT_userData, L"SizeConfigDialog", name, text);
    }
    ShowFree({
        [this] {
            const CRect window = Dialog().GetWindowRect();
            EXPECT_EQ(window.left, 30);
            EXPECT_EQ(window.top, 20);
            EXPECT_EQ(window.Width(), 1000);
            EXPECT_GT(window.Height(), Sheet().GetRequiredHeight());
        },
        [this] { driver.Press(IDCANCEL); },
    });
    // The dialog's own window is all there is to save; its flags say 0.
    EXPECT_EQ(host.session->CallsOf(qv::SessionOperation::WriteData).size(), 10U);
    EXPECT_EQ(host.Stored(L"SizeConfigDialog/flags"), L"0");
    EXPECT_EQ(host.Stored(L"SizeConfigDialog/top.x"), L"30");
}

TEST_F(FreeDialog, TheModelessOneDestroysItselfAlsoAfterARefusedOk) {
    const struct {
        const char* name;
        const wchar_t* count;
        int button;
        std::size_t boxes;
        const wchar_t* stored;
    } cases[] = {
        {"Cancel", L"5", IDCANCEL, 0, L"7"},
        {"refused OK", L"11", IDOK, 1, L"7"},
        {"OK", L"6", IDOK, 0, L"6"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        driver.boxes.clear();
        XConstructionSet fresh = MakeModel();
        XDynDialogModeless dialog(fresh, nullptr);
        ASSERT_TRUE(dialog.Create(IDD_SETTINGS_MODELESS, nullptr));
        dialog.ShowWindow(SW_SHOW);
        PumpPending();
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
        EXPECT_TRUE(driver.Type(L"common/count", each.count));
        EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
        EXPECT_TRUE(driver.Press(each.button));
        EXPECT_FALSE(dialog.IsLive());
        EXPECT_EQ(driver.boxes.size(), each.boxes);
        const std::wstring stored = host.Stored(L"common/count");
        EXPECT_EQ(stored, each.stored);
    }
}

}  // namespace
