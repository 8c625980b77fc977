#include <vector>

#include "tests/platform/control_fixture.h"

namespace {

class ListBoxTest : public ControlTest {
public:
    using ControlTest::Click;
    using ControlTest::Press;
    using ControlTest::Type;

    static int Send(HWND list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return static_cast<int>(SendMessageW(list, message, wParam, lParam));
    }
    static int SendText(HWND list, UINT message, int wParam, const wchar_t* text) {
        return Send(list, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text));
    }
    static int Add(HWND list, const wchar_t* text) { return SendText(list, LB_ADDSTRING, 0, text); }
    // A click into the middle of a visible item.
    static void ClickItem(HWND list, int index, bool shift = false, bool control = false) {
        RECT item = {};
        Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        Click(list, (item.left + item.right) / 2, (item.top + item.bottom) / 2, shift, control);
    }
    static std::string ItemsOf(HWND list) {
        std::string items;
        for (int i = 0; i < Send(list, LB_GETCOUNT); ++i) {
            std::wstring text(static_cast<size_t>(Send(list, LB_GETTEXTLEN, static_cast<WPARAM>(i))) + 1, L'\0');
            const int length = Send(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
            items += (i == 0 ? "" : " ") + Narrow(text.substr(0, static_cast<size_t>(length)));
        }
        return items;
    }
    // The current item, the caret and the selected items: "1 1 [1]".
    static std::string StateOf(HWND list) {
        std::string state =
            std::to_string(Send(list, LB_GETCURSEL)) + " " + std::to_string(Send(list, LB_GETCARETINDEX)) + " [";
        for (int i = 0; i < Send(list, LB_GETCOUNT); ++i) {
            if (Send(list, LB_GETSEL, static_cast<WPARAM>(i)) > 0) {
                state += (state.back() == '[' ? "" : ",") + std::to_string(i);
            }
        }
        return state + "]";
    }
};

using Fixture = ListBoxTest;

struct SelectionCase {
    const char* name;
    DWORD style;
    void (*act)(HWND);
    const char* state;
    const char* told;  // null where versions of the platform differ
};

constexpr DWORD kMultiple = LBS_MULTIPLESEL;
constexpr DWORD kExtended = LBS_EXTENDEDSEL;

// Every case starts with the six items a b c d e f, none selected.
const SelectionCase kSelections[] = {
    {"program selects", 0, [](HWND l) { Fixture::Send(l, LB_SETCURSEL, 2); }, "2 2 [2]", ""},
    {"program takes the selection away", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Send(l, LB_SETCURSEL, static_cast<WPARAM>(-1));
     },
     "-1 2 []", ""},
    {"program selects outside", 0, [](HWND l) { EXPECT_EQ(Fixture::Send(l, LB_SETCURSEL, 6), LB_ERR); }, "-1 0 []", ""},
    {"first key selects the item that has the focus", 0, [](HWND l) { Fixture::Press(l, VK_DOWN); }, "0 0 [0]",
     "SELCHANGE"},
    {"down from the third", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Press(l, VK_DOWN);
     },
     "3 3 [3]", "SELCHANGE"},
    {"up from the third", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Press(l, VK_UP);
     },
     "1 1 [1]", "SELCHANGE"},
    {"up at the top", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 0);
         Fixture::Press(l, VK_UP);
     },
     "0 0 [0]", "SELCHANGE"},
    {"down at the bottom", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 5);
         Fixture::Press(l, VK_DOWN);
     },
     "5 5 [5]", "SELCHANGE"},
    {"end and home", 0,
     [](HWND l) {
         Fixture::Press(l, VK_END);
         Fixture::Press(l, VK_HOME);
     },
     "0 0 [0]", "SELCHANGE SELCHANGE"},
    {"space selects the caret's item", 0, [](HWND l) { Fixture::Press(l, VK_SPACE); }, "0 0 [0]", "SELCHANGE"},
    {"letter goes to the item", 0, [](HWND l) { Fixture::Type(l, L"D"); }, "3 3 [3]", "SELCHANGE"},
    {"unknown letter", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 1);
         Fixture::Type(l, L"x");
     },
     "1 1 [1]", ""},
    {"click", 0, [](HWND l) { Fixture::ClickItem(l, 2); }, "2 2 [2]", "SETFOCUS SELCHANGE"},
    {"click below the items", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 1);
         Fixture::Click(l, 20, 190);
     },
     "1 1 [1]", "SETFOCUS"},
    {"double click", 0,
     [](HWND l) {
         Fixture::ClickItem(l, 1);
         RECT item = {};
         Fixture::Send(l, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
         SendMessageW(l, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(item.left + 2, item.top + 2));
         SendMessageW(l, WM_LBUTTONUP, 0, MAKELPARAM(item.left + 2, item.top + 2));
     },
     "1 1 [1]", "SETFOCUS SELCHANGE DBLCLK"},
    {"select by text", 0, [](HWND l) { EXPECT_EQ(Fixture::SendText(l, LB_SELECTSTRING, -1, L"E"), 4); }, "4 4 [4]", ""},
    {"inserting before moves the selection", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::SendText(l, LB_INSERTSTRING, 1, L"x");
     },
     "3 2 [3]", ""},
    {"inserting behind leaves the selection", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::SendText(l, LB_INSERTSTRING, 3, L"x");
     },
     "2 2 [2]", ""},
    {"deleting before moves the selection", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Send(l, LB_DELETESTRING, 0);
     },
     "1 2 [1]", ""},
    {"deleting the selected item", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Send(l, LB_DELETESTRING, 2);
     },
     "-1 2 []", ""},
    {"emptying", 0,
     [](HWND l) {
         Fixture::Send(l, LB_SETCURSEL, 2);
         Fixture::Send(l, LB_RESETCONTENT);
     },
     "-1 0 []", ""},

    {"multiple: marked by the program", kMultiple,
     [](HWND l) {
         Fixture::Send(l, LB_SETSEL, TRUE, 1);
         Fixture::Send(l, LB_SETSEL, TRUE, 3);
         Fixture::Send(l, LB_SETSEL, FALSE, 1);
     },
     "3 3 [3]", ""},
    {"multiple: all marked", kMultiple, [](HWND l) { Fixture::Send(l, LB_SETSEL, TRUE, -1); }, "0 0 [0,1,2,3,4,5]", ""},
    {"multiple: no current item to set", kMultiple,
     [](HWND l) { EXPECT_EQ(Fixture::Send(l, LB_SETCURSEL, 2), LB_ERR); }, "0 0 []", ""},
    {"multiple: arrows move the caret only", kMultiple,
     [](HWND l) {
         Fixture::Press(l, VK_DOWN);
         Fixture::Press(l, VK_DOWN);
     },
     "2 2 []", "SELCHANGE SELCHANGE"},
    {"multiple: space toggles", kMultiple,
     [](HWND l) {
         Fixture::Press(l, VK_DOWN);
         Fixture::Press(l, VK_SPACE);
         Fixture::Press(l, VK_DOWN);
         Fixture::Press(l, VK_SPACE);
         Fixture::Press(l, VK_SPACE);
     },
     "2 2 [1]", nullptr},
    {"multiple: click toggles", kMultiple,
     [](HWND l) {
         Fixture::ClickItem(l, 1);
         Fixture::ClickItem(l, 3);
         Fixture::ClickItem(l, 1);
     },
     "1 1 [3]", "SETFOCUS SELCHANGE SELCHANGE SELCHANGE"},
    {"multiple: range by the program", kMultiple,
     [](HWND l) { Fixture::Send(l, LB_SELITEMRANGE, TRUE, MAKELPARAM(1, 3)); }, "0 0 [1,2,3]", ""},
    {"multiple: range by the other message", kMultiple, [](HWND l) { Fixture::Send(l, LB_SELITEMRANGEEX, 2, 4); },
     "0 0 [2,3,4]", ""},
    {"multiple: caret set by the program", kMultiple, [](HWND l) { Fixture::Send(l, LB_SETCARETINDEX, 3, FALSE); },
     "3 3 []", ""},
    {"multiple: letter moves the caret", kMultiple, [](HWND l) { Fixture::Type(l, L"d"); }, "3 3 []", "SELCHANGE"},

    {"extended: arrows select one", kExtended,
     [](HWND l) {
         Fixture::Press(l, VK_DOWN);
         Fixture::Press(l, VK_DOWN);
     },
     "2 2 [2]", "SELCHANGE SELCHANGE"},
    {"extended: shift arrows select a range", kExtended,
     [](HWND l) {
         Fixture::Press(l, VK_DOWN);
         Fixture::Press(l, VK_DOWN, true);
         Fixture::Press(l, VK_DOWN, true);
     },
     "3 3 [1,2,3]", "SELCHANGE SELCHANGE SELCHANGE"},
    {"extended: click selects one", kExtended,
     [](HWND l) {
         Fixture::ClickItem(l, 1);
         Fixture::ClickItem(l, 3);
     },
     "3 3 [3]", "SETFOCUS SELCHANGE SELCHANGE"},
    {"extended: control click toggles", kExtended,
     [](HWND l) {
         Fixture::ClickItem(l, 1);
         Fixture::ClickItem(l, 3, false, true);
         Fixture::ClickItem(l, 1, false, true);
     },
     "1 1 [3]", "SETFOCUS SELCHANGE SELCHANGE SELCHANGE"},
    {"extended: shift click selects a range", kExtended,
     [](HWND l) {
         Fixture::ClickItem(l, 1);
         Fixture::ClickItem(l, 3, true);
     },
     "3 3 [1,2,3]", "SETFOCUS SELCHANGE SELCHANGE"},
};

}  // namespace

