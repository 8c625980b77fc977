#include <functional>

#include "tests/platform/control_fixture.h"

namespace {

constexpr DWORD kScrolling = ES_AUTOHSCROLL;

class EditTest : public ControlTest {};

struct TypingCase {
    const char* name;
    DWORD style;
    const wchar_t* before;
    std::function<void(HWND)> act;
    const wchar_t* after;
    const char* selection;
    const char* notifications;  // null where versions of the platform differ in how often they tell it
};

void Select(HWND edit, int first, int last) {
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(first), last);
}

void Press(HWND edit, UINT key, bool shift = false, bool control = false);

}  // namespace

// The fixture's helpers are protected; the cases below reach them through this.
struct EditInput : ControlTest {
    using ControlTest::Press;
    using ControlTest::Type;
    void TestBody() override {}
};

namespace {

void Press(HWND edit, UINT key, bool shift, bool control) {
    EditInput::Press(edit, key, shift, control);
}
void Type(HWND edit, const wchar_t* text) {
    EditInput::Type(edit, text);
}

const TypingCase kTyping[] = {
    {"typing replaces the selection", kScrolling, L"hello",
     [](HWND e) {
         Select(e, 1, 4);
         Type(e, L"X");
     },
     L"hXo", "2-2", "UPDATE CHANGE"},
    {"each character is told", kScrolling, L"", [](HWND e) { Type(e, L"ab"); }, L"ab", "2-2",
     "UPDATE CHANGE UPDATE CHANGE"},
    {"backspace takes the character before", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 2, 2);
         Press(e, VK_BACK);
     },
     L"ac", "1-1", "UPDATE CHANGE"},
    {"backspace takes the selection only", kScrolling, L"abcd",
     [](HWND e) {
         Select(e, 1, 3);
         Press(e, VK_BACK);
     },
     L"ad", "1-1", "UPDATE CHANGE"},
    {"backspace at the start", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 0, 0);
         Press(e, VK_BACK);
     },
     L"abc", "0-0", ""},
    {"delete takes the character after", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 1, 1);
         Press(e, VK_DELETE);
     },
     L"ac", "1-1", "UPDATE CHANGE"},
    {"delete at the end", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 3, 3);
         Press(e, VK_DELETE);
     },
     L"abc", "3-3", ""},
    {"number edit refuses letters", kScrolling | ES_NUMBER, L"", [](HWND e) { Type(e, L"1a-2"); }, L"12", "2-2",
     "UPDATE CHANGE UPDATE CHANGE"},
    {"upper case", kScrolling | ES_UPPERCASE, L"", [](HWND e) { Type(e, L"aB"); }, L"AB", "2-2",
     "UPDATE CHANGE UPDATE CHANGE"},
    {"lower case", kScrolling | ES_LOWERCASE, L"", [](HWND e) { Type(e, L"aB"); }, L"ab", "2-2",
     "UPDATE CHANGE UPDATE CHANGE"},
    {"read-only takes no keys", kScrolling | ES_READONLY, L"abc",
     [](HWND e) {
         Select(e, 1, 2);
         Type(e, L"x");
         Press(e, VK_BACK);
         Press(e, VK_DELETE);
         Press(e, 'X', false, true);
     },
     L"abc", "1-2", ""},
    {"control characters are no text", kScrolling, L"a", [](HWND e) { Type(e, L"\x02\x1F\x1B\t"); }, L"a", "0-0", ""},
    {"read-only takes no clipboard messages that change it", kScrolling | ES_READONLY, L"abc",
     [](HWND e) {
         Select(e, 0, 2);
         for (UINT message : {WM_CUT, WM_CLEAR, WM_PASTE})
             SendMessageW(e, message, 0, 0);
     },
     L"abc", "0-2", ""},
    {"return is no text", kScrolling, L"a", [](HWND e) { Press(e, VK_RETURN); }, L"a", "0-0", ""},
    {"replace with undo", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 0, 1);
         SendMessageW(e, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"xy"));
     },
     L"xybc", "2-2", "UPDATE CHANGE"},
    {"replacing works in a read-only edit", kScrolling | ES_READONLY, L"abc",
     [](HWND e) {
         Select(e, 0, -1);
         SendMessageW(e, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"z"));
     },
     L"z", "1-1", "UPDATE CHANGE"},
    {"replacing is converted to upper case", kScrolling | ES_UPPERCASE, L"",
     [](HWND e) { SendMessageW(e, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"aBc")); }, L"ABC", "3-3",
     "UPDATE CHANGE"},
    {"replacing with nothing", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 3, 3);
         SendMessageW(e, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
     },
     L"abc", "3-3", ""},
    {"undo brings the text back, twice is redo", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 0, 3);
         Type(e, L"x");
         SendMessageW(e, EM_UNDO, 0, 0);
     },
     L"abc", "0-3", nullptr},
    {"cleared by message", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 1, 2);
         SendMessageW(e, WM_CLEAR, 0, 0);
     },
     L"ac", "1-1", "UPDATE CHANGE"},
    {"text set by the program", kScrolling, L"abc",
     [](HWND e) {
         Select(e, 1, 2);
         SetWindowTextW(e, L"new");
     },
     L"new", "0-0", "UPDATE CHANGE"},
    {"same text set again", kScrolling, L"abc", [](HWND e) { SetWindowTextW(e, L"abc"); }, L"abc", "0-0",
     "UPDATE CHANGE"},
    {"number edit takes any text from the program", kScrolling | ES_NUMBER, L"",
     [](HWND e) { SetWindowTextW(e, L"x"); }, L"x", "0-0", "UPDATE CHANGE"},
    {"upper case edit converts the program's text", kScrolling | ES_UPPERCASE, L"",
     [](HWND e) { SetWindowTextW(e, L"aB"); }, L"AB", "0-0", "UPDATE CHANGE"},
    {"multi-line: text set by the program is not told", ES_MULTILINE, L"abc",
     [](HWND e) { SetWindowTextW(e, L"x\r\ny"); }, L"x\r\ny", "0-0", ""},
    {"multi-line: return breaks the line", ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN, L"ab",
     [](HWND e) {
         Select(e, 1, 1);
         Press(e, VK_RETURN);
     },
     L"a\r\nb", "3-3", "UPDATE CHANGE"},
    {"multi-line: backspace joins lines", ES_MULTILINE | ES_AUTOVSCROLL, L"a\r\nb",
     [](HWND e) {
         Select(e, 3, 3);
         Press(e, VK_BACK);
     },
     L"ab", "1-1", "UPDATE CHANGE"},
    {"multi-line: delete joins lines", ES_MULTILINE | ES_AUTOVSCROLL, L"a\r\nb",
     [](HWND e) {
         Select(e, 1, 1);
         Press(e, VK_DELETE);
     },
     L"ab", "1-1", "UPDATE CHANGE"},
};

