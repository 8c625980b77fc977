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

TEST_F(MessageOrder, AHookMayRefuseAWindow) {
    const HWND top = Top("top");
    const HOOKPROC refuse = [](int code, WPARAM, LPARAM) -> LRESULT { return code == HCBT_CREATEWND ? 1 : 0; };
    const HHOOK hook = SetWindowsHookExW(WH_CBT, refuse, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    EXPECT_EQ(Child("refused", top), nullptr);
    EXPECT_TRUE(UnhookWindowsHookEx(hook));
    EXPECT_FALSE(UnhookWindowsHookEx(hook));
    EXPECT_NE(Child("next", top), nullptr);
}

}  // namespace qv::test
