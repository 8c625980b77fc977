#include "tests/component/model/model_fixture.h"

namespace {

struct TextCase {
    const char* name;
    Pairs attributes;
    std::optional<std::wstring> stored;
    std::wstring shown;
    std::optional<std::wstring> registeredDefault;
    std::wstring message;  // empty: none
    int limit = 1024;
};

class StringItem : public ModelTest, public ::testing::WithParamInterface<TextCase> {};

TEST_P(StringItem, ShowsCutsAndReports) {
    const TextCase& c = GetParam();
    Pairs attributes = c.attributes;
    attributes.emplace_back(L"type", L"3");
    Define(L"common/text", attributes, c.stored);
    const qv::LayoutRows::Column* row = Row(L"common/text");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, c.shown);
    EXPECT_EQ(row->limit, c.limit);
    EXPECT_EQ(row->dataType, 1);
    EXPECT_EQ(row->controlType, 3);
    const std::wstring* registered = DefaultOf(L"common/text");
    ASSERT_EQ(registered != nullptr, c.registeredDefault.has_value());
    if (registered != nullptr) {
        EXPECT_EQ(*registered, *c.registeredDefault);
    }
    if (c.message.empty()) {
        EXPECT_TRUE(boxes.empty()) << ::testing::PrintToString(boxes);
    } else {
        EXPECT_EQ(OnlyText(boxes), c.message);
        EXPECT_EQ(boxes.at(0).caption, L"A label");
    }
    EXPECT_EQ(Page()->FindRange(L"common/text"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StringItem,
    ::testing::Values(TextCase{"StoredTooLong",
                               {{L"maxstringlength", L"5"}},
                               L"abcdefgh",
                               L"abcde",
                               {},
                               L"String 'abcdefgh' will be truncated to stringlen 5!",
                               5},
                      TextCase{"DefaultTooLongIsReportedAsTheValue",
                               {{L"maxstringlength", L"5"}, {L"default", L"abcdefgh"}},
                               {},
                               L"abcde",
                               L"abcde",
                               L"String 'abcdefgh' will be truncated to stringlen 5!",
                               5},
                      TextCase{"DefaultTooLongIsCutSilently",
                               {{L"maxstringlength", L"5"}, {L"default", L"abcdefgh"}},
                               L"xyz",
                               L"xyz",
                               L"abcde",
                               L"",
                               5},
                      TextCase{"ExactlyAsLong", {{L"maxstringlength", L"3"}}, L"abc", L"abc", {}, L"", 3},
                      TextCase{
                          "LengthInFullWidthDigits", {{L"maxstringlength", L"\uFF13"}}, L"abc", L"abc", {}, L"", 3},
                      TextCase{"LengthIsNoNumber",
                               {{L"maxstringlength", L"long"}},
                               L"a",
                               L"",
                               {},
                               L"String 'a' will be truncated to stringlen 0!",
                               0},
                      TextCase{"LengthZeroAcceptsEmpty", {{L"maxstringlength", L"0"}}, L"", L"", {}, L"", 0},
                      TextCase{"NegativeLengthRefusesEvenEmpty",
                               {{L"maxstringlength", L"-1"}},
                               L"",
                               L"",
                               {},
                               L"String '' will be truncated to stringlen -1!",
                               -1},
                      TextCase{"LengthBeyond32Bits",
                               {{L"maxstringlength", L"2147483648"}},
                               std::wstring(1025, L'x'),
                               std::wstring(1024, L'x'),
                               {},
                               L"String '" + std::wstring(1025, L'x') + L"' will be truncated to stringlen 1024!"},
                      TextCase{"PercentInTextIsNoFormat",
                               {{L"maxstringlength", L"2"}},
                               L"%s%d",
                               L"%s",
                               {},
                               L"String '%s%d' will be truncated to stringlen 2!",
                               2},
                      TextCase{"StoredIsTrimmed", {{L"default", L" d "}}, L"  a b  ", L"a b", L"d", L""},
                      TextCase{"StoredEmptyWins", {{L"default", L"d"}}, L"", L"", L"d", L""}),
    kCaseName);

TEST_F(ModelTest, CheckBoxShowsOneOrZeroWhenStoredAndItsDefaultAsWritten) {
    struct {
        const wchar_t* key;
        std::optional<std::wstring> stored;
        std::wstring shown;
    } const cases[] = {
        {L"common/a", L"1", L"1"},    {L"common/b", L" 1 ", L"1"}, {L"common/c", L"01", L"0"},
        {L"common/d", L"true", L"0"}, {L"common/e", L"", L"0"},    {L"common/f", {}, L"yes"},
    };
    for (const auto& c : cases)
        Define(c.key, {{L"type", L"0"}, {L"default", L"yes"}}, c.stored);
    for (const auto& c : cases) {
        ASSERT_NE(Row(c.key), nullptr);
        EXPECT_EQ(Row(c.key)->value, c.shown) << c.key;
        EXPECT_EQ(Row(c.key)->dataType, 4);
        EXPECT_EQ(Row(c.key)->controlType, 4);
        EXPECT_EQ(*DefaultOf(c.key), L"yes");
    }
}

struct ListCase {
    const char* name;
    Pairs attributes;
    std::optional<std::wstring> stored;
    std::wstring selected;
    Pairs entries;  // data, text
    bool dropped = false;
};

class ListItem : public ModelTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(ListItem, OffersItsEntriesAndSelectsTheValue) {
    const ListCase& c = GetParam();
    Pairs attributes = c.attributes;
    attributes.emplace_back(L"type", L"4");
    Define(L"common/list", attributes, c.stored);
    const qv::LayoutRows::Column* row = Row(L"common/list");
    EXPECT_TRUE(boxes.empty());
    if (c.dropped) {
        EXPECT_EQ(row, nullptr);
        EXPECT_EQ(Page(), nullptr);
        return;
    }
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, c.selected);
    EXPECT_EQ(row->dataType, 1);
    EXPECT_EQ(row->controlType, 2);
    Pairs entries;
    for (const qv::LayoutRows::ColumnItem& item : row->items) {
        EXPECT_EQ(item.index, static_cast<int>(entries.size()));
        entries.emplace_back(item.data, item.text);
    }
    EXPECT_EQ(entries, c.entries);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ListItem,
    ::testing::Values(
        ListCase{"StoredIsSelected",
                 {{L"value1", L"a|Alpha"}, {L"value2", L"b|Beta"}},
                 L"b",
                 L"b",
                 {{L"a", L"Alpha"}, {L"b", L"Beta"}}},
        ListCase{"DefaultIsSelected",
                 {{L"value1", L"a|Alpha"}, {L"value2", L"b|Beta"}, {L" Default ", L" a "}},
                 {},
                 L"a",
                 {{L"a", L"Alpha"}, {L"b", L"Beta"}}},
        ListCase{
            "EntriesInNameOrder", {{L"value2", L"b|B"}, {L"value10", L"a|A"}}, {}, L"", {{L"a", L"A"}, {L"b", L"B"}}},
        ListCase{"BlanksBelongToTheEntry", {{L"value1", L" a|Alpha "}}, L"a", L"", {{L" a", L"Alpha "}}},
        ListCase{"CaseMatters", {{L"value1", L"A|Alpha"}}, L"a", L"", {{L"A", L"Alpha"}}},
        ListCase{"LaterBarsBelongToTheText", {{L"value1", L"a|Al|pha"}}, {}, L"", {{L"a", L"Al|pha"}}},
        ListCase{"NoBarMeansEmptyData", {{L"value1", L"Alpha"}}, L"", L"", {{L"", L"Alpha"}}},
        ListCase{"AnyNameWithValueIsAnEntry",
                 {{L"defaultvalue", L"a|A"}, {L"My_VALUE_2", L"b|B"}},
                 L"b",
                 L"",
                 {{L"b", L"B"}, {L"a", L"A"}}},
        ListCase{"BarInFrontDropsTheItem", {{L"value1", L"a|Alpha"}, {L"value2", L"|Beta"}}, L"a", L"", {}, true},
        ListCase{"EmptyEntryHasNothing", {{L"value1", L""}}, {}, L"", {{L"", L""}}}),
    kCaseName);

TEST_F(ModelTest, ListEntriesAndLabelsAreTranslatedAndDataIsNot) {
    const qvtest::ScopedDictionary dictionary({{L"Alpha", L"Alfa"}, {L"A label", L"Etikett"}, {L"a", L"wrong"}});
    Define(L"common/list", {{L"type", L"4"}, {L"value1", L"a|Alpha"}}, L"a");
    const qv::LayoutRows::Column* row = Row(L"common/list");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->prompt, L"Etikett");
    ASSERT_EQ(row->items.size(), 1U);
    EXPECT_EQ(row->items[0].text, L"Alfa");
    EXPECT_EQ(row->value, L"a");
}

}  // namespace
