#include "qvclient/qvsettingsdialog/controls/checked_list_box.h"

#include <memory>

#include "tests/component/controls/controls_fixture.h"

namespace {

class CheckedList : public ControlsTest {
protected:
    [[nodiscard]] std::vector<std::wstring> Texts() const {
        std::vector<std::wstring> texts;
        for (int i = 0; i < list->GetCount(); ++i)
            texts.push_back(list->GetText(i));
        return texts;
    }
    [[nodiscard]] std::vector<std::wstring> Ticked() const {
        std::vector<std::wstring> texts;
        for (int i = 0; i < list->GetCount(); ++i) {
            if (list->GetCheck(i) == 1) texts.push_back(list->GetText(i));
        }
        return texts;
    }

    std::unique_ptr<XDynCheckedListBox> list = std::make_unique<XDynCheckedListBox>();
};

using TextList = std::vector<std::wstring>;

TEST_F(CheckedList, IsCreatedAsASortedMultiSelectionList) {
    Show(*list);
    // The platform takes the scroll bar's style away while there is nothing to scroll.
    EXPECT_EQ((list->GetStyle() | WS_VSCROLL) & 0x10A1095BU, 0x10A1095BU);
    EXPECT_NE(list->GetStyle() & WS_CHILD, 0U);
    EXPECT_NE(list->GetExStyle() & WS_EX_CLIENTEDGE, 0U);
}

TEST_F(CheckedList, TicksByKeyAndStoresInDisplayOrder) {
    const struct {
        const char* name;
        std::map<std::wstring, std::wstring> entries;
        TextList keys;
        TextList ticked;
        std::wstring value;
    } cases[] = {
        {"display order, not key order",
         {{L"b", L"Alpha"}, {L"a", L"Beta"}},
         {L"a", L"b"},
         {L"Alpha", L"Beta"},
         L"b|a"},
        {"unknown keys vanish", {{L"a", L"Alpha"}, {L"b", L"Beta"}}, {L"x", L"b", L""}, {L"Beta"}, L"b"},
        {"keys compare with case", {{L"a", L"Alpha"}}, {L"A"}, {}, L""},
        {"nothing ticked", {{L"a", L"Alpha"}}, {L""}, {}, L""},
        {"an empty key can be ticked", {{L"", L"Alpha"}, {L"b", L"Beta"}}, {L"", L"b"}, {L"Alpha", L"Beta"}, L"|b"},
        // Deliberate: equal texts cannot be told apart; ticking and reading back land on the first.
        {"equal texts", {{L"a", L"Same"}, {L"b", L"Same"}}, {L"b"}, {L"Same"}, L"a"},
        {"equal texts, both keys", {{L"a", L"Same"}, {L"b", L"Same"}}, {L"a", L"b"}, {L"Same"}, L"a"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        list = std::make_unique<XDynCheckedListBox>();
        list->SetEntries(each.entries);
        list->SetInitValue(each.keys);
        Show(*list);
        EXPECT_EQ(list->GetCount(), static_cast<int>(each.entries.size()));
        EXPECT_EQ(Ticked(), each.ticked);
        EXPECT_EQ(list->GetValue(), each.value);
    }
    EXPECT_TRUE(boxes.empty());
}

// Deliberate: ticking ignores case, reading back does not.
TEST_F(CheckedList, TextsThatDifferInCaseAreOneForTickingAndTwoForReading) {
    list->SetEntries({{L"a", L"same"}, {L"b", L"SAME"}});
    list->SetInitValue({L"b"});
    Show(*list);
    ASSERT_EQ(list->GetCheck(0), 1);
    EXPECT_EQ(list->GetCheck(1), 0);
    EXPECT_EQ(list->GetValue(), list->GetText(0) == L"same" ? L"a" : L"b");
}

TEST_F(CheckedList, IndeterminateDoesNotCount) {
    list->SetEntries({{L"a", L"Alpha"}, {L"b", L"Beta"}});
    list->SetInitValue({L"a", L"b"});
    Show(*list);
    list->SetCheck(0, 2);
    EXPECT_EQ(list->GetValue(), L"b");
}

TEST_F(CheckedList, DefaultUnticksWhatIsNotInIt) {
    list->SetEntries({{L"a", L"Alpha"}, {L"b", L"Beta"}, {L"c", L"Gamma"}});
    list->SetInitValue({L"a", L"b"});
    list->SetDefaultValue({L"b", L"c"});
    Show(*list);
    list->ShowDefaultValue();
    EXPECT_EQ(list->GetValue(), L"b|c");
}

TEST_F(CheckedList, ReadOnlyShowsTicksOnDisabledEntries) {
    list->SetEntries({{L"a", L"Alpha"}, {L"b", L"Beta"}});
    list->SetInitValue({L"b"});
    list->SetReadOnly(true);
    Show(*list);
    EXPECT_FALSE(list->IsEnabled(0));
    EXPECT_FALSE(list->IsEnabled(1));
    EXPECT_EQ(Ticked(), TextList{L"Beta"});
    list->SetCurSel(0);
    list->SetFocus();
    list->SendMessage(WM_KEYDOWN, VK_SPACE, 1);
    list->SendMessage(WM_CHAR, VK_SPACE, 1);
    EXPECT_EQ(Ticked(), TextList{L"Beta"});
}

}  // namespace
