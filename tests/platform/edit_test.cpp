#include "tests/platform/control_fixture.h"

namespace {

constexpr DWORD kScrolling = ES_AUTOHSCROLL;
constexpr DWORD kLines = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL;

class EditTest : public ControlTest {
protected:
    static void Select(HWND edit, int first, int last) { Send(edit, EM_SETSEL, static_cast<WPARAM>(first), last); }
    static void Replace(HWND edit, std::string_view text) {
        Send(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Widen(text).c_str()));
    }
    static SIZE ExtentOf(HWND edit, const std::wstring& text) {
        HDC dc = GetDC(edit);
        SIZE extent = {};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
        ReleaseDC(edit, dc);
        return extent;
    }
};

struct InputCase {
    const char* name;
    DWORD style;
    const wchar_t* before;
    int first, last;  // selected before
    const char* script;
    const wchar_t* after;
    const char* selection;
    const char* told = "";
};

const InputCase kInputs[] = {
    {"typing replaces the selection", 0, L"hello", 1, 4, "type:X", L"hXo", "2-2", "UPDATE CHANGE"},
    {"each character is told", 0, L"", 0, 0, "type:ab", L"ab", "2-2", "UPDATE CHANGE UPDATE CHANGE"},
    {"backspace takes the character before", 0, L"abc", 2, 2, "back", L"ac", "1-1", "UPDATE CHANGE"},
    {"backspace takes the selection only", 0, L"abcd", 1, 3, "back", L"ad", "1-1", "UPDATE CHANGE"},
    {"backspace at the start", 0, L"abc", 0, 0, "back", L"abc", "0-0"},
    {"delete takes the character after", 0, L"abc", 1, 1, "del", L"ac", "1-1", "UPDATE CHANGE"},
    {"delete at the end", 0, L"abc", 3, 3, "del", L"abc", "3-3"},
    {"read-only takes no keys", ES_READONLY, L"abc", 1, 2, "type:x back del", L"abc", "1-2"},
    {"control characters are no text", 0, L"a", 0, 0, "type:\x02\x1F\x1B\t", L"a", "0-0"},
    {"return is no text", 0, L"a", 0, 0, "enter", L"a", "0-0"},
    {"replacing", 0, L"abc", 0, 1, "replace:xy", L"xybc", "2-2", "UPDATE CHANGE"},
    {"replacing works in a read-only edit", ES_READONLY, L"abc", 0, -1, "replace:z", L"z", "1-1", "UPDATE CHANGE"},
    {"text set by the program", 0, L"abc", 1, 2, "set:new", L"new", "0-0", "UPDATE CHANGE"},
    {"same text set again", 0, L"abc", 1, 2, "set:abc", L"abc", "0-0", "UPDATE CHANGE"},
    {"lines: text set by the program is not told", kLines, L"abc", 0, 0, "set:x\r\ny", L"x\r\ny", "0-0"},
    {"lines: return breaks", kLines | ES_WANTRETURN, L"ab", 1, 1, "enter", L"a\r\nb", "3-3", "UPDATE CHANGE"},
    {"lines: backspace joins", kLines, L"a\r\nb", 3, 3, "back", L"ab", "1-1", "UPDATE CHANGE"},
    {"lines: delete joins", kLines, L"a\r\nb", 1, 1, "del", L"ab", "1-1", "UPDATE CHANGE"},

    {"right, and no further than the end", 0, L"abc", 2, 2, "right right", L"abc", "3-3"},
    {"left leaves a selection from its caret", 0, L"abcdef", 2, 4, "left", L"abcdef", "3-3"},
    {"left leaves a backward selection from its caret", 0, L"abcdef", 4, 2, "left", L"abcdef", "1-1"},
    {"shift right extends", 0, L"abc", 1, 1, "shift+right", L"abc", "1-2"},
    {"shift left shrinks", 0, L"abc", 1, 3, "shift+left", L"abc", "1-2"},
    {"shift home", 0, L"abc", 2, 2, "shift+home", L"abc", "0-2"},
    {"shift end", 0, L"abc", 1, 1, "shift+end", L"abc", "1-3"},
    {"up is left in a single line", 0, L"abc", 2, 2, "up", L"abc", "1-1"},
    {"control left goes by words", 0, L"one two", 7, 7, "ctrl+left", L"one two", "4-4"},
    {"lines: home", kLines, L"ab\r\ncd", 5, 5, "home", L"ab\r\ncd", "4-4"},
    {"lines: end", kLines, L"ab\r\ncd", 0, 0, "end", L"ab\r\ncd", "2-2"},
    {"lines: right over the break", kLines, L"ab\r\ncd", 2, 2, "right", L"ab\r\ncd", "4-4"},
    {"lines: left over the break", kLines, L"ab\r\ncd", 4, 4, "left", L"ab\r\ncd", "2-2"},
    {"lines: control end", kLines, L"ab\r\ncd", 0, 0, "ctrl+end", L"ab\r\ncd", "6-6"},
    {"lines: down and up", kLines, L"ab\r\ncd\r\nef", 0, 0, "down down up", L"ab\r\ncd\r\nef", "4-4"},
};

}  // namespace

