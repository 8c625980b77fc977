#include "tests/platform/control_fixture.h"

namespace {

class ButtonTest : public ControlTest {
protected:
    static LRESULT CheckOf(HWND button) { return SendMessageW(button, BM_GETCHECK, 0, 0); }
    static void PressSpace(HWND button) { Press(button, VK_SPACE); }
    static bool StopsTab(HWND button) { return (GetWindowLongPtrW(button, GWL_STYLE) & WS_TABSTOP) != 0; }
};

struct ClickCase {
    const char* name;
    DWORD style;
    LRESULT checks[3];  // after one, two, three clicks
    const char* told;
};

const ClickCase kClicks[] = {
    {"push", BS_PUSHBUTTON, {0, 0, 0}, "CLICKED"},
    {"default push", BS_DEFPUSHBUTTON, {0, 0, 0}, "CLICKED"},
    {"check box", BS_CHECKBOX, {0, 0, 0}, "CLICKED"},
    {"automatic check box", BS_AUTOCHECKBOX, {1, 0, 1}, "CLICKED"},
    {"three states", BS_3STATE, {0, 0, 0}, "CLICKED"},
    {"three states, automatic", BS_AUTO3STATE, {1, 2, 0}, "CLICKED"},
    {"radio", BS_RADIOBUTTON, {0, 0, 0}, "CLICKED"},
    {"automatic radio", BS_AUTORADIOBUTTON, {1, 1, 1}, "CLICKED"},
    {"owner-drawn", BS_OWNERDRAW, {0, 0, 0}, "CLICKED"},
    {"push that tells all", BS_PUSHBUTTON | BS_NOTIFY, {0, 0, 0}, "CLICKED"},
    {"check box that tells all", BS_AUTOCHECKBOX | BS_NOTIFY, {1, 0, 1}, "CLICKED"},
};

}  // namespace

