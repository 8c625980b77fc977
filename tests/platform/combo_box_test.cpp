#include "tests/platform/control_fixture.h"

namespace {

class ComboBoxTest : public ControlTest {
public:
    using ControlTest::Click;
    using ControlTest::Press;
    using ControlTest::PressAlt;
    using ControlTest::TextOf;

    static int Send(HWND combo, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return static_cast<int>(SendMessageW(combo, message, wParam, lParam));
    }
    static int SendText(HWND combo, UINT message, int wParam, const wchar_t* text) {
        return Send(combo, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text));
    }
    // Where a person's keys go: the edit, where there is one.
    static HWND InputOf(HWND combo) {
        HWND edit = GetWindow(combo, GW_CHILD);
        return edit != nullptr ? edit : combo;
    }
    static void Keys(HWND combo, std::initializer_list<UINT> keys) {
        for (UINT key : keys)
            Press(InputOf(combo), key);
    }
    static void Type(HWND combo, std::wstring_view text) { ControlTest::Type(InputOf(combo), text); }
    static void ClickArrow(HWND combo) {
        RECT client = {};
        GetClientRect(combo, &client);
        Click(combo, client.right - 5, 5);
    }
    // The current entry, whether the list is open, the text: "1 open beta".
    static std::string StateOf(HWND combo) {
        return std::to_string(Send(combo, CB_GETCURSEL)) +
               (Send(combo, CB_GETDROPPEDSTATE) != 0 ? " open " : " closed ") + Narrow(TextOf(combo));
    }
    HWND CreateFilled(DWORD style, int current) {
        HWND combo = Create(L"ComboBox", style | WS_VSCROLL, L"", 100, 200);
        for (const wchar_t* text : {L"alpha", L"beta", L"gamma", L"bravo"})
            SendText(combo, CB_ADDSTRING, 0, text);
        Send(combo, CB_SETCURSEL, static_cast<WPARAM>(current));
        SetFocus(combo);
        TakeLog();
        return combo;
    }
    static int HeightOf(HWND window) {
        RECT rect = {};
        GetWindowRect(window, &rect);
        return rect.bottom - rect.top;
    }
};

using T = ComboBoxTest;
constexpr DWORD kList = CBS_DROPDOWNLIST;
constexpr DWORD kEdit = CBS_DROPDOWN | CBS_AUTOHSCROLL;

struct Case {
    const char* name;
    DWORD style;
    int current;  // of alpha, beta, gamma, bravo
    void (*act)(HWND);
    const char* state;
    const char* told;
};

