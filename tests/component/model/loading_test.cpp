#include "base/text.h"
#include "tests/component/model/model_fixture.h"

namespace {

using qv::SessionOperation;

Pairs Pages(const std::list<PageEntry>& pages) {
    Pairs result;
    for (const PageEntry& page : pages)
        result.emplace_back(qv::Format(L"%d", page.number), page.title);
    return result;
}

// --- construction ------------------------------------------------------------------------------------------------

TEST_F(ModelTest, ConstructionAsksForEveryRightAndLoadsBothScopes) {
    Model();
    EXPECT_EQ(m_rights->Asked(),
              (std::vector<std::wstring>{L"Change settings/User data", L"Change settings/Machine data",
                                         L"Change settings/User DB data", L"Change settings/Global data"}));
    const auto loads = m_session->CallsOf(SessionOperation::LoadData);
    ASSERT_EQ(loads.size(), 2U);
    EXPECT_EQ(loads[0].scope, SDT_machineData);
    EXPECT_EQ(loads[1].scope, SDT_userData);
}

TEST_F(ModelTest, AScopeThatCannotBeLoadedLeavesNothingToShowButBothAreAskedFor) {
    Define(L"common/flag", {{L"type", L"0"}});
    DefinePages({{L"1", L"General"}});
    for (const int failing : {1, 2}) {
        m_session->ClearCalls();
        m_session->FailNth(SessionOperation::LoadData, failing, S_FALSE);
        XConstructionSet model(kRoot, SDT_globalData, nullptr, m_session.Get(), m_rights.Get());
        EXPECT_EQ(m_session->CallsOf(SessionOperation::LoadData).size(), 2U) << failing;
        std::list<PageEntry> pages;
        std::map<std::int32_t, PageRecord*> items;
        std::wstring text;
        EXPECT_FALSE(model.HasSettings()) << failing;
        EXPECT_FALSE(model.LoadPages(pages)) << failing;
        EXPECT_FALSE(model.LoadItems(items)) << failing;
        EXPECT_FALSE(model.ReadString(L"option-configuration/common/flag", SDT_userData, text)) << failing;
    }
}

TEST_F(ModelTest, WithoutItsManagersItHasNothingAndGrantsNothing) {
    XConstructionSet model(kRoot, SDT_machineData, nullptr, nullptr, nullptr);
    EXPECT_FALSE(model.HasSettings());
    EXPECT_FALSE(model.HasRight(L"Change settings/User data"));
}

// --- pages -------------------------------------------------------------------------------------------------------

TEST_F(ModelTest, PagesAreSortedByNumberAndKeepTheirOrderWithinOne) {
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{L"General", L"Allgemein"}});
    DefinePages({{L"2", L"Files"}, {L"1", L"General"}, {L"01", L"Also one"}, {L"-3", L"First"}, {L"x", L"Zero"}});
    std::list<PageEntry> pages;
    EXPECT_TRUE(Model().HasSettings());
    EXPECT_TRUE(Model().LoadPages(pages));
    EXPECT_EQ(Pages(pages),
              (Pairs{{L"-3", L"First"}, {L"0", L"Zero"}, {L"1", L"Also one"}, {L"1", L"Allgemein"}, {L"2", L"Files"}}));
}

TEST_F(ModelTest, ThereAreSettingsOnlyWithAPagesKey) {
    Define(L"common/flag", {{L"type", L"0"}});
    EXPECT_FALSE(Model().HasSettings());
    m_session->Define(L"option-configuration/PAGES", L"1", L"General");
    EXPECT_TRUE(Model().HasSettings());
    // The key is asked for in small letters, whatever it was found as.
    EXPECT_EQ(m_session->CallsOf(SessionOperation::EnumValues).back().key, L"option-configuration/pages");
}

TEST_F(ModelTest, PagesThatCannotBeReadAreNoPagesButStillSettings) {
    DefinePages({{L"1", L"General"}});
    m_session->SetFault(
        [](const auto& call) { return call.operation == SessionOperation::EnumValues ? E_FAIL : S_OK; });
    std::list<PageEntry> pages;
    EXPECT_TRUE(Model().HasSettings());
    EXPECT_TRUE(Model().LoadPages(pages));
    EXPECT_TRUE(pages.empty());
}

