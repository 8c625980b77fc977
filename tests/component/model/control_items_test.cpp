#include "base/text.h"
#include "tests/component/fake_control.h"
#include "tests/component/model/model_fixture.h"

namespace {

struct KindCase {
    const char* name;
    const wchar_t* type;
    SpecialControlKind kind;
    int controlType;
    int resizeMode;
    int minWidth, maxWidth, minHeight, maxHeight;
};

class ControlItem : public ModelTest, public ::testing::WithParamInterface<KindCase> {
protected:
    // The page's only control of the kind.
    SpecialControl* Control() {
        PageRecord* page = Page();
        if (page == nullptr || page->Controls(GetParam().kind).size() != 1) return nullptr;
        return page->Controls(GetParam().kind)[0].get();
    }
};

TEST_P(ControlItem, MakesAPlaceholderRowAndAControl) {
    const KindCase& c = GetParam();
    Define(L"common/other", {{L"type", L"0"}});
    Define(L"common/item", {{L"type", c.type}, {L"default", L""}, {L"globaldata", L"2"}, {L"ordernumber", L"3"}});
    const qv::LayoutRows::Column* row = Row(L"common/item");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, L"");
    EXPECT_EQ(row->dataType, 1);
    EXPECT_EQ(row->controlType, c.controlType);
    EXPECT_EQ(row->resizeMode, c.resizeMode);
    EXPECT_EQ(row->order, 3);
    EXPECT_EQ(std::make_pair(row->minWidth, row->maxWidth), std::make_pair(c.minWidth, c.maxWidth));
    EXPECT_EQ(std::make_pair(row->minHeight, row->maxHeight), std::make_pair(c.minHeight, c.maxHeight));

    EXPECT_EQ(Page()->ControlKinds(), std::vector{c.kind});
    ASSERT_NE(Control(), nullptr);
    EXPECT_EQ(Control()->GetLayoutCells(), (LayoutCells{{1, 0}}));
    std::wstring key;
    std::wstring name;
    EXPECT_TRUE(Control()->GetStorageKey(key, name));
    EXPECT_EQ(key + L'|' + name, L"common|item");
    EXPECT_TRUE(Control()->HasDefault());
    EXPECT_FALSE(Control()->IsReadOnly());
    EXPECT_EQ(*Page()->FindScope(L"common/item"), SDT_userDataDB);
    // The control keeps its default itself.
    EXPECT_EQ(DefaultOf(L"common/item"), nullptr);
    EXPECT_TRUE(boxes.empty());
}

TEST_P(ControlItem, IsReadOnlyWithoutTheRightAndHasNoDefaultOrPlaceItWasNotGiven) {
    m_rights->Refuse(L"Change settings/Machine data");
    m_session->Define(L"option-configuration/too/many/segments", L"type", GetParam().type);
    m_session->Define(L"option-configuration/too/many/segments", L"functiongroup", L"1");
    m_session->Define(L"option-configuration/too/many/segments", L"pagenumber", L"1");
    ASSERT_NE(Control(), nullptr);
    std::wstring key;
    std::wstring name;
    EXPECT_FALSE(Control()->GetStorageKey(key, name));
    EXPECT_TRUE(Control()->IsReadOnly());
    EXPECT_FALSE(Control()->HasDefault());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ControlItem,
    ::testing::Values(KindCase{"CheckedList", L"5", SpecialControlKind::CheckedList, 6, 4, 100, 200, 40, 200},
                      KindCase{"Password", L"6", SpecialControlKind::Password, 3, 2, 100, 200, 24, 24},
                      KindCase{"Path", L"7", SpecialControlKind::Path, 3, 2, 100, 200, 24, 24},
                      KindCase{"Colour", L"8", SpecialControlKind::Colour, 3, 1, 75, 75, 23, 23},
                      KindCase{"File", L"9", SpecialControlKind::File, 3, 2, 100, 200, 24, 24},
                      KindCase{"Button10", L"10", SpecialControlKind::Button, 3, 1, 100, 100, 23, 23},
                      KindCase{"Button13", L"13", SpecialControlKind::Button, 3, 1, 100, 100, 23, 23}),
    kCaseName);

TEST_F(ModelTest, KindsAreListedOnceInTheOrderTheyAppear) {
    Define(L"a/colour", {{L"type", L"8"}});
    Define(L"a/path", {{L"type", L"7"}});
    Define(L"b/colour", {{L"type", L"8"}});
    ASSERT_NE(Page(), nullptr);
    EXPECT_EQ(Page()->ControlKinds(), (std::vector{SpecialControlKind::Colour, SpecialControlKind::Path}));
    const auto& colours = Page()->Controls(SpecialControlKind::Colour);
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[1]->GetLayoutCells(), (LayoutCells{{2, 0}}));
}

// What the control is made from; blanks around do not count, nor does any number but 1.
TEST_F(ModelTest, ChoosersAreToldTheirLabelAndWhetherToCheckTheirPath) {
    m_makeControl = FakeControl::Make;
    Define(L"a/one", {{L"type", L"7"}, {L"checkpath", L" 1 "}, {L"label", L" Folder "}});
    Define(L"a/two", {{L"type", L"7"}, {L"checkpath", L"2"}});
    Define(L"a/file", {{L"type", L"9"}, {L"checkpath", L"1"}});
    Define(L"a/button", {{L"type", L"13"}, {L"checkpath", L"1"}, {L"label", L"Press"}});
    const auto made = [this](SpecialControlKind kind, std::size_t index) {
        return dynamic_cast<FakeControl&>(*Page()->Controls(kind).at(index)).item;
    };
    EXPECT_TRUE(made(SpecialControlKind::Path, 0).checkPath);
    EXPECT_EQ(made(SpecialControlKind::Path, 0).label, L"Folder");
    EXPECT_FALSE(made(SpecialControlKind::Path, 1).checkPath);
    EXPECT_TRUE(made(SpecialControlKind::File, 0).checkPath);
    EXPECT_FALSE(made(SpecialControlKind::Button, 0).checkPath);
    EXPECT_EQ(made(SpecialControlKind::Button, 0).caption, L"Press");
    EXPECT_EQ(made(SpecialControlKind::Button, 0).typeCode, 13);
}

TEST_F(ModelTest, AListEntryWithoutDataDropsTheCheckedList) {
    Define(L"common/list", {{L"type", L"5"}, {L"value1", L" |Alpha"}}, L"a");
    EXPECT_TRUE(Items().empty());
}

}  // namespace
