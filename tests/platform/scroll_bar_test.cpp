#include "tests/platform/control_fixture.h"

namespace {

class ScrollBarTest : public ControlTest {};

}  // namespace

TEST_F(ScrollBarTest, PositionStaysInsideRangeAndPage) {
    HWND bar = Create(L"ScrollBar", SBS_HORZ);
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = 0;
    info.nMax = 99;
    info.nPage = 10;
    info.nPos = 200;
    EXPECT_EQ(SendMessageW(bar, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info)), 90);
    EXPECT_EQ(SendMessageW(bar, SBM_SETPOS, 20, TRUE), 90);
    EXPECT_EQ(SendMessageW(bar, SBM_GETPOS, 0, 0), 20);
    SCROLLINFO got = {};
    got.cbSize = sizeof got;
    got.fMask = SIF_ALL;
    EXPECT_NE(SendMessageW(bar, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&got)), 0);
    EXPECT_EQ(got.nMax, 99);
    EXPECT_EQ(got.nPage, 10u);
    EXPECT_EQ(got.nPos, 20);
}
