// What follows the focus in a nested dialog: the frame of the button that Enter presses; and what becomes of a focus
// whose control drops out.
#include <map>

#include "tests/framework/nested_frame.h"
#include "tests/support/framed_buttons.h"

using namespace nested;

namespace {

struct Step {
    const char* name;
    std::function<void()> act;
    int framed;
};

// Enter must press the framed button after each step, so that a frame in the wrong place and a wrong Enter both show.
void ExpectFrames(Frame& frame, Log& log, const qv::User& user, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        SCOPED_TRACE(step.name);
        step.act();
        const std::vector<HWND> framed = qvtest::FramedButtons(frame.m_hWnd);
        ASSERT_EQ(framed.size(), 1U);
        EXPECT_EQ(::GetDlgCtrlID(framed[0]), step.framed);
        log.Take();
        if (FocusId() == kMultiLine) continue;
        const std::map<int, std::string> pressed{{IDOK, ::GetFocus() == framed[0] ? "inner ok;" : "frame ok;"},
                                                 {IDCANCEL, "inner cancel;"},
                                                 {kHelp, "help;"},
                                                 {kApply, "apply;"},
                                                 {kPush, "push;"}};
        user.Press(VK_RETURN);
        EXPECT_EQ(log.Take(), pressed.at(step.framed));
    }
}

TEST(NestedDialogFrame, ExactlyTheButtonThatEnterPressesIsFramed) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        const auto tab = [&] { user.Press(VK_TAB); };
        const auto back = [&] { user.Press(VK_TAB, {.shift = true}); };
        const auto click = [&](int id) { return [&frame, &user, id] { user.Click(frame.Item(id)); }; };
        const auto focus = [&](int id) { return [&frame, id] { ::SetFocus(frame.Item(id)); }; };
        HWND tabs = frame.inner.Sheet().GetTabControl()->m_hWnd;
        ExpectFrames(
            frame, log, user,
            {
                {"at first", [] {}, kHelp},
                {"tab to OK", tab, IDOK},
                {"to Cancel", tab, IDCANCEL},
                {"to Apply", tab, kApply},
                {"into a field", tab, IDOK},
                {"to a combo box", tab, IDOK},
                {"to a push button of the page", tab, kPush},
                {"to a field of several lines", tab, IDOK},
                {"back to the push button", back, kPush},
                {"back to the combo box", back, IDOK},
                {"mnemonic of a push button", [&] { user.Press('P', {.alt = true}); }, kPush},
                {"click into a field", click(kEdit), IDOK},
                {"mnemonic of a button of the dialog", [&] { user.Press('A', {.alt = true}); }, kApply},
                {"click on a push button", click(kPush), kPush},
                {"click on a radio button", click(kRadioB), IDOK},
                {"click on Help", click(kHelp), kHelp},
                {"click on the tabs", [&] { user.ChooseTab(tabs, 1); }, IDOK},
                {"a program moves the focus to a button", focus(kPush), kPush},
                {"page away from it", [&] { user.Press(VK_NEXT, {.control = true}); }, IDOK},
                {"a program moves the focus to Cancel", focus(IDCANCEL), IDCANCEL},
                {"as a dialog, from the inner dialog",
                 [&] { frame.inner.GotoDlgCtrl(CWnd::FromHandle(frame.Item(kPush))); }, kPush},
                {"as a dialog, from the frame", [&] { frame.GotoDlgCtrl(CWnd::FromHandle(frame.Item(kEdit))); }, IDOK},
                {"the inner dialog gets another default button, which is not the frame's",
                 [&] { frame.inner.SendMessage(DM_SETDEFID, kHelp); }, IDOK},
            });
    });
}

// The platform moves frames by itself after the focus, in ways that differ from one to the next; here the page does.
TEST(NestedDialogFrame, WhatOthersFrameOnTheWayIsTakenBack) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        log.strayFrame = frame.Item(kHelp);
        const std::vector<HWND> ok{frame.Item(IDOK)};
        user.Focus(frame.Item(kEdit));
        user.Press(VK_TAB);
        EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), ok) << "by key";
        user.Focus(frame.Item(kEdit));
        frame.inner.GotoDlgCtrl(CWnd::FromHandle(frame.Item(kCombo)));
        EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), ok) << "by program";
        user.Focus(frame.Item(kRadioA));
        user.Press(VK_RIGHT);
        EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), ok) << "by an arrow, which chooses as it goes";
    });
}

