#include "platform/user.h"
#include "tests/platform/control_fixture.h"

namespace {

// A person at the controls, through the queue and the dialog's keyboard navigation.
class UserInputTest : public ControlTest {
protected:
    int Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return static_cast<int>(SendMessageW(window, message, wParam, lParam));
    }
    HWND Fill(HWND list, UINT add) {
        for (const wchar_t* text : {L"alpha", L"beta", L"gamma", L"bravo"}) {
            SendMessageW(list, add, 0, reinterpret_cast<LPARAM>(text));
        }
        return list;
    }

    qv::User m_user{
        [this] { qv::PumpMessages([this](MSG& message) { return IsDialogMessageW(m_parent, &message) != FALSE; }); }};
};

}  // namespace

TEST_F(UserInputTest, TextIsTypedAndCorrected) {
    HWND edit = Create(L"Edit", ES_AUTOHSCROLL | WS_TABSTOP, L"old");
    ASSERT_TRUE(m_user.Focus(edit));
    m_user.Press(VK_END);
    m_user.Press(VK_HOME, {.shift = true});
    EXPECT_EQ(SelectionOf(edit), "0-3");
    m_user.Type(L"new!");
    m_user.Press(VK_BACK);
    EXPECT_EQ(TextOf(edit), L"new");
    TakeLog();
    SendMessageW(edit, EM_SETREADONLY, TRUE, 0);
    m_user.Type(L"x");
    EXPECT_EQ(TextOf(edit), L"new");
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(UserInputTest, EntriesAreChosenWithTheArrowKeys) {
    struct Case {
        const char* name;
        const wchar_t* className;
        DWORD style;
        UINT add;
        UINT current;
    };
    const Case cases[] = {
        {"list", L"ListBox", LBS_NOTIFY, LB_ADDSTRING, LB_GETCURSEL},
        {"drop-down list", L"ComboBox", CBS_DROPDOWNLIST, CB_ADDSTRING, CB_GETCURSEL},
        {"drop-down with edit", L"ComboBox", CBS_DROPDOWN | CBS_AUTOHSCROLL, CB_ADDSTRING, CB_GETCURSEL},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND list = Fill(Create(row.className, row.style | WS_TABSTOP, L"", 100, 120), row.add);
        for (int index : {2, 0, 3}) {
            TakeLog();
            EXPECT_TRUE(m_user.Choose(list, index));
            EXPECT_EQ(Send(list, row.current), index);
            EXPECT_NE(TakeLog().find("SELCHANGE"), std::string::npos);
        }
        EXPECT_FALSE(m_user.Choose(list, 4));
        EnableWindow(list, FALSE);
        EXPECT_FALSE(m_user.Choose(list, 1));
        DestroyWindow(list);
    }
}

TEST_F(UserInputTest, ButtonsAreClickedAndCheckedByMouseAndSpace) {
    HWND check = Create(L"Button", BS_AUTOCHECKBOX | WS_TABSTOP, L"check", 80, 20);
    EXPECT_TRUE(m_user.Click(check));
    EXPECT_EQ(Send(check, BM_GETCHECK), BST_CHECKED);
    m_user.Press(VK_SPACE);
    EXPECT_EQ(Send(check, BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(TakeLog(), "CLICKED CLICKED");
    ShowWindow(check, SW_HIDE);
    EXPECT_FALSE(m_user.Click(check));
}

TEST_F(UserInputTest, ArrowKeysCheckTheRadioButtonsOfAGroup) {
    HWND first = Create(L"Button", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, L"a", 80, 20, 101);
    HWND second = Create(L"Button", BS_AUTORADIOBUTTON, L"b", 80, 20, 102);
    Create(L"Button", BS_PUSHBUTTON | WS_GROUP | WS_TABSTOP, L"other", 80, 20, 103);
    m_user.Click(first);
    m_user.Press(VK_DOWN);
    EXPECT_EQ(GetFocus(), second);
    EXPECT_EQ(Send(second, BM_GETCHECK), BST_CHECKED);
    EXPECT_EQ(Send(first, BM_GETCHECK), BST_UNCHECKED);
    m_user.Press(VK_DOWN);
    EXPECT_EQ(GetFocus(), first) << "round in the group";
}

TEST_F(UserInputTest, TabKeyGoesThroughTheControlsAndSelectsText) {
    HWND edit = Create(L"Edit", ES_AUTOHSCROLL | WS_TABSTOP, L"text", 80, 20, 101);
    HWND combo = Create(L"ComboBox", CBS_DROPDOWN | WS_TABSTOP, L"", 80, 120, 102);
    HWND lines = Create(L"Edit", ES_MULTILINE | ES_WANTRETURN | WS_TABSTOP, L"", 80, 60, 103);
    HWND list = Create(L"ListBox", WS_TABSTOP, L"", 80, 60, 104);
    m_user.Focus(list);
    m_user.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(SelectionOf(edit), "0-4");
    m_user.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), GetWindow(combo, GW_CHILD));
    m_user.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), lines);
    m_user.Type(L"a");
    m_user.Press(VK_RETURN);
    m_user.Type(L"b");
    EXPECT_EQ(TextOf(lines), L"a\r\nb");
}

TEST_F(UserInputTest, OpenListTakesEscapeBeforeTheDialog) {
    HWND combo = Fill(Create(L"ComboBox", CBS_DROPDOWNLIST | WS_TABSTOP, L"", 100, 120), CB_ADDSTRING);
    m_user.Focus(combo);
    m_user.Press(VK_DOWN, {.alt = true});
    EXPECT_NE(Send(combo, CB_GETDROPPEDSTATE), 0);
    m_user.Press(VK_DOWN);
    TakeLog();
    m_user.Press(VK_ESCAPE);
    EXPECT_EQ(Send(combo, CB_GETDROPPEDSTATE), 0);
    EXPECT_EQ(TakeLog(), "SELENDCANCEL CLOSEUP") << "no command of the dialog's Cancel";
}

TEST_F(UserInputTest, TabsAreChosenByMouse) {
    HWND tabs = Create(WC_TABCONTROLW, WS_TABSTOP, L"", 300, 100);
    for (const wchar_t* title : {L"one", L"two", L"three"}) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(title);
        SendMessageW(tabs, TCM_INSERTITEMW, 99, reinterpret_cast<LPARAM>(&item));
    }
    EXPECT_TRUE(m_user.ChooseTab(tabs, 2));
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 2);
    EXPECT_EQ(TakeLog(), "SELCHANGING SELCHANGE CLICK");
    EXPECT_FALSE(m_user.ChooseTab(tabs, 3));
}