struct CaretCase {
    const char* name;
    DWORD style;
    const wchar_t* text;
    int first;
    int last;
    UINT key;
    bool shift;
    bool control;
    const char* selection;
};

const CaretCase kCaret[] = {
    {"right", 0, L"abc", 1, 1, VK_RIGHT, false, false, "2-2"},
    {"right at the end", 0, L"abc", 3, 3, VK_RIGHT, false, false, "3-3"},
    {"left", 0, L"abc", 1, 1, VK_LEFT, false, false, "0-0"},
    {"left leaves a selection from its caret", 0, L"abcdef", 2, 4, VK_LEFT, false, false, "3-3"},
    {"right leaves a selection from its caret", 0, L"abcdef", 2, 4, VK_RIGHT, false, false, "5-5"},
    {"left leaves a backward selection from its caret", 0, L"abcdef", 4, 2, VK_LEFT, false, false, "1-1"},
    {"shift right extends", 0, L"abc", 1, 1, VK_RIGHT, true, false, "1-2"},
    {"shift left extends backward", 0, L"abc", 2, 2, VK_LEFT, true, false, "1-2"},
    {"shift left shrinks", 0, L"abc", 1, 3, VK_LEFT, true, false, "1-2"},
    {"home", 0, L"abc", 2, 2, VK_HOME, false, false, "0-0"},
    {"end", 0, L"abc", 1, 1, VK_END, false, false, "3-3"},
    {"shift home", 0, L"abc", 2, 2, VK_HOME, true, false, "0-2"},
    {"shift end", 0, L"abc", 1, 1, VK_END, true, false, "1-3"},
    {"up is left in a single line", 0, L"abc", 2, 2, VK_UP, false, false, "1-1"},
    {"down is right in a single line", 0, L"abc", 1, 1, VK_DOWN, false, false, "2-2"},
    {"control right goes by words", 0, L"one two", 0, 0, VK_RIGHT, false, true, "4-4"},
    {"control left goes by words", 0, L"one two", 7, 7, VK_LEFT, false, true, "4-4"},
    {"lines: home of the line", ES_MULTILINE, L"ab\r\ncd", 5, 5, VK_HOME, false, false, "4-4"},
    {"lines: end of the line", ES_MULTILINE, L"ab\r\ncd", 0, 0, VK_END, false, false, "2-2"},
    {"lines: right over the break", ES_MULTILINE, L"ab\r\ncd", 2, 2, VK_RIGHT, false, false, "4-4"},
    {"lines: left over the break", ES_MULTILINE, L"ab\r\ncd", 4, 4, VK_LEFT, false, false, "2-2"},
    {"lines: control end", ES_MULTILINE, L"ab\r\ncd", 0, 0, VK_END, false, true, "6-6"},
    {"lines: control home", ES_MULTILINE, L"ab\r\ncd", 5, 5, VK_HOME, false, true, "0-0"},
    {"lines: down at the line's start", ES_MULTILINE, L"ab\r\ncd", 0, 0, VK_DOWN, false, false, "4-4"},
    {"lines: up at the line's start", ES_MULTILINE, L"ab\r\ncd", 4, 4, VK_UP, false, false, "0-0"},
};

}  // namespace

