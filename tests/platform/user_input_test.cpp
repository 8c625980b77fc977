#include "platform/user.h"
#include "tests/platform/control_fixture.h"

namespace {

// A person at the controls, through the queue and the dialog's keyboard navigation.
class UserInputTest : public ControlTest {
protected:
    qv::User m_user{
        [this] { qv::PumpMessages([this](MSG& message) { return IsDialogMessageW(m_parent, &message) != FALSE; }); }};
};

}  // namespace

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
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND list = Create(row.className, row.style | WS_TABSTOP, L"", 100, 120);
        for (const wchar_t* text : {L"alpha", L"beta", L"gamma", L"bravo"})
            SendMessageW(list, row.add, 0, reinterpret_cast<LPARAM>(text));
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
