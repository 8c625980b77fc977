// The settings dialog by keyboard and mouse together: what Enter, Escape, the arrows and the paging keys do in dialogs
// that are nested in each other, who has the focus afterwards, and which button shows that Enter presses it.
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

    [[nodiscard]] HWND Browse(std::wstring_view key) const {
        return ::FindWindowExW(Row(key), nullptr, L"BUTTON", nullptr);
    }

    const qv::User user{[] { PumpPending(); }};
};

TEST_F(DialogKeyboard, EnterAndEscapeEndWhereTheyShould) {
    host.DefineItem(L"common/folder", 7, 1, {{L"checkpath", L"0"}});
    const qvtest::PickerRecorder pickers;
    const auto row = [this](const wchar_t* key) { return [this, key] { return Row(key); }; };
    const auto button = [this](int id) { return [this, id] { return Button(id); }; };
    const auto browse = [this] { return Browse(L"common/folder"); };
    const struct {
        const char* name;
        std::function<HWND()> focus;
        int key;
        int end;  // 0: it stays open
    } cases[] = {
        {"enter in a field", row(L"common/name"), VK_RETURN, IDOK},
        {"enter in a closed combo box", row(L"common/unit"), VK_RETURN, IDOK},
        {"enter on a check box", row(L"common/flag"), VK_RETURN, IDOK},
        {"enter on a push button of the page", browse, VK_RETURN, 0},
        {"enter on Help", button(IDC_HELP_BUTTON), VK_RETURN, 0},
        {"enter on OK", button(IDOK), VK_RETURN, IDOK},
        {"enter on Cancel", button(IDCANCEL), VK_RETURN, IDCANCEL},
        {"escape in a field", row(L"common/name"), VK_ESCAPE, IDCANCEL},
        {"escape on a push button of the page", browse, VK_ESCAPE, IDCANCEL},
        {"escape on Help", button(IDC_HELP_BUTTON), VK_ESCAPE, IDCANCEL},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        qvtest::SettingsDriver::Steps steps{[&] {
            user.Focus(each.focus());
            EXPECT_TRUE(user.Press(each.key));
        }};
        if (each.end == 0) steps.emplace_back([this] { driver.Press(IDCANCEL); });
        EXPECT_EQ(Show(steps), each.end == 0 ? IDCANCEL : each.end);
    }
    EXPECT_EQ(pickers.paths.size(), 1U);
    const auto reads = host.session->CallsOf(qv::SessionOperation::ReadData);
    EXPECT_EQ(std::count_if(reads.begin(), reads.end(), [](const auto& call) { return call.name == L"help_path"; }), 1);
}

TEST_F(DialogKeyboard, AnOpenListIsClosedFirst) {
    for (const auto& [key, end] : {std::pair{VK_ESCAPE, IDCANCEL}, std::pair{VK_RETURN, IDOK}}) {
        const auto press = [this, pressed = key] { user.Press(pressed); };
        EXPECT_EQ(Show({
                      [&] {
                          user.Focus(Row(L"common/unit"));
                          ::SendMessageW(Row(L"common/unit"), CB_SHOWDROPDOWN, TRUE, 0);
                          press();
                          EXPECT_EQ(::SendMessageW(Row(L"common/unit"), CB_GETDROPPEDSTATE, 0, 0), 0);
                      },
                      press,
                  }),
                  end);
    }
}

TEST_F(DialogKeyboard, PagingKeysSwitchPagesFromAnywhere) {
    DefineButtonPage();
    host.DefinePage(L"3", L"Last");
    host.DefineItem(L"last/text", 3, 3);
    InDialog([this] {
        const auto page = [this](int key, bool shift = false) {
            user.Press(key, {.shift = shift, .control = true});
            return Sheet().GetActiveIndex();
        };
        user.Focus(Row(L"common/name"));
        EXPECT_EQ(page(VK_TAB), 1);
        EXPECT_EQ(::GetFocus(), Row(L"more/text")) << "the focus goes along into the new page";
        EXPECT_EQ(page(VK_NEXT), 2);
        EXPECT_EQ(page(VK_PRIOR), 1);
        user.Focus(Button(IDOK));
        EXPECT_EQ(page(VK_TAB, true), 0);
        EXPECT_EQ(::GetFocus(), Button(IDOK));
    });
}

