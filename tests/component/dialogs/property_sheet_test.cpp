// Which tabs appear, how the sheet measures itself, and what concerns all pages at once.
#include "framework/gdi.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"
#include "tests/component/fake_control.h"

using qv::SessionOperation;

namespace {

class Tabs : public WholeDialog {
protected:
    void ShowAndExpect(const std::vector<std::wstring>& titles) {
        InDialog([&] { EXPECT_EQ(driver.TabTitles(), titles); });
    }
};

TEST_F(Tabs, FollowPageNumbersAndLeaveOutPagesWithoutItems) {
    host.DefinePage(L"3", L"Three");
    host.DefinePage(L"10", L"Ten");
    host.DefinePage(L"2", L"Two");
    host.DefinePage(L"1", L"One");
    host.DefineItem(L"a/ten", 0, 10);
    host.DefineItem(L"a/three", 0, 3);
    host.DefineItem(L"a/one", 0, 1);
    host.DefineItem(L"a/nopage", 0, 7);
    ShowAndExpect({L"One", L"Three", L"Ten"});
}

TEST_F(Tabs, FirstOfTwoEntriesWithOneNumberGetsTheTab) {
    host.DefinePage(L"1", L"Second");
    host.DefinePage(L"01", L"First");  // before "1" in the order of names
    host.DefinePage(L"2", L"Next");
    host.DefineItem(L"a/one", 0, 1);
    host.DefineItem(L"a/two", 0, 2);
    ShowAndExpect({L"First", L"Next"});
}

TEST_F(Tabs, PagesWithoutAnyItemShowAnEmptyRow) {
    host.DefinePage(L"1", L"One");
    host.session->Define(L"option-configuration/a/b", L"label", L"no type, no item");
    XConstructionSet constructionSet = MakeModel();
    XDynPropertySheet sheet(L"", constructionSet, nullptr, 0);
    EXPECT_EQ(sheet.GetPageCount(), 0);
    EXPECT_TRUE(sheet.ValidateAndStore());
}

TEST_F(Tabs, SpecialControlsAreNumberedByKindFrom20000OnEveryPage) {
    host.DefinePage(L"1", L"One");
    host.DefinePage(L"2", L"Two");
    host.DefineItem(L"a/first", 6, 1);
    host.DefineItem(L"a/colour", 8, 1);
    host.DefineItem(L"a/second", 6, 1);
    host.DefineItem(L"a/other", 6, 2);
    InDialog([this] {
        ASSERT_NE(driver.Control(L"a/colour"), nullptr);
        EXPECT_EQ(driver.Control(L"a/first")->GetDlgCtrlID(), 20000);
        EXPECT_EQ(driver.Control(L"a/second")->GetDlgCtrlID(), 20001);
        EXPECT_EQ(driver.Control(L"a/colour")->GetDlgCtrlID(), 20002);
        EXPECT_EQ(driver.Control(L"a/other")->GetDlgCtrlID(), 20000);
    });
}

// Moving the selection of a checked list is no change; a check mark is.
TEST_F(Tabs, OnlyCheckMarksOfACheckedListAreChanges) {
    host.DefinePage(L"1", L"One");
    host.DefineItem(L"a/list", 5, 1, {{L"value1", L"a|Apple"}, {L"value2", L"b|Pear"}});
    InDialog([this] {
        EXPECT_TRUE(driver.FocusRow(L"a/list"));
        driver.PressKey(VK_DOWN);
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
        driver.PressKey(VK_SPACE);
        EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
    });
}

class TwoPages : public WholeDialog {
protected:
    TwoPages() {
        host.DefinePage(L"1", L"One");
        host.DefinePage(L"2", L"Two");
        for (const auto& [itemKey, page] : {std::pair{L"a/one", 1}, std::pair{L"a/two", 2}}) {
            host.DefineItem(itemKey, 1, page, {{L"default", L"1"}, {L"lowerbound", L"1"}, {L"upperbound", L"9"}});
        }
    }
};

TEST_F(TwoPages, OkStoresEveryPageInOrderAlsoTheOnesNeverLookedAt) {
    EXPECT_EQ(Show({[this] { driver.Press(IDOK); }}), IDOK);
    const auto writes = host.session->CallsOf(SessionOperation::WriteData);
    ASSERT_EQ(writes.size(), 2U);
    EXPECT_EQ(writes[0].name, L"one");
    EXPECT_EQ(writes[1].name, L"two");
}

TEST_F(TwoPages, SwitchingKeepsThePageInsideTheTabs) {
    InDialog([this] {
        const CRect first = driver.Sheet().GetActivePage()->GetWindowRect();
        EXPECT_TRUE(driver.SwitchPage(1));
        const CRect second = driver.Sheet().GetActivePage()->GetWindowRect();
        EXPECT_TRUE(::EqualRect(&first, &second));
        CTabCtrl& tab = *driver.Sheet().GetTabControl();
        const CRect tabs = tab.GetWindowRect();
        CRect item;
        ASSERT_TRUE(tab.GetItemRect(1, item));
        EXPECT_EQ(second.left, tabs.left + 5);
        EXPECT_EQ(second.top, tabs.top + tab.GetRowCount() * item.Height() + 5) << "below the titles";
        EXPECT_LE(second.right, tabs.right);
        EXPECT_LE(second.bottom, tabs.bottom);
    });
}

// A title is compared with the one before it only: of 120, 3 and 90 characters the 90 give the width.
TEST_F(Tabs, RequiredWidthAfterAResizeIsTheLastLengtheningTitles) {
    const std::wstring longest(120, L'm');
    const std::wstring chosen(90, L'm');
    host.DefinePage(L"1", longest);
    host.DefinePage(L"2", L"abc");
    host.DefinePage(L"3", chosen);
    host.DefineItem(L"a/one", 0, 1);
    host.DefineItem(L"a/two", 0, 2);
    host.DefineItem(L"a/three", 0, 3);
    InDialog([&] {
        CClientDC dc(Sheet());
        dc.SelectFont(Sheet().GetTabControl()->GetFont());
        EXPECT_EQ(Sheet().GetRequiredWidth(), dc.GetTextExtent(chosen).cx);
        EXPECT_LT(dc.GetTextExtent(chosen).cx, dc.GetTextExtent(longest).cx);
    });
}

// The height grows by the whole page, the width becomes the page's with its surroundings.
TEST_F(TwoPages, APageThatOutgrowsTheSheetIsAddedToTheHeightButSetsTheWidth) {
    XLayout::Group group(nullptr, 1, L"", false, nullptr, {}, L"", false, true);
    for (int i = 0; i < 100; ++i) {
        group.columns.push_back(std::make_unique<XLayout::Column>(L""));
        group.columns.back()->SetControlWidth(1500, 1500);
    }
    InDialog([&] {
        auto* page = DynamicDownCast<XDynPropertyPage>(Sheet().GetPage(1));
        ASSERT_NE(page, nullptr);
        const int before = Sheet().GetRequiredHeight();
        CRect item;
        ASSERT_TRUE(Sheet().GetTabControl()->GetItemRect(0, item));
        EXPECT_EQ(before, page->GetMinHeight() + item.Height() + 55) << "room for the tabs and around the page";
        page->GetLayout().InitLayoutManager(page, {&group});
        ASSERT_GT(page->GetMinHeight(), before);
        for (int asked = 0; asked < 2; ++asked) {
            EXPECT_EQ(Sheet().GetRequiredWidth(), page->GetMinWidth() + 75);
            EXPECT_EQ(Sheet().GetRequiredHeight(), before + page->GetMinHeight());
        }
    });
}

// A sheet that counts the notices of its page, and a page with a control that reports a change while it is being made.
class CountingSheet : public CPropertySheet {
public:
    using CPropertySheet::CPropertySheet;
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CPropertySheet::GetThisMessageMap(),
                                    {on::Message<&CountingSheet::OnModified>(WM_SETTINGS_MODIFIED)}};
        return &map;
    }
    int notices = 0;

