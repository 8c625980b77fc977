// A page of very many rows: windows for those that can be come to next, and nobody can tell by what the page does.
#include "tests/host/layout_page.h"

namespace {

constexpr int kRows = 320;
// Rows that nobody may change, more of them than can be seen at once.
constexpr int kFirstGreyed = 40, kEndGreyed = 120;

std::wstring NameOf(int row) {
    return L"row" + std::to_wstring(row);
}

std::vector<RowSpec> ManyRows(int count = kRows) {
    std::vector<RowSpec> rows;
    for (int i = 0; i < count; ++i) {
        const std::wstring value = std::to_wstring(i % 5);
        RowSpec row = i % 3 == 0   ? TextRow(NameOf(i))
                      : i % 3 == 1 ? CheckRow(NameOf(i), value)
                                   : ComboRow(NameOf(i), value,
                                              {{L"Nothing", L"", 0, nullptr},
                                               {L"One", L"1", 1, nullptr},
                                               {L"Two", L"2", 2, nullptr},
                                               {L"Another", L"2", 3, nullptr}});
        row.value = value;
        row.disabled = i >= kFirstGreyed && i < kEndGreyed;
        rows.push_back(row);
    }
    return rows;
}

// Arranges its rows for its own size and shows about twelve of them.
class LongPage : public LayoutPage {
public:
    explicit LongPage(const std::vector<RowSpec>& rows = ManyRows()) {
        for (const RowSpec& row : rows)
            Add(row);
        window.onSize = [this](int cx, int cy) { layout.RecalcLayout(10, 10, cx - 20, cy - 20); };
        Show();
        window.MoveWindow(0, 0, layout.GetMinWidth() + 60, Scaled(350));
    }
    ~LongPage() { window.onSize = {}; }