// The platform moves frames by itself after the focus, in ways that differ from one to the next; here the control that
// loses it does, or the one that is typed into.
TEST_F(DialogKeyboard, AButtonThatComesLaterIsNotFramedForLong) {
    InDialog([&] {
        user.Focus(Row(L"common/count"));
        CButton late;
        ASSERT_TRUE(late.Create(L"Late", WS_VISIBLE | BS_DEFPUSHBUTTON, CRect(0, 0, 10, 10), &Dialog(), 4711));
        user.Press(VK_TAB);
        ExpectFramed(Button(IDOK));
        EXPECT_EQ(late.GetStyle() & BS_TYPEMASK, DWORD{BS_PUSHBUTTON});
    });
}

TEST_F(DialogKeyboard, WhatOthersFrameOnTheWayIsTakenBack) {
    static HWND s_stray;
    static WNDPROC s_below;
    const WNDPROC framing = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        const bool frames = message == WM_KILLFOCUS || message == WM_CHAR;
        if (frames) ::SendMessageW(s_stray, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
        return ::CallWindowProcW(s_below, window, message, wParam, lParam);
    };
    InDialog([&] {
        s_stray = Button(IDC_HELP_BUTTON);
        HWND count = Row(L"common/count");
        const auto set = [count](WNDPROC procedure) {
            return ::SetWindowLongPtrW(count, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        };
        s_below = reinterpret_cast<WNDPROC>(set(framing));
        user.Focus(count);
        user.Type(L"1");
        ExpectFramed(Button(IDOK));
        user.Press(VK_TAB);
        ExpectFramed(Button(IDOK));
        user.Focus(count);
        Dialog().GotoDlgCtrl(driver.Control(L"common/flag"));
        ExpectFramed(Button(IDOK));
        set(s_below);
    });
}

TEST_F(DialogKeyboard, TheFocusGoesOnToTheNextStopWhenItsControlIsDisabled) {
    DefineButtonPage();
    InDialog([this] {
        user.Focus(Button(IDOK));
        Dialog().GetDlgItem(IDOK)->EnableWindow(false);
        EXPECT_EQ(::GetFocus(), Button(IDCANCEL));
        // A window around it counts as well; the focus leaves it altogether.
        user.Focus(Row(L"common/flag"));
        Sheet().GetActivePage()->EnableWindow(false);
        EXPECT_EQ(::GetFocus(), Sheet().GetTabControl()->m_hWnd);
        // One that does not have it changes nothing.
        Dialog().GetDlgItem(IDC_HELP_BUTTON)->EnableWindow(false);
        EXPECT_EQ(::GetFocus(), Sheet().GetTabControl()->m_hWnd);
    });
}

// What the framework has no part in: a host that disables what it likes.
TEST_F(DialogKeyboard, KeysBringAFocusBackThatNobodyHas) {
    const auto lose = [this] {
        user.Focus(Row(L"common/name"));
        ::EnableWindow(Row(L"common/name"), FALSE);
        EXPECT_EQ(::GetFocus(), nullptr);
        ExpectFramed(Button(IDOK));
    };
    InDialog([&] {
        for (const int key : {VK_TAB, int{'X'}, VK_SPACE, VK_F4}) {
            lose();
            EXPECT_TRUE(user.Press(key));
            EXPECT_EQ(::GetFocus(), Button(IDOK));
            ::EnableWindow(Row(L"common/name"), TRUE);
        }
    });
    for (const auto& [key, end] : {std::pair{VK_ESCAPE, IDCANCEL}, std::pair{VK_RETURN, IDOK}}) {
        EXPECT_EQ(Show({lose, [this, pressed = key] { user.Press(pressed); }}), end);
    }
}

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
        user.Focus(Browse(L"more/folder"));
        ExpectFramed(Browse(L"more/folder"));
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
        // By program, straight to another control while another window is active.
        CWnd other;
        other.CreateEx(0, nullptr, L"other", WS_POPUP | WS_VISIBLE, {0, 0, 50, 50}, nullptr, 0);
        ::SetActiveWindow(other.m_hWnd);
        ::SetFocus(Button(IDC_HELP_BUTTON));
        ExpectFramed(Button(IDC_HELP_BUTTON));
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
        user.Focus(Button(IDOK));
        for (const int next : {IDCANCEL, IDC_HELP_BUTTON}) {
            user.Press(VK_RIGHT);
            EXPECT_EQ(::GetFocus(), Button(next)) << "past Apply, which is disabled";
        }
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
