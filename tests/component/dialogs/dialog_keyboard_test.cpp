// The settings dialog by keyboard and mouse together: who has the focus after Apply, and which button shows that Enter
// presses it.
#include <algorithm>

#include "framework/app.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"
#include "tests/support/framed_buttons.h"

namespace {

class DialogKeyboard : public WholeDialog {
protected:
    DialogKeyboard() { host.DefinePlainPage(); }

    // A second page whose controls hold push buttons: a dialog button and a chooser; beside them a colour, which is
    // drawn by itself and no push button.
    void DefineButtonPage() {
        host.DefinePage(L"2", L"Buttons");
        host.DefineItem(L"more/text", 3, 2);
        host.DefineItem(L"more/notes", 10, 2, {{L"label", L"&Notes"}});
        host.DefineItem(L"more/folder", 7, 2, {{L"checkpath", L"0"}});
        host.DefineItem(L"more/colour", 8, 2);
    }
    [[nodiscard]] HWND Button(int id) const { return ::GetDlgItem(driver.Dialog().m_hWnd, id); }
    [[nodiscard]] HWND Row(std::wstring_view key) const { return driver.Control(key)->m_hWnd; }
    void ExpectFramed(HWND button) const {
        EXPECT_EQ(qvtest::FramedButtons(::GetAncestor(driver.Dialog().m_hWnd, GA_ROOT)), std::vector<HWND>{button});
    }
    // What must hold at any moment: the push button with the focus is framed, or else OK.
    void ExpectFrameAtFocus() const {
        HWND focus = ::GetFocus();
        ASSERT_NE(focus, nullptr);
        const bool push =
            (::SendMessageW(focus, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
        ExpectFramed(push ? focus : Button(IDOK));
    }

    const qv::User user{[] { PumpPending(); }};
};

TEST_F(DialogKeyboard, GoesOnFromOkAfterEveryApply) {
    const auto apply = [this](int key) {
        return [this, key] {
            EXPECT_TRUE(driver.Type(L"common/name", L"Dora"));
            user.Focus(Button(IDC_APPLY_BUTTON));
            EXPECT_TRUE(user.Press(key));
            EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
            EXPECT_EQ(::GetFocus(), Button(IDOK));
            ExpectFramed(Button(IDOK));
            user.Press(VK_TAB);
            EXPECT_EQ(::GetFocus(), Button(IDCANCEL));
        };
    };
    EXPECT_EQ(Show({apply(VK_SPACE), apply(VK_RETURN), apply(VK_SPACE), [this] { user.Press(VK_ESCAPE); }}), IDCANCEL);
    EXPECT_EQ(host.Stored(L"common/name"), L"Dora");
}

TEST_F(DialogKeyboard, OneButtonIsFramedWhateverMovesTheFocus) {
    DefineButtonPage();
    InDialog([this] {
        ExpectFramed(Button(IDOK));
        // Round the first page and round the second, and back.
        for (const int page : {0, 1}) {
            EXPECT_TRUE(driver.SwitchPage(page));
            for (const bool shift : {false, true}) {
                for (int i = 0; i < 16; ++i) {
                    user.Press(VK_TAB, {.shift = shift});
                    ExpectFrameAtFocus();
                }
            }
        }
        user.Press('N', {.alt = true});
        ExpectFramed(Row(L"more/notes"));
        user.Click(Row(L"more/text"));
        ExpectFramed(Button(IDOK));
        const HWND browse = ::FindWindowExW(Row(L"more/folder"), nullptr, L"BUTTON", nullptr);
        user.Focus(browse);
        ExpectFramed(browse);
        user.Focus(Row(L"more/colour"));
        ExpectFramed(Button(IDOK));
        user.Focus(Row(L"more/notes"));
        user.Press(VK_NEXT, {.control = true});
        ExpectFramed(Button(IDOK));
        // A box over the dialog, as a refused value brings it up, and back.
        EXPECT_TRUE(driver.Type(L"common/count", L"11"));
        const qvtest::ScopedMessageBoxSink sink([this](const qv::MessageBoxCall&) {
            CWnd box;
            box.CreateEx(0, nullptr, L"box", WS_POPUP | WS_VISIBLE, {0, 0, 50, 50}, driver.Frame().m_hWnd, 0);
            ::SetActiveWindow(box.m_hWnd);
            EXPECT_EQ(qvtest::FramedButtons(driver.Frame().m_hWnd).size(), 1U);
            return IDOK;
        });
        EXPECT_TRUE(driver.Press(IDC_APPLY_BUTTON));
        EXPECT_EQ(::GetFocus(), Row(L"common/count"));
        ExpectFramed(Button(IDOK));
    });
}

// The platform lets them stop at a prompt, where nobody sees the focus.
TEST_F(DialogKeyboard, ArrowsStayInTheRowAndAmongTheButtons) {
    const auto stays = [this](HWND from, std::initializer_list<HWND> reached) {
        user.Focus(from);
        for (const int key : {VK_RIGHT, VK_LEFT, VK_DOWN, VK_UP, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT}) {
            user.Press(key);
            EXPECT_NE(std::find(reached.begin(), reached.end(), ::GetFocus()), reached.end());
        }
    };
    // With one page only the tabs come right behind its last row.
    host.DefineItem(L"common/last", 12, 1, {{L"ordernumber", L"9"}});
    InDialog([&] { stays(Row(L"common/last"), {Row(L"common/last")}); });
    DefineButtonPage();
    InDialog([&] {
        stays(Button(IDOK), {Button(IDOK), Button(IDCANCEL), Button(IDC_HELP_BUTTON), Button(IDC_DEFAULT_BUTTON)});
        stays(Row(L"common/flag"), {Row(L"common/flag")});
        driver.SwitchPage(1);
        stays(Row(L"more/notes"), {Row(L"more/notes")});
        stays(Row(L"more/colour"), {Row(L"more/colour")});
    });
}

// The template of the modeless dialog makes three buttons the default.
TEST_F(DialogKeyboard, TheModelessDialogMeansOkByEnter) {
    XConstructionSet constructionSet = MakeModel();
    XDynDialogModeless dialog(constructionSet, nullptr);
    ASSERT_TRUE(dialog.Create(IDD_SETTINGS_MODELESS, nullptr));
    dialog.ShowWindow(SW_SHOW);
    PumpPending();
    ExpectFrameAtFocus();
    EXPECT_TRUE(driver.Type(L"common/name", L"Gerda"));
    ExpectFramed(Button(IDOK));
    user.Focus(Button(IDC_APPLY_BUTTON));
    ExpectFramed(Button(IDC_APPLY_BUTTON));
    user.Press(VK_RETURN);
    EXPECT_EQ(::GetFocus(), Button(IDOK));
    ExpectFramed(Button(IDOK));
    EXPECT_TRUE(driver.Type(L"common/name", L"Hilde"));
    user.Press(VK_RETURN);
    EXPECT_FALSE(dialog.IsLive());
    EXPECT_EQ(host.Stored(L"common/name"), L"Hilde");
}

TEST_F(DialogKeyboard, TheFourButtonDialogFramesOneToo) {
    EXPECT_EQ(ShowFree({
                  [this] {
                      ExpectFramed(Button(IDOK));
                      for (int i = 0; i < 10; ++i) {
                          user.Press(VK_TAB);
                          ExpectFrameAtFocus();
                      }
                      user.Focus(Button(IDC_HELP_BUTTON));
                      ExpectFramed(Button(IDC_HELP_BUTTON));
                      user.Click(Row(L"common/name"));
                      ExpectFramed(Button(IDOK));
                  },
                  [this] { user.Press(VK_RETURN); },
              }),
              IDOK);
}

}  // namespace