TEST(NestedDialogFrame, StaysWithTheFocusWhileAnotherWindowIsActive) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        for (const int id : {kPush, kEdit}) {
            ASSERT_TRUE(user.Focus(frame.Item(id)));
            const auto before = qvtest::FramedButtons(frame.m_hWnd);
            {
                const TopWindow other;
                EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd).size(), 1U);
                ::SetActiveWindow(frame.m_hWnd);
            }
            EXPECT_EQ(FocusId(), id);
            EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), before);
            // By program again, straight to another control.
            const TopWindow other;
            ::SetFocus(frame.Item(kHelp));
            EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), std::vector<HWND>{frame.Item(kHelp)});
        }
    });
}

// OK counts though no button of the template has the default style; a push button that had the focus does not.
TEST(DialogFrame, OkIsWhatEnterMeansWithoutADefaultStyle) {
    static const Builder layout = Builder(WS_POPUP | WS_CAPTION, 100, 60)
                                      .Add(Builder::Edit, kEdit, WS_TABSTOP, L"", 5, 5)
                                      .Add(Builder::Button, kPush, WS_TABSTOP, L"Push", 5, 20)
                                      .Add(Builder::Button, IDOK, WS_TABSTOP, L"OK", 5, 40);
    CDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(layout.Bytes()));
    dialog.ShowWindow(SW_SHOW);
    for (const int id : {kPush, kEdit, IDOK, kEdit, kPush, kEdit}) {
        ::SetFocus(::GetDlgItem(dialog.m_hWnd, id));
        const int framed = id == kPush ? kPush : IDOK;
        EXPECT_EQ(qvtest::FramedButtons(dialog.m_hWnd), std::vector<HWND>{::GetDlgItem(dialog.m_hWnd, framed)});
    }
}

TEST(DialogFocus, GoesOnToTheNextStopWhenItsControlIsDisabled) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        ASSERT_TRUE(user.Focus(frame.Item(kApply)));
        CWnd::FromHandle(frame.Item(kApply))->EnableWindow(false);
        EXPECT_EQ(FocusId(), kEdit);
        // A window around it counts as well; the focus leaves it altogether.
        CWnd::FromHandle(frame.inner.Sheet().GetActivePage()->m_hWnd)->EnableWindow(false);
        EXPECT_EQ(::GetFocus(), frame.inner.Sheet().GetTabControl()->m_hWnd);
        // One that does not have it changes nothing.
        CWnd::FromHandle(frame.Item(kHelp))->EnableWindow(false);
        EXPECT_EQ(::GetFocus(), frame.inner.Sheet().GetTabControl()->m_hWnd);
    });
}

// What the framework has no part in: a host that disables what it likes.
TEST(DialogFocus, KeysBringAFocusBackThatNobodyHas) {
    const struct {
        const char* name;
        int key;
        const char* log;
    } cases[] = {
        {"Tab", VK_TAB, ""},
        {"a letter", 'X', ""},
        {"space presses nothing", VK_SPACE, ""},
        {"F4 closes nothing", VK_F4, ""},
        {"Enter", VK_RETURN, "frame ok;"},
        {"Escape", VK_ESCAPE, "frame cancel;"},
    };
    InFrame([&](Frame& frame, Log& log, qv::User& user) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            HWND push = frame.Item(kPush);
            ASSERT_TRUE(user.Focus(push));
            ::EnableWindow(push, FALSE);
            ASSERT_EQ(::GetFocus(), nullptr);
            EXPECT_EQ(qvtest::FramedButtons(frame.m_hWnd), std::vector<HWND>{frame.Item(IDOK)});
            log.Take();
            ASSERT_TRUE(user.Press(c.key));
            EXPECT_EQ(FocusId(), IDOK);
            EXPECT_EQ(log.Take(), c.log);
            ::EnableWindow(push, TRUE);
        }
        // A mnemonic needs nobody's focus.
        ASSERT_TRUE(user.Focus(frame.Item(kPush)));
        ::EnableWindow(frame.Item(kPush), FALSE);
        user.Press('N', {.alt = true});
        EXPECT_EQ(FocusId(), kEdit);
    });
}

}  // namespace
