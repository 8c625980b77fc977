#include "tests/component/model/model_fixture.h"

namespace {

class UnitItem : public ModelTest {
protected:
    UnitItem() {
        auto database = std::make_unique<XUAAdmin>();
        database->AddCategory(XUACategory(L"length", {L"mm", std::nullopt, L"inch"}));
        database->AddCategory(XUACategory(L" padded ", {L"x"}));
        qv::SetUnitDatabase(std::move(database));
    }

private:
    qvtest::ScopedUnits m_units{nullptr};
    qvtest::Scoped<&qv::SetUnitDictionary> m_names{nullptr};
};

TEST_F(UnitItem, OffersTheCategorysUnitsCountingEmptyPlaces) {
    Define(L"common/unit", {{L"type", L"14"}, {L"unitcategory", L"length"}, {L"default", L"mm"}}, L"inch");
    const qv::LayoutRows::Column* row = Row(L"common/unit");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->dataType, 1);
    EXPECT_EQ(row->controlType, 2);
    EXPECT_EQ(row->value, L"inch");
    ASSERT_EQ(row->items.size(), 2U);
    EXPECT_EQ(row->items[0].data, L"mm");
    EXPECT_EQ(row->items[0].index, 0);
    EXPECT_EQ(row->items[1].data, L"inch");
    EXPECT_EQ(row->items[1].index, 2);
    EXPECT_EQ(*DefaultOf(L"common/unit"), L"mm");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(UnitItem, BlanksBelongToTheCategorysNameButNotToItsDefault) {
    Define(L"common/unit", {{L"type", L"14"}, {L"unitcategory", L" padded "}, {L" Default", L" x "}});
    Define(L"common/blank", {{L"type", L"14"}, {L" unitcategory", L"length"}});
    ASSERT_NE(Row(L"common/unit"), nullptr);
    EXPECT_EQ(Row(L"common/unit")->value, L"x");
    // A blank makes it another attribute, so this one names no category.
    EXPECT_EQ(Row(L"common/blank"), nullptr);
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(UnitItem, ShowsTranslatedNamesAndComparesTheRealOnes) {
    qv::SetUnitDictionary(
        std::make_unique<XLMTranslDict>(std::map<std::wstring, std::wstring, std::less<>>{{L"inch", L"Zoll"}}));
    Define(L"common/real", {{L"type", L"14"}, {L"unitcategory", L"length"}}, L"inch");
    Define(L"common/shown", {{L"type", L"14"}, {L"unitcategory", L"length"}}, L"Zoll");
    ASSERT_NE(Row(L"common/real"), nullptr);
    EXPECT_EQ(Row(L"common/real")->value, L"inch");
    EXPECT_EQ(Row(L"common/real")->items[1].text, L"Zoll");
    EXPECT_EQ(Row(L"common/shown")->value, L"");
}

TEST_F(UnitItem, IsLeftOutWithAnErrorWhenItsUnitsAreUnknown) {
    struct {
        const char* name;
        bool database;
        Pairs attributes;
        const wchar_t* message;
        const wchar_t* number;
    } const cases[] = {
        {"no category named", true, {}, L"Kategorie fehlt", L"2548"},
        {"unknown category", true, {{L"unitcategory", L"weight"}}, L"Kategorie fehlt", L"2548"},
        {"blanks belong to the category's name", true, {{L"unitcategory", L"padded"}}, L"Kategorie fehlt", L"2548"},
        {"no database", false, {{L"unitcategory", L"length"}}, L"Datenbank fehlt", L"2537"},
    };
    const qvtest::ScopedDictionary dictionary(
        {{L"No unit-database!", L"Datenbank fehlt"}, {L"Unit category not found!", L"Kategorie fehlt"}});
    int number = 0;
    for (const auto& c : cases) {
        if (!c.database) qv::SetUnitDatabase(nullptr);
        boxes.clear();
        auto session = qv::MemorySessionData::Create();
        const std::wstring path = std::wstring(kRoot) + L"/common/unit" + std::to_wstring(++number);
        session->Define(path, L"type", L"14");
        for (const auto& [attribute, text] : c.attributes)
            session->Define(path, attribute, text);
        XConstructionSet model(kRoot, SDT_machineData, nullptr, session.Get(), m_rights.Get());
        std::map<std::int32_t, PageRecord*> items;
        EXPECT_TRUE(model.LoadItems(items)) << c.name;
        EXPECT_TRUE(items.empty()) << c.name;
        ASSERT_EQ(boxes.size(), 1U) << c.name;
        EXPECT_EQ(boxes[0].kind, qv::MessageBoxCall::Kind::Error) << c.name;
        for (const std::wstring part : {c.message, c.number, L"XConstructionSet::DrawUnitComboBox"}) {
            EXPECT_NE(boxes[0].text.find(part), std::wstring::npos) << c.name << ": " << boxes[0].text.size();
        }
    }
}

}  // namespace