TEST_F(ModelTest, EnumerationsThatFailOrAnswerNothingMeanNoSettings) {
    Define(L"common/flag", {{L"type", L"0"}});
    DefinePages({{L"1", L"General"}});
    std::list<PageEntry> pages;
    std::map<std::int32_t, PageRecord*> items;
    Model();

    m_session->FailNth(SessionOperation::EnumSubKeys, 1);
    EXPECT_FALSE(Model().HasSettings());
    m_session->FailNth(SessionOperation::EnumSubKeys, 2);
    EXPECT_FALSE(Model().HasSettings());
    m_session->FailNth(SessionOperation::EnumSubKeys, 1);
    EXPECT_FALSE(Model().LoadItems(items));
    m_session->AnswerNullBlockOnce(SessionOperation::EnumSubKeys);
    EXPECT_FALSE(Model().LoadItems(items));
    m_session->AnswerNullBlockOnce(SessionOperation::EnumSubKeys);
    EXPECT_FALSE(Model().LoadPages(pages));
    m_session->AnswerNullBlockOnce(SessionOperation::EnumValues);
    EXPECT_FALSE(Model().LoadPages(pages));
    EXPECT_TRUE(Model().LoadPages(pages));
}

TEST_F(ModelTest, AnOptionKeyWithCapitalsNeverFindsItsPages) {
    m_session->Define(L"Options/pages", L"1", L"General");
    m_session->Define(L"Options/common/flag", L"type", L"0");
    XConstructionSet model(L"Options", SDT_machineData, nullptr, m_session.Get(), m_rights.Get());
    EXPECT_FALSE(model.HasSettings());
    std::map<std::int32_t, PageRecord*> items;
    EXPECT_TRUE(model.LoadItems(items));
}

TEST_F(ModelTest, AnOptionKeyOfTwoSegmentsFindsItsPagesButNoItemKeys) {
    m_session->Define(L"app/options/pages", L"1", L"General");
    m_session->Define(L"app/options/common/flag", L"type", L"0");
    m_session->Define(L"app/options/common/flag", L"globaldata", L"0");
    m_session->Put(SDT_userData, L"common", L"flag", L"1");
    XConstructionSet model(L"app/options", SDT_machineData, nullptr, m_session.Get(), m_rights.Get());
    EXPECT_TRUE(model.HasSettings());
    std::map<std::int32_t, PageRecord*> items;
    EXPECT_TRUE(model.LoadItems(items));
    ASSERT_EQ(items.size(), 1U);
    const auto& row = *items.begin()->second->Groups()[0]->columns[0];
    EXPECT_EQ(row.name, L"");
    EXPECT_EQ(row.value, L"");
    EXPECT_TRUE(m_session->CallsOf(SessionOperation::ReadData).empty());
}

// --- items -------------------------------------------------------------------------------------------------------

TEST_F(ModelTest, TheTreeIsAlwaysReadInTheControlPath) {
    m_controlPath = SDT_UserSpec2;
    DefinePages({{L"1", L"General"}});
    Define(L"common/flag", {{L"type", L"0"}});
    EXPECT_TRUE(Model().HasSettings());
    Items();
    for (const auto& call : m_session->Calls()) {
        const bool enumerates =
            call.operation == SessionOperation::EnumSubKeys || call.operation == SessionOperation::EnumValues;
        if (enumerates) {
            EXPECT_EQ(call.scope, SDT_UserSpec2);
        }
    }
    const auto enumerations = m_session->CallsOf(SessionOperation::EnumSubKeys);
    ASSERT_EQ(enumerations.size(), 3U);
    EXPECT_EQ(enumerations[0].flag, 0);
    EXPECT_EQ(enumerations[2].flag, 1);
}