private:
    LRESULT OnModified(WPARAM, LPARAM) {
        ++notices;
        return 0;
    }
};
class EagerPage : public XDynPropertyPage {
public:
    using XDynPropertyPage::XDynPropertyPage;
    void DoDataExchange(CDataExchange& exchange) override {
        XDynPropertyPage::DoDataExchange(exchange);
        SendMessage(WM_SETTINGS_MODIFIED);
    }
};

// Keeps the ids that the page gives out and makes no window.
class IdKeeper final : public FakeControl {
public:
    explicit IdKeeper(std::vector<UINT>& ids) : FakeControl({}), m_ids(ids) {}
    bool CreateOnPage(CWnd&, UINT id) override {
        m_ids.push_back(id);
        return false;
    }

private:
    std::vector<UINT>& m_ids;
};

// Ids are told in 16 bits: after the last one they would start over with those of OK and Cancel.
TEST_F(Tabs, SurplusSpecialControlsGetNoIdOfSomebodyElse) {
    CWnd top;
    top.CreateEx(0, nullptr, L"Top", WS_OVERLAPPEDWINDOW, RECT{0, 0, 400, 300}, nullptr, 0);
    {
        PageRecord record;
        std::vector<UINT> ids;
        for (int i = 0; i < 47000; ++i)
            record.AddControl(SpecialControlKind::Colour, std::make_unique<IdKeeper>(ids));
        CountingSheet sheet(L"", &top, 0);
        XDynPropertyPage page(record, L"Page", 0, sheet);
        sheet.AddPage(&page);
        EXPECT_TRUE(sheet.Create(&top, WS_CHILD));
        ASSERT_EQ(ids.size(), 10000U);
        EXPECT_EQ(ids.front(), 20000U);
        EXPECT_EQ(ids.back(), 29999U);
        sheet.DestroyWindow();
    }
    top.DestroyWindow();
}

// Notifications of a page that is not ready are no changes, a control's own notice is one at any time.
TEST_F(Tabs, AControlsOwnNoticeIsPassedOnWhileThePageIsStillBeingMade) {
    CWnd top;
    top.CreateEx(0, nullptr, L"Top", WS_OVERLAPPEDWINDOW, RECT{0, 0, 400, 300}, nullptr, 0);
    {
        PageRecord record;
        CountingSheet sheet(L"", &top, 0);
        EagerPage page(record, L"Page", 0, sheet);
        sheet.AddPage(&page);
        EXPECT_TRUE(sheet.Create(&top, WS_CHILD));
        EXPECT_GE(sheet.notices, 1);
        sheet.DestroyWindow();
    }
    top.DestroyWindow();
}

}  // namespace
