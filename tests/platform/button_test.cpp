#include "tests/platform/control_fixture.h"

namespace {

class ButtonTest : public ControlTest {
protected:
    static int CheckOf(HWND button) { return Send(button, BM_GETCHECK); }
    static bool IsPushed(HWND button) { return (Send(button, BM_GETSTATE) & BST_PUSHED) != 0; }
};

struct ButtonCase {
    const char* name;
    DWORD style;
    int checks[3];           // after one, two, three clicks
    int setCheck;            // after the program's BST_INDETERMINATE
    const char* doubleTold;  // of a double click
    int dialogCode;
};

constexpr int kPush = DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
const ButtonCase kButtons[] = {
    {"push", BS_PUSHBUTTON, {0, 0, 0}, 0, "CLICKED", kPush},
    {"default push", BS_DEFPUSHBUTTON, {0, 0, 0}, 0, "CLICKED", DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
    {"push that tells all", BS_PUSHBUTTON | BS_NOTIFY, {0, 0, 0}, 0, "DOUBLECLICKED", kPush},
    {"automatic check box", BS_AUTOCHECKBOX, {1, 0, 1}, 1, "CLICKED", DLGC_BUTTON},
    {"automatic radio", BS_AUTORADIOBUTTON, {1, 1, 1}, 1, "CLICKED", DLGC_BUTTON | DLGC_RADIOBUTTON},
    {"owner-drawn", BS_OWNERDRAW, {0, 0, 0}, 0, "DOUBLECLICKED", DLGC_BUTTON},
};

}  // namespace

TEST_F(ButtonTest, EveryWayToClickActsAlike) {
    struct Way {
        const char* name;
        void (*click)(HWND);
    };
    const Way ways[] = {
        {"mouse", [](HWND button) { Click(button, 5, 5); }},
        {"space", [](HWND button) { Press(button, VK_SPACE); }},
        {"message", [](HWND button) { Send(button, BM_CLICK); }},
    };
    for (const ButtonCase& row : kButtons) {
        for (const Way& way : ways) {
            SCOPED_TRACE(std::string(row.name) + " by " + way.name);
            HWND button = Create(L"Button", row.style | WS_GROUP, L"button");
            SetFocus(button);
            TakeLog();
            for (int check : row.checks) {
                way.click(button);
                EXPECT_EQ(CheckOf(button), check);
                EXPECT_EQ(TakeLog(), "CLICKED");
                EXPECT_FALSE(IsPushed(button));
            }
            DestroyWindow(button);
        }
    }
}

TEST_F(ButtonTest, TypesDifferInChecksDoubleClicksAndWhatTheyTellTheDialog) {
    for (const ButtonCase& row : kButtons) {
        SCOPED_TRACE(row.name);
        HWND button = Create(L"Button", row.style, L"button");
        EXPECT_EQ(Send(button, WM_GETDLGCODE), row.dialogCode);
        SendMessageW(button, BM_SETCHECK, BST_INDETERMINATE, 0);
        EXPECT_EQ(CheckOf(button), row.setCheck) << "kept inside what the type knows";
        EXPECT_EQ(TakeLog(), "") << "the program's check is not told";
        SetFocus(button);
        TakeLog();
        SendMessageW(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_EQ(TakeLog(), row.doubleTold);
        DestroyWindow(button);
    }
    HWND button = Create(L"Button", BS_PUSHBUTTON, L"button");
    SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(Send(button, WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}

TEST_F(ButtonTest, MouseThatLeavesDoesNotClick) {
    HWND button = Create(L"Button", BS_AUTOCHECKBOX, L"button");
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(GetCapture(), button);
    EXPECT_TRUE(IsPushed(button));
    SendMessageW(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 5));
    EXPECT_FALSE(IsPushed(button));
    SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
    EXPECT_EQ(CheckOf(button), BST_UNCHECKED);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonTest, FocusIsToldToThoseWhoAsk) {
    HWND silent = Create(L"Button", BS_PUSHBUTTON, L"a", 80, 20, 101);
    HWND telling = Create(L"Button", BS_PUSHBUTTON | BS_NOTIFY, L"b", 80, 20, 102);
    SetFocus(silent);
    EXPECT_NE(Send(silent, BM_GETSTATE) & BST_FOCUS, 0);
    SetFocus(telling);
    SetFocus(silent);
    EXPECT_EQ(TakeLog(), "SETFOCUS KILLFOCUS");
}

TEST_F(ButtonTest, ParentMayEndTheButtonFromItsClick) {
    HWND button = Create(L"Button", BS_PUSHBUTTON, L"button");
    m_onCommand = [](HWND control) { DestroyWindow(control); };
    Click(button, 5, 5);
    EXPECT_FALSE(IsWindow(button));
    EXPECT_EQ(TakeLog(), "CLICKED");
}
