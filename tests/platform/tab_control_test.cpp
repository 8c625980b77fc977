#include <iterator>
#include <vector>

#include "tests/platform/control_fixture.h"

namespace {

class TabControlTest : public ControlTest {
public:
    using ControlTest::Click;
    using ControlTest::Press;

    static int Send(HWND tabs, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return static_cast<int>(SendMessageW(tabs, message, wParam, lParam));
    }
    static int Insert(HWND tabs, int index, const wchar_t* title, LPARAM data = 0) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = const_cast<wchar_t*>(title);
        item.lParam = data;
        return Send(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
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
    static std::wstring TitleOf(HWND tabs, int index) {
        wchar_t title[64] = L"";
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title;
        item.cchTextMax = static_cast<int>(std::size(title));
        EXPECT_NE(Send(tabs, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)), 0);
        return item.pszText;
    }
    // The area of the pages in a control of the given size.
    static RECT PageArea(HWND tabs) {
        RECT area = {0, 0, 300, 200};
        Send(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
        return area;
    }
};

using T = TabControlTest;

struct Case {
    const char* name;
    int current;  // of four
    void (*act)(HWND);
    int after;
    const char* told;
};

const Case kCases[] = {
    {"right", 1, [](HWND t) { T::Press(t, VK_RIGHT); }, 2, "KEYDOWN SELCHANGING SELCHANGE"},
    {"left", 1, [](HWND t) { T::Press(t, VK_LEFT); }, 0, "KEYDOWN SELCHANGING SELCHANGE"},
    {"left at the first", 0, [](HWND t) { T::Press(t, VK_LEFT); }, 0, "KEYDOWN"},
    {"right at the last", 3, [](HWND t) { T::Press(t, VK_RIGHT); }, 3, "KEYDOWN"},
    {"other keys", 1, [](HWND t) { T::Press(t, VK_HOME); }, 1, "KEYDOWN"},
    {"click", 1, [](HWND t) { T::ClickTab(t, 3); }, 3, "SELCHANGING SELCHANGE CLICK"},
    {"click on the selected one", 1, [](HWND t) { T::ClickTab(t, 1); }, 1, "CLICK"},
    {"click beside the titles", 1, [](HWND t) { T::Click(t, 150, 140); }, 1, "CLICK"},
    {"program selects", 1, [](HWND t) { EXPECT_EQ(T::Send(t, TCM_SETCURSEL, 2), 1); }, 2, ""},
    {"program selects outside", 1, [](HWND t) { EXPECT_EQ(T::Send(t, TCM_SETCURSEL, 9), -1); }, 1, ""},
    {"program moves the focus", 1, [](HWND t) { T::Send(t, TCM_SETCURFOCUS, 2); }, 2, "SELCHANGING SELCHANGE"},
    {"inserted before", 1, [](HWND t) { EXPECT_EQ(T::Insert(t, 0, L"new"), 0); }, 2, ""},
    {"inserted far behind", 1, [](HWND t) { EXPECT_EQ(T::Insert(t, 99, L"new"), 4); }, 1, ""},
    {"deleted before", 2, [](HWND t) { EXPECT_NE(T::Send(t, TCM_DELETEITEM, 0), 0); }, 1, ""},
    {"deleted itself", 2, [](HWND t) { EXPECT_NE(T::Send(t, TCM_DELETEITEM, 2), 0); }, -1, ""},
    {"deleted outside", 2, [](HWND t) { EXPECT_EQ(T::Send(t, TCM_DELETEITEM, 4), 0); }, 2, ""},
    {"emptied", 2, [](HWND t) { EXPECT_NE(T::Send(t, TCM_DELETEALLITEMS), 0); }, -1, ""},
};

}  // namespace

TEST_F(TabControlTest, SelectionFollowsKeysMouseAndMessages) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        HWND tabs = Create(WC_TABCONTROLW, 0, L"", 400, 150);
        for (const wchar_t* title : {L"one", L"two", L"three", L"four"})
            Insert(tabs, 99, title);
        EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0) << "the first title is selected by itself";
        Send(tabs, TCM_SETCURSEL, static_cast<WPARAM>(row.current));
        EXPECT_EQ(TakeLog(), "");
        row.act(tabs);
        EXPECT_EQ(Send(tabs, TCM_GETCURSEL), row.after);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(tabs);
    }
}

