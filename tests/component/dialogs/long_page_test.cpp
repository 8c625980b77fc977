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

// A page with more rows than get windows at once.
class VeryLongPage : public WholeDialog {
protected:
    static constexpr int kMany = 700;
    static_assert(kMany > static_cast<int>(XLayout::kMadeWhole));
    VeryLongPage() {
        host.DefinePage(L"1", L"Long");
        for (int i = 0; i < kMany; ++i) {
            host.DefineItem(Item(i), i % 10 == 0 ? 0 : 1, 1,
                            {{L"ordernumber", std::to_wstring(i)},
                             {L"upperbound", L"10"},
                             {L"default", L"1"},
                             {L"label", Label(i)}});
        }
    }
    // Most rows share a letter.
    static std::wstring Label(int row) {
        switch (row) {
            case 100:
                return L"&Word";
            case 200:
                return L"&Zone";
            case 300:
                return L"&Zoom";
            case 450:
                return L"Check &it";
            case 310:
            case 500:
            case 640:
                return L"Question && &quest";
            default:
                return L"&Row " + std::to_wstring(row);
        }
    }
    // Without asking for it.
    [[nodiscard]] static HWND WindowOf(int row) {
        const CWnd* const control = qv::LiveLayouts().at(0)->GetRows().at(static_cast<std::size_t>(row)).control;
        return control != nullptr ? control->m_hWnd : nullptr;
    }
    static bool PressAlt(wchar_t letter) {
        const bool isPosted = ::PostMessageW(::GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), 1L << 29) != FALSE;
        PumpPending();
        return isPosted;
    }
};

TEST_F(VeryLongPage, IsEnteredByTabAtBothEndsAndByEveryMnemonic) {
    host.DefineItem(Item(200), {{L"functiongroup", L"3"}});
    host.users->Refuse(L"Change settings/Global data");
    InDialog([this] {
        EXPECT_EQ(WindowOf(300), nullptr);
        EXPECT_TRUE(qv::LiveLayouts().at(0)->GetRows().at(200).column.disabled);
        ASSERT_TRUE(driver.HasFocus(driver.Dialog().GetDlgItem(IDOK)));
        ASSERT_TRUE(PressAlt(L'z'));
        ASSERT_NE(WindowOf(300), nullptr);
        EXPECT_EQ(::GetFocus(), WindowOf(300));
        EXPECT_TRUE(qvtest::IsWhollySeen(::GetFocus()));
        EXPECT_EQ(WindowOf(100), nullptr) << "the way there";

        // A letter of several rows goes on to the next one.
        for (const int next : {310, 500, 640, 310}) {
            ASSERT_TRUE(PressAlt(L'Q'));
            EXPECT_EQ(::GetFocus(), WindowOf(next));
        }
        ASSERT_TRUE(PressAlt(L'i'));
        EXPECT_EQ(::GetFocus(), WindowOf(450));
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
        ASSERT_TRUE(driver.Type(Item(1), L"w"));
        EXPECT_EQ(WindowOf(100), nullptr) << "what is typed into a field is not meant for a label";

        driver.Sheet().GetTabControl()->SetFocus();
        for (int i = 0; i < 10 && ::GetFocus() != WindowOf(0); ++i)
            ASSERT_TRUE(driver.PressKey(VK_TAB));
        EXPECT_EQ(::GetFocus(), WindowOf(0));
        EXPECT_TRUE(qvtest::IsWhollySeen(WindowOf(0)));
    });
}

TEST_F(VeryLongPage, StoresRowsThatNobodyHasComeToAndShowsTheOneThatIsRefused) {
    host.DefineItem(Item(401), {{L"lowerbound", L"5"}, {L"default", L"1"}});
    for (const int row : {401, 650}) {
        host.DefineItem(Item(row), {{L"globaldata", L"0"}});
        host.session->Put(SDT_userData, L"long", Item(row).substr(5), row == 401 ? L"7" : L"9");
    }
    InDialog(
        [this] {
            EXPECT_TRUE(driver.Press(IDC_DEFAULT_BUTTON));
            EXPECT_TRUE(driver.Press(IDC_APPLY_BUTTON));
            ASSERT_EQ(driver.boxes.size(), 1U);
            EXPECT_TRUE(host.session->CallsOf(qv::SessionOperation::WriteData).empty());
            ASSERT_NE(WindowOf(401), nullptr);
            EXPECT_EQ(::GetFocus(), WindowOf(401));
            EXPECT_TRUE(qvtest::IsWhollySeen(WindowOf(401)));
            EXPECT_TRUE(driver.Type(Item(401), L"6"));
            EXPECT_EQ(WindowOf(650), nullptr);
        },
        IDOK);
    EXPECT_EQ(host.Stored(Item(401).c_str()), L"6");
    EXPECT_EQ(host.Stored(Item(650).c_str()), L"1");
}

}  // namespace