struct TypeCase {
    const char* name;
    const wchar_t* attribute;
    const wchar_t* text;
    int dataType;  // 0: no row
    int controlType;
};

class ItemType : public ModelTest, public ::testing::WithParamInterface<TypeCase> {};

TEST_P(ItemType, DecidesTheRow) {
    const TypeCase& c = GetParam();
    Define(L"common/item", {{c.attribute, c.text}});
    const qv::LayoutRows::Column* row = Row(L"common/item");
    ASSERT_EQ(row != nullptr, c.dataType != 0);
    if (row == nullptr) return;
    EXPECT_EQ(row->dataType, c.dataType);
    EXPECT_EQ(row->controlType, c.controlType);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ItemType,
    ::testing::Values(TypeCase{"NoNumberIsACheckBox", L"type", L"check", 4, 4}, TypeCase{"Empty", L"type", L"", 4, 4},
                      TypeCase{"LeadingBlanks", L"type", L"  3 text", 1, 3}, TypeCase{"Capitals", L"TyPe", L"1", 3, 3},
                      TypeCase{"BlankBeforeTheName", L" type", L"1", 0, 0}, TypeCase{"Unknown", L"type", L"15", 0, 0},
                      TypeCase{"Negative", L"type", L"-1", 0, 0},
                      TypeCase{"Huge", L"type", L"99999999999999999999", 0, 0},
                      TypeCase{"Absent", L"kind", L"1", 0, 0}),
    kCaseName);

struct CommonCase {
    const char* name;
    Pairs attributes;
    std::wstring shown;
    bool disabled;
    SESSIONDATATYPE scope;
};

class CommonAttributes : public ModelTest, public ::testing::WithParamInterface<CommonCase> {};

TEST_P(CommonAttributes, DecideValueStateAndScope) {
    const CommonCase& c = GetParam();
    m_rights->Refuse(L"Change settings/Global data");
    m_session->Put(SDT_userData, L"common", L"item", L"user");
    m_session->Put(SDT_machineData, L"common", L"item", L"machine");
    m_session->Put(SDT_userDataDB, L"common", L"item", L"database");
    m_session->Put(SDT_globalData, L"common", L"item", L"global");
    Pairs attributes = c.attributes;
    attributes.emplace_back(L"type", L"3");
    Define(L"common/item", attributes);
    const qv::LayoutRows::Column* row = Row(L"common/item");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, c.shown);
    EXPECT_EQ(row->disabled, c.disabled);
    ASSERT_NE(Page()->FindScope(L"common/item"), nullptr);
    EXPECT_EQ(*Page()->FindScope(L"common/item"), c.scope);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CommonAttributes,
    ::testing::Values(
        CommonCase{"WithoutScopeNothingIsRead", {{L"default", L"d"}}, L"d", false, SDT_userData},
        CommonCase{"User", {{L"default", L"d"}, {L"globaldata", L"0"}}, L"user", false, SDT_userData},
        CommonCase{"Machine", {{L"globaldata", L" 1x "}}, L"machine", false, SDT_machineData},
        CommonCase{"Database", {{L"globaldata", L"2"}}, L"database", false, SDT_userDataDB},
        CommonCase{"Global", {{L"globaldata", L"3"}}, L"global", false, SDT_globalData},
        CommonCase{"NoNumberIsUser", {{L"globaldata", L"none"}}, L"user", false, SDT_userData},
        CommonCase{"UnknownScopeReadsNothing", {{L"default", L"d"}, {L"globaldata", L"5"}}, L"d", false, SDT_userData},
        CommonCase{"UnknownScopeKeepsTheOneBefore",
                   {{L" globaldata", L"1"}, {L"globaldata", L"4"}},
                   L"machine",
                   false,
                   SDT_machineData},
        // "default" sorts before "globaldata" in small letters and after it in this spelling.
        CommonCase{
            "StoredWinsOverALaterDefault", {{L"Globaldata", L"0"}, {L"default", L"d"}}, L"user", false, SDT_userData},
        CommonCase{"BlanksAroundNames", {{L" Default\t", L"  d  "}}, L"d", false, SDT_userData},
        CommonCase{"RefusedRightDisables", {{L"functiongroup", L"3"}}, L"", true, SDT_userData},
        CommonCase{"GrantedRight", {{L"functiongroup", L"1"}}, L"", false, SDT_userData},
        CommonCase{"UnknownGroupStaysEnabled", {{L"functiongroup", L"4"}}, L"", false, SDT_userData},
        CommonCase{"NegativeGroupStaysEnabled", {{L"functiongroup", L"-1"}}, L"", false, SDT_userData}),
    kCaseName);