    [[nodiscard]] int CountWindows() const {
        int count = 0;
        for (HWND child = ::GetWindow(window.m_hWnd, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT))
            ++count;
        return count;
    }
    [[nodiscard]] XLayout::RowView Row(int row) const { return layout.GetRows().at(static_cast<std::size_t>(row)); }
    [[nodiscard]] bool HasWindows(int row) const { return Row(row).control != nullptr; }
    void Scroll(UINT request) { window.SendMessage(WM_VSCROLL, request); }
    // Every pixel of the page that a row has is covered by the row's own windows, which stand below each other.
    void ExpectNothingMissing() {
        const CRect client = window.GetClientRect();
        std::vector<CRect> seen;
        for (const XLayout::RowView& row : layout.GetRows()) {
            if (row.control == nullptr) continue;
            const CRect place = RectOf(*row.control);
            if (place.bottom > 0 && place.top < client.bottom) seen.push_back(place);
        }
        ASSERT_GE(seen.size(), 8U);
        for (std::size_t i = 1; i < seen.size(); ++i) {
            EXPECT_GT(seen[i].top, seen[i - 1].top);
            EXPECT_LT(seen[i].top - seen[i - 1].top, Scaled(40)) << "a row is missing";
        }
        EXPECT_LT(seen.front().top, Scaled(40));
        EXPECT_GT(seen.back().bottom, client.bottom - Scaled(50));
    }
    // Each window behind those of the rows before it, prompts before their controls.
    void ExpectTabOrder() const {
        std::vector<HWND> order, expected;
        for (HWND child = ::GetWindow(window.m_hWnd, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT))
            order.push_back(child);
        for (const XLayout::RowView& row : layout.GetRows()) {
            if (row.prompt != nullptr) expected.push_back(row.prompt->m_hWnd);
            if (row.control != nullptr) expected.push_back(row.control->m_hWnd);
        }
        EXPECT_EQ(order, expected);
    }
    // Where Tab goes; the page is no dialog, so the platform is asked.
    [[nodiscard]] HWND NextStop(HWND from, bool previous) const {
        return ::GetNextDlgTabItem(window.m_hWnd, from, previous ? TRUE : FALSE);
    }
};

// The whole is higher than a window can stand away.
TEST(LongPage, HasWindowsWhereverItIsScrolled) {
    LongPage page(ManyRows(1300));
    EXPECT_LT(page.CountWindows(), 150);
    page.ExpectNothingMissing();
    page.ExpectTabOrder();
    for (const UINT request : {SB_PAGEDOWN, SB_PAGEDOWN, SB_LINEDOWN, SB_BOTTOM, SB_PAGEUP, SB_TOP}) {
        SCOPED_TRACE(request);
        page.Scroll(request);
        page.ExpectNothingMissing();
        page.ExpectTabOrder();
    }
    // A taller page shows more of them.
    page.window.MoveWindow(0, 0, page.window.GetWindowRect().Width(), page.Scaled(800));
    page.ExpectNothingMissing();
    page.ExpectTabOrder();
}

TEST(LongPage, LeadsTheFocusToEveryRow) {
    LongPage page;
    for (const bool backwards : {false, true}) {
        SCOPED_TRACE(backwards);
        page.window.SetFocus();
        page.Scroll(backwards ? SB_TOP : SB_BOTTOM);  // the other end is out of sight
        HWND focus = page.NextStop(nullptr, false);
        if (backwards) focus = page.NextStop(focus, true);
        for (int i = 0; i < (backwards ? kRows / 4 : kRows); ++i) {
            const int row = backwards ? kRows - 1 - i : i;
            if (row >= kFirstGreyed && row < kEndGreyed) continue;
            const CWnd* const control = page.Row(row).control;
            ASSERT_NE(control, nullptr) << row;
            ASSERT_EQ(focus, control->m_hWnd) << row;
            ::SetFocus(focus);
            const CRect place = page.RectOf(*CWnd::FromHandle(focus));
            ASSERT_TRUE(place.top >= 0 && place.bottom <= page.window.GetClientRect().bottom) << row;
            focus = page.NextStop(focus, backwards);
        }
        page.ExpectTabOrder();
        EXPECT_LT(page.CountWindows(), 500) << "rows that were left far behind have given their windows back";
    }
}

TEST(LongPage, KeepsWhatWasEnteredWhenWindowsGoAndComeBack) {
    LongPage page;
    std::vector<std::wstring> expected;
    for (const XLayout::ColumnReference& reference : page.layout.GetReferenceList())
        expected.push_back(reference.text);
    EXPECT_EQ(expected.at(9), L"4");
    // By hand, so that nobody has asked for the windows.
    const auto enter = [&](int row, const wchar_t* text, int entry) {
        CWnd& control = *page.Row(row).control;
        if (row % 3 == 0) control.SetWindowText(text);
        if (row % 3 == 1) static_cast<CButton&>(control).SetCheck(text[0] == L'1' ? BST_CHECKED : BST_UNCHECKED);
        if (row % 3 == 2) static_cast<CComboBox&>(control).SetCurSel(entry);
        expected.at(static_cast<std::size_t>(row)) = text;
    };
    enter(0, L"typed", 0);
    enter(1, L"0", 0);
    enter(2, L"1", 1);
    enter(5, L"2", 3);  // the second of two entries with this data
    enter(8, L"", -1);  // nothing, not the entry without data
    enter(11, L"", 0);  // that entry
    enter(3, L"changed unseen", 0);
    const HWND first = page.Row(0).control->m_hWnd;
    const auto answers = [&] {
        std::vector<std::wstring> texts;
        for (const XLayout::ColumnReference& reference : page.layout.GetReferenceList())
            texts.push_back(reference.text);
        return texts;
    };
    EXPECT_EQ(answers(), expected);
    page.window.commands = 0;
    for (int i = 0; i < kRows / 6; ++i)
        page.Scroll(SB_PAGEDOWN);
    EXPECT_EQ(::IsWindow(first), TRUE) << "Tab comes to it from outside";
    EXPECT_FALSE(page.HasWindows(3));
    EXPECT_TRUE(page.HasWindows(5));
    EXPECT_TRUE(page.HasWindows(8));
    EXPECT_EQ(answers(), expected);
    page.layout.UpdateControl(L"row3", L"by code", nullptr, L"");
    expected.at(3) = L"by code";
    page.Scroll(SB_TOP);
    EXPECT_EQ(answers(), expected);
    EXPECT_EQ(page.Row(3).control->GetWindowText(), L"by code");
    EXPECT_EQ(static_cast<CComboBox*>(page.Row(5).control)->GetCurSel(), 3);
    EXPECT_EQ(static_cast<CComboBox*>(page.Row(8).control)->GetCurSel(), -1);
    EXPECT_EQ(page.window.commands, 0) << "coming back is no change";
}

TEST(LongPage, NeverTakesAwayWhatIsInUse) {
    LongPage page;
    const CWnd* const lent = page.layout.GetColumnControl(L"row100");
    ASSERT_NE(lent, nullptr);
    EXPECT_FALSE(page.HasWindows(101)) << "no other row was asked for";
    EXPECT_EQ(page.layout.GetColumnControl(L"no such row"), nullptr);
    page.ExpectTabOrder();
    const HWND focus = page.Row(6).control->m_hWnd, lentWindow = lent->m_hWnd;
    ::SetFocus(focus);
    for (int i = 0; i < kRows / 6; ++i)
        page.Scroll(SB_PAGEDOWN);
    EXPECT_FALSE(page.HasWindows(15));
    EXPECT_EQ(::GetFocus(), focus);
    EXPECT_EQ(page.layout.GetColumnControl(L"row100")->m_hWnd, lentWindow);
    // Tab goes on from where the focus is.
    EXPECT_EQ(page.NextStop(focus, false), page.Row(7).control->m_hWnd);
    EXPECT_EQ(page.NextStop(focus, true), page.Row(5).control->m_hWnd);
}

TEST(LongPage, IsMadeWholeUpToItsNumberOfRows) {
    std::vector<RowSpec> rows = ManyRows();
    rows.resize(XLayout::kMadeWhole);
    EXPECT_EQ(LongPage(rows).CountWindows(), 2 * static_cast<int>(XLayout::kMadeWhole));
    rows.push_back(TextRow(L"one more"));
    EXPECT_LT(LongPage(rows).CountWindows(), 150);
}

// Rows whose controls exist from the start, in another order than they are shown in.
TEST(LongPage, TakesSpecialControlsIntoItsTabOrder) {
    CEdit last, late, early;
    const auto create = [](CEdit& edit, CWnd& parent) {
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 20), &parent, 20000));
    };
    std::vector<RowSpec> specs = ManyRows();
    LayoutPage page;
    for (CEdit* edit : {&last, &late, &early})
        create(*edit, page.window);
    specs.at(1).placeholder = &early;
    specs.at(300).placeholder = &late;
    specs.at(301).placeholder = &last;
    for (const RowSpec& row : specs)
        page.Add(row);
    page.window.onSize = [&page](int cx, int cy) { page.layout.RecalcLayout(10, 10, cx - 20, cy - 20); };
    page.Show();
    page.window.MoveWindow(0, 0, 500, page.Scaled(350));
    for (const UINT request : {SB_TOP, SB_BOTTOM}) {
        page.window.SendMessage(WM_VSCROLL, request);
        HWND next = ::GetWindow(page.window.m_hWnd, GW_CHILD);
        for (const XLayout::RowView& row : page.layout.GetRows()) {
            for (const CWnd* each : {row.prompt, row.control}) {
                if (each == nullptr) continue;
                ASSERT_EQ(each->m_hWnd, next) << row.column.order;
                next = ::GetWindow(next, GW_HWNDNEXT);
            }
        }
    }
    page.window.onSize = {};
}

}  // namespace
