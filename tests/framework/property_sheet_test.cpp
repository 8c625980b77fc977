#include "framework/property_sheet.h"

#include <memory>

#include "tests/framework/test_windows.h"

namespace {

const Builder& PageLayout() {
    static const Builder layout =
        Builder(WS_CHILD | WS_DISABLED | WS_BORDER, 100, 60).Add(Builder::Edit, 10, WS_TABSTOP, L"", 5, 5);
    return layout;
}

class Page : public CPropertyPage {
public:
    Page(std::string& log, std::string name)
        : CPropertyPage(PageLayout().Bytes()), m_log(log), m_name(std::move(name)) {}
    bool OnInitDialog() override {
        m_log += m_name + "init;";
        return CPropertyPage::OnInitDialog();
    }
    bool OnSetActive() override {
        m_log += m_name + "set;";
        return !refuseSet;
    }
    bool OnKillActive() override {
        m_log += m_name + "kill;";
        return !refuseKill;
    }
    bool refuseSet = false;
    bool refuseKill = false;

private:
    std::string& m_log;
    std::string m_name;
};

class SheetOfPages : public testing::Test {
protected:
    SheetOfPages() : top(RECT{50, 50, 450, 350}), a(log, "a-"), b(log, "b-"), c(log, "c-") {}
    bool Create() {
        for (Page* page : {&a, &b, &c})
            sheet.AddPage(page);
        return sheet.Create(&top, WS_CHILD | WS_VISIBLE | WS_TABSTOP);
    }
    std::string Take() { return std::exchange(log, {}); }

    TopWindow top;
    std::string log;
    Page a;
    Page b;
    Page c;
    CPropertySheet sheet{L"sheet", &top, 0};
};

TEST_F(SheetOfPages, CreatesAPageWhenItIsFirstShown) {
    ASSERT_TRUE(Create());
    EXPECT_EQ(Take(), "a-init;a-set;");
    EXPECT_EQ(sheet.GetTabControl()->GetItemCount(), 3);
    EXPECT_EQ(sheet.GetTabControl()->GetItemText(2), L"");
    EXPECT_EQ(b.m_hWnd, nullptr);
    EXPECT_TRUE(sheet.SetActivePage(1));
    EXPECT_EQ(Take(), "a-kill;b-init;b-set;");
    EXPECT_TRUE(sheet.SetActivePage(0));
    EXPECT_EQ(Take(), "b-kill;a-set;") << "no second initialisation";
}

TEST_F(SheetOfPages, PagesComeOutOfTheirDisabledTemplateUsable) {
    ASSERT_TRUE(Create());
    EXPECT_TRUE(a.IsWindowEnabled());
    EXPECT_TRUE(a.IsWindowVisible());
    EXPECT_EQ(a.GetParent(), &sheet);
    EXPECT_NE(a.GetExStyle() & WS_EX_CONTROLPARENT, 0u);
    EXPECT_EQ(a.GetStyle() & WS_BORDER, 0u);
    // The page lies in the room that the tab row leaves.
    CRect tab;
    ASSERT_TRUE(sheet.GetTabControl()->GetItemRect(0, tab));
    CRect page = a.GetWindowRect();
    sheet.ScreenToClient(page);
    EXPECT_GE(page.top, tab.bottom);
    EXPECT_TRUE(qv::User::CanReach(a.GetDlgItem(10)->m_hWnd));
}

TEST_F(SheetOfPages, ARefusalKeepsThePageAndItsTab) {
    ASSERT_TRUE(Create());
    a.refuseKill = true;
    MakeUser().ChooseTab(sheet.GetTabControl()->m_hWnd, 1);
    EXPECT_FALSE(sheet.SetActivePage(2));
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
    EXPECT_EQ(sheet.GetTabControl()->GetCurSel(), 0);
    EXPECT_TRUE(a.IsWindowVisible());

    a.refuseKill = false;
    b.refuseSet = true;
    MakeUser().ChooseTab(sheet.GetTabControl()->m_hWnd, 1);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
    EXPECT_EQ(sheet.GetTabControl()->GetCurSel(), 0);
    EXPECT_TRUE(a.IsWindowVisible());
}

TEST_F(SheetOfPages, APageWithoutTemplateLeavesTheSheetAlive) {
    CPropertyPage missing(4711);
    sheet.AddPage(&missing);
    ASSERT_TRUE(Create());
    EXPECT_EQ(sheet.GetActivePage(), nullptr);
    EXPECT_TRUE(sheet.SetActivePage(1));
    EXPECT_FALSE(sheet.SetActivePage(0));
    EXPECT_EQ(sheet.GetActivePage(), &a);
    EXPECT_EQ(sheet.GetTabControl()->GetCurSel(), 1);
    EXPECT_FALSE(sheet.SetActivePage(-1));
    EXPECT_FALSE(sheet.SetActivePage(4));
}

TEST_F(SheetOfPages, UsesTheFontOfTheWindowItStandsIn) {
    auto* font = static_cast<HFONT>(::GetStockObject(ANSI_FIXED_FONT));
    class FontWindow : public TopWindow {
    public:
        HFONT font = nullptr;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_GETFONT) return reinterpret_cast<LRESULT>(font);
            return TopWindow::WindowProc(message, wParam, lParam);
        }
    } parent;
    parent.font = font;
    CPropertySheet other(L"", &parent, 0);
    ASSERT_TRUE(other.Create(nullptr, WS_VISIBLE));
    EXPECT_EQ(other.GetTabControl()->GetFont(), font);
    EXPECT_EQ(other.GetFont(), font);
}

TEST_F(SheetOfPages, SurvivesItsPagesAndTheySurviveIt) {
    auto extra = std::make_unique<Page>(log, "d-");
    {
        CPropertySheet shortLived(L"", &top, 0);
        shortLived.AddPage(extra.get());
        ASSERT_TRUE(shortLived.Create(&top, WS_VISIBLE));
    }
    EXPECT_EQ(extra->m_hWnd, nullptr);
    sheet.AddPage(extra.get());
    ASSERT_TRUE(Create());
    extra.reset();
    EXPECT_EQ(sheet.GetPageCount(), 3);
    EXPECT_EQ(sheet.GetTabControl()->GetItemCount(), 3);
    EXPECT_TRUE(sheet.SetActivePage(0));
}

}  // namespace
