// Pages that nobody has looked at: they have no windows for their rows, and nobody can tell by what the dialog does.
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

namespace {

class UnseenPages : public WholeDialog {
protected:
    UnseenPages() {
        host.DefinePage(L"1", L"One");
        host.DefinePage(L"2", L"Two");
        host.DefineItem(L"a/flag", 0, 1);
        host.DefineItem(L"b/flag", 0, 2, {{L"default", L"1"}});
        host.DefineItem(L"b/unit", 4, 2, {{L"value1", L"mm|Millimetre"}, {L"value2", L"cm|Centimetre"}});
    }
    [[nodiscard]] static bool HasWindows(std::size_t page) {
        return qv::LiveLayouts().at(page)->GetRows().at(0).prompt != nullptr;
    }
};

TEST_F(UnseenPages, GetTheirWindowsInTabOrderAndLeaveApplyGrey) {
    host.DefineItem(L"b/password", 6, 2, {{L"ordernumber", L"1"}});
    host.DefineItem(L"b/name", 3, 2, {{L"ordernumber", L"2"}});
    host.DefineItem(L"b/unit", {{L"ordernumber", L"3"}});
    InDialog([this] {
        EXPECT_TRUE(HasWindows(0));
        EXPECT_FALSE(HasWindows(1));
        EXPECT_TRUE(driver.SwitchPage(1));
        ASSERT_TRUE(HasWindows(1));
        EXPECT_TRUE(driver.FocusRow(L"b/flag"));
        for (const wchar_t* next : {L"b/password", L"b/name", L"b/unit"}) {
            EXPECT_TRUE(driver.PressKey(VK_TAB));
            EXPECT_TRUE(driver.HasFocus(driver.Control(next))) << next;
        }
        EXPECT_TRUE(driver.SwitchPage(0));
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
    });
}

TEST_F(UnseenPages, AreStoredAsTheyWereLoaded) {
    host.DefineItem(L"b/ratio", 2, 2);
    host.DefineItem(L"b/name", 3, 2);
    host.session->Put(SDT_userData, L"b", L"ratio", L"100000000000000000000");
    host.session->Put(SDT_userData, L"b", L"name", L"Anna");
    host.session->Put(SDT_userData, L"b", L"unit", L"inch");
    std::vector<std::wstring> stored[2];
    for (const bool seen : {false, true}) {
        InDialog(
            [&] {
                if (seen) driver.SwitchPage(1);
                EXPECT_EQ(HasWindows(1), seen);
            },
            IDOK);
        for (const wchar_t* item : {L"b/flag", L"b/name", L"b/unit", L"b/ratio"})
            stored[seen ? 1 : 0].push_back(host.Stored(item));
    }
    EXPECT_EQ(stored[0], stored[1]);
    EXPECT_EQ(stored[0][1], L"Anna");
    EXPECT_EQ(stored[0][2], L"") << "not among the entries";
}

TEST_F(UnseenPages, TakeTheirDefaultsUnseen) {
    host.DefineItem(L"b/name", 3, 2, {{L"default", L"Berta"}});
    host.session->Put(SDT_userData, L"b", L"name", L"Anna");
    InDialog([&] {
        EXPECT_TRUE(driver.Press(IDC_DEFAULT_BUTTON));
        EXPECT_EQ(driver.Shown(L"b/flag"), L"1");
        EXPECT_TRUE(driver.Press(IDC_APPLY_BUTTON));
        EXPECT_FALSE(HasWindows(1));
        EXPECT_EQ(host.Stored(L"b/name"), L"Berta");
        EXPECT_EQ(host.Stored(L"b/flag"), L"1");
        EXPECT_TRUE(driver.SwitchPage(1));
        EXPECT_EQ(driver.Shown(L"b/name"), L"Berta");
    });
}

TEST_F(UnseenPages, ComeToTheFrontWithTheInputThatIsRefused) {
    host.DefineItem(L"b/count", 1, 2, {{L"lowerbound", L"10"}, {L"upperbound", L"99"}, {L"default", L"5"}});
    host.session->Put(SDT_userData, L"b", L"count", L"12");
    InDialog([this] {
        EXPECT_TRUE(driver.Press(IDC_DEFAULT_BUTTON));
        EXPECT_TRUE(driver.Press(IDOK));
        ASSERT_EQ(driver.boxes.size(), 1U);
        EXPECT_EQ(driver.boxes[0].caption, L"count");
        EXPECT_EQ(Sheet().GetActiveIndex(), 1);
        EXPECT_TRUE(HasWindows(1));
        EXPECT_TRUE(driver.HasFocus(driver.Control(L"b/count")));
    });
    EXPECT_TRUE(host.session->CallsOf(qv::SessionOperation::WriteData).empty());
}

}  // namespace
