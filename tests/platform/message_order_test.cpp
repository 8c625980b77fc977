// The order in which windows hear of what happens to them.
#include <algorithm>

#include "tests/platform/window_fixture.h"

namespace qv::test {

class MessageOrder : public WindowFixture {};

TEST_F(MessageOrder, ATopLevelWindowHearsItsFirstSizeWhenItIsShown) {
    const HWND top = Make("top", WS_OVERLAPPEDWINDOW);
    // The limits are asked for before the window has a name.
    EXPECT_EQ(TakeLog(), (MessageLog{"- GETMINMAXINFO", "top NCCREATE", "top CREATE"}));
    ShowWindow(top, SW_SHOW);
    EXPECT_EQ(TakeLog(), (MessageLog{"top ACTIVATE 1 -", "top SETFOCUS -", "top SIZE 0"}));
    ShowWindow(top, SW_MAXIMIZE);
    EXPECT_EQ(TakeLog(), (MessageLog{"top GETMINMAXINFO", "top GETMINMAXINFO", "top SIZE 2"}));
    ShowWindow(top, SW_RESTORE);
    EXPECT_EQ(TakeLog(), (MessageLog{"top GETMINMAXINFO", "top SIZE 0"}));
}

TEST_F(MessageOrder, AChildHearsOfItsSizeAtOnceAndThenOnlyOfAnotherOne) {
    const HWND top = Top("top");
    TakeLog();
    const HWND child = Child("child", top);
    EXPECT_EQ(TakeLog(), (MessageLog{"child NCCREATE", "child CREATE", "child SIZE 0"}));
    MoveWindow(child, 1, 2, 70, 40, TRUE);
    EXPECT_EQ(TakeLog(), (MessageLog{"child SIZE 0"}));
    MoveWindow(child, 3, 4, 70, 40, TRUE);
    EXPECT_EQ(TakeLog(), MessageLog{});
}

TEST_F(MessageOrder, ParentsHearOfTheirDestructionFirstAndOfItsEndLast) {
    const HWND top = Top("top");
    const HWND panel = Child("panel", top);
    Child("inner", panel);
    SetFocus(nullptr);
    const HWND owned = Make("owned", WS_POPUP, top);
    TakeLog();
    DestroyWindow(panel);
    EXPECT_EQ(TakeLog(), (MessageLog{"panel DESTROY", "inner DESTROY", "inner NCDESTROY", "panel NCDESTROY"}));
    DestroyWindow(top);
    EXPECT_FALSE(IsWindow(owned));
    const MessageLog log = TakeLog();
    EXPECT_LT(std::find(log.begin(), log.end(), "owned NCDESTROY"), std::find(log.begin(), log.end(), "top DESTROY"));
    EXPECT_EQ(log.back(), "top NCDESTROY");
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