TEST_F(ListBoxTest, SelectionFollowsKeysMouseAndMessages) {
    for (const SelectionCase& row : kSelections) {
        SCOPED_TRACE(row.name);
        HWND list = Create(L"ListBox", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | row.style, L"", 100, 200);
        for (const wchar_t* text : {L"a", L"b", L"c", L"d", L"e", L"f"})
            Add(list, text);
        row.act(list);
        EXPECT_EQ(StateOf(list), row.state);
        const std::string told = TakeLog();
        if (row.told != nullptr) {
            EXPECT_EQ(told, row.told);
        }
        DestroyWindow(list);
    }
}

TEST_F(ListBoxTest, NothingIsToldWithoutTheNotifyStyle) {
    HWND list = Create(L"ListBox", 0, L"", 100, 200);
    Add(list, L"a");
    Add(list, L"b");
    ClickItem(list, 1);
    Press(list, VK_UP);
    SetFocus(m_parent);
    EXPECT_EQ(TakeLog(), "SETFOCUS KILLFOCUS") << "but for the focus";
}

TEST_F(ListBoxTest, SortedListKeepsTheOrderOfTheLanguage) {
    HWND list = Create(L"ListBox", LBS_SORT, L"", 100, 200);
    for (const wchar_t* text :
         {L"beta", L"Gamma", L"alpha", L"Beta2", L"ab", L"Zebra", L"\x00E4hnlich", L"_x", L"10", L"9"}) {
        Add(list, text);
    }
    EXPECT_EQ(ItemsOf(list), "_x 10 9 ab ?hnlich alpha beta Beta2 Gamma Zebra");
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, 0, L"zz"), 0) << "inserting does not sort";
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, -1, L"aa"), 11);
}