TEST_F(TabControlTest, ParentMayRefuseTheChange) {
    HWND tabs = Create(WC_TABCONTROLW, 0, L"", 400, 150);
    Insert(tabs, 0, L"one");
    Insert(tabs, 1, L"two");
    AnswerTo("SELCHANGING", TRUE);
    ClickTab(tabs, 1);
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0);
    EXPECT_EQ(TakeLog(), "SELCHANGING CLICK");
}

TEST_F(TabControlTest, ClickOnATitleTakesTheFocus) {
    HWND tabs = Create(WC_TABCONTROLW, 0, L"", 400, 150);
    Insert(tabs, 0, L"one");
    Insert(tabs, 1, L"two");
    for (int index : {1, 1}) {
        SetFocus(m_parent);
        ClickTab(tabs, index);
        EXPECT_EQ(GetFocus(), tabs);
    }
}

TEST_F(TabControlTest, TitlesStandSideBySideAsWideAsTheirTexts) {
    HWND tabs = Create(WC_TABCONTROLW, 0, L"", 500, 150);
    Insert(tabs, 0, L"i");
    Insert(tabs, 1, L"a title that is clearly longer");
    Insert(tabs, 2, L"last");
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

    TCHITTESTINFO hit = {};
    hit.pt = {second.left, second.top};
    EXPECT_EQ(Send(tabs, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)), 1);
    hit.pt = {second.left, second.bottom + 20};
    EXPECT_EQ(Send(tabs, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)), -1);
    EXPECT_EQ(hit.flags, static_cast<UINT>(TCHT_NOWHERE));
    RECT none = {};
    EXPECT_EQ(Send(tabs, TCM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&none)), 0);
}

TEST_F(TabControlTest, PagesLieBelowTheTitles) {
    HWND tabs = Create(WC_TABCONTROLW, 0, L"", 500, 150);
    Insert(tabs, 0, L"one");
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
    HWND tabs = Create(WC_TABCONTROLW, TCS_MULTILINE, L"", 300, 150);
    for (const wchar_t* title :
         {L"first long title", L"second long title", L"third long title", L"fourth long title"}) {
        Insert(tabs, 99, title);
    }
    const int rows = Send(tabs, TCM_GETROWCOUNT);
    EXPECT_GT(rows, 1);
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

    HWND single = Create(WC_TABCONTROLW, 0, L"", 50, 150, kControlId + 1);
    for (const wchar_t* title : {L"first long title", L"second long title"})
        Insert(single, 99, title);
    EXPECT_EQ(Send(single, TCM_GETROWCOUNT), 1);
}

TEST_F(TabControlTest, TitlesAndDataCanBeReadAndChanged) {
    HWND tabs = Create(WC_TABCONTROLW, 0, L"", 300, 150);
    Insert(tabs, 0, L"one", 11);
    Insert(tabs, 1, L"two", 22);
    wchar_t changed[] = L"another";
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = changed;
    EXPECT_NE(Send(tabs, TCM_SETITEMW, 1, reinterpret_cast<LPARAM>(&item)), 0);
    EXPECT_EQ(TitleOf(tabs, 1), L"another");
    wchar_t small[4] = L"";
    item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = small;
    item.cchTextMax = 4;
    EXPECT_NE(Send(tabs, TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item)), 0);
    EXPECT_EQ(std::wstring(item.pszText), L"ano") << "cut to the buffer";
    EXPECT_EQ(item.lParam, 22) << "data stays when only the text is set";
    EXPECT_EQ(Send(tabs, TCM_GETITEMW, 2, reinterpret_cast<LPARAM>(&item)), 0);
    EXPECT_EQ(SendMessageW(tabs, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}