TEST_F(ModelTest, RowsStandInLoadingOrderInTheOneGroupOfTheirPage) {
    Define(L"b/second", {{L"type", L"0"}, {L"pagenumber", L"2"}, {L"ordernumber", L"-7"}});
    Define(L"a/first", {{L"type", L"0"}, {L"pagenumber", L" 1"}, {L"ordernumber", L"x"}});
    Define(L"a/third", {{L"type", L"3"}, {L"pagenumber", L"2"}, {L"ordernumber", L"3"}});
    ASSERT_EQ(Items().size(), 2U);
    EXPECT_EQ(Items().begin()->first, 1);
    const auto groups = Page(2)->Groups();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0]->number, 1);
    ASSERT_EQ(groups[0]->columns.size(), 2U);
    EXPECT_EQ(groups[0]->columns[0]->name, L"b/second");
    EXPECT_EQ(groups[0]->columns[0]->order, -7);
    EXPECT_EQ(groups[0]->columns[1]->name, L"a/third");
    EXPECT_EQ(Row(L"a/first")->order, 0);
}

TEST_F(ModelTest, ADefinitionThatCannotBeReadIsPassedOver) {
    Define(L"common/a", {{L"type", L"0"}});
    Define(L"common/b", {{L"type", L"0"}});
    Model();
    m_session->FailNth(SessionOperation::EnumValues, 1);
    EXPECT_EQ(Row(L"common/a"), nullptr);
    EXPECT_NE(Row(L"common/b"), nullptr);
}

TEST_F(ModelTest, ADefinitionWithoutValuesEndsTheLoading) {
    for (const auto* key : {L"common/a", L"common/b", L"common/c"})
        Define(key, {{L"type", L"0"}});
    Model();
    int call = 0;
    m_session->SetFault([&](const qv::SessionCall& made) {
        if (made.operation == SessionOperation::EnumValues && ++call == 2) {
            m_session->AnswerNullBlockOnce(SessionOperation::EnumValues);
        }
        return S_OK;
    });
    std::map<std::int32_t, PageRecord*> items;
    EXPECT_FALSE(Model().LoadItems(items));
    EXPECT_TRUE(items.empty());
    // The item before it stays in the model.
    m_session->SetFault({});
    EXPECT_TRUE(Model().LoadItems(items));
    EXPECT_EQ(items.at(1)->Groups()[0]->columns.size(), 4U);
}

TEST_F(ModelTest, ARefusedReadKeepsTheDefault) {
    Define(L"common/text", {{L"type", L"3"}, {L"default", L"d"}}, L"stored");
    m_session->FailNth(SessionOperation::ReadData, 1, S_FALSE);
    ASSERT_NE(Row(L"common/text"), nullptr);
    EXPECT_EQ(Row(L"common/text")->value, L"d");
}

// --- a host that answers oddly -----------------------------------------------------------------------------------

// Answers exactly what the test says, null strings and all.
class OddSessionData final : public qv::SessionDataBase {
public:
    std::vector<std::optional<std::wstring>> names;
    std::vector<std::optional<std::wstring>> pairs;
    VARTYPE valueType = VT_BSTR;
    std::optional<std::wstring> value;

    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR, LONG, ULONG* count, BSTR** block, SESSIONDATATYPE) override {
        *count = static_cast<ULONG>(names.size());
        *block = Block(names);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR, ULONG* count, BSTR** block, SESSIONDATATYPE) override {
        *count = static_cast<ULONG>(pairs.size() / 2);
        *block = Block(pairs);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR, USHORT, VARIANT* result, SESSIONDATATYPE) override {
        result->vt = valueType;
        if (valueType == VT_BSTR) result->bstrVal = Text(value);
        if (valueType == VT_I4) result->lVal = 42;
        return S_OK;
    }