TEST_F(EditTest, TypingAndReplacingChangeTextAndTellTheParent) {
    for (const TypingCase& row : kTyping) {
        SCOPED_TRACE(row.name);
        HWND edit = Create(L"Edit", row.style, row.before);
        row.act(edit);
        EXPECT_EQ(TextOf(edit), row.after);
        EXPECT_EQ(SelectionOf(edit), row.selection);
        const std::string told = TakeLog();
        if (row.notifications != nullptr) {
            EXPECT_EQ(told, row.notifications);
        }
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, KeysMoveTheCaretAndTheSelection) {
    for (const CaretCase& row : kCaret) {
        SCOPED_TRACE(row.name);
        HWND edit = Create(L"Edit", kScrolling | row.style, row.text, 200, 60);
        Select(edit, row.first, row.last);
        Press(edit, row.key, row.shift, row.control);
        EXPECT_EQ(SelectionOf(edit), row.selection);
        EXPECT_EQ(TakeLog(), "");
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, SelectionIsOrderedAndKeptInsideTheText) {
    struct Case {
        int first, last;
        const char* selection;
    };
    const Case cases[] = {{1, 2, "1-2"},   {2, 1, "1-2"},     {0, -1, "0-3"},
                          {2, 100, "2-3"}, {100, 200, "3-3"}, {2, -1, "2-3"}};
    HWND edit = Create(L"Edit", kScrolling, L"abc");
    for (const Case& row : cases) {
        Select(edit, row.first, row.last);
        EXPECT_EQ(SelectionOf(edit), row.selection) << row.first << "," << row.last;
    }
    Select(edit, 1, 2);
    Select(edit, -1, 0);
    EXPECT_EQ(SelectionOf(edit), "2-2") << "-1 as the start takes the selection away";
    Select(edit, 1, 2);
    EXPECT_EQ(SendMessageW(edit, EM_GETSEL, 0, 0), MAKELONG(1, 2));
}

TEST_F(EditTest, LimitHoldsForKeysAndReplacingButNotForTheProgramsText) {
    HWND edit = Create(L"Edit", kScrolling);
    SendMessageW(edit, EM_LIMITTEXT, 3, 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 3);
    Type(edit, L"abcd");
    EXPECT_EQ(TextOf(edit), L"abc");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE UPDATE CHANGE UPDATE CHANGE MAXTEXT UPDATE CHANGE");

    Select(edit, 1, 2);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"1234"));
    EXPECT_EQ(TextOf(edit), L"a1c") << "what fits is taken";
    EXPECT_EQ(TakeLog(), "MAXTEXT UPDATE CHANGE");

    SetWindowTextW(edit, L"longer than the limit");
    EXPECT_EQ(TextOf(edit), L"longer than the limit");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE");
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"longer than the limit");
    EXPECT_EQ(TakeLog(), "MAXTEXT UPDATE CHANGE");
    Press(edit, VK_DELETE);
    EXPECT_EQ(TextOf(edit), L"onger than the limit");
}

TEST_F(EditTest, DefaultAndLiftedLimits) {
    HWND single = Create(L"Edit", kScrolling);
    HWND lines = Create(L"Edit", ES_MULTILINE);
    EXPECT_EQ(SendMessageW(single, EM_GETLIMITTEXT, 0, 0), 30000);
    EXPECT_EQ(SendMessageW(lines, EM_GETLIMITTEXT, 0, 0), 30000);
    SendMessageW(single, EM_LIMITTEXT, 0, 0);
    SendMessageW(lines, EM_LIMITTEXT, 0, 0);
    EXPECT_EQ(SendMessageW(single, EM_GETLIMITTEXT, 0, 0), 0x7FFFFFFE);
    EXPECT_EQ(static_cast<DWORD>(SendMessageW(lines, EM_GETLIMITTEXT, 0, 0)), 0xFFFFFFFFu);
}