const Case kCases[] = {
    {"first arrow takes the first entry", kList, -1, [](HWND c) { T::Keys(c, {VK_DOWN}); }, "0 closed alpha",
     "SELENDOK SELCHANGE"},
    {"down", kList, 1, [](HWND c) { T::Keys(c, {VK_DOWN}); }, "2 closed gamma", "SELENDOK SELCHANGE"},
    {"down at the end", kList, 3, [](HWND c) { T::Keys(c, {VK_DOWN}); }, "3 closed bravo", "SELENDOK SELCHANGE"},
    {"home and end", kList, 2,
     [](HWND c) {
         T::Keys(c, {VK_HOME, VK_END});
     },
     "3 closed bravo", "SELENDOK SELCHANGE SELENDOK SELCHANGE"},
    {"letters go round", kList, 3, [](HWND c) { T::Type(c, L"bB"); }, "3 closed bravo",
     "SELENDOK SELCHANGE SELENDOK SELCHANGE"},
    {"unknown letter", kList, 3, [](HWND c) { T::Type(c, L"x"); }, "3 closed bravo", ""},
    {"F4 opens", kList, 1, [](HWND c) { T::Keys(c, {VK_F4}); }, "1 open beta", "DROPDOWN"},
    {"alt and an arrow open and close", kList, 1,
     [](HWND c) {
         T::PressAlt(T::InputOf(c), VK_DOWN);
         T::PressAlt(T::InputOf(c), VK_UP);
     },
     "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP"},
    {"choosing from the open list", kList, 1,
     [](HWND c) {
         T::Keys(c, {VK_F4, VK_DOWN, VK_RETURN});
     },
     "2 closed gamma", "DROPDOWN SELCHANGE SELENDOK CLOSEUP"},
    {"leaving the open list", kList, 1,
     [](HWND c) {
         T::Keys(c, {VK_F4, VK_DOWN, VK_ESCAPE});
     },
     "2 closed gamma", "DROPDOWN SELCHANGE SELENDCANCEL CLOSEUP"},
    {"enter and escape on the closed list", kList, 1,
     [](HWND c) {
         T::Keys(c, {VK_RETURN, VK_ESCAPE});
     },
     "1 closed beta", ""},
    {"arrow clicked twice", kList, 1,
     [](HWND c) {
         T::ClickArrow(c);
         T::ClickArrow(c);
     },
     "1 closed beta", "DROPDOWN SELENDOK CLOSEUP"},
    {"shown and hidden by the program", kList, 1,
     [](HWND c) {
         T::Send(c, CB_SHOWDROPDOWN, TRUE);
         T::Send(c, CB_SHOWDROPDOWN, TRUE);
         T::Send(c, CB_SHOWDROPDOWN, FALSE);
     },
     "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP"},
    {"focus lost while open", kList, 1,
     [](HWND c) {
         T::Keys(c, {VK_F4});
         SetFocus(GetParent(c));
     },
     "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP KILLFOCUS"},
    {"focus lost", kList, 1, [](HWND c) { SetFocus(GetParent(c)); }, "1 closed beta", "SELENDCANCEL KILLFOCUS"},
    {"chosen by the program", kList, 1, [](HWND c) { EXPECT_EQ(T::Send(c, CB_SETCURSEL, 3), 3); }, "3 closed bravo",
     ""},
    {"chosen outside", kList, 1, [](HWND c) { EXPECT_EQ(T::Send(c, CB_SETCURSEL, 4), CB_ERR); }, "1 closed beta", ""},
    {"choice taken away", kList, 1,
     [](HWND c) { EXPECT_EQ(T::Send(c, CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR); }, "-1 closed ", ""},
    {"chosen by text", kList, 1, [](HWND c) { EXPECT_EQ(T::SendText(c, CB_SELECTSTRING, -1, L"GAM"), 2); },
     "2 closed gamma", ""},
    {"unknown text", kList, 1, [](HWND c) { EXPECT_EQ(T::SendText(c, CB_SELECTSTRING, -1, L"x"), CB_ERR); },
     "1 closed beta", ""},
    {"a list takes no text", kList, 1, [](HWND c) { SetWindowTextW(c, L"gamma"); }, "1 closed beta", ""},
    {"entry inserted before", kList, 1, [](HWND c) { T::SendText(c, CB_INSERTSTRING, 0, L"new"); }, "2 closed beta",
     ""},
    {"entry deleted before", kList, 2, [](HWND c) { EXPECT_EQ(T::Send(c, CB_DELETESTRING, 0), 3); }, "1 closed gamma",
     ""},
    {"chosen entry deleted", kList, 2, [](HWND c) { T::Send(c, CB_DELETESTRING, 2); }, "-1 closed ", ""},
    {"emptied", kList, 2,
     [](HWND c) {
         T::Send(c, CB_RESETCONTENT);
         T::Keys(c, {VK_DOWN});
     },
     "-1 closed ", ""},

    {"edit: down", kEdit, 1, [](HWND c) { T::Keys(c, {VK_DOWN}); }, "2 closed gamma", "SELENDOK SELCHANGE"},
    {"edit: home and end stay in the text", kEdit, 1,
     [](HWND c) {
         T::Keys(c, {VK_HOME, VK_END});
     },
     "1 closed beta", ""},
    {"edit: typing replaces the chosen text", kEdit, 1, [](HWND c) { T::Type(c, L"ab"); }, "-1 closed ab",
     "EDITUPDATE EDITCHANGE EDITUPDATE EDITCHANGE"},
    {"edit: text set by the program", kEdit, 1, [](HWND c) { SetWindowTextW(c, L"other"); }, "1 closed other", ""},
    {"edit: text set in the edit itself", kEdit, 1, [](HWND c) { SetWindowTextW(T::InputOf(c), L"other"); },
     "1 closed other", ""},
    {"edit: opening takes the entry that begins so", kEdit, -1,
     [](HWND c) {
         SetWindowTextW(c, L"br");
         T::Keys(c, {VK_F4});
     },
     "3 open bravo", "DROPDOWN"},
    {"edit: choosing from the open list", kEdit, 1,
     [](HWND c) {
         T::Keys(c, {VK_F4, VK_DOWN, VK_RETURN});
     },
     "2 closed gamma", "DROPDOWN SELCHANGE SELENDOK CLOSEUP"},
    {"edit: arrow clicked twice", kEdit, 1,
     [](HWND c) {
         T::ClickArrow(c);
         T::ClickArrow(c);
     },
     "1 closed beta", "DROPDOWN SELENDOK CLOSEUP"},
    {"edit: focus lost", kEdit, 1, [](HWND c) { SetFocus(GetParent(c)); }, "1 closed beta", "SELENDCANCEL KILLFOCUS"},
    {"edit: chosen entry deleted, text stays", kEdit, 2, [](HWND c) { T::Send(c, CB_DELETESTRING, 2); },
     "-1 closed gamma", ""},
    {"edit: emptied", kEdit, 2, [](HWND c) { T::Send(c, CB_RESETCONTENT); }, "-1 closed ", ""},
    {"edit: limit", kEdit, -1,
     [](HWND c) {
         T::Send(c, CB_LIMITTEXT, 2);
         T::Type(c, L"ab");
     },
     "-1 closed ab", "EDITUPDATE EDITCHANGE EDITUPDATE EDITCHANGE"},
};

}  // namespace

