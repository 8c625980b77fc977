// Rows that do not fit their page: the page's scroll bars, the row of the control with the focus, the wheel.
#include <gtest/gtest.h>

#include "framework/app.h"
#include "platform/user.h"
#include "tests/host/layout_page.h"

namespace {

// A page that arranges its rows for its own size, ten pixels inside, as a property page does.
class ScrollPage : public LayoutPage {
public:
    explicit ScrollPage(int rows) {
        for (int i = 0; i < rows; ++i) {
            Add(i % 3 == 2
                    ? ComboRow(L"row" + std::to_wstring(i), L"a",
                               {{L"Anna", L"a", 0, nullptr}, {L"Berta", L"b", 1, nullptr}, {L"Cora", L"c", 2, nullptr}})
                    : TextRow(L"row" + std::to_wstring(i)));
        }
        // Its right edge follows the page's.
        Add({.name = L"wide", .order = rows, .resizeMode = XLayout::kResizeWidth}).SetControlWidth(50, 5000);
        Show();
        window.onSize = [this](int cx, int cy) { layout.RecalcLayout(10, 10, cx - 20, cy - 20); };
        Resize(leastWidth(), leastHeight());
    }
    ~ScrollPage() { window.onSize = {}; }

    // Of the client area without bars.
    void Resize(int cx, int cy) {
        const CRect frame = window.GetWindowRect();
        const CRect client = window.GetClientRect();
        const bool vertical = (window.GetStyle() & WS_VSCROLL) != 0, horizontal = (window.GetStyle() & WS_HSCROLL) != 0;
        const int aroundX = frame.Width() - client.Width() - (vertical ? ::GetSystemMetrics(SM_CXVSCROLL) : 0);
        const int aroundY = frame.Height() - client.Height() - (horizontal ? ::GetSystemMetrics(SM_CYHSCROLL) : 0);
        window.MoveWindow(0, 0, cx + aroundX, cy + aroundY);
    }
    [[nodiscard]] int leastWidth() const { return layout.GetMinWidth() + 20; }
    [[nodiscard]] int leastHeight() const { return layout.GetMinHeight() + 20; }
    [[nodiscard]] bool Has(DWORD bar) const { return (window.GetStyle() & bar) != 0; }
    [[nodiscard]] bool Shows(const CRect& rect) const {
        const CRect client = window.GetClientRect();
        CRect common;
        return ::IntersectRect(&common, &client, &rect) != FALSE && ::EqualRect(&common, &rect) != FALSE;
    }
    [[nodiscard]] CWnd& Control(int row) { return *layout.GetColumnControl(L"row" + std::to_wstring(row)); }
    [[nodiscard]] int Top(int row) { return static_cast<int>(ControlRect(L"row" + std::to_wstring(row)).top); }
    // The distance of two rows.
    [[nodiscard]] int Step() { return Top(1) - Top(0); }
};

TEST(LayoutScroll, BarsComeWhenTheRowsAtTheirLeastDoNotFit) {
    ScrollPage page(20);
    const int width = page.leastWidth(), height = page.leastHeight();
    const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
    const int firstTop = page.Top(0);
    const struct {
        const char* name;
        int cx, cy;
        bool horizontal, vertical;
    } cases[] = {
        {"just enough", width, height, false, false},
        {"too low", width + bar, height / 2, false, true},
        {"too narrow", width - 1, height + bar, true, false},
        {"too low, and the bar makes it too narrow", width, height / 2, true, true},
        {"as small as a page can be", 30, 30, true, true},
        {"enough again", width + 50, height + 50, false, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        page.Resize(each.cx, each.cy);
        EXPECT_EQ(page.Has(WS_HSCROLL), each.horizontal);
        EXPECT_EQ(page.Has(WS_VSCROLL), each.vertical);
        EXPECT_EQ(page.Top(0), firstTop);
        if (!each.horizontal) {
            EXPECT_EQ(page.ControlRect(L"wide").right, page.window.GetClientRect().right - 10);
        }
        // What the layout asks for does not depend on what it was given.
        EXPECT_EQ(page.leastWidth(), width);
        EXPECT_EQ(page.leastHeight(), height);
    }
}

TEST(LayoutScroll, TheControlThatGetsTheFocusIsSeenWithItsPrompt) {
    ScrollPage page(20);
    page.Resize(page.leastWidth() + 50, page.leastHeight() / 4);
    ASSERT_TRUE(page.Has(WS_VSCROLL));
    EXPECT_FALSE(page.Shows(page.ControlRect(L"row19")));
    for (const int row : {19, 0, 10, 11, 9, 18}) {
        SCOPED_TRACE(row);
        page.Control(row).SetFocus();
        EXPECT_TRUE(page.Shows(page.ControlRect(L"row" + std::to_wstring(row))));
        EXPECT_TRUE(page.Shows(page.PromptRect(L"row" + std::to_wstring(row))));
    }
    page.Control(0).SetFocus();
    EXPECT_EQ(::GetScrollPos(page.window.m_hWnd, SB_VERT), 0) << "the first row brings the page's margin along";
}

TEST(LayoutScroll, AControlThatIsTooWideForThePageShowsItsStart) {
    ScrollPage page(3);
    page.Resize(page.ControlRect(L"row0").Width() / 2, page.leastHeight() + 50);
    page.Control(1).SetFocus();
    EXPECT_EQ(page.ControlRect(L"row1").left, 0);
}

TEST(LayoutScroll, RowsStayInPlaceWhenAScrolledPageIsArrangedAgain) {
    ScrollPage page(20);
    const int step = page.Step();
    page.Resize(page.leastWidth() + 50, page.leastHeight() / 2);
    page.Control(19).SetFocus();
    const int position = ::GetScrollPos(page.window.m_hWnd, SB_VERT);
    ASSERT_GT(position, 0);
    page.Resize(page.leastWidth() + 90, page.leastHeight() / 2);
    EXPECT_EQ(::GetScrollPos(page.window.m_hWnd, SB_VERT), position);
    const int first = page.Top(0);
    EXPECT_LT(first, 0);
    EXPECT_EQ(page.Top(19), first + 19 * step);
    // Higher by half of what was hidden: the end of the rows stays at the end of the page.
    page.Resize(page.leastWidth() + 90, page.leastHeight() * 3 / 4);
    EXPECT_EQ(page.Top(19), page.Top(0) + 19 * step);
    EXPECT_EQ(page.Top(0) - first, position - ::GetScrollPos(page.window.m_hWnd, SB_VERT));
    page.Resize(page.leastWidth() + 90, page.leastHeight() + 10);
    EXPECT_EQ(page.Top(0) - first, position);
    EXPECT_EQ(page.Top(19), page.Top(0) + 19 * step);
}

TEST(LayoutScroll, ArrowsStepByARowAndTheBarByAPage) {
    ScrollPage page(20);
    page.Resize(page.leastWidth() + 50, page.leastHeight() / 2);
    const int step = page.Step();
    const int seen = page.window.GetClientRect().Height();
    const struct {
        UINT request;
        int expected;
    } cases[] = {{SB_LINEDOWN, step}, {SB_PAGEDOWN, seen}, {SB_LINEUP, seen - step}, {SB_PAGEUP, 0}};
    for (const auto& each : cases) {
        page.window.SendMessage(WM_VSCROLL, each.request);
        EXPECT_EQ(::GetScrollPos(page.window.m_hWnd, SB_VERT), each.expected) << each.request;
    }
}

// Whoever turns the wheel over a page means the page, whatever is under the pointer.
TEST(LayoutScroll, TheWheelNeverChangesAClosedComboBox) {
    ScrollPage page(20);
    page.Resize(page.leastWidth() + 50, page.leastHeight() / 2);
    auto* combo = DynamicDownCast<CComboBox>(&page.Control(2));
    ASSERT_NE(combo, nullptr);
    const auto turn = [&](CWnd& control) {
        control.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
        return ::GetScrollPos(page.window.m_hWnd, SB_VERT);
    };
    combo->SetFocus();
    const int turned = turn(*combo);
    EXPECT_GT(turned, page.Step());
    EXPECT_EQ(combo->GetCurSel(), 0);
    EXPECT_GT(turn(page.Control(0)), turned) << "over a field";

    combo->SendMessage(CB_SHOWDROPDOWN, TRUE);
    const int open = ::GetScrollPos(page.window.m_hWnd, SB_VERT);
    EXPECT_EQ(turn(*combo), open) << "an open list keeps the wheel";
    combo->SendMessage(CB_SHOWDROPDOWN, FALSE);
    combo->SetCurSel(0);

    page.Resize(page.leastWidth() + 50, page.leastHeight() + 50);
    turn(*combo);
    EXPECT_EQ(combo->GetCurSel(), 0) << "nor on a page without bars";
}

TEST(LayoutScroll, TypingBringsBackAFieldThatWasScrolledAway) {
    ScrollPage page(20);
    page.Resize(page.leastWidth() + 50, page.leastHeight() / 4);
    const qv::User user([] { PumpPending(); });
    ASSERT_TRUE(user.Focus(page.Control(0).m_hWnd));
    page.window.SendMessage(WM_VSCROLL, SB_BOTTOM);
    ASSERT_FALSE(page.Shows(page.ControlRect(L"row0")));
    ASSERT_TRUE(user.Type(L"x"));
    EXPECT_TRUE(page.Shows(page.ControlRect(L"row0")));
}

}  // namespace
