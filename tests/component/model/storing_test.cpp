#include "tests/component/model/page_fixture.h"

namespace {

using Texts = std::vector<std::wstring>;

struct StoreCase {
    const char* name;
    const wchar_t* itemKey;
    Pairs attributes;
    const wchar_t* entered;
    const wchar_t* stored;
    qv::NumberLocale locale;
};

const qv::NumberLocale kPoint{true, L".", L","};
const qv::NumberLocale kComma{true, L",", L"."};
const qv::NumberLocale kUnknown{false, L".", L","};

class StoredRow : public PageTest, public ::testing::WithParamInterface<StoreCase> {};

TEST_P(StoredRow, IsWrittenAsTextAndSaved) {
    const StoreCase& c = GetParam();
    Define(c.itemKey, c.attributes);
    Shown().Enter(c.itemKey, c.entered);
    const qvtest::ScopedNumberLocale locale(c.locale);
    EXPECT_TRUE(Store());
    const auto place = std::wstring(c.itemKey);
    EXPECT_EQ(Written(), Texts{L"4 " + place + L"=" + c.stored});
    EXPECT_EQ(m_session->CallsOf(qv::SessionOperation::SaveData).size(), 1U);
    EXPECT_TRUE(boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StoredRow,
    ::testing::Values(
        StoreCase{"LocalComma", L"common/real", {{L"type", L"2"}}, L"2,5", L"2.5", kComma},
        StoreCase{"ForeignCommaStays", L"common/real", {{L"type", L"2"}}, L"2,5", L"2,5", kPoint},
        StoreCase{"UnknownLocaleTurnsEveryComma", L"common/real", {{L"type", L"2"}}, L"1,2,5", L"1.2.5", kUnknown},
        StoreCase{"TextKeepsItsComma", L"common/text", {{L"type", L"3"}}, L"2,5", L"2,5", kComma},
        StoreCase{"ListDataLosesItsComma",
                  L"common/list",
                  {{L"type", L"4"}, {L"value1", L"2,5|Two and a half"}},
                  L"2,5",
                  L"2.5",
                  kComma},
        StoreCase{"CheckBox", L"common/flag", {{L"type", L"0"}, {L"default", L"0"}}, L"1", L"1", kPoint},
        StoreCase{"Integer", L"common/number", {{L"type", L"1"}}, L"12", L"12", kPoint},
        StoreCase{"EmptyNumberOfRecentItems", L"common/numberofrecentitems", {{L"type", L"1"}}, L"", L"0", kPoint},
        StoreCase{"OtherEmptyNumber", L"common/NumberOfRecentItems", {{L"type", L"1"}}, L"", L"", kPoint}),
    kCaseName);

TEST_F(PageTest, RowsComeFirstInTheirOrderThenControlsByKind) {
    Define(L"a/colour", {{L"type", L"8"}}, L"255");
    Define(L"a/later", {{L"type", L"3"}, {L"ordernumber", L"2"}, {L"globaldata", L"3"}, {L"default", L"x"}});
    Define(L"a/list", {{L"type", L"5"}, {L"value1", L"a|Alpha"}, {L"value2", L"b|Beta"}, {L"value3", L"c|Gamma"}},
           L"a|c");
    Define(L"a/first", {{L"type", L"0"}, {L"ordernumber", L"1"}}, L"1");
    Define(L"a/password", {{L"type", L"6"}}, L"5ec1");
    Define(L"a/folder", {{L"type", L"7"}, {L"globaldata", L"1"}, {L"default", L"C:\\Data"}});
    Define(L"a/file", {{L"type", L"9"}, {L"globaldata", L"2"}, {L"default", L"C:\\x.txt"}});
    Define(L"a/button", {{L"type", L"12"}}, L"text");
    Define(L"b/colour", {{L"type", L"8"}}, L"7");
    EXPECT_TRUE(Validate());
    EXPECT_TRUE(Store());
    EXPECT_EQ(Written(),
              (Texts{L"4 a/first=1", L"1 a/later=x", L"4 a/colour=255", L"4 b/colour=7", L"4 a/list=a|c",
                     L"4 a/password=5ec1", L"3 a/folder=C:\\Data", L"2 a/file=C:\\x.txt", L"4 a/button=text"}));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(PageTest, RefusedRowsAndControlsAreNotStored) {
    m_rights->Refuse(L"Change settings/Machine data");
    for (const auto* type : {L"0", L"1", L"3", L"5", L"6", L"7", L"8", L"9", L"10"}) {
        Define(std::wstring(L"common/item") + type, {{L"type", type}, {L"functiongroup", L"1"}});
    }
    EXPECT_TRUE(Store());
    EXPECT_EQ(Written(), Texts{});
}

TEST_F(PageTest, ItemsWithoutAPlaceAreNotStored) {
    for (const auto* type : {L"0", L"8"}) {
        const std::wstring path = std::wstring(kRoot) + L"/one/two/three" + type;
        m_session->Define(path, L"type", type);
        m_session->Define(path, L"pagenumber", L"1");
    }
    EXPECT_TRUE(Store());
    EXPECT_EQ(Written(), Texts{});
}

TEST_F(PageTest, AControlWithoutAWindowIsNeitherStoredNorReset) {
    Define(L"common/colour", {{L"type", L"8"}, {L"default", L"1"}}, L"255");
    Define(L"common/folder", {{L"type", L"7"}, {L"default", L"C:\\"}}, L"D:\\");
    Shown();
    for (const auto kind : {SpecialControlKind::Colour, SpecialControlKind::Path})
        Control(kind).hasWindow = false;
    Control(SpecialControlKind::Path).accepts = false;
    EXPECT_TRUE(Validate());
    Reset();
    EXPECT_EQ(Control(SpecialControlKind::Colour).text, L"255");
    EXPECT_TRUE(Store());
    EXPECT_EQ(Written(), Texts{});
}

TEST_F(PageTest, ARowWithoutAControlIsNeitherCheckedNorStored) {
    Define(L"common/number", {{L"type", L"1"}, {L"lowerbound", L"1"}, {L"default", L"5"}});
    Define(L"common/text", {{L"type", L"3"}}, L"x");
    Shown().Enter(L"common/number", L"0");
    EXPECT_FALSE(Validate());
    Shown().TakeControlOf(L"common/number");
    EXPECT_TRUE(Validate());
    EXPECT_TRUE(Store());
    EXPECT_EQ(Written(), Texts{L"4 common/text=x"});
}

TEST_F(PageTest, ARowWithoutAScopeIsStoredWhereTheOneBeforeItWas) {
    // Loaded items always have a scope: this page is made by hand.
    PageRecord record;
    const auto add = [&record](const wchar_t* name, std::optional<SESSIONDATATYPE> scope, bool disabled = false) {
        auto row = std::make_unique<qv::LayoutRows::Column>(name);
        row->value = L"v";
        row->disabled = disabled;
        record.AddItem(std::move(row), {.scope = scope});
    };
    add(L"a/none", {});
    add(L"a/global", SDT_globalData);
    add(L"a/disabled", SDT_userDataDB, true);
    add(L"a/after", {});
    add(L"noplace", SDT_machineData);
    add(L"noname/", {});
    add(L"a/last", {});
    FakePage page(record);
    EXPECT_TRUE(Model().StoreSettings(page, record));
    // The row that has a scope but no place changes it all the same; the one that is not stored does not.
    EXPECT_EQ(Written(), (Texts{L"4 a/none=v", L"1 a/global=v", L"1 a/after=v", L"3 a/last=v"}));
}

// The first one that has something answers for all: what is written is one value, whichever row shows it.
TEST_F(PageTest, RowsWithOneKeyShareScopeAndRange) {
    PageRecord record;
    const auto add = [&record](ItemFacts facts, const wchar_t* value) {
        auto row = std::make_unique<qv::LayoutRows::Column>(L"a/same");
        row->value = value;
        record.AddItem(std::move(row), std::move(facts));
    };
    add({}, L"5");
    add({.scope = SDT_globalData, .range = RangePair(1, 9)}, L"6");
    add({.scope = SDT_userDataDB, .range = RangePair(1, 99)}, L"7");
    EXPECT_EQ(*record.FindScope(L"a/same"), SDT_globalData);
    EXPECT_EQ(record.FindRange(L"a/same")->second, 9);
    EXPECT_EQ(record.FindScope(L"a/other"), nullptr);
    FakePage page(record);
    EXPECT_TRUE(Model().ValidateInputs(page, record));
    EXPECT_TRUE(Model().StoreSettings(page, record));
    EXPECT_EQ(Written(), (Texts{L"1 a/same=5", L"1 a/same=6", L"1 a/same=7"}));
    add({}, L"50");
    FakePage grown(record);
    EXPECT_FALSE(Model().ValidateInputs(grown, record));
}

struct FaultCase {
    const char* name;
    bool writeFails;
    const wchar_t* scopeCode;
    const wchar_t* message;  // null: none
};

class StoreFault : public PageTest, public ::testing::WithParamInterface<FaultCase> {};

TEST_P(StoreFault, IsReportedOnlyWhenSavingFailsAndStopsNothing) {
    const FaultCase& c = GetParam();
    Define(L"a/first", {{L"type", L"3"}, {L"globaldata", c.scopeCode}, {L"default", L"x"}});
    Define(L"a/second", {{L"type", L"3"}, {L"globaldata", L"0"}, {L"default", L"y"}});
    Define(L"a/colour", {{L"type", L"8"}}, L"5");
    Shown();
    m_session->FailNth(c.writeFails ? qv::SessionOperation::WriteData : qv::SessionOperation::SaveData, 1, S_FALSE);
    EXPECT_TRUE(Store());
    EXPECT_EQ(m_session->CallsOf(qv::SessionOperation::WriteData).size(), 3U);
    EXPECT_EQ(m_session->CallsOf(qv::SessionOperation::SaveData).size(), c.writeFails ? 2U : 3U);
    EXPECT_EQ(Shown().failedSaves, c.message != nullptr ? Texts{c.message} : Texts{});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StoreFault,
    ::testing::Values(FaultCase{"SaveInTheControlPath", false, L"1",
                                L"Can't store data.\nPossibly user hasn't write access to registry key "
                                L"HKEY_LOCAL_MACHINE"},
                      FaultCase{"SaveElsewhere", false, L"3", L"Can't store data."},
                      FaultCase{"Write", true, L"1", nullptr}),
    kCaseName);

}  // namespace