TEST_F(ListBoxTest, FindingIgnoresCaseAndGoesRound) {
    HWND list = Create(L"ListBox", 0, L"", 100, 200);
    for (const wchar_t* text : {L"One", L"two", L"ONE more", L"Twofold", L"one"})
        Add(list, text);
    struct Case {
        UINT message;
        int after;
        const wchar_t* text;
        int found;
    };
    const Case cases[] = {
        {LB_FINDSTRING, -1, L"one", 0},      {LB_FINDSTRING, 0, L"one", 2},         {LB_FINDSTRING, 4, L"one", 0},
        {LB_FINDSTRING, 2, L"TWO", 3},       {LB_FINDSTRING, -1, L"x", LB_ERR},     {LB_FINDSTRING, 99, L"two", 1},
        {LB_FINDSTRINGEXACT, -1, L"ONE", 0}, {LB_FINDSTRINGEXACT, 0, L"ONE", 4},    {LB_FINDSTRINGEXACT, 4, L"ONE", 0},
        {LB_FINDSTRINGEXACT, -1, L"ON", -1}, {LB_FINDSTRINGEXACT, -1, L"two ", -1},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(SendText(list, row.message, row.after, row.text), row.found) << row.after << " " << Narrow(row.text);
    }
}

TEST_F(ListBoxTest, ItemsCarryDataAndReportBadIndexes) {
    HWND list = Create(L"ListBox", 0, L"", 100, 200);
    Add(list, L"a");
    Add(list, L"b");
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 0);
    EXPECT_NE(Send(list, LB_SETITEMDATA, 1, 77), LB_ERR);
    SendText(list, LB_INSERTSTRING, 0, L"first");
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 2), 77);
    Send(list, LB_DELETESTRING, 2);
    EXPECT_EQ(TakeLog(), "DELETE:2");
    Add(list, L"b");
    EXPECT_EQ(Send(list, LB_DELETESTRING, 0), 2) << "the number of items left";
    wchar_t buffer[8] = L"";
    for (UINT message : {LB_GETTEXT, LB_GETTEXTLEN, LB_GETITEMDATA, LB_DELETESTRING, LB_GETSEL, LB_SETITEMDATA}) {
        EXPECT_EQ(Send(list, message, 2, reinterpret_cast<LPARAM>(buffer)), LB_ERR) << message;
    }
    EXPECT_EQ(Send(list, LB_GETSELCOUNT), LB_ERR) << "a single-selection list has no such count";
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, 9, L"x"), LB_ERR);
    EXPECT_EQ(ItemsOf(list), "a b");
}

