// Rectangles, frames, z-order, limits and placement records.
#include <algorithm>
#include <climits>

#include "tests/platform/window_fixture.h"

namespace qv::test {

class Placement : public WindowFixture {
protected:
    static RECT RectOf(HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }
    static RECT ClientOf(HWND window) {
        RECT rect{};
        GetClientRect(window, &rect);
        return rect;
    }
    static RECT WorkArea() {
        RECT area{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        return area;
    }
    static WINDOWPLACEMENT PlacementOf(HWND window) {
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        EXPECT_TRUE(GetWindowPlacement(window, &placement));
        return placement;
    }
};

void ExpectRect(const RECT& rect, LONG left, LONG top, LONG right, LONG bottom) {
    EXPECT_EQ(rect.left, left);
    EXPECT_EQ(rect.top, top);
    EXPECT_EQ(rect.right, right);
    EXPECT_EQ(rect.bottom, bottom);
}

TEST_F(Placement, CoordinatesEndWhereMessagesCannotTellThemAnyMore) {
    const HWND window = Make("window", WS_POPUP);
    SetWindowPos(window, nullptr, INT_MAX, INT_MIN, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE);
    ExpectRect(RectOf(window), 32767, -32768, 32767 + 300, -32768 + 200);
    WINDOWPLACEMENT placement = PlacementOf(window);
    placement.rcNormalPosition = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    placement.ptMaxPosition = {INT_MAX, INT_MIN};
    placement.ptMinPosition = {INT_MIN, INT_MAX};
    for (const UINT show : {UINT{SW_SHOWNORMAL}, UINT{SW_SHOWMAXIMIZED}, UINT{SW_SHOWMINIMIZED}, UINT{SW_RESTORE}}) {
        placement.showCmd = show;
        placement.flags = WPF_SETMINPOSITION;
        SetWindowPlacement(window, &placement);
        const RECT rect = RectOf(window);
        EXPECT_GE(rect.left, -32768) << show;
        EXPECT_LE(rect.right - rect.left, 32767) << show;
    }
    RECT rect{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    EXPECT_TRUE(OffsetRect(&rect, -1, 1));
    EXPECT_TRUE(InflateRect(&rect, INT_MAX, INT_MAX));
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
}

TEST_F(Placement, TheClientAreaIsWhatTheFrameLeaves) {
    struct Case {
        const char* name;
        DWORD style;
        DWORD exStyle;
    };
    const Case cases[] = {
        {"no frame", WS_POPUP, 0},
        {"dialog frame", WS_POPUP | WS_CAPTION, WS_EX_DLGMODALFRAME},
        {"sizing frame", WS_OVERLAPPEDWINDOW, 0},
        {"sunken", WS_POPUP, WS_EX_CLIENTEDGE},
    };
    for (const Case& test : cases) {
        RECT wanted{0, 0, 200, 100};
        AdjustWindowRectEx(&wanted, test.style, FALSE, test.exStyle);
        const HWND window =
            Make("window", test.style, nullptr,
                 {50, 60, 50 + wanted.right - wanted.left, 60 + wanted.bottom - wanted.top}, test.exStyle);
        ExpectRect(ClientOf(window), 0, 0, 200, 100);
        POINT origin{};
        ClientToScreen(window, &origin);
        EXPECT_EQ(origin.x, 50 - wanted.left) << test.name;
        EXPECT_EQ(origin.y, 60 - wanted.top) << test.name;
    }
}

TEST_F(Placement, PointsMapBetweenWindowsAndTheScreen) {
    const HWND top = Top("top");
    const HWND panel = Make("panel", WS_CHILD | WS_VISIBLE | WS_BORDER, top, {20, 30, 220, 130});
    const HWND inner = Make("inner", WS_CHILD | WS_VISIBLE, panel, {7, 9, 57, 49});
    RECT rect = RectOf(inner);
    MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&rect), 2);
    ExpectRect(rect, 7, 9, 57, 49);
    MapWindowPoints(panel, top, reinterpret_cast<POINT*>(&rect), 2);
    ExpectRect(rect, 28, 40, 78, 80);
    POINT point{1, 2};
    ClientToScreen(inner, &point);
    ScreenToClient(top, &point);
    EXPECT_EQ(point.x, 29);
    EXPECT_EQ(point.y, 42);
    // Moving the parent takes the children along.
    const RECT before = RectOf(inner);
    SetWindowPos(top, nullptr, 60, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const RECT after = RectOf(inner);
    EXPECT_EQ(after.left - before.left, 50);
    EXPECT_EQ(after.top - before.top, 60);
}

TEST_F(Placement, SizesObeyTheLimitsOfTheWindow) {
    const HWND top = Top("top");
    MoveWindow(top, 10, 10, 5, 5, TRUE);
    const RECT least = RectOf(top);
    EXPECT_EQ(least.right - least.left, GetSystemMetrics(SM_CXMINTRACK));
    EXPECT_EQ(least.bottom - least.top, GetSystemMetrics(SM_CYMINTRACK));
    m_handler = [](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message != WM_GETMINMAXINFO) return false;
        auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
        limits->ptMinTrackSize = {300, 250};
        limits->ptMaxTrackSize = {400, 350};
        return true;
    };
    MoveWindow(top, 10, 10, 20, 30, TRUE);
    ExpectRect(RectOf(top), 10, 10, 310, 260);
    MoveWindow(top, 10, 10, 2000, 3000, TRUE);
    ExpectRect(RectOf(top), 10, 10, 410, 360);
}

TEST_F(Placement, ARecordRemembersTheNormalRectangleInEveryState) {
    const HWND top = Top("top");
    WINDOWPLACEMENT placement = PlacementOf(top);
    EXPECT_EQ(placement.showCmd, UINT{SW_SHOWNORMAL});
    ExpectRect(placement.rcNormalPosition, 10, 20, 310, 220);
    ShowWindow(top, SW_MAXIMIZE);
    EXPECT_TRUE(IsZoomed(top));
    placement = PlacementOf(top);
    EXPECT_EQ(placement.showCmd, UINT{SW_SHOWMAXIMIZED});
    ExpectRect(placement.rcNormalPosition, 10, 20, 310, 220);
    ShowWindow(top, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(top));
    EXPECT_FALSE(IsZoomed(top));
    placement = PlacementOf(top);
    EXPECT_EQ(placement.showCmd, UINT{SW_SHOWMINIMIZED});
    EXPECT_EQ(placement.flags, UINT{WPF_RESTORETOMAXIMIZED});
    ShowWindow(top, SW_RESTORE);
    EXPECT_TRUE(IsZoomed(top)) << "a window that was maximised returns to that";
    ShowWindow(top, SW_RESTORE);
    ExpectRect(RectOf(top), 10, 20, 310, 220);
}

TEST_F(Placement, ApplyingARecordSetsRectangleAndState) {
    const HWND top = Make("top", WS_OVERLAPPEDWINDOW);
    WINDOWPLACEMENT placement = PlacementOf(top);
    placement.rcNormalPosition = {100, 110, 500, 410};
    placement.showCmd = SW_SHOWMAXIMIZED;
    EXPECT_TRUE(SetWindowPlacement(top, &placement));
    EXPECT_TRUE(IsZoomed(top));
    EXPECT_TRUE(IsWindowVisible(top));
    const RECT area = WorkArea();
    const RECT maximised = RectOf(top);
    EXPECT_LE(maximised.left, area.left);
    EXPECT_GE(maximised.right, area.right);
    placement.showCmd = SW_SHOWNORMAL;
    placement.rcNormalPosition = {120, 130, 520, 430};
    EXPECT_TRUE(SetWindowPlacement(top, &placement));
    EXPECT_FALSE(IsZoomed(top));
    ExpectRect(RectOf(top), 120, 130, 520, 430);
    // A rectangle that nobody could see is brought back onto the screen.
    placement.rcNormalPosition = {-5000, 100, -4500, 400};
    EXPECT_TRUE(SetWindowPlacement(top, &placement));
    ExpectRect(RectOf(top), area.left, 100, area.left + 500, 400);
    placement.length = 3;
    EXPECT_FALSE(SetWindowPlacement(top, &placement));
}

TEST_F(Placement, StaleHandlesAreRecognised) {
    const HWND window = Make("gone", WS_POPUP);
    DestroyWindow(window);
    EXPECT_FALSE(IsWindow(window));
    const HWND next = Make("next", WS_POPUP);
    EXPECT_NE(next, window);
    EXPECT_FALSE(IsWindow(window));
    SetLastError(0);
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_FALSE(PostMessageW(window, WM_USER, 0, 0));
    EXPECT_EQ(GetLastError(), DWORD{1400});
}

}  // namespace qv::test
