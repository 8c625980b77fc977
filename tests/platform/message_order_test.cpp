// The order in which windows hear of what happens to them.
#include <algorithm>

#include "tests/platform/window_fixture.h"

namespace qv::test {

class MessageOrder : public WindowFixture {};

TEST_F(MessageOrder, CreatingAHiddenTopLevelWindowKeepsItsFirstSizeForTheFirstShow) {
    const HWND top = Make("top", WS_OVERLAPPEDWINDOW);
    // The limits are asked for before the window has a name.
    EXPECT_EQ(TakeLog(), (MessageLog{"- GETMINMAXINFO", "top NCCREATE", "top NCCALCSIZE", "top CREATE"}));
    ShowWindow(top, SW_SHOW);
    EXPECT_EQ(TakeLog(), (MessageLog{"top SHOWWINDOW 1", "top POSCHANGING", "top ACTIVATEAPP 1", "top ACTIVATE 1 -",
                                     "top SETFOCUS -", "top POSCHANGED", "top SIZE 0", "top MOVE"}));
}

TEST_F(MessageOrder, CreatingAChildTellsItsSizeAndThenItsParent) {
    const HWND top = Make("top", WS_OVERLAPPEDWINDOW);
    TakeLog();
    Child("child", top);
    EXPECT_EQ(TakeLog(), (MessageLog{"child NCCREATE", "child NCCALCSIZE", "child CREATE", "child SIZE 0", "child MOVE",
                                     "top PARENTNOTIFY create", "child SHOWWINDOW 1"}));
    Make("silent", WS_CHILD, top, {0, 0, 10, 10}, WS_EX_NOPARENTNOTIFY);
    EXPECT_EQ(TakeLog(),
              (MessageLog{"silent NCCREATE", "silent NCCALCSIZE", "silent CREATE", "silent SIZE 0", "silent MOVE"}));
}

TEST_F(MessageOrder, MovingAndSizingTellsOnlyWhatChanged) {
    const HWND top = Top("top");
    const HWND child = Child("child", top);
    TakeLog();
    MoveWindow(child, 1, 2, 70, 40, TRUE);
    EXPECT_EQ(TakeLog(),
              (MessageLog{"child POSCHANGING", "child NCCALCSIZE", "child POSCHANGED", "child MOVE", "child SIZE 0"}));
    MoveWindow(child, 3, 4, 70, 40, TRUE);
    EXPECT_EQ(TakeLog(), (MessageLog{"child POSCHANGING", "child POSCHANGED", "child MOVE"}));
    MoveWindow(child, 3, 4, 70, 40, TRUE);
    EXPECT_EQ(TakeLog(), (MessageLog{"child POSCHANGING"}));
    SetWindowPos(child, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    EXPECT_EQ(TakeLog(), (MessageLog{"child POSCHANGING", "child NCCALCSIZE", "child POSCHANGED"}));
    ShowWindow(child, SW_SHOW);
    EXPECT_EQ(TakeLog(), MessageLog{});
}

TEST_F(MessageOrder, ParentsHearOfTheirDestructionFirstAndOfItsEndLast) {
    const HWND top = Top("top");
    const HWND panel = Child("panel", top);
    Child("inner", panel);
    Child("hidden", top, 0);
    SetFocus(nullptr);
    TakeLog();
    DestroyWindow(panel);
    EXPECT_EQ(TakeLog(),
              (MessageLog{"top PARENTNOTIFY destroy", "panel SHOWWINDOW 0", "panel POSCHANGING", "panel POSCHANGED",
                          "panel DESTROY", "inner DESTROY", "inner NCDESTROY", "panel NCDESTROY"}));
    DestroyWindow(top);
    EXPECT_EQ(TakeLog(), (MessageLog{"top POSCHANGING", "top POSCHANGED", "top ACTIVATE 0 -", "top ACTIVATEAPP 0",
                                     "top DESTROY", "hidden DESTROY", "hidden NCDESTROY", "top NCDESTROY"}));
}

TEST_F(MessageOrder, MaximisingAndRestoring) {
    const HWND top = Top("top");
    const MessageLog expected{"top GETMINMAXINFO", "top POSCHANGING", "top GETMINMAXINFO", "top NCCALCSIZE",
                              "top POSCHANGED",    "top MOVE",        "top SIZE 2"};
    TakeLog();
    ShowWindow(top, SW_MAXIMIZE);
    EXPECT_EQ(TakeLog(), expected);
    ShowWindow(top, SW_RESTORE);
    EXPECT_EQ(TakeLog(), (MessageLog{"top POSCHANGING", "top GETMINMAXINFO", "top NCCALCSIZE", "top POSCHANGED",
                                     "top MOVE", "top SIZE 0"}));
}

TEST_F(MessageOrder, AHookSeesAWindowBeforeItsFirstMessageAndMayRefuseIt) {
    static MessageLog* s_log;
    static bool s_refuse;
    static HHOOK s_hook;
    MessageLog seen;
    s_log = &seen;
    s_refuse = false;
    const HOOKPROC procedure = [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (code == HCBT_CREATEWND) {
            const auto* create = reinterpret_cast<const CBT_CREATEWNDW*>(lParam);
            s_log->push_back(IsWindow(reinterpret_cast<HWND>(wParam)) && create->lpcs->cx == 60 ? "hook" : "bad hook");
            if (s_refuse) return 1;
        }
        return CallNextHookEx(s_hook, code, wParam, lParam);
    };
    const HWND top = Top("top");
    TakeLog();
    m_handler = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_NCCREATE) seen.push_back("created");
        return false;
    };
    s_hook = SetWindowsHookExW(WH_CBT, procedure, nullptr, GetCurrentThreadId());
    ASSERT_NE(s_hook, nullptr);
    EXPECT_NE(Child("first", top), nullptr);
    s_refuse = true;
    EXPECT_EQ(Child("second", top), nullptr);
    EXPECT_TRUE(UnhookWindowsHookEx(s_hook));
    EXPECT_FALSE(UnhookWindowsHookEx(s_hook));
    EXPECT_NE(Child("third", top), nullptr);
    EXPECT_EQ(seen, (MessageLog{"hook", "created", "hook", "created"}));
}

}  // namespace qv::test
