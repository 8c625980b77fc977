// Who has the focus and who is active, and what moves them.
#include "tests/platform/window_fixture.h"

namespace qv::test {

class Focus : public WindowFixture {
protected:
    Focus() : m_top(Top("top")), m_a(Child("a", m_top)), m_b(Child("b", m_top)) {
        SetFocus(m_a);
        TakeLog();
    }

    HWND m_top;
    HWND m_a;
    HWND m_b;
};

TEST_F(Focus, MovesFromOneToTheOtherOldWindowFirst) {
    EXPECT_EQ(SetFocus(m_b), m_a);
    EXPECT_EQ(TakeLog(), (MessageLog{"a KILLFOCUS b", "b SETFOCUS a"}));
    EXPECT_EQ(GetFocus(), m_b);
    EXPECT_EQ(SetFocus(m_b), m_b);
    EXPECT_EQ(TakeLog(), MessageLog{});
    EXPECT_EQ(SetFocus(nullptr), m_b);
    EXPECT_EQ(TakeLog(), (MessageLog{"b KILLFOCUS -"}));
    EXPECT_EQ(GetActiveWindow(), m_top);
}

TEST_F(Focus, DisabledWindowsLoseItAndDoNotGetIt) {
    EnableWindow(m_a, FALSE);
    EXPECT_EQ(TakeLog(), (MessageLog{"a CANCELMODE", "a KILLFOCUS -", "a ENABLE 0"}));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(SetFocus(m_a), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
    // True when it was disabled before.
    EXPECT_TRUE(EnableWindow(m_a, TRUE));
    EXPECT_FALSE(EnableWindow(m_a, TRUE));
    TakeLog();
    const HWND inner = Child("inner", m_b);
    EnableWindow(m_b, FALSE);
    SetFocus(inner);
    EXPECT_EQ(GetFocus(), nullptr) << "a child of a disabled window";
    EnableWindow(m_b, TRUE);
    SetFocus(inner);
    EnableWindow(m_b, FALSE);
    EXPECT_EQ(GetFocus(), inner) << "but it keeps what it has";
}

TEST_F(Focus, HiddenWindowsLeaveItToTheirParent) {
    ShowWindow(m_a, SW_HIDE);
    EXPECT_EQ(GetFocus(), m_top);
    EXPECT_EQ(TakeLog(), (MessageLog{"a KILLFOCUS top", "top SETFOCUS a"}));
}

TEST_F(Focus, DestroyedWindowsLeaveItToTheirParentTheirChildrenToNobody) {
    DestroyWindow(m_a);
    EXPECT_EQ(GetFocus(), m_top);
    const HWND inner = Child("inner", m_b);
    SetFocus(inner);
    DestroyWindow(m_b);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Focus, PopupsTakeTheActivationAndGiveItBackToTheirOwner) {
    const HWND popup = Make("popup", WS_POPUP, m_top);
    TakeLog();
    ShowWindow(popup, SW_SHOW);
    EXPECT_EQ(GetActiveWindow(), popup);
    EXPECT_EQ(GetFocus(), popup);
    EXPECT_EQ(TakeLog(),
              (MessageLog{"top ACTIVATE 0 popup", "popup ACTIVATE 1 top", "a KILLFOCUS popup", "popup SETFOCUS a"}));
    DestroyWindow(popup);
    EXPECT_EQ(GetActiveWindow(), m_top);
    // An ordinary window has no memory of who had the focus before.
    EXPECT_EQ(GetFocus(), m_top);
}

TEST_F(Focus, CaptureEndsWithTheWindowThatHasIt) {
    SetCapture(m_a);
    EXPECT_EQ(SetCapture(m_b), m_a);
    EnableWindow(m_b, FALSE);
    EXPECT_EQ(TakeLog(), (MessageLog{"b CANCELMODE", "b ENABLE 0"}));
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(m_a);
    DestroyWindow(m_a);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Focus, VisibilityNeedsTheAncestors) {
    const HWND panel = Child("panel", m_top);
    const HWND inner = Child("inner", panel);
    ShowWindow(panel, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(inner));
    EXPECT_NE(GetWindowLongW(inner, GWL_STYLE) & WS_VISIBLE, 0);
    ShowWindow(panel, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(inner));
}

}  // namespace qv::test
