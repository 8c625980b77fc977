// Scroll bars of windows: range, page and position, and when a bar comes and goes.
#include "tests/platform/window_fixture.h"

namespace qv::test {

class WindowScrollBar : public WindowFixture {
protected:
    WindowScrollBar() : m_view(Make("view", WS_CHILD | WS_VISIBLE | WS_VSCROLL, Top("top"), {0, 0, 100, 80})) {
        TakeLog();
    }

    int Set(UINT mask, int minimum, int maximum, UINT page, int position) const {
        const SCROLLINFO info{sizeof(SCROLLINFO), mask, minimum, maximum, page, position, 0};
        return SetScrollInfo(m_view, SB_VERT, &info, TRUE);
    }
    [[nodiscard]] SCROLLINFO Get() const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        EXPECT_TRUE(GetScrollInfo(m_view, SB_VERT, &info));
        return info;
    }
    [[nodiscard]] bool HasBar() const { return (GetWindowLongW(m_view, GWL_STYLE) & WS_VSCROLL) != 0; }

    HWND m_view;
};

TEST_F(WindowScrollBar, ThePositionStopsWhereTheLastPageBegins) {
    EXPECT_EQ(Set(SIF_ALL, 0, 99, 10, 95), 90);
    EXPECT_EQ(Set(SIF_POS, 0, 0, 0, -5), 0);
    EXPECT_EQ(SetScrollPos(m_view, SB_VERT, 50, TRUE), 0) << "the old position";
    EXPECT_EQ(GetScrollPos(m_view, SB_VERT), 50);
    Set(SIF_PAGE, 0, 0, 1000, 0);
    EXPECT_EQ(Get().nPage, 100u) << "a page is no longer than the range";
    EXPECT_EQ(Get().nPos, 0);
}

TEST_F(WindowScrollBar, ABarWithNothingToScrollGoesAndTheClientAreaGrows) {
    Set(SIF_ALL, 0, 99, 10, 0);
    TakeLog();
    Set(SIF_PAGE, 0, 0, 200, 0);
    EXPECT_FALSE(HasBar());
    EXPECT_EQ(TakeLog(), MessageLog{"view SIZE 0"});
    // Its numbers stay; the page alone does not bring it back, a range does.
    EXPECT_EQ(Get().nMax, 99);
    Set(SIF_PAGE, 0, 0, 5, 0);
    EXPECT_FALSE(HasBar());
    Set(SIF_RANGE | SIF_PAGE, 0, 99, 5, 0);
    EXPECT_FALSE(HasBar()) << "nothing has changed";
    Set(SIF_RANGE | SIF_PAGE, 0, 99, 10, 0);
    EXPECT_TRUE(HasBar());
    Set(SIF_ALL | SIF_DISABLENOSCROLL, 0, 99, 100, 0);
    EXPECT_TRUE(HasBar());
}

}  // namespace qv::test