TEST_F(ButtonTest, EveryWayToClickActsAlike) {
    struct Way {
        const char* name;
        void (*click)(HWND);
    };
    const Way ways[] = {
        {"mouse", [](HWND button) { Click(button, 5, 5); }},
        {"space", PressSpace},
        {"message", [](HWND button) { SendMessageW(button, BM_CLICK, 0, 0); }},
    };
    for (const ClickCase& row : kClicks) {
        for (const Way& way : ways) {
            SCOPED_TRACE(std::string(row.name) + " by " + way.name);
            HWND button = Create(L"Button", row.style | WS_GROUP, L"button");
            SetFocus(button);
            TakeLog();
            for (LRESULT check : row.checks) {
                way.click(button);
                EXPECT_EQ(CheckOf(button), check);
                EXPECT_EQ(TakeLog(), row.told);
                EXPECT_EQ(SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
            }
            DestroyWindow(button);
        }
    }
}

TEST_F(ButtonTest, MouseThatLeavesDoesNotClick) {
    HWND button = Create(L"Button", BS_AUTOCHECKBOX, L"button");
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(GetCapture(), button);
    EXPECT_NE(SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
    SendMessageW(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 5));
    EXPECT_EQ(SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
    SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
    EXPECT_EQ(CheckOf(button), BST_UNCHECKED);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonTest, CheckIsKeptInsideWhatTheTypeKnows) {
    struct Case {
        const char* name;
        DWORD style;
        WPARAM set;
        LRESULT check;
    };
    const Case cases[] = {
        {"check box", BS_AUTOCHECKBOX, BST_CHECKED, BST_CHECKED},
        {"check box knows no third state", BS_AUTOCHECKBOX, BST_INDETERMINATE, BST_CHECKED},
        {"third state", BS_AUTO3STATE, BST_INDETERMINATE, BST_INDETERMINATE},
        {"push buttons have no check", BS_PUSHBUTTON, BST_CHECKED, BST_UNCHECKED},
        {"owner-drawn buttons have no check", BS_OWNERDRAW, BST_CHECKED, BST_UNCHECKED},
        {"group boxes have no check", BS_GROUPBOX, BST_CHECKED, BST_UNCHECKED},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND button = Create(L"Button", row.style, L"button");
        SendMessageW(button, BM_SETCHECK, row.set, 0);
        EXPECT_EQ(CheckOf(button), row.check);
        EXPECT_EQ(TakeLog(), "") << "the program's check is not told";
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, RadioButtonsOfOneGroupExcludeEachOther) {
    const DWORD radio = BS_AUTORADIOBUTTON;
    HWND a = Create(L"Button", radio | WS_GROUP | WS_TABSTOP, L"a", 80, 20, 101);
    HWND b = Create(L"Button", radio, L"b", 80, 20, 102);
    HWND c = Create(L"Button", radio, L"c", 80, 20, 103);
    HWND other = Create(L"Button", radio | WS_GROUP, L"other group", 80, 20, 104);
    SendMessageW(other, BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(a, BM_SETCHECK, BST_CHECKED, 0);
    Click(b, 2, 2);
    EXPECT_EQ(CheckOf(a), BST_UNCHECKED);
    EXPECT_EQ(CheckOf(b), BST_CHECKED);
    EXPECT_EQ(CheckOf(c), BST_UNCHECKED);
    EXPECT_EQ(CheckOf(other), BST_CHECKED);
    EXPECT_FALSE(StopsTab(a));
    EXPECT_TRUE(StopsTab(b));
    SendMessageW(c, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(CheckOf(b), BST_CHECKED) << "the program's check leaves the others alone";
}

TEST_F(ButtonTest, FocusIsToldToThoseWhoAsk) {
    HWND silent = Create(L"Button", BS_PUSHBUTTON, L"a", 80, 20, 101);
    HWND telling = Create(L"Button", BS_PUSHBUTTON | BS_NOTIFY, L"b", 80, 20, 102);
    SetFocus(silent);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_NE(SendMessageW(silent, BM_GETSTATE, 0, 0) & BST_FOCUS, 0);
    SetFocus(telling);
    EXPECT_EQ(TakeLog(), "SETFOCUS");
    SetFocus(silent);
    EXPECT_EQ(TakeLog(), "KILLFOCUS");
}

TEST_F(ButtonTest, TellsTheDialogWhatItIs) {
    struct Case {
        DWORD style;
        LRESULT code;
    };
    const Case cases[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
        {BS_CHECKBOX, DLGC_BUTTON},
        {BS_AUTOCHECKBOX, DLGC_BUTTON},
        {BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_GROUPBOX, DLGC_STATIC},
        {BS_OWNERDRAW, DLGC_BUTTON},
    };
    for (const Case& row : cases) {
        HWND button = Create(L"Button", row.style, L"button");
        EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), row.code) << row.style;
        DestroyWindow(button);
    }
    HWND button = Create(L"Button", BS_PUSHBUTTON, L"button");
    SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}

TEST_F(ButtonTest, DoubleClicks) {
    struct Case {
        const char* name;
        DWORD style;
        const char* told;
    };
    const Case cases[] = {
        {"push", BS_PUSHBUTTON, "CLICKED"},
        {"push that tells all", BS_PUSHBUTTON | BS_NOTIFY, "DOUBLECLICKED"},
        {"owner-drawn", BS_OWNERDRAW, "DOUBLECLICKED"},
        {"radio", BS_RADIOBUTTON, "DOUBLECLICKED"},
        {"automatic check box", BS_AUTOCHECKBOX, "CLICKED"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND button = Create(L"Button", row.style, L"button");
        SetFocus(button);
        TakeLog();
        SendMessageW(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_EQ(TakeLog(), row.told);
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, ParentMayEndTheButtonFromItsClick) {
    HWND button = Create(L"Button", BS_PUSHBUTTON, L"button");
    m_onCommand = [](HWND control) { DestroyWindow(control); };
    Click(button, 5, 5);
    EXPECT_FALSE(IsWindow(button));
    EXPECT_EQ(TakeLog(), "CLICKED");
}