TEST_F(ListBoxTest, SelectedItemsAreListed) {
    HWND list = Create(L"ListBox", LBS_MULTIPLESEL, L"", 100, 200);
    for (const wchar_t* text : {L"a", L"b", L"c", L"d"})
        Add(list, text);
    Send(list, LB_SETSEL, TRUE, 3);
    Send(list, LB_SETSEL, TRUE, 1);
    EXPECT_EQ(Send(list, LB_GETSELCOUNT), 2);
    int items[4] = {-1, -1, -1, -1};
    EXPECT_EQ(Send(list, LB_GETSELITEMS, 4, reinterpret_cast<LPARAM>(items)), 2);
    EXPECT_EQ(items[0], 1);
    EXPECT_EQ(items[1], 3);
    EXPECT_EQ(Send(list, LB_GETSELITEMS, 1, reinterpret_cast<LPARAM>(items)), 1);
}

TEST_F(ListBoxTest, ScrollingFollowsTheCaretAndTheProgram) {
    HWND list = Create(L"ListBox", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, L"", 100, 200);
    const int height = Send(list, LB_GETITEMHEIGHT);
    ASSERT_GT(height, 0);
    RECT client = {};
    GetClientRect(list, &client);
    const int page = client.bottom / height;
    for (int i = 0; i < 100; ++i)
        Add(list, std::to_wstring(i).c_str());
    GetClientRect(list, &client);  // the scroll bar came
    Send(list, LB_SETCURSEL, 50);
    EXPECT_LE(Send(list, LB_GETTOPINDEX), 50);
    EXPECT_GT(Send(list, LB_GETTOPINDEX) + page, 50);
    Send(list, LB_SETTOPINDEX, 10);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 10);
    RECT item = {};
    Send(list, LB_GETITEMRECT, 12, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.top, 2 * height);
    EXPECT_EQ(item.bottom, 3 * height);
    EXPECT_EQ(item.left, 0);
    EXPECT_EQ(item.right, client.right);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 2 * height + 1)), 12);
    EXPECT_EQ(HIWORD(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 500))), 1) << "outside";
    Send(list, LB_SETTOPINDEX, 99);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 100 - page) << "the last page stays full";
    Press(list, VK_HOME);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
    Press(list, VK_NEXT);
    EXPECT_EQ(Send(list, LB_GETCURSEL), page - 1) << "first to the last item of the page";
    Press(list, VK_NEXT);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2 * (page - 1));
    Press(list, VK_PRIOR);
    EXPECT_EQ(Send(list, LB_GETCURSEL), page - 1);
    Send(list, LB_RESETCONTENT);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
}