private:
    static BSTR Text(const std::optional<std::wstring>& text) {
        return text ? SysAllocStringLen(text->data(), static_cast<UINT>(text->size())) : nullptr;
    }
    static BSTR* Block(const std::vector<std::optional<std::wstring>>& texts) {
        auto* block = static_cast<BSTR*>(CoTaskMemAlloc(texts.size() * sizeof(BSTR) + 1));
        for (std::size_t i = 0; i < texts.size(); ++i)
            block[i] = Text(texts[i]);
        return block;
    }
};

class OddHost : public ModelTest {
protected:
    // The first row that the definitions make; null when they make none.
    const qv::LayoutRows::Column* FirstRow() {
        m_model = std::make_unique<XConstructionSet>(kRoot, SDT_machineData, nullptr, m_odd.Get(), m_rights.Get());
        std::map<std::int32_t, PageRecord*> items;
        m_loaded = m_model->LoadItems(items);
        return items.empty() ? nullptr : items.begin()->second->Groups()[0]->columns[0].get();
    }

    qv::ComPtr<OddSessionData> m_odd{new OddSessionData};
    std::unique_ptr<XConstructionSet> m_model;
    bool m_loaded = false;
};

TEST_F(OddHost, AttributesAreVisitedInNameOrderAndTheFirstOfOneNameCounts) {
    m_odd->names = {L"root/common/item"};
    m_odd->pairs = {L"value2", L"b|B", L"type", L"4", L"value1", L"a|A", L"value1", L"c|C", L"label", L"L"};
    const qv::LayoutRows::Column* row = FirstRow();
    ASSERT_NE(row, nullptr);
    ASSERT_EQ(row->items.size(), 2U);
    EXPECT_EQ(row->items[0].data, L"a");
    EXPECT_EQ(row->items[1].data, L"b");
}

TEST_F(OddHost, EveryTypeAttributeMakesARow) {
    m_odd->names = {L"root/common/item"};
    m_odd->pairs = {L"Type", L"0", L"type", L"3"};
    ASSERT_NE(FirstRow(), nullptr);
    std::map<std::int32_t, PageRecord*> items;
    EXPECT_TRUE(m_model->LoadItems(items));
    EXPECT_EQ(items.at(0)->Groups()[0]->columns.size(), 4U);  // two for each walk
}

TEST_F(OddHost, NullStringsCountAsEmptyTexts) {
    m_odd->names = {std::nullopt, L"root/common/item"};
    m_odd->pairs = {std::nullopt, std::nullopt, L"default", L"d", L"globaldata", std::nullopt, L"type", L"3"};
    const qv::LayoutRows::Column* row = FirstRow();
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(m_loaded);
    EXPECT_EQ(row->name, L"");
    EXPECT_EQ(row->value, L"d");
}

TEST_F(OddHost, AValueThatIsNoTextIsAFailedReadAndANullTextAnEmptyOne) {
    struct {
        VARTYPE type;
        std::optional<std::wstring> value;
        const wchar_t* shown;
    } const cases[] = {{VT_BSTR, L"stored", L"stored"},
                       {VT_BSTR, std::nullopt, L""},
                       {VT_I4, {}, L"d"},
                       {VT_EMPTY, {}, L"d"},
                       {VT_NULL, {}, L"d"}};
    m_odd->names = {L"root/common/item"};
    m_odd->pairs = {L"default", L"d", L"globaldata", L"0", L"type", L"3"};
    for (const auto& c : cases) {
        m_odd->valueType = c.type;
        m_odd->value = c.value;
        const qv::LayoutRows::Column* row = FirstRow();
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->value, c.shown) << c.type;
    }
}

}  // namespace