TEST_F(EditTest, WithoutScrollingTypingStopsWhereTheTextNoLongerFits) {
    HWND edit = Create(L"Edit", 0, L"", 100);
    for (int i = 0; i < 200; ++i)
        SendMessageW(edit, WM_CHAR, 'M', 1);
    const std::wstring typed = TextOf(edit);
    HDC dc = GetDC(edit);
    SIZE extent = {};
    GetTextExtentPoint32W(dc, typed.c_str(), static_cast<int>(typed.size()), &extent);
    SIZE one = {};
    GetTextExtentPoint32W(dc, L"M", 1, &one);
    ReleaseDC(edit, dc);
    EXPECT_LE(extent.cx, 100);
    EXPECT_GT(extent.cx, 100 - 3 * one.cx);
    EXPECT_TRUE(TakeLog().ends_with("MAXTEXT UPDATE CHANGE"));
    SetWindowTextW(edit, L"MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM");
    EXPECT_EQ(TextOf(edit).size(), 41u) << "the program may set what does not fit";
}

// Who centres a field's text between others relies on it.
TEST_F(EditTest, FramedFieldWritesAPixelBelowItsFrameWhereItHasRoom) {
    HWND edit = CreateWindowExW(WS_EX_CLIENTEDGE, L"Edit", L"Text", WS_CHILD | WS_VISIBLE | kScrolling, 0, 0, 100, 60,
                                GetParent(Create(L"Edit", kScrolling)), nullptr, nullptr, nullptr);
    HDC dc = GetDC(edit);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    ReleaseDC(edit, dc);
    const int frame = 2 * GetSystemMetrics(SM_CYEDGE);
    for (const int room : {0, 1, 2, 3, 20}) {
        SetWindowPos(edit, nullptr, 0, 0, 100, static_cast<int>(metrics.tmHeight) + frame + room,
                     SWP_NOMOVE | SWP_NOZORDER);
        RECT text{};
        SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
        const LRESULT first = SendMessageW(edit, EM_POSFROMCHAR, 0, 0);
        EXPECT_EQ(text.top, room >= 2 ? 1 : 0) << room;
        EXPECT_EQ(HIWORD(static_cast<DWORD_PTR>(first)), text.top) << room;
        EXPECT_EQ(text.bottom - text.top, metrics.tmHeight) << room;
    }
}

TEST_F(EditTest, ModifiedMarkFollowsTheUserOnly) {
    HWND edit = Create(L"Edit", kScrolling);
    EXPECT_EQ(SendMessageW(edit, EM_GETMODIFY, 0, 0), 0);
    Type(edit, L"x");
    EXPECT_NE(SendMessageW(edit, EM_GETMODIFY, 0, 0), 0);
    SetWindowTextW(edit, L"new");
    EXPECT_EQ(SendMessageW(edit, EM_GETMODIFY, 0, 0), 0);
    SendMessageW(edit, EM_SETMODIFY, TRUE, 0);
    EXPECT_NE(SendMessageW(edit, EM_GETMODIFY, 0, 0), 0);
    EXPECT_EQ(SendMessageW(edit, EM_CANUNDO, 0, 0), 0) << "the program's text cannot be undone";
}

