#include "tests/platform/control_fixture.h"

namespace {

class ListBoxTest : public ControlTest {
protected:
    HWND Filled(DWORD style, std::initializer_list<const wchar_t*> texts) {
        HWND list = Create(L"ListBox", LBS_NOINTEGRALHEIGHT | style, L"", 100, 200);
        for (const wchar_t* text : texts)
            SendText(list, LB_ADDSTRING, 0, text);
        return list;
    }
    HWND FilledWithNumbers(int count) {
        HWND list = Filled(LBS_NOTIFY | WS_VSCROLL, {});
        for (int i = 0; i < count; ++i)
            SendText(list, LB_ADDSTRING, 0, std::to_wstring(i));
        return list;
    }
    // A click into the middle of a visible item.
    static void ClickItem(HWND list, int index, bool shift = false, bool control = false) {
        RECT item = {};
        Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        Click(list, (item.left + item.right) / 2, (item.top + item.bottom) / 2, shift, control);
    }
    static void Step(HWND list, std::string_view verb, std::string_view argument, bool shift, bool control) {
        const int number = std::stoi("0" + std::string(argument));
        if (verb == "click") ClickItem(list, number, shift, control);
        if (verb == "below") Click(list, 20, 190);
        if (verb == "double") {
            SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(2, 2));
            SendMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
        }
        if (verb == "set") Send(list, LB_SETCURSEL, static_cast<WPARAM>(number));
        if (verb == "unset") Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1));
        if (verb == "insert") SendText(list, LB_INSERTSTRING, number, L"x");
        if (verb == "remove") Send(list, LB_DELETESTRING, static_cast<WPARAM>(number));
        if (verb == "empty") Send(list, LB_RESETCONTENT);
        if (verb == "mark") Send(list, LB_SETSEL, TRUE, number);
        if (verb == "unmark") Send(list, LB_SETSEL, FALSE, number);
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

struct SelectionCase {
    const char* name;
    DWORD style;
    const char* script;  // on the six items a b c d e f, none selected
    const char* state;
    const char* told = "";
};

constexpr DWORD kMultiple = LBS_MULTIPLESEL;
constexpr DWORD kExtended = LBS_EXTENDEDSEL;

const SelectionCase kSelections[] = {
    {"program selects", 0, "set:2", "2 2 [2]"},
    {"program takes the selection away", 0, "set:2 unset", "-1 2 []"},
    {"program selects outside", 0, "set:6", "-1 0 []"},
    {"first key selects the item that has the focus", 0, "down", "0 0 [0]", "SELCHANGE"},
    {"down and up", 0, "set:2 down up up", "1 1 [1]", "SELCHANGE SELCHANGE SELCHANGE"},
    {"up at the top", 0, "set:0 up", "0 0 [0]", "SELCHANGE"},
    {"down at the bottom", 0, "set:5 down", "5 5 [5]", "SELCHANGE"},
    {"end and home", 0, "end home", "0 0 [0]", "SELCHANGE SELCHANGE"},
    {"space selects the caret's item", 0, "space", "0 0 [0]", "SELCHANGE"},
    {"letter goes to the item", 0, "type:D", "3 3 [3]", "SELCHANGE"},
    {"unknown letter", 0, "set:1 type:x", "1 1 [1]"},
    {"click", 0, "click:2", "2 2 [2]", "SETFOCUS SELCHANGE"},
    {"click below the items", 0, "set:1 below", "1 1 [1]", "SETFOCUS"},
    {"double click", 0, "click:0 double", "0 0 [0]", "SETFOCUS SELCHANGE DBLCLK"},
    {"inserting before moves the selection", 0, "set:2 insert:1", "3 2 [3]"},
    {"inserting behind leaves the selection", 0, "set:2 insert:3", "2 2 [2]"},
    {"deleting before moves the selection", 0, "set:2 remove:0", "1 2 [1]"},
    {"deleting the selected item", 0, "set:2 remove:2", "-1 2 []"},
    {"emptying", 0, "set:2 empty", "-1 0 []"},

    {"multiple: marked by the program", kMultiple, "mark:1 mark:3 unmark:1", "3 3 [3]"},
    {"multiple: no current item to set", kMultiple, "set:2", "0 0 []"},
    {"multiple: arrows move the caret only", kMultiple, "down down", "2 2 []", "SELCHANGE SELCHANGE"},
    {"multiple: click toggles", kMultiple, "click:1 click:3 click:1", "1 1 [3]",
     "SETFOCUS SELCHANGE SELCHANGE SELCHANGE"},

    {"extended: arrows select one", kExtended, "down down", "2 2 [2]", "SELCHANGE SELCHANGE"},
    {"extended: shift arrows select a range", kExtended, "down shift+down shift+down", "3 3 [1,2,3]",
     "SELCHANGE SELCHANGE SELCHANGE"},
    {"extended: click selects one", kExtended, "click:1 click:3", "3 3 [3]", "SETFOCUS SELCHANGE SELCHANGE"},
    {"extended: control click toggles", kExtended, "click:1 ctrl+click:3 ctrl+click:1", "1 1 [3]",
     "SETFOCUS SELCHANGE SELCHANGE SELCHANGE"},
    {"extended: shift click selects a range", kExtended, "click:1 shift+click:3", "3 3 [1,2,3]",
     "SETFOCUS SELCHANGE SELCHANGE"},
};

}  // namespace

