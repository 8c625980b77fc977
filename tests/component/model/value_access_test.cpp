#include "host/libraries/numbers.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"
#include "tests/component/model/model_fixture.h"

namespace {

// Stored text to what each reader makes of it; nothing where the read fails.
struct ReaderCase {
    const char* name;
    const wchar_t* stored;
    const wchar_t* string;
    std::optional<std::int32_t> integer;
    double real;
    bool boolean;
    std::vector<std::wstring> list;
};

TEST_F(ModelTest, EveryReaderConvertsTheStoredText) {
    const ReaderCase cases[] = {
        {"one with blanks", L" 1 ", L"1", 1, 1.0, true, {L"1"}},
        {"zero in front", L"01", L"01", 1, 1.0, false, {L"01"}},
        {"word", L"true", L"true", 0, 0.0, false, {L"true"}},
        {"empty", L"", L"", {}, 0.0, false, {L""}},
        {"list with an empty end", L"a | b | ", L"a | b |", 0, 0.0, false, {L"a", L"b", L""}},
        {"fraction", L"2.5x", L"2.5x", 0, 2.5, false, {L"2.5x"}},
        {"beyond 32 bits", L"4294967296", L"4294967296", 0, 4294967296.0, false, {L"4294967296"}},
        {"negative", L"-17", L"-17", -17, -17.0, false, {L"-17"}},
    };
    for (const ReaderCase& c : cases) {
        SCOPED_TRACE(c.name);
        m_session->Put(SDT_userData, L"common", L"value", c.stored);
        std::wstring string = L"before";
        std::int32_t integer = 99;
        double real = 99;
        bool boolean = !c.boolean;
        std::vector<std::wstring> list{L"before"};
        const auto path = L"option-configuration/common/value";
        EXPECT_TRUE(Model().ReadString(path, SDT_userData, string));
        EXPECT_EQ(string, c.string);
        EXPECT_EQ(Model().ReadInteger(path, SDT_userData, integer), c.integer.has_value());
        EXPECT_EQ(integer, c.integer.value_or(99));
        EXPECT_TRUE(Model().ReadDouble(path, SDT_userData, real));
        EXPECT_EQ(real, c.real);
        EXPECT_TRUE(Model().ReadBoolean(path, SDT_userData, boolean));
        EXPECT_EQ(boolean, c.boolean);
        EXPECT_TRUE(Model().ReadStringList(path, SDT_userData, list));
        EXPECT_EQ(list, c.list);
    }
}

TEST_F(ModelTest, AFailedReadLeavesTheValueAloneButEmptiesAText) {
    std::wstring string = L"before";
    std::int32_t integer = 99;
    double real = 99;
    bool boolean = true;
    std::vector<std::wstring> list{L"before"};
    const auto path = L"option-configuration/common/absent";
    EXPECT_FALSE(Model().ReadString(path, SDT_userData, string));
    EXPECT_FALSE(Model().ReadInteger(path, SDT_userData, integer));
    EXPECT_FALSE(Model().ReadDouble(path, SDT_userData, real));
    EXPECT_FALSE(Model().ReadBoolean(path, SDT_userData, boolean));
    EXPECT_FALSE(Model().ReadStringList(path, SDT_userData, list));
    EXPECT_EQ(string, L"");
    EXPECT_EQ(integer, 99);
    EXPECT_EQ(real, 99);
    EXPECT_TRUE(boolean);
    EXPECT_EQ(list.size(), 1U);
}

struct PathCase {
    const wchar_t* name;
    std::optional<Pairs::value_type> value;  // key and value name that are read; nothing: nobody is asked
    const wchar_t* itemKey;
};

TEST_F(ModelTest, APathLeadsToItsValueOnlyWithTwoSegmentsBelowTheFirst) {
    using Place = Pairs::value_type;
    const PathCase cases[] = {
        {L"option-configuration/common/recentfiles", Place{L"common", L"recentfiles"}, L"common/recentfiles"},
        {L"/common/recentfiles", Place{L"common", L"recentfiles"}, L"common/recentfiles"},
        {L"root//name", Place{L"", L"name"}, L"/name"},
        {L"root/common/name/", Place{L"common", L"name"}, L"common/name"},
        {L"common/recentfiles", {}, L""},
        {L"option-configuration/common/", {}, L""},
        {L"root/common//", {}, L"common/"},
        {L"root/a/b/c", {}, L""},
        {L"root/a/b//", {}, L""},
        {L"root", {}, L""},
        {L"/", {}, L""},
        {L"", {}, L""},
    };
    for (const PathCase& c : cases) {
        EXPECT_EQ(XConstructionSet::MakeItemKey(c.name), c.itemKey) << ::testing::PrintToString(c.name);
        Model();
        m_session->ClearCalls();
        std::wstring text;
        EXPECT_FALSE(Model().ReadString(c.name, SDT_machineData, text));
        Pairs asked;
        for (const auto& call : m_session->Calls())
            asked.emplace_back(call.key, call.name);
        EXPECT_EQ(asked, c.value ? Pairs{*c.value} : Pairs{}) << ::testing::PrintToString(c.name);
    }
}

}  // namespace