TEST_F(ComboBoxTest, ChoosingOpeningAndTypingAreToldInOrder) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        HWND combo = CreateFilled(row.style, row.current);
        row.act(combo);
        EXPECT_EQ(StateOf(combo), row.state);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(combo);
        TakeLog();
    }
}

TEST_F(ComboBoxTest, TheWheelGoesThroughTheEntriesOfAClosedBox) {
    HWND combo = CreateFilled(CBS_DROPDOWNLIST, 1);
    const auto turn = [combo](int notches) {
        SendMessageW(combo, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(notches * WHEEL_DELTA)), 0);
        return Send(combo, CB_GETCURSEL);
    };
    EXPECT_EQ(turn(-1), 2);
    EXPECT_EQ(turn(1), 1);
}

TEST_F(ComboBoxTest, FocusGoesToTheEdit) {
    for (DWORD style : {kList, kEdit}) {
        HWND combo = Create(L"ComboBox", style, L"initial", 100, 200);
        EXPECT_EQ(TextOf(combo), L"") << "the creator's text is not shown";
        SetFocus(combo);
        EXPECT_EQ(TakeLog(), "SETFOCUS");
        EXPECT_EQ(GetFocus(), InputOf(combo));
        DestroyWindow(combo);
    }
}

TEST_F(ComboBoxTest, ClosedHeightFollowsTheFont) {
    for (DWORD style : {kList, kEdit}) {
        HWND combo = Create(L"ComboBox", style, L"", 100, 200);
        const int border = HeightOf(combo) - Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
        EXPECT_LT(HeightOf(combo), 100) << "the given height is the open list's";
        EXPECT_GT(border, 0);
        EXPECT_GT(Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), Send(combo, CB_GETITEMHEIGHT, 0));

        SetWindowPos(combo, nullptr, 0, 0, 150, 300, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_LT(HeightOf(combo), 100);
        LOGFONTW description = {};
        description.lfHeight = -40;
        HFONT font = CreateFontIndirectW(&description);
        const int before = HeightOf(combo);
        SendMessageW(combo, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        EXPECT_GT(HeightOf(combo), before);
        EXPECT_EQ(HeightOf(combo) - Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), border);
        EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(InputOf(combo), WM_GETFONT, 0, 0)), font);

        RECT list = {};
        EXPECT_NE(Send(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&list)), CB_ERR);
        EXPECT_EQ(list.right - list.left, 150);
        EXPECT_GT(list.bottom - list.top, 200);
        EXPECT_EQ(Send(combo, CB_SETDROPPEDWIDTH, 400), 400);
        EXPECT_EQ(Send(combo, CB_SETDROPPEDWIDTH, 50), 150) << "never narrower than the combo box";
        DestroyWindow(combo);
        DeleteObject(font);
    }
}

