#include "framework/check_list_box.h"

#include "framework/gdi.h"
#include "tests/framework/test_windows.h"

namespace {

constexpr UINT kList = 300;

class CheckParent : public TopWindow {
public:
    int changes = 0;
    int turned = 0;
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{TopWindow::GetThisMessageMap(),
                                    {on::Control<&CheckParent::OnCheckChange>(CLBN_CHKCHANGE, kList),
                                     on::Message<&CheckParent::OnWheel>(WM_MOUSEWHEEL)}};
        return &map;
    }
    void OnCheckChange() { ++changes; }
    LRESULT OnWheel(WPARAM, LPARAM) {
        ++turned;
        return 0;
    }
};

class CheckListBox : public testing::Test {
protected:
    void Make(DWORD selectionStyle) {
        ASSERT_TRUE(list.Create(WS_VISIBLE | WS_TABSTOP | LBS_NOTIFY | LBS_SORT | LBS_NOINTEGRALHEIGHT | selectionStyle,
                                {0, 0, 200, 150}, &parent, kList));
        for (const wchar_t* text : {L"Delta", L"Alpha", L"Charlie", L"Bravo"})
            list.AddString(text);
    }
    [[nodiscard]] std::wstring Checked() const {
        std::wstring result;
        for (int i = 0; i < list.GetCount(); ++i) {
            if (list.GetCheck(i) == 1) result += list.GetText(i).front();
        }
        return result;
    }
    void ClickBox(int index) {
        const CRect item = list.GetItemRect(index);
        ASSERT_TRUE(MakeUser().ClickAt(list.m_hWnd, {item.left + 6, (item.top + item.bottom) / 2}));
    }
    void ClickText(int index) {
        const CRect item = list.GetItemRect(index);
        ASSERT_TRUE(MakeUser().ClickAt(list.m_hWnd, {item.left + 60, (item.top + item.bottom) / 2}));
    }

    CheckParent parent;
    CCheckListBox list;
    qv::User user = MakeUser();
};

TEST_F(CheckListBox, MarksStayWithTheirEntriesWhileTheListChanges) {
    Make(0);
    list.SetCheck(list.FindStringExact(-1, L"charlie"), 1);
    list.AddString(L"Baker");
    EXPECT_EQ(Checked(), L"C");
    list.SendMessage(LB_DELETESTRING, 0);
    EXPECT_EQ(Checked(), L"C");
    list.ResetContent();
    list.AddString(L"x");
    list.AddString(L"y");
    list.AddString(L"z");
    EXPECT_EQ(Checked(), L"");
    EXPECT_EQ(list.GetCheck(99), 0);
    EXPECT_EQ(parent.changes, 0) << "programs are not reported";
}

TEST_F(CheckListBox, SpaceAndTheBoxToggleAndAreReported) {
    Make(0);
    ASSERT_TRUE(user.Focus(list.m_hWnd));
    list.SetCurSel(1);
    user.Press(VK_SPACE);
    EXPECT_EQ(Checked(), L"B");
    EXPECT_EQ(parent.changes, 1);
    ClickBox(3);
    EXPECT_EQ(Checked(), L"BD");
    EXPECT_EQ(list.GetCurSel(), 3);
    EXPECT_EQ(parent.changes, 2);
    ClickText(0);
    EXPECT_EQ(Checked(), L"BD") << "the text only selects";
    EXPECT_EQ(parent.changes, 2);
    // Typing a blank does not look for an entry.
    user.Type(L" ");
    EXPECT_EQ(list.GetCurSel(), 0);
}

TEST_F(CheckListBox, ADoubleClickOnTheBoxTogglesTwice) {
    Make(0);
    const CRect item = list.GetItemRect(0);
    const LPARAM point = MAKELPARAM(item.left + 6, item.top + 4);
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
    list.SendMessage(WM_LBUTTONUP, 0, point);
    list.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    list.SendMessage(WM_LBUTTONUP, 0, point);
    EXPECT_EQ(Checked(), L"");
    EXPECT_EQ(parent.changes, 2);
}

TEST_F(CheckListBox, SelectedEntriesToggleTogether) {
    Make(LBS_EXTENDEDSEL | LBS_MULTIPLESEL);
    ASSERT_TRUE(user.Focus(list.m_hWnd));
    list.SetCheck(1, 1);
    list.SendMessage(LB_SETSEL, TRUE, 0);
    list.SendMessage(LB_SETSEL, TRUE, 1);
    list.SendMessage(LB_SETSEL, TRUE, 2);
    list.Enable(2, false);
    list.SendMessage(LB_SETCARETINDEX, 0, 0);
    user.Press(VK_SPACE);
    EXPECT_EQ(Checked(), L"AB") << "all as the caret's entry, except the disabled one";
    EXPECT_EQ(parent.changes, 1);
    ClickBox(1);
    EXPECT_EQ(Checked(), L"");
    EXPECT_GT(list.SendMessage(LB_GETSEL, 0), 0) << "a click on a selected entry's box keeps the selection";
    ClickBox(3);
    EXPECT_EQ(Checked(), L"D");
    EXPECT_EQ(list.SendMessage(LB_GETSEL, 0), 0);
}