TEST_F(ListBoxTest, TheWheelScrollsAndSelectsNothing) {
    HWND list = Create(L"ListBox", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, L"", 100, 200);
    for (int i = 0; i < 100; ++i)
        Add(list, std::to_wstring(i).c_str());
    Send(list, LB_SETCURSEL, 2);
    SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-2 * WHEEL_DELTA)), 0);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 6);
    SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 3);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
}

TEST_F(ListBoxTest, HeightIsMadeOfWholeItemsUnlessTheStyleForbids) {
    HWND whole = Create(L"ListBox", WS_BORDER, L"", 100, 100);
    HWND exact = Create(L"ListBox", WS_BORDER | LBS_NOINTEGRALHEIGHT, L"", 100, 100);
    const int height = Send(whole, LB_GETITEMHEIGHT);
    RECT client = {};
    GetClientRect(whole, &client);
    EXPECT_EQ(client.bottom, 98 / height * height);
    GetClientRect(exact, &client);
    EXPECT_EQ(client.bottom, 98);
}

TEST_F(ListBoxTest, OwnerDrawnListAsksForItsItemHeightOnce) {
    HWND list =
        CreateWindowExW(0, L"ListBox", L"", WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, 100, 100,
                        m_parent, reinterpret_cast<HMENU>(UINT_PTR{kControlId}), GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(TakeLog(), "MEASURE");
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 17);
    Add(list, L"text");
    EXPECT_EQ(ItemsOf(list), "text");
    Send(list, LB_SETITEMHEIGHT, 0, 30);
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 30);
    EXPECT_EQ(TakeLog(), "");

    HWND bare = Create(L"ListBox", LBS_OWNERDRAWFIXED, L"", 100, 100);
    Send(bare, LB_ADDSTRING, 0, 4711);
    EXPECT_EQ(Send(bare, LB_GETITEMDATA, 0), 4711) << "without strings the text is the data";
}

TEST_F(ListBoxTest, ParentMayTakeTheKeys) {
    HWND list = Create(L"ListBox", LBS_NOTIFY | LBS_WANTKEYBOARDINPUT | LBS_HASSTRINGS, L"", 100, 200);
    for (const wchar_t* text : {L"a", L"b", L"c"})
        Add(list, text);
    Send(list, LB_SETCURSEL, 0);
    AnswerTo("VKEYTOITEM", -2);
    Press(list, VK_DOWN);
    EXPECT_EQ(StateOf(list), "0 0 [0]") << "-2: the parent did it all";
    AnswerTo("VKEYTOITEM", 2);
    Press(list, VK_DOWN);
    EXPECT_EQ(StateOf(list), "2 2 [2]") << "an index: that item";
    AnswerTo("VKEYTOITEM", -1);
    Press(list, VK_UP);
    EXPECT_EQ(StateOf(list), "1 1 [1]") << "-1: as without the style";
    EXPECT_EQ(TakeLog(), "VKEYTOITEM:40:0 VKEYTOITEM:40:0 SELCHANGE VKEYTOITEM:38:2 SELCHANGE");
}

TEST_F(ListBoxTest, DialogKeysAreArrowsAndCharacters) {
    HWND list = Create(L"ListBox", LBS_NOTIFY, L"", 100, 200);
    EXPECT_EQ(SendMessageW(list, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
    SetFocus(list);
    SetFocus(m_parent);
    EXPECT_EQ(TakeLog(), "SETFOCUS KILLFOCUS");
}

TEST_F(ListBoxTest, LastOfTenThousandItemsIsFound) {
    HWND list = Create(L"ListBox", 0, L"", 100, 200);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (int i = 0; i < 10000; ++i)
        Add(list, std::to_wstring(i).c_str());
    EXPECT_EQ(SendText(list, LB_FINDSTRINGEXACT, -1, L"9999"), 9999);
    EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 10000);
}
