#include "tests/platform/control_fixture.h"

namespace {

class TabControlTest : public ControlTest {
protected:
    static int Insert(HWND tabs, int index, const wchar_t* title, LPARAM data = 0) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = const_cast<wchar_t*>(title);
        item.lParam = data;
        return Send(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
    HWND CreateWith(std::initializer_list<const wchar_t*> titles, DWORD style = 0, int width = 400) {
        HWND tabs = Create(WC_TABCONTROLW, style, L"", width, 150);
        for (const wchar_t* title : titles)
            Insert(tabs, 99, title);
        return tabs;
    }
    static RECT RectOf(HWND tabs, int index) {
        RECT rect = {};
        EXPECT_NE(Send(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect)), 0);
        return rect;
    }
    static void ClickTab(HWND tabs, int index) {
        const RECT rect = RectOf(tabs, index);
        Click(tabs, rect.left + 3, rect.top + 3);
    }
    static void Step(HWND tabs, std::string_view verb, std::string_view argument) {
        const int number = std::stoi("0" + std::string(argument));
        if (verb == "click") ClickTab(tabs, number);
        if (verb == "beside") Click(tabs, 150, 140);
        if (verb == "set") Send(tabs, TCM_SETCURSEL, static_cast<WPARAM>(number));
        if (verb == "insert") Insert(tabs, number, L"new");
        if (verb == "remove") Send(tabs, TCM_DELETEITEM, static_cast<WPARAM>(number));
    }
    // The area of the pages in a control of the given size.
    static RECT PageArea(HWND tabs) {
        RECT area = {0, 0, 300, 200};
        Send(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
        return area;
    }
};

struct Case {
    const char* name;
    int current;  // of four
    const char* script;
    int after;
    const char* told = "";
};

const Case kCases[] = {
    {"right", 1, "right", 2, "KEYDOWN SELCHANGING SELCHANGE"},
    {"left", 1, "left", 0, "KEYDOWN SELCHANGING SELCHANGE"},
    {"left at the first", 0, "left", 0, "KEYDOWN"},
    {"right at the last", 3, "right", 3, "KEYDOWN"},
    {"other keys", 1, "home", 1, "KEYDOWN"},
    {"click", 1, "click:3", 3, "SELCHANGING SELCHANGE CLICK"},
    {"click on the selected one", 1, "click:1", 1, "CLICK"},
    {"click beside the titles", 1, "beside", 1, "CLICK"},
    {"program selects", 1, "set:2", 2},
    {"program selects outside", 1, "set:9", 1},
    {"inserted before", 1, "insert:0", 2},
    {"inserted far behind", 1, "insert:99", 1},
    {"deleted before", 2, "remove:0", 1},
    {"deleted itself", 2, "remove:2", -1},
    {"deleted outside", 2, "remove:4", 2},
};

}  // namespace

TEST_F(TabControlTest, SelectionFollowsKeysMouseAndMessages) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        HWND tabs = CreateWith({L"one", L"two", L"three", L"four"});
        EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0) << "the first title is selected by itself";
        Send(tabs, TCM_SETCURSEL, static_cast<WPARAM>(row.current));
        Act(tabs, row.script, [tabs](auto verb, auto argument, bool, bool) { Step(tabs, verb, argument); });
        EXPECT_EQ(Send(tabs, TCM_GETCURSEL), row.after);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(tabs);
    }
}

TEST_F(TabControlTest, AClickTakesTheFocusThoughTheParentRefusesTheChange) {
    HWND tabs = CreateWith({L"one", L"two"});
    AnswerTo("SELCHANGING", TRUE);
    SetFocus(m_parent);
    ClickTab(tabs, 1);
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0);
    EXPECT_EQ(TakeLog(), "SELCHANGING CLICK");
    ClickTab(tabs, 0);
    EXPECT_EQ(GetFocus(), tabs);
}

TEST_F(TabControlTest, TitlesStandSideBySideAsWideAsTheirTexts) {
    HWND tabs = CreateWith({L"i", L"a title that is clearly longer", L"last"}, 0, 500);
    const RECT first = RectOf(tabs, 0);
    const RECT second = RectOf(tabs, 1);
    HDC dc = GetDC(tabs);
    SIZE extent = {};
    GetTextExtentPoint32W(dc, L"a title that is clearly longer", 30, &extent);
    ReleaseDC(tabs, dc);
    EXPECT_EQ(first.right, second.left);
    EXPECT_EQ(first.top, second.top);
    EXPECT_GT(second.right - second.left, extent.cx);
    EXPECT_GT(second.right - second.left, first.right - first.left);
    RECT none = {};
    EXPECT_EQ(Send(tabs, TCM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&none)), 0);
}

TEST_F(TabControlTest, PagesLieBelowTheTitles) {
    HWND tabs = CreateWith({L"one"});
    const RECT area = PageArea(tabs);
    EXPECT_GE(area.top, RectOf(tabs, 0).bottom);
    EXPECT_GT(area.left, 0);
    EXPECT_LT(area.right, 300);
    EXPECT_LT(area.bottom, 200);
    RECT whole = area;
    Send(tabs, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&whole));
    const RECT start = {0, 0, 300, 200};
    EXPECT_NE(EqualRect(&whole, &start), FALSE) << "there and back";
}

TEST_F(TabControlTest, TitlesThatDoNotFitBreakIntoRows) {
    HWND tabs = CreateWith({L"first long title", L"second long title", L"third long title", L"fourth long title"},
                           TCS_MULTILINE, 300);
    EXPECT_GT(Send(tabs, TCM_GETROWCOUNT), 1);
    const LONG top = PageArea(tabs).top;
    RECT client = {};
    GetClientRect(tabs, &client);
    for (int selected : {0, 3}) {
        Send(tabs, TCM_SETCURSEL, static_cast<WPARAM>(selected));
        for (int index = 0; index < 4; ++index) {
            const RECT rect = RectOf(tabs, index);
            EXPECT_LE(rect.right, client.right) << index;
            EXPECT_LE(rect.bottom, RectOf(tabs, selected).bottom) << "the selected row is next to the page";
        }
    }
    SetWindowPos(tabs, nullptr, 0, 0, 2000, 150, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(Send(tabs, TCM_GETROWCOUNT), 1);
    EXPECT_LT(PageArea(tabs).top, top);
}

TEST_F(TabControlTest, TitlesAndDataCanBeReadAndChanged) {
    HWND tabs = CreateWith({L"one"});
    Insert(tabs, 1, L"two", 22);
    wchar_t changed[] = L"another";
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = changed;
    EXPECT_NE(Send(tabs, TCM_SETITEMW, 1, reinterpret_cast<LPARAM>(&item)), 0);
    wchar_t small[4] = L"";
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = small;
    item.cchTextMax = 4;
    EXPECT_NE(Send(tabs, TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item)), 0);
    EXPECT_EQ(std::wstring(item.pszText), L"ano") << "cut to the buffer";
    EXPECT_EQ(item.lParam, 22) << "data stays when only the text is set";
    EXPECT_EQ(Send(tabs, TCM_GETITEMW, 2, reinterpret_cast<LPARAM>(&item)), 0);
    EXPECT_EQ(SendMessageW(tabs, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}