TEST_F(CheckListBox, DisabledEntriesDoNotToggle) {
    Make(0);
    list.SetCheck(0, 1);
    list.Enable(0, false);
    ASSERT_TRUE(user.Focus(list.m_hWnd));
    list.SetCurSel(0);
    user.Press(VK_SPACE);
    ClickBox(0);
    EXPECT_EQ(Checked(), L"A");
    EXPECT_EQ(parent.changes, 0);
}

TEST_F(CheckListBox, LeavesTheWheelToItsParentWhereItCannotScroll) {
    Make(WS_VSCROLL);
    const auto turn = [this](int notches) {
        list.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(notches * WHEEL_DELTA)));
        return static_cast<int>(list.SendMessage(LB_GETTOPINDEX));
    };
    EXPECT_EQ(turn(-1), 0);
    EXPECT_EQ(parent.turned, 1) << "everything is seen";
    list.MoveWindow(0, 0, 200, list.GetItemRect(0).Height() + 6);
    EXPECT_GT(turn(-1), 0);
    EXPECT_EQ(parent.turned, 1) << "the list scrolls";
    turn(-1);
    turn(-1);
    const int turned = parent.turned;
    EXPECT_EQ(turn(-1), 3);
    EXPECT_EQ(parent.turned, turned + 1) << "at its end";
}

// In which colour an entry is written and on which, and what the list leaves free is filled with.
TEST_F(CheckListBox, IsGreyWhenNothingInItCanBeTicked) {
    Make(0);
    ASSERT_TRUE(user.Focus(list.m_hWnd));
    list.SetCurSel(0);
    const struct {
        const char* name;
        std::function<void()> prepare;
        bool grey;
        int entry, background, text;
    } cases[] = {
        {"enabled", [] {}, false, 1, COLOR_WINDOW, COLOR_WINDOWTEXT},
        {"an entry disabled", [this] { list.Enable(1, false); }, false, 1, COLOR_WINDOW, COLOR_GRAYTEXT},
        {"the selected one of several", [] {}, false, 0, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT},
        {"all entries disabled",
         [this] {
             for (int i = 0; i < list.GetCount(); ++i)
                 list.Enable(i, false);
         },
         true, 1, COLOR_3DFACE, COLOR_GRAYTEXT},
        {"the selected one of these", [] {}, true, 0, COLOR_3DFACE, COLOR_GRAYTEXT},
        {"one of them enabled again", [this] { list.Enable(3); }, false, 3, COLOR_WINDOW, COLOR_WINDOWTEXT},
        {"the list disabled", [this] { list.EnableWindow(false); }, true, 3, COLOR_3DFACE, COLOR_GRAYTEXT},
        {"and enabled", [this] { list.EnableWindow(true); }, false, 3, COLOR_WINDOW, COLOR_WINDOWTEXT},
        {"empty", [this] { list.ResetContent(); }, false, -1, COLOR_WINDOW, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ::UpdateWindow(list.m_hWnd);
        each.prepare();
        EXPECT_EQ(list.IsGrey(), each.grey);
        CClientDC dc(list);
        const LRESULT brush = parent.SendMessage(WM_CTLCOLORLISTBOX, reinterpret_cast<WPARAM>(dc.Get()),
                                                 reinterpret_cast<LPARAM>(list.m_hWnd));
        EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), ::GetSysColorBrush(each.grey ? COLOR_3DFACE : COLOR_WINDOW));

        ::UpdateWindow(list.m_hWnd);
        const CRect client = list.GetClientRect();
        const COLORREF rest = ::GetPixel(dc.Get(), client.right / 2, client.bottom - 3);
        if (rest == CLR_INVALID) continue;  // nothing is drawn on this desktop
        EXPECT_EQ(rest, ::GetSysColor(each.grey ? COLOR_3DFACE : COLOR_WINDOW));
        if (each.entry < 0) continue;
        const CRect entry = list.GetItemRect(each.entry);
        EXPECT_EQ(::GetPixel(dc.Get(), entry.right - 5, entry.top + 3), ::GetSysColor(each.background));
        int written = 0;
        for (int x = entry.left + 20; x < entry.right - 5; ++x) {
            for (int y = entry.top + 1; y < entry.bottom - 1; ++y)
                written += ::GetPixel(dc.Get(), x, y) == ::GetSysColor(each.text) ? 1 : 0;
        }
        EXPECT_GT(written, 5);
    }
}

TEST_F(CheckListBox, EntriesAreHighEnoughForBoxAndFont) {
    Make(0);
    const int before = list.GetItemRect(0).Height();
    EXPECT_GE(before, ::MulDiv(13, static_cast<int>(::GetDpiForWindow(list.m_hWnd)), 96));
    LOGFONTW description{};
    description.lfHeight = -40;
    HFONT font = ::CreateFontIndirectW(&description);
    list.SetFont(font, true);
    EXPECT_GE(list.GetItemRect(0).Height(), 40);
    ::DeleteObject(font);
}

}  // namespace