TEST_F(EditTest, ClipboardCarriesTextBetweenEdits) {
    HWND from = Create(L"Edit", kScrolling, L"abcdef");
    HWND to = Create(L"Edit", kScrolling, L"12345", 200, 24, kControlId + 1);
    Select(from, 1, 3);
    Press(from, 'C', false, true);
    EXPECT_EQ(TakeLog(), "");
    Select(to, 5, 5);
    Press(to, 'V', false, true);
    EXPECT_EQ(TextOf(to), L"12345bc");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE");

    Select(from, 0, 1);
    Press(from, 'X', false, true);
    EXPECT_EQ(TextOf(from), L"bcdef");
    EXPECT_EQ(TakeLog(), "UPDATE CHANGE");
    SendMessageW(to, EM_LIMITTEXT, 8, 0);
    Select(from, 0, -1);
    SendMessageW(from, WM_COPY, 0, 0);
    TakeLog();
    SendMessageW(to, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(to), L"12345bcb") << "a paste stops at the limit";
    EXPECT_EQ(TakeLog(), "MAXTEXT UPDATE CHANGE");

    HWND secret = Create(L"Edit", kScrolling | ES_PASSWORD, L"secret", 200, 24, kControlId + 2);
    Select(secret, 0, -1);
    Press(secret, 'C', false, true);
    Press(secret, 'X', false, true);
    EXPECT_EQ(TextOf(secret), L"secret");
    SendMessageW(to, EM_LIMITTEXT, 0, 0);
    Select(to, 0, -1);
    Press(to, 'V', false, true);
    EXPECT_EQ(TextOf(to), L"bcdef") << "a password is never copied";

    HWND fixed = Create(L"Edit", kScrolling | ES_READONLY, L"fixed", 200, 24, kControlId + 3);
    Press(fixed, 'V', false, true);
    EXPECT_EQ(TextOf(fixed), L"fixed");
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(EditTest, PasswordEditKeepsItsTextAndShowsTheCharacter) {
    HWND edit = Create(L"Edit", kScrolling | ES_PASSWORD, L"secret");
    EXPECT_EQ(TextOf(edit), L"secret");
    EXPECT_EQ(SendMessageW(edit, EM_GETPASSWORDCHAR, 0, 0), '*');
    SendMessageW(edit, EM_SETPASSWORDCHAR, 0, 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETPASSWORDCHAR, 0, 0), 0);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWL_STYLE) & ES_PASSWORD, 0);
    SendMessageW(edit, EM_SETPASSWORDCHAR, '#', 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETPASSWORDCHAR, 0, 0), '#');
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_PASSWORD, 0);
}

TEST_F(EditTest, ReadOnlyIsAStyleThatCanBeSwitched) {
    HWND edit = Create(L"Edit", kScrolling, L"abc");
    EXPECT_NE(SendMessageW(edit, EM_SETREADONLY, TRUE, 0), 0);
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY, 0);
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"abc");
    SendMessageW(edit, EM_SETREADONLY, FALSE, 0);
    Type(edit, L"x");
    EXPECT_EQ(TextOf(edit), L"xabc");
}

TEST_F(EditTest, FocusIsTold) {
    HWND edit = Create(L"Edit", kScrolling, L"abc");
    SetFocus(edit);
    EXPECT_EQ(TakeLog(), "SETFOCUS");
    EXPECT_EQ(SelectionOf(edit), "0-0");
    SetFocus(m_parent);
    EXPECT_EQ(TakeLog(), "KILLFOCUS");
}

TEST_F(EditTest, AsksTheDialogForItsKeys) {
    HWND single = Create(L"Edit", kScrolling);
    EXPECT_EQ(SendMessageW(single, WM_GETDLGCODE, 0, 0), DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS);
    HWND lines = Create(L"Edit", ES_MULTILINE);
    EXPECT_EQ(SendMessageW(lines, WM_GETDLGCODE, 0, 0),
              DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS);
}

TEST_F(EditTest, LinesAreCountedAndFound) {
    HWND edit = Create(L"Edit", ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL, L"one\r\ntwo\r\n\r\nfour", 300, 100);
    EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), 4);
    EXPECT_EQ(SendMessageW(edit, EM_LINEINDEX, 1, 0), 5);
    EXPECT_EQ(SendMessageW(edit, EM_LINEINDEX, 9, 0), -1);
    EXPECT_EQ(SendMessageW(edit, EM_LINEFROMCHAR, 6, 0), 1);
    EXPECT_EQ(SendMessageW(edit, EM_LINELENGTH, 12, 0), 4);
    wchar_t line[16] = {};
    line[0] = static_cast<wchar_t>(std::size(line));
    EXPECT_EQ(SendMessageW(edit, EM_GETLINE, 1, reinterpret_cast<LPARAM>(line)), 3);
    EXPECT_EQ(std::wstring(line, 3), L"two");
    SetWindowTextW(edit, L"");
    EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), 1);
}

TEST_F(EditTest, WindowTextIsCutToTheBuffer) {
    HWND edit = Create(L"Edit", kScrolling, L"abcdef");
    wchar_t buffer[4] = L"???";
    EXPECT_EQ(GetWindowTextW(edit, buffer, 4), 3);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0), 6);
    SendMessageW(edit, WM_SETTEXT, 0, 0);
    EXPECT_EQ(GetWindowTextLengthW(edit), 0);
}

TEST_F(EditTest, CreationTellsNothing) {
    HWND edit = CreateWindowExW(0, L"Edit", L"text", WS_CHILD | WS_VISIBLE | kScrolling, 0, 0, 100, 20, m_parent,
                                reinterpret_cast<HMENU>(UINT_PTR{kControlId}), GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(TextOf(edit), L"text");
    EXPECT_EQ(SelectionOf(edit), "0-0");
}
