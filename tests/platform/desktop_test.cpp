// What only the desktop in memory offers: counting, provoking failures, other resolutions, and a loud end instead of a
// wait without end.
#include "platform/headless/doors/desktop.h"
#include "tests/platform/window_fixture.h"

namespace qv::test {

class MemoryDesktop : public WindowFixture {
protected:
    ~MemoryDesktop() override { Desktop::Reset(); }
};

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
