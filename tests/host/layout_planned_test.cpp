// Rows without windows: what a page answers before anybody has seen it, and how its windows come.
#include "framework/app.h"
#include "tests/host/layout_page.h"

namespace {

// Of the windows inside it; a list that belongs to a combo box is not inside its page.
int CountWindows(const CWnd& page) {
    int count = 0;
    for (HWND child = ::GetWindow(page.m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
        ++count;
    return count;
}

const std::vector<XLayout::ColumnItem> kEntries{{L"First", L"1", 0, nullptr},
                                                {L"Nothing", L"", 1, nullptr},
                                                {L"Twice", L"2", 2, nullptr},
                                                {L"Twice again", L"2", 3, nullptr}};

std::vector<RowSpec> EveryKind(const std::wstring& text) {
    RowSpec withoutEmpty = ComboRow(L"combo without an empty entry", text, {{L"First", L"1", 0, nullptr}});
    return {{.name = L"text", .value = text, .limit = 5},
            {.name = L"takes nothing", .value = text, .limit = 0},
            {.name = L"number", .dataType = XLayout::kDouble, .value = text, .limit = 9},
            {.name = L"greyed", .value = text, .disabled = true},
            CheckRow(L"check", text),
            ComboRow(L"combo", text, kEntries),
            withoutEmpty,
            {.name = L"unknown", .controlType = 99, .value = text}};
}

class HiddenPage : public LayoutPage {
public:
    explicit HiddenPage(const std::vector<RowSpec>& rows) {
        window.ShowWindow(SW_HIDE);
        for (const RowSpec& row : rows)
            Add(row);
        Show();
    }
    [[nodiscard]] std::vector<std::pair<std::wstring, bool>> Answers() const {
        std::vector<std::pair<std::wstring, bool>> answers;
        for (const XLayout::ColumnReference& reference : layout.GetReferenceList())
            answers.emplace_back(reference.text, reference.excluded);
        return answers;
    }
};

const std::wstring kTexts[] = {L"",
                               L"1",
                               L"0",
                               L"2",
                               L"one",
                               L"a text longer than its limit",
                               L"1e+20",
                               L"two\r\nlines",
                               L"tab\tbed",
                               std::wstring(L"cut\0off", 7),
                               L"100000000000000000000.000000",
                               L"\x4e2d\x6587 \xe4"};

TEST(PlannedRows, AnswerWhatTheirWindowsWould) {
    for (const std::wstring& loaded : kTexts) {
        HiddenPage page(EveryKind(loaded));
        ASSERT_EQ(CountWindows(page.window), 0);
        const auto planned = page.Answers();
        static_cast<void>(page.layout.GetColumnControl(L"text"));
        ASSERT_EQ(CountWindows(page.window), 15) << "a control has been asked for, so all are there";
        EXPECT_EQ(page.Answers(), planned);
        for (const std::wstring& later : kTexts) {
            HiddenPage updated(EveryKind(loaded));
            for (const RowSpec& row : EveryKind({})) {
                page.layout.UpdateControl(row.name, later, nullptr, L"");
                updated.layout.UpdateControl(row.name, later, nullptr, L"");
            }
            EXPECT_EQ(updated.Answers(), page.Answers()) << "before and after there were windows";
            EXPECT_EQ(CountWindows(updated.window), 0);
            static_cast<void>(updated.layout.GetColumnPrompt(L"text"));
            EXPECT_EQ(updated.Answers(), page.Answers()) << "the windows begin with what the rows were given";
        }
    }
}

TEST(PlannedRows, HaveNoWindowsForWhoeverAsksAboutDataOrSizes) {
    HiddenPage page(EveryKind(L"1"));
    const int height = page.layout.GetMinHeight();
    page.Arrange(page.layout.GetMinWidth() + 50, height + 50);
    page.layout.UpdateControl(L"text", L"2", nullptr, L"");
    EXPECT_NE(page.layout.GetColumn(L"text"), nullptr);
    const auto rows = page.layout.GetRows();
    EXPECT_EQ(rows.at(0).willShow, L"2");
    EXPECT_EQ(rows.at(0).control, nullptr);
    EXPECT_EQ(rows.at(5).willShow, L"First");
    page.layout.UpdateControl(L"combo", L"unknown", nullptr, L"");
    EXPECT_EQ(page.layout.GetRows().at(5).willShow, L"") << "nothing is chosen, though an entry has empty data";
    EXPECT_EQ(rows.at(7).willShow, std::nullopt) << "a row that will never have a control";
    EXPECT_EQ(CountWindows(page.window), 0);

    ASSERT_NE(page.layout.GetColumnControl(L"text"), nullptr);
    EXPECT_EQ(page.layout.GetRows().at(0).willShow, std::nullopt);
    EXPECT_EQ(page.layout.GetMinHeight(), height) << "the windows are as high as was foreseen";
}

// Some controls of other platforms say on their way that their text has changed.
LRESULT CALLBACK ReportAsItIsMade(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND) {
        const HWND page = reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs->hwndParent;
        ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(1, EN_CHANGE), reinterpret_cast<LPARAM>(window));
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

// In display order, each prompt before its control, at their places, and silently.
TEST(PlannedRows, GetTheirWindowsWhenThePageIsShown) {
    std::vector<RowSpec> specs = EveryKind(L"1");
    for (std::size_t i = 0; i < specs.size(); ++i)
        specs[i].order = -static_cast<int>(i);
    HiddenPage page(specs);
    HHOOK hook = ::SetWindowsHookExW(WH_CBT, &ReportAsItIsMade, nullptr, ::GetCurrentThreadId());
    page.window.ShowWindow(SW_SHOW);
    ::UnhookWindowsHookEx(hook);
    ASSERT_EQ(CountWindows(page.window), 15);
    EXPECT_EQ(page.window.commands, 0);

    HWND next = ::GetWindow(page.window.m_hWnd, GW_CHILD);
    CRect above;
    for (const XLayout::RowView& row : page.layout.GetRows()) {
        EXPECT_EQ(row.prompt->m_hWnd, next) << row.column.name.size();
        next = ::GetWindow(next, GW_HWNDNEXT);
        if (row.control == nullptr) continue;
        EXPECT_EQ(row.control->m_hWnd, next);
        next = ::GetWindow(next, GW_HWNDNEXT);
        const CRect place = page.RectOf(*row.control);
        EXPECT_GE(place.top, above.bottom);
        EXPECT_GT(place.Height(), 0);
        EXPECT_GT(place.Width(), 0);
        EXPECT_EQ(row.control->IsWindowEnabled(), row.column.name != L"greyed");
        above = place;
    }
    const CRect before = page.ControlRect(L"combo");
    page.Arrange(page.layout.GetMinWidth() + 1, page.layout.GetMinHeight());
    page.Arrange(page.layout.GetMinWidth(), page.layout.GetMinHeight());
    const CRect after = page.ControlRect(L"combo");
    EXPECT_EQ(before.top, after.top);
    EXPECT_EQ(before.Height(), after.Height()) << "as high as it is closed";
}

class Around : public CWnd {};

LRESULT CALLBACK Foreign(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProcW(window, message, wParam, lParam);
}

// Pages lie in a dialog in a frame, and whichever of the windows is shown last lets the page be seen.
TEST(PlannedRows, GetTheirWindowsWithWhateverShowsThePage) {
    const CRect place(0, 0, 600, 400);
    const CRect inside(0, 0, 500, 300);
    for (const bool frameIsLast : {true, false}) {
        Around frame, dialog;
        ASSERT_TRUE(frame.CreateEx(0, nullptr, L"frame", WS_POPUP, place, nullptr, 0));
        ASSERT_TRUE(dialog.CreateEx(0, nullptr, L"dialog", WS_CHILD, inside, frame.m_hWnd, 1));
        HiddenPage front(EveryKind(L"1")), behind(EveryKind(L"1"));
        for (CWnd* page : {&front.window, &behind.window}) {
            page->ModifyStyle(WS_POPUP, WS_CHILD);
            ::SetParent(page->m_hWnd, dialog.m_hWnd);
        }
        front.window.ShowWindow(SW_SHOW);
        (frameIsLast ? dialog : frame).ShowWindow(SW_SHOW);
        EXPECT_EQ(CountWindows(front.window), 0) << "nobody can see it yet";
        (frameIsLast ? frame : dialog).ShowWindow(SW_SHOW);
        EXPECT_EQ(CountWindows(front.window), 15);
        EXPECT_EQ(CountWindows(behind.window), 0);
        behind.window.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
        EXPECT_EQ(CountWindows(behind.window), 15);
    }
}

TEST(PlannedRows, HaveTheirWindowsAtOnceOnAPageThatIsSeen) {
    LayoutPage page;
    for (const RowSpec& row : EveryKind(L"1"))
        page.Add(row);
    page.Show();
    EXPECT_EQ(CountWindows(page.window), 15);
}

TEST(PlannedRows, GetTheirWindowsAtTheLatestWhenThePageIsDrawn) {
    WNDCLASSW foreign{};
    foreign.lpfnWndProc = &Foreign;
    foreign.hInstance = ::GetModuleHandleW(nullptr);
    foreign.lpszClassName = L"QvForeignFrame";
    ::RegisterClassW(&foreign);
    HWND frame = ::CreateWindowExW(0, foreign.lpszClassName, L"", WS_POPUP, 0, 0, 600, 400, nullptr, nullptr,
                                   foreign.hInstance, nullptr);
    ASSERT_NE(frame, nullptr);
    {
        HiddenPage page(EveryKind(L"1"));
        page.window.ModifyStyle(WS_POPUP, WS_CHILD);
        ::SetParent(page.window.m_hWnd, frame);
        page.window.ShowWindow(SW_SHOW);
        ::ShowWindow(frame, SW_SHOW);
        PumpPending();
        ::UpdateWindow(page.window.m_hWnd);
        EXPECT_EQ(CountWindows(page.window), 15);
    }
    ::DestroyWindow(frame);
}

LRESULT CALLBACK RefuseLists(int code, WPARAM wParam, LPARAM lParam) {
    wchar_t name[16] = {};
    ::GetClassNameW(reinterpret_cast<HWND>(wParam), name, 16);
    if (code == HCBT_CREATEWND && ::lstrcmpiW(name, L"ComboBox") == 0) return 1;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST(PlannedRows, AreLeftOutOnceTheirWindowsAreRefused) {
    HiddenPage page(EveryKind(L"1"));
    EXPECT_FALSE(page.Reference(L"combo").excluded) << "stored as loaded while nobody has looked";
    EXPECT_TRUE(page.Reference(L"unknown").excluded);
    HHOOK hook = ::SetWindowsHookExW(WH_CBT, &RefuseLists, nullptr, ::GetCurrentThreadId());
    page.window.ShowWindow(SW_SHOW);
    ::UnhookWindowsHookEx(hook);
    EXPECT_TRUE(page.Reference(L"combo").excluded);
    EXPECT_EQ(page.layout.GetColumnControl(L"combo"), nullptr);
    EXPECT_FALSE(page.Reference(L"text").excluded);
    EXPECT_EQ(CountWindows(page.window), 13);
}

TEST(PlannedRows, OutliveTheirPage) {
    HiddenPage page(EveryKind(L"1"));
    page.window.DestroyWindow();
    EXPECT_EQ(page.layout.GetColumnControl(L"text"), nullptr);
    EXPECT_EQ(page.Reference(L"text").text, L"1");
}

}  // namespace
