// What only the desktop in memory offers: counting, provoking failures, other resolutions, and a loud end instead of a
// wait without end.
#include "platform/headless/doors/desktop.h"
#include "tests/platform/window_fixture.h"

namespace qv::test {

class MemoryDesktop : public WindowFixture {
protected:
    ~MemoryDesktop() override { Desktop::Reset(); }
};

TEST_F(MemoryDesktop, CreationFailsAtTheLimitAndOnRequest) {
    const HWND top = Make("top", WS_POPUP);
    Desktop::SetWindowLimit(Desktop::Count().windows + 2);
    EXPECT_NE(Child("a", top), nullptr);
    EXPECT_NE(Child("b", top), nullptr);
    EXPECT_EQ(Child("c", top), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{1158});
    Desktop::SetWindowLimit(10000);
    Desktop::FailWindowCreation(2);
    EXPECT_NE(Child("d", top), nullptr);
    EXPECT_EQ(Child("e", top), nullptr);
    EXPECT_NE(Child("f", top), nullptr);
}

TEST_F(MemoryDesktop, AFullProcessWorksAndLeavesNothingBehind) {
    const Desktop::Counters before = Desktop::Count();
    const HWND top = Make("top", WS_POPUP | WS_VISIBLE);
    constexpr int kMany = 9000;
    for (int id = 1; id <= kMany; ++id) {
        ASSERT_NE(CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, top,
                                  reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr),
                  nullptr);
    }
    EXPECT_NE(GetDlgItem(top, kMany), nullptr);
    ReleaseDC(top, GetDC(top));
    DestroyWindow(top);
    EXPECT_EQ(Desktop::Count(), before);
}

TEST_F(MemoryDesktop, FontsAndFramesFollowTheResolution) {
    const auto extent = [] {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        const HDC dc = GetDC(nullptr);
        const HFONT font = CreateFontIndirectW(&metrics.lfMessageFont);
        const HGDIOBJ old = SelectObject(dc, font);
        SIZE size{};
        GetTextExtentPoint32W(dc, L"Settings", 8, &size);
        SelectObject(dc, old);
        DeleteObject(font);
        ReleaseDC(nullptr, dc);
        return size;
    };
    const SIZE usual = extent();
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    Desktop::SetDpi(192);
    EXPECT_EQ(extent().cx, 2 * usual.cx);
    EXPECT_EQ(extent().cy, 2 * usual.cy);
    EXPECT_EQ(GetSystemMetrics(SM_CYCAPTION), 2 * caption);
}

TEST_F(MemoryDesktop, PlacementRecordsAreInWorkspaceCoordinates) {
    Desktop::SetWorkArea({0, 40, 1920, 1200});
    const HWND top = Make("top", WS_OVERLAPPEDWINDOW);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(top, &placement);
    EXPECT_EQ(placement.rcNormalPosition.top, -20);
    SetWindowPlacement(top, &placement);
    RECT rect{};
    GetWindowRect(top, &rect);
    EXPECT_EQ(rect.top, 20);
}

using MemoryDesktopDeathTest = MemoryDesktop;

TEST_F(MemoryDesktopDeathTest, WaitingForNothingEndsTheProcessWithAWord) {
    MSG message{};
    EXPECT_DEATH(GetMessageW(&message, nullptr, 0, 0), "empty queue");
    EXPECT_DEATH(MessageBoxW(nullptr, L"text", L"caption", MB_OK), "nobody to answer");
    Desktop::AnswerMessageBox(IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_OKCANCEL), IDCANCEL);
}

}  // namespace qv::test
