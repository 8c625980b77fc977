#include <array>

#include "framework/controls.h"
#include "framework/view.h"
#include "tests/framework/test_windows.h"

namespace {

class ScrollView : public testing::Test {
protected:
    ScrollView() : view(new CScrollView) {
        view->Create(nullptr, L"", WS_VISIBLE | WS_CLIPCHILDREN, {0, 0, 200, 100}, &top, 1);
        child.Create(L"c", WS_VISIBLE | WS_TABSTOP, {0, 0, 40, 20}, view, 2);
    }
    [[nodiscard]] bool HasBar(DWORD style) const { return (view->GetStyle() & style) != 0; }
    [[nodiscard]] CRect ChildRect() const {
        CRect rect = child.GetWindowRect();
        view->ScreenToClient(rect);
        return rect;
    }

    TopWindow top;
    CScrollView* view;
    CButton child;
    int barWidth = ::GetSystemMetrics(SM_CXVSCROLL);
    int barHeight = ::GetSystemMetrics(SM_CYHSCROLL);
};

TEST_F(ScrollView, ShowsBarsOnlyWhenNeededAndCountsTheRoomTheyTake) {
    const struct {
        const char* name;
        SIZE total;
        bool horizontal;
        bool vertical;
    } cases[] = {
        {"fits exactly", {200, 100}, false, false},
        {"too wide", {201, 50}, true, false},
        {"too high", {50, 101}, false, true},
        {"too wide, and the bar makes it too high", {201, 100}, true, true},
        {"too high, and the bar makes it too wide", {200, 101}, true, true},
        {"too high, but room for the bar", {200 - barWidth, 101}, false, true},
        {"fits again", {10, 10}, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        view->SetScrollSizes(c.total);
        EXPECT_EQ(HasBar(WS_HSCROLL), c.horizontal);
        EXPECT_EQ(HasBar(WS_VSCROLL), c.vertical);
        EXPECT_EQ(view->GetClientRect().Width(), 200 - (c.vertical ? barWidth : 0));
        EXPECT_EQ(view->GetClientRect().Height(), 100 - (c.horizontal ? barHeight : 0));
    }
}

TEST_F(ScrollView, ScrollsItsContentAndStopsAtTheEnds) {
    view->SetScrollSizes({200 - barWidth, 400}, {50, 50}, {7, 7});
    const int furthest = 400 - 100;
    const struct {
        const char* name;
        UINT message;
        WPARAM wParam;
        int expected;
    } cases[] = {
        {"line down", WM_VSCROLL, SB_LINEDOWN, 7},
        {"page down", WM_VSCROLL, SB_PAGEDOWN, 57},
        {"line up", WM_VSCROLL, SB_LINEUP, 50},
        {"thumb", WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 120), 120},
        {"wheel towards the user", WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 141},
        {"wheel away", WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 120},
        {"end", WM_VSCROLL, SB_BOTTOM, furthest},
        {"beyond the end", WM_VSCROLL, SB_PAGEDOWN, furthest},
        {"start", WM_VSCROLL, SB_TOP, 0},
        {"before the start", WM_VSCROLL, SB_LINEUP, 0},
        {"across, without a bar", WM_HSCROLL, SB_PAGEDOWN, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        view->SendMessage(c.message, c.wParam);
        EXPECT_EQ(view->GetScrollPosition().y, c.expected);
        EXPECT_EQ(view->GetScrollPosition().x, 0);
        EXPECT_EQ(ChildRect().top, -c.expected) << "the content moves along";
    }
}

// However the focus comes to it: by a key, a click or a call.
TEST_F(ScrollView, HearsOfEveryFocusOnceTheMouseButtonIsUp) {
    view->SetScrollSizes({100, 400});
    child.MoveWindow(0, 250, 40, 20);
    child.SetFocus();
    EXPECT_EQ(view->GetScrollPosition().y, 170);

    // What is clicked on stays under the pointer until the button is up.
    CButton other;
    other.Create(L"o", WS_VISIBLE | WS_TABSTOP, {60, -170, 90, -150}, view, 3);
    std::array<BYTE, 256> keys{};
    ::GetKeyboardState(keys.data());
    auto before = keys;
    keys[VK_LBUTTON] = 0x80;
    ::SetKeyboardState(keys.data());
    other.SetFocus();
    EXPECT_EQ(view->GetScrollPosition().y, 170);
    ::SetKeyboardState(before.data());
    other.SendMessage(WM_LBUTTONUP);
    CRect rect = other.GetWindowRect();
    view->ScreenToClient(rect);
    EXPECT_EQ(rect.top, 0);
}

TEST_F(ScrollView, LeavesTheWheelToTheWindowAroundItWhereItCannotScroll) {
    struct Around : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_MOUSEWHEEL) ++turned;
            return CWnd::WindowProc(message, wParam, lParam);
        }
        int turned = 0;
    } around;
    around.Create(nullptr, L"", WS_VISIBLE, {0, 0, 300, 300}, &top, 5);
    ::SetParent(view->m_hWnd, around.m_hWnd);
    const auto turn = [this](int notches) {
        child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(notches * WHEEL_DELTA)));
    };
    view->SetScrollSizes({100, 150});
    turn(-100);
    EXPECT_EQ(around.turned, 0);
    EXPECT_EQ(view->GetScrollPosition().y, 50);
    turn(-1);
    EXPECT_EQ(around.turned, 1) << "at the end";
    view->SetScrollSizes({10, 10});
    turn(1);
    EXPECT_EQ(around.turned, 2) << "without bars";
}

}  // namespace