TEST_F(ComboBoxTest, EntriesAreSortedFoundAndCarryData) {
    HWND combo = Create(L"ComboBox", kList | CBS_SORT, L"", 100, 200);
    for (const wchar_t* text : {L"beta", L"Alpha", L"gamma"})
        SendText(combo, CB_ADDSTRING, 0, text);
    wchar_t text[16] = L"";
    EXPECT_EQ(Send(combo, CB_GETLBTEXTLEN, 0), 5);
    EXPECT_EQ(Send(combo, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text)), 5);
    EXPECT_STREQ(text, L"Alpha");
    EXPECT_EQ(SendText(combo, CB_FINDSTRING, -1, L"BE"), 1);
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, -1, L"BE"), CB_ERR);
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, -1, L"BETA"), 1);
    EXPECT_NE(Send(combo, CB_SETITEMDATA, 1, 42), CB_ERR);
    EXPECT_EQ(SendText(combo, CB_ADDSTRING, 0, L"aaa"), 0);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 2), 42);
    EXPECT_EQ(Send(combo, CB_GETCOUNT), 4);
    for (UINT message : {CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_GETITEMDATA, CB_DELETESTRING}) {
        EXPECT_EQ(Send(combo, message, 4, reinterpret_cast<LPARAM>(text)), CB_ERR) << message;
    }
}

TEST_F(ComboBoxTest, EditSelectionAndPartsAreReachable) {
    HWND combo = CreateFilled(kEdit, 1);
    EXPECT_EQ(Send(combo, CB_GETEDITSEL), MAKELONG(0, 4)) << "a chosen entry is selected";
    Send(combo, CB_SETEDITSEL, 0, MAKELPARAM(1, 3));
    EXPECT_EQ(Send(combo, CB_GETEDITSEL), MAKELONG(1, 3));
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    EXPECT_NE(GetComboBoxInfo(combo, &info), FALSE);
    EXPECT_EQ(info.hwndCombo, combo);
    EXPECT_EQ(info.hwndItem, GetWindow(combo, GW_CHILD));
    EXPECT_LT(info.rcItem.left, info.rcItem.right);
    EXPECT_LE(info.rcItem.right, info.rcButton.left);
}

TEST_F(ComboBoxTest, OpenListKeepsEnterAndEscapeFromTheDialog) {
    for (DWORD style : {kList, kEdit}) {
        HWND combo = CreateFilled(style, 1);
        HWND input = InputOf(combo);
        MSG enter = {input, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
        const auto asks = [&] {
            return SendMessageW(input, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)) & DLGC_WANTMESSAGE;
        };
        EXPECT_EQ(asks(), 0);
        Send(combo, CB_SHOWDROPDOWN, TRUE);
        EXPECT_NE(asks(), 0);
        DestroyWindow(combo);
    }
}