TEST_F(ListBoxTest, SelectionFollowsKeysMouseAndMessages) {
    for (const SelectionCase& row : kSelections) {
        SCOPED_TRACE(row.name);
        HWND list = Filled(LBS_NOTIFY | row.style, {L"a", L"b", L"c", L"d", L"e", L"f"});
        Act(list, row.script,
            [list](auto verb, auto argument, bool shift, bool control) { Step(list, verb, argument, shift, control); });
        EXPECT_EQ(StateOf(list), row.state);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(list);
    }
}

TEST_F(ListBoxTest, NothingButTheFocusIsToldWithoutTheNotifyStyle) {
    HWND list = Filled(0, {L"a", L"b"});
    EXPECT_EQ(SendMessageW(list, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
    ClickItem(list, 1);
    Press(list, VK_UP);
    SetFocus(m_parent);
    EXPECT_EQ(TakeLog(), "SETFOCUS KILLFOCUS");
}

TEST_F(ListBoxTest, SortedListKeepsTheOrderOfTheLanguage) {
    HWND list = Filled(LBS_SORT, {L"beta", L"Gamma", L"alpha", L"Beta2", L"ab", L"\x00E4hnlich", L"_x", L"10", L"9"});
    EXPECT_EQ(ItemsOf(list), "_x 10 9 ab ?hnlich alpha beta Beta2 Gamma");
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, 0, L"zz"), 0) << "inserting does not sort";
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, -1, L"aa"), 10);
}

TEST_F(ListBoxTest, FindingIgnoresCaseAndGoesRound) {
    HWND list = Filled(0, {L"One", L"two", L"ONE more", L"Twofold", L"one"});
    struct Case {
        int after;
        const wchar_t* text;
        int found;
    };
    const Case cases[] = {{-1, L"ONE", 0}, {0, L"ONE", 4}, {4, L"ONE", 0}, {-1, L"ON", LB_ERR}, {-1, L"two ", LB_ERR}};
    for (const Case& row : cases) {
        EXPECT_EQ(SendText(list, LB_FINDSTRINGEXACT, row.after, row.text), row.found) << Narrow(row.text);
    }
}

TEST_F(ListBoxTest, BadIndexesAreReported) {
    HWND list = Filled(0, {L"first", L"a", L"b"});
    EXPECT_EQ(Send(list, LB_DELETESTRING, 2), 2) << "the number of items left";
    wchar_t buffer[8] = L"";
    for (UINT message : {LB_GETTEXT, LB_GETTEXTLEN, LB_DELETESTRING, LB_GETSEL}) {
        EXPECT_EQ(Send(list, message, 2, reinterpret_cast<LPARAM>(buffer)), LB_ERR) << message;
    }
    EXPECT_EQ(SendText(list, LB_INSERTSTRING, 9, L"x"), LB_ERR);
    EXPECT_EQ(ItemsOf(list), "first a");
}

TEST_F(ListBoxTest, ScrollingFollowsTheCaretAndTheProgram) {
    HWND list = FilledWithNumbers(100);
    const int height = Send(list, LB_GETITEMHEIGHT);
    RECT client = {};
    GetClientRect(list, &client);
    const int page = client.bottom / height;
    Send(list, LB_SETCURSEL, 50);
    EXPECT_LE(Send(list, LB_GETTOPINDEX), 50);
    EXPECT_GT(Send(list, LB_GETTOPINDEX) + page, 50);
    Send(list, LB_SETTOPINDEX, 10);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 10);
    RECT item = {};
    Send(list, LB_GETITEMRECT, 12, reinterpret_cast<LPARAM>(&item));
    const RECT expected = {0, 2 * height, client.right, 3 * height};
    EXPECT_TRUE(EqualRect(&item, &expected));
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 2 * height + 1)), 12);
    EXPECT_EQ(HIWORD(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 500))), 1) << "outside";
    Send(list, LB_SETTOPINDEX, 99);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 100 - page) << "the last page stays full";
    Press(list, VK_HOME);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
    Press(list, VK_NEXT);
    EXPECT_EQ(Send(list, LB_GETCURSEL), page - 1) << "first to the last item of the page";
    Press(list, VK_NEXT);
    Press(list, VK_NEXT);
    Press(list, VK_PRIOR);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2 * (page - 1));
    Send(list, LB_RESETCONTENT);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
}

TEST_F(ListBoxTest, TheWheelScrollsAndSelectsNothing) {
    HWND list = FilledWithNumbers(100);
    Send(list, LB_SETCURSEL, 2);
    SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-2 * WHEEL_DELTA)), 0);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 6);
    SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 3);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
}

TEST_F(ListBoxTest, OwnerDrawnListAsksForItsItemHeightOnce) {
    HWND list =
        CreateWindowExW(0, L"ListBox", L"", WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, 100, 100,
                        m_parent, reinterpret_cast<HMENU>(UINT_PTR{kControlId}), GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(TakeLog(), "MEASURE");
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 17);
    SendText(list, LB_ADDSTRING, 0, L"text");
    EXPECT_EQ(ItemsOf(list), "text");
    Send(list, LB_SETITEMHEIGHT, 0, 30);
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 30);
    EXPECT_EQ(TakeLog(), "");
}
