#include "tests/platform/control_fixture.h"

namespace {

// Drop-down lists, the only kind that layouts make.
class ComboBoxTest : public ControlTest {
protected:
    static void Step(HWND combo, std::string_view verb, std::string_view argument) {
        const int number = std::stoi("0" + std::string(argument));
        RECT client = {};
        GetClientRect(combo, &client);
        if (verb == "arrow") Click(combo, client.right - 5, 5);
        if (verb == "alt") PressAlt(combo, argument == "down" ? VK_DOWN : VK_UP);
        if (verb == "show") Send(combo, CB_SHOWDROPDOWN, TRUE);
        if (verb == "hide") Send(combo, CB_SHOWDROPDOWN, FALSE);
        if (verb == "leave") SetFocus(GetParent(combo));
        if (verb == "set") Send(combo, CB_SETCURSEL, static_cast<WPARAM>(number));
        if (verb == "unset") Send(combo, CB_SETCURSEL, static_cast<WPARAM>(-1));
        if (verb == "text") SetWindowTextW(combo, Widen(argument).c_str());
        if (verb == "empty") Send(combo, CB_RESETCONTENT);
        if (verb == "wheel") {
            const int delta = argument == "down" ? -WHEEL_DELTA : WHEEL_DELTA;
            Send(combo, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)));
        }
    }
    // The current entry, whether the list is open, the text: "1 open beta".
    static std::string StateOf(HWND combo) {
        return std::to_string(Send(combo, CB_GETCURSEL)) +
               (Send(combo, CB_GETDROPPEDSTATE) != 0 ? " open " : " closed ") + Narrow(TextOf(combo));
    }
    HWND CreateFilled(int current) {
        HWND combo = Create(L"ComboBox", CBS_DROPDOWNLIST | WS_VSCROLL, L"", 100, 200);
        for (const wchar_t* text : {L"alpha", L"beta", L"gamma", L"bravo"})
            SendText(combo, CB_ADDSTRING, 0, text);
        Send(combo, CB_SETCURSEL, static_cast<WPARAM>(current));
        SetFocus(combo);
        TakeLog();
        return combo;
    }
    static LONG HeightOf(HWND window) {
        RECT rect = {};
        GetWindowRect(window, &rect);
        return rect.bottom - rect.top;
    }
};

struct Case {
    const char* name;
    int current;  // of alpha, beta, gamma, bravo
    const char* script;
    const char* state;
    const char* told = "";
};

const Case kCases[] = {
    {"first arrow takes the first entry", -1, "down", "0 closed alpha", "SELENDOK SELCHANGE"},
    {"down", 1, "down", "2 closed gamma", "SELENDOK SELCHANGE"},
    {"down at the end", 3, "down", "3 closed bravo", "SELENDOK SELCHANGE"},
    {"home and end", 2, "home end", "3 closed bravo", "SELENDOK SELCHANGE SELENDOK SELCHANGE"},
    {"letters go round", 3, "type:bB", "3 closed bravo", "SELENDOK SELCHANGE SELENDOK SELCHANGE"},
    {"unknown letter", 3, "type:x", "3 closed bravo"},
    {"F4 opens", 1, "f4", "1 open beta", "DROPDOWN"},
    {"alt and an arrow open and close", 1, "alt:down alt:up", "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP"},
    {"choosing from the open list", 1, "f4 down enter", "2 closed gamma", "DROPDOWN SELCHANGE SELENDOK CLOSEUP"},
    {"leaving the open list", 1, "f4 down escape", "2 closed gamma", "DROPDOWN SELCHANGE SELENDCANCEL CLOSEUP"},
    {"enter and escape on the closed list", 1, "enter escape", "1 closed beta"},
    {"arrow clicked twice", 1, "arrow arrow", "1 closed beta", "DROPDOWN SELENDOK CLOSEUP"},
    {"shown and hidden by the program", 1, "show show hide", "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP"},
    {"focus lost while open", 1, "f4 leave", "1 closed beta", "DROPDOWN SELENDCANCEL CLOSEUP KILLFOCUS"},
    {"focus lost", 1, "leave", "1 closed beta", "SELENDCANCEL KILLFOCUS"},
    {"chosen by the program", 1, "set:3", "3 closed bravo"},
    {"chosen outside", 1, "set:4", "1 closed beta"},
    {"choice taken away", 1, "unset", "-1 closed "},
    {"a list takes no text", 1, "text:gamma", "1 closed beta"},
    {"emptied", 2, "empty down", "-1 closed "},
};

}  // namespace

TEST_F(ComboBoxTest, ChoosingAndOpeningAreToldInOrder) {
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        HWND combo = CreateFilled(row.current);
        Act(combo, row.script, [combo](auto verb, auto argument, bool, bool) { Step(combo, verb, argument); });
        EXPECT_EQ(StateOf(combo), row.state);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(combo);
        TakeLog();
    }
}

TEST_F(ComboBoxTest, TheWheelGoesThroughTheEntriesOfAClosedBox) {
    HWND combo = CreateFilled(1);
    Step(combo, "wheel", "down");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 2);
    Step(combo, "wheel", "up");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 1);
}

TEST_F(ComboBoxTest, ClosedHeightFollowsTheFont) {
    HWND combo = Create(L"ComboBox", CBS_DROPDOWNLIST, L"initial", 100, 200);
    EXPECT_EQ(TextOf(combo), L"") << "the creator's text is not shown";
    const LONG border = HeightOf(combo) - Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
    EXPECT_LT(HeightOf(combo), 100) << "the given height is the open list's";
    EXPECT_GT(border, 0);
    EXPECT_GT(Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), Send(combo, CB_GETITEMHEIGHT, 0));
    SetWindowPos(combo, nullptr, 0, 0, 150, 300, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_LT(HeightOf(combo), 100);
    LOGFONTW description = {};
    description.lfHeight = -40;
    HFONT font = CreateFontIndirectW(&description);
    const LONG before = HeightOf(combo);
    SendMessageW(combo, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_GT(HeightOf(combo), before);
    EXPECT_EQ(HeightOf(combo) - Send(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), border);
    RECT list = {};
    EXPECT_NE(Send(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&list)), CB_ERR);
    EXPECT_EQ(list.right - list.left, 150);
    EXPECT_GT(list.bottom - list.top, 200);
    DestroyWindow(combo);
    DeleteObject(font);
}

TEST_F(ComboBoxTest, EntriesAreFound) {
    HWND combo = CreateFilled(0);
    wchar_t text[16] = L"";
    EXPECT_EQ(Send(combo, CB_GETLBTEXTLEN, 1), 4);
    EXPECT_EQ(Send(combo, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text)), 4);
    EXPECT_STREQ(text, L"beta");
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, -1, L"BE"), CB_ERR);
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, -1, L"BETA"), 1);
    EXPECT_EQ(Send(combo, CB_GETCOUNT), 4);
    for (UINT message : {CB_GETLBTEXT, CB_GETLBTEXTLEN}) {
        EXPECT_EQ(Send(combo, message, 4, reinterpret_cast<LPARAM>(text)), CB_ERR) << message;
    }
}

TEST_F(ComboBoxTest, OpenListKeepsEnterAndEscapeFromTheDialog) {
    HWND combo = CreateFilled(1);
    MSG enter = {combo, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    for (const bool isOpen : {false, true}) {
        Send(combo, CB_SHOWDROPDOWN, isOpen);
        const LRESULT wanted = SendMessageW(combo, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter));
        EXPECT_EQ((wanted & DLGC_WANTMESSAGE) != 0, isOpen);
    }
}
