// A page with more rows than any screen shows: every row can be reached, and what needs attention is seen.
#include "tests/component/dialogs/whole_dialog.h"

#include "framework/app.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

namespace {

constexpr int kRows = 100;

std::wstring Item(int row) {
    return L"long/row" + std::to_wstring(100 + row);
}

class LongPage : public WholeDialog {
protected:
    LongPage() {
        host.DefinePage(L"1", L"Long");
        for (int i = 0; i < kRows; ++i) {
            constexpr int kTypes[] = {1, 3, 4, 0, 6, 7};
            host.DefineItem(Item(i), kTypes[i % 6], 1,
                            {{L"ordernumber", std::to_wstring(i)},
                             {L"upperbound", L"10"},
                             {L"default", L"1"},
                             {L"value1", L"1|One"},
                             {L"value2", L"2|Two"}});
        }
    }
    [[nodiscard]] CWnd& Page() const { return *Sheet().GetActivePage(); }
    [[nodiscard]] int PagePosition() const { return ::GetScrollPos(Page().m_hWnd, SB_VERT); }
};

// Walks with Tab from the page's first control to its last, by whatever size the frame has.
class LongPageInFrame : public LongPage, public ::testing::WithParamInterface<SIZE> {};

TEST_P(LongPageInFrame, EveryRowIsSeenWhenTabComesToIt) {
    InDialog([this] {
        const SIZE size = GetParam();
        if (size.cx != 0) driver.Frame().MoveWindow(0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy));
        EXPECT_NE(Page().GetStyle() & WS_VSCROLL, 0u);
        driver.Control(Item(kRows - 1))->SetFocus();
        driver.Sheet().GetTabControl()->SetFocus();
        // From the tabs over the dialog's buttons into the page; a chooser has two stops.
        int seen = 0;
        for (int i = 0; i < 3 * kRows && seen < kRows; ++i) {
            ASSERT_TRUE(driver.PressKey(VK_TAB));
            const HWND focus = ::GetFocus();
            const HWND row = driver.Control(Item(seen))->m_hWnd;
            const bool isRow = focus == row || ::IsChild(row, focus) != FALSE;
            EXPECT_TRUE(qvtest::IsWhollySeen(isRow ? row : focus)) << "stop " << i;
            if (isRow) ++seen;
        }
        EXPECT_EQ(seen, kRows);
    });
}

INSTANTIATE_TEST_SUITE_P(Frames, LongPageInFrame, ::testing::Values(SIZE{0, 0}, SIZE{420, 300}),
                         [](const auto& testCase) { return testCase.param.cx == 0 ? "AsOpened" : "Small"; });

TEST_F(LongPage, ARefusedValueIsBroughtIntoView) {
    const std::wstring last = Item(kRows - kRows % 6);
    InDialog([&] {
        ASSERT_TRUE(driver.Type(last, L"99"));
        Page().SendMessage(WM_VSCROLL, SB_TOP);
        EXPECT_FALSE(qvtest::IsWhollySeen(driver.Control(last)->m_hWnd));
        driver.boxes.clear();  // those of loading
        EXPECT_TRUE(driver.Press(IDC_APPLY_BUTTON));
        EXPECT_EQ(driver.boxes.size(), 1u);
        EXPECT_TRUE(driver.HasFocus(driver.Control(last)));
        EXPECT_TRUE(qvtest::IsWhollySeen(driver.Control(last)->m_hWnd));
    });
}

// With the focus on OK, where the dialog opens, as well as on a field.
TEST_F(LongPage, WheelAndPageKeysScrollThePage) {
    InDialog([this] {
        ASSERT_TRUE(driver.HasFocus(driver.Dialog().GetDlgItem(IDOK)));
        ASSERT_TRUE(driver.PressKey(VK_NEXT));
        EXPECT_GT(PagePosition(), 0);
        ASSERT_TRUE(driver.PressKey(VK_PRIOR));
        EXPECT_EQ(PagePosition(), 0);
        ASSERT_TRUE(driver.FocusRow(Item(2)));
        ASSERT_TRUE(driver.PressKey(VK_NEXT));
        EXPECT_EQ(PagePosition(), 0) << "a combo box pages through its own entries";
        // As systems send it that know no window but the one with the focus.
        const CRect page = Page().GetWindowRect();
        ::PostMessageW(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
                       MAKELPARAM(static_cast<WORD>(page.left + 5), static_cast<WORD>(page.top + 50)));
        PumpPending();
        EXPECT_GT(PagePosition(), 0);
    });
}

}  // namespace