TEST_F(EditTest, KeysAndProgramsChangeTextAndCaretAndTellTheParent) {
    for (const InputCase& row : kInputs) {
        SCOPED_TRACE(row.name);
        HWND edit = Create(L"Edit", kScrolling | row.style, row.before, 200, 60);
        Select(edit, row.first, row.last);
        Act(edit, row.script, [edit](std::string_view verb, std::string_view text, bool, bool) {
            verb == "set" ? void(SetWindowTextW(edit, Widen(text).c_str())) : Replace(edit, text);
        });
        EXPECT_EQ(TextOf(edit), row.after);
        EXPECT_EQ(SelectionOf(edit), row.selection);
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, SelectionIsOrderedAndKeptInsideTheText) {
    struct Case {
        int first, last;
        const char* selection;
    };
    // -1 as the start takes the selection away; the caret stays at its end.
    const Case cases[] = {{0, -1, "0-3"}, {2, 1, "1-2"},   {1, 2, "1-2"},
                          {-1, 0, "2-2"}, {2, 100, "2-3"}, {100, 200, "3-3"}};
    HWND edit = Create(L"Edit", kScrolling, L"abc");
    for (const Case& row : cases) {
        Select(edit, row.first, row.last);
        EXPECT_EQ(SelectionOf(edit), row.selection) << row.first << "," << row.last;
    }
    EXPECT_EQ(Send(edit, EM_GETSEL), MAKELONG(3, 3));
}

TEST_F(EditTest, LimitHoldsForKeysAndReplacingButNotForTheProgramsText) {
    HWND edit = Create(L"Edit", kScrolling);
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 30000);
    Send(edit, EM_LIMITTEXT, 0);
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 0x7FFFFFFE);
    Send(edit, EM_LIMITTEXT, 3);
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 3);
    Type(edit, L"abcd");
    EXPECT_EQ(TextOf(edit), L"abc");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE UPDATE CHANGE UPDATE CHANGE MAXTEXT UPDATE CHANGE");
    Select(edit, 1, 2);
    Replace(edit, "1234");
    EXPECT_EQ(TextOf(edit), L"a1c") << "what fits is taken";
    EXPECT_EQ(TakeLog(), "MAXTEXT UPDATE CHANGE");
    SetWindowTextW(edit, L"longer than the limit");
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"longer than the limit");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE MAXTEXT UPDATE CHANGE");
    Press(edit, VK_DELETE);
    EXPECT_EQ(TextOf(edit), L"onger than the limit");
}

TEST_F(EditTest, WithoutScrollingTypingStopsWhereTheTextNoLongerFits) {
    HWND edit = Create(L"Edit", 0, L"", 100);
    Type(edit, std::wstring(200, L'M'));
    const LONG extent = ExtentOf(edit, TextOf(edit)).cx;
    EXPECT_LE(extent, 100);
    EXPECT_GT(extent, 100 - 3 * ExtentOf(edit, L"M").cx);
    EXPECT_TRUE(TakeLog().ends_with("MAXTEXT UPDATE CHANGE"));
    SetWindowTextW(edit, std::wstring(41, L'M').c_str());
    EXPECT_EQ(TextOf(edit).size(), 41u) << "the program may set what does not fit";
}

// Who centres a field's text between others relies on it.
TEST_F(EditTest, FramedFieldWritesAPixelBelowItsFrameWhereItHasRoom) {
    HWND edit = CreateWindowExW(WS_EX_CLIENTEDGE, L"Edit", L"Text", WS_CHILD | WS_VISIBLE | kScrolling, 0, 0, 100, 60,
                                m_parent, nullptr, nullptr, nullptr);
    EXPECT_EQ(TakeLog(), "") << "creation tells nothing";
    const int line = ExtentOf(edit, L"Text").cy;
    for (const int room : {0, 1, 2, 3, 20}) {
        SetWindowPos(edit, nullptr, 0, 0, 100, line + 2 * GetSystemMetrics(SM_CYEDGE) + room,
                     SWP_NOMOVE | SWP_NOZORDER);
        RECT text{};
        Send(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
        EXPECT_EQ(text.top, room >= 2 ? 1 : 0) << room;
        EXPECT_EQ(HIWORD(static_cast<DWORD_PTR>(Send(edit, EM_POSFROMCHAR))), text.top) << room;
        EXPECT_EQ(text.bottom - text.top, line) << room;
    }
}

TEST_F(EditTest, PasswordEditKeepsItsTextAndShowsTheCharacter) {
    HWND edit = Create(L"Edit", kScrolling | ES_PASSWORD, L"secret");
    EXPECT_EQ(TextOf(edit), L"secret");
    EXPECT_EQ(Send(edit, EM_GETPASSWORDCHAR), '*');
    Send(edit, EM_SETPASSWORDCHAR, 0);
    EXPECT_EQ(Send(edit, EM_GETPASSWORDCHAR), 0);
}

TEST_F(EditTest, ReadOnlyIsAStyleThatCanBeSwitched) {
    HWND edit = Create(L"Edit", kScrolling, L"abc");
    EXPECT_NE(Send(edit, EM_SETREADONLY, TRUE), 0);
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY, 0);
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"abc");
    Send(edit, EM_SETREADONLY, FALSE);
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"xabc");
}

TEST_F(EditTest, TellsItsFocusAndWhichKeysItWants) {
    for (const DWORD style : {kScrolling, kLines}) {
        HWND edit = Create(L"Edit", style, L"abc");
        SetFocus(edit);
        EXPECT_EQ(SelectionOf(edit), "0-0");
        SetFocus(m_parent);
        EXPECT_EQ(TakeLog(), "SETFOCUS KILLFOCUS");
        EXPECT_EQ(Send(edit, WM_GETDLGCODE),
                  DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | (style == kLines ? DLGC_WANTALLKEYS : 0));
    }
}

TEST_F(EditTest, WindowTextIsCutToTheBuffer) {
    HWND edit = Create(L"Edit", kScrolling, L"abcdef");
    wchar_t buffer[4] = L"???";
    EXPECT_EQ(GetWindowTextW(edit, buffer, 4), 3);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(Send(edit, WM_GETTEXTLENGTH), 6);
    Send(edit, WM_SETTEXT);
    EXPECT_EQ(GetWindowTextLengthW(edit), 0);
}
