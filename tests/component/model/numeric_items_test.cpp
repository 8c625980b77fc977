#include "base/text.h"
#include "tests/component/model/model_fixture.h"

namespace {

struct NumericCase {
    const char* name;
    const wchar_t* type;
    Pairs attributes;
    std::optional<std::wstring> stored;
    std::wstring shown;
    std::optional<std::wstring> registeredDefault;
    std::wstring message;  // empty: none
};

std::wstring IntegerMessage(std::wstring_view value, std::wstring_view defaultText, int lower, int upper) {
    return qv::Format(
        L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%d, %d]\nDefaultvalue or "
        L"Lowerbound will be displayed.",
        value, defaultText, lower, upper);
}

std::wstring RealMessage(std::wstring_view value, std::wstring_view defaultText, std::wstring_view range) {
    return qv::Format(
        L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%s]\nDefaultvalue will "
        L"be displayed.",
        value, defaultText, range);
}

Pairs Range(const wchar_t* lower, const wchar_t* upper) {
    return {{L"lowerbound", lower}, {L"upperbound", upper}};
}

Pairs operator+(Pairs all, const Pairs& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

const std::vector<NumericCase>& Cases() {
    static const std::vector<NumericCase> cases = {
        // Integers.
        {"IntegerAtUpperBound", L"1", Range(L"5", L"10"), L"10", L"10", {}, L""},
        {"IntegerDefaultOutsideTooFallsToLower", L"1", Range(L"5", L"10") + Pairs{{L"default", L"20"}}, L"11", L"5",
         L"5", IntegerMessage(L"11", L"20", 5, 10)},
        {"IntegerDefaultInsideIsShown", L"1", Range(L"5", L"10") + Pairs{{L"default", L"7"}}, L"4", L"7", L"7",
         IntegerMessage(L"4", L"7", 5, 10)},
        // The check at load is exact, unlike that of typed numbers.
        {"IntegerJustAboveIsReported",
         L"1",
         Range(L"0", L"1000"),
         L"1004",
         L"",
         {},
         IntegerMessage(L"1004", L"", 0, 1000)},
        {"IntegerWithoutDefaultAndValue", L"1", Range(L"1", L"9"), {}, L"1", {}, IntegerMessage(L"", L"", 1, 9)},
        {"IntegerEmptyStoredKeepsDefault", L"1", Range(L"1", L"9") + Pairs{{L"default", L"3"}}, L"", L"3", L"3", L""},
        {"IntegerDefaultBeyond32Bits", L"1", {{L"default", L"2147483648"}}, {}, L"0", L"0", L""},
        {"IntegerDefaultKeptAsWritten", L"1", {{L"default", L" 12 apples "}}, {}, L"12 apples", L"12 apples", L""},
        {"IntegerStoredTextIsNoNumber", L"1", {{L"default", L"8"}}, L"many", L"0", L"8", L""},
        {"IntegerStoredWins", L"1", {{L"default", L"8"}}, L"9", L"9", L"8", L""},
        {"IntegerStoredBeyond32Bits", L"1", {}, L"99999999999", L"0", {}, L""},
        // Read in the code page, where full-width digits become the plain ones; texts stay as they are written.
        {"IntegerBoundsFullWidth", L"1", Range(L"\uFF15", L"\uFF11\uFF10") + Pairs{{L"default", L"\uFF17"}}, L"11",
         L"\uFF17", L"\uFF17", IntegerMessage(L"11", L"\uFF17", 5, 10)},
        {"IntegerDefaultFullWidthInside",
         L"1",
         Range(L"5", L"10") + Pairs{{L"default", L"\u3000\uFF16"}},
         {},
         L"\u3000\uFF16",
         L"\u3000\uFF16",
         L""},
        {"IntegerDefaultFullWidthBeyond32Bits",
         L"1",
         {{L"default", L"\uFF12\uFF11\uFF14\uFF17\uFF14\uFF18\uFF13\uFF16\uFF14\uFF18"}},
         {},
         L"0",
         L"0",
         L""},
        {"IntegerLowerFullWidthMinus", L"1", Range(L"\uFF0D\uFF13", L"4"), L"-3", L"-3", {}, L""},
        {"IntegerOfOtherLettersIsNone", L"1", Range(L"\u0416", L"9"), L"0", L"0", {}, L""},
        {"IntegerBoundsCrossed", L"1", Range(L"10", L"5") + Pairs{{L"default", L"7"}}, L"7", L"10", L"10",
         IntegerMessage(L"7", L"7", 10, 5)},
        // Floating-point numbers: compared at three significant digits.
        {"RealSameAtThreeDigits", L"2", Range(L"0", L"1"), L"1.004", L"1.004000", {}, L""},
        {"RealAboveAtThreeDigits",
         L"2",
         Range(L"0", L"1") + Pairs{{L"default", L"0.5"}},
         L"1.006",
         L"0.5",
         {},
         RealMessage(L"1.006", L"0.5", L"0, 1")},
        {"RealBelow",
         L"2",
         Range(L"0.5", L"1") + Pairs{{L"default", L"0.25"}},
         L"0.1",
         L"0.5",
         {},
         RealMessage(L"0.1", L"0.25", L"0.5, 1")},
        {"RealDefaultAboveFallsToLower", L"2", Range(L"0", L"1") + Pairs{{L"default", L"7"}, {L"ordernumber", L"1"}},
         L"5", L"0", L"0", RealMessage(L"5", L"7", L"0, 1")},
        {"RealWithoutDefaultShowsEmpty", L"2", Range(L"-1", L"1"), L"5", L"", {}, RealMessage(L"5", L"0", L"-1, 1")},
        {"RealDefaultWithoutOrderIsNotRegistered", L"2", {{L"default", L"1.5"}}, {}, L"1.5", {}, L""},
        {"RealOrderWithoutDefaultRegistersEmpty", L"2", {{L"ordernumber", L"4"}}, {}, L"", L"", L""},
        {"RealStoredShownWithSixPlaces",
         L"2",
         {{L"default", L"1"}, {L"ordernumber", L"1"}},
         L"2.5",
         L"2.500000",
         L"1",
         L""},
        {"RealStoredTextIsNoNumber", L"2", {{L"default", L"1"}}, L"much", L"0.000000", {}, L""},
        {"RealStoredWithTrailingText", L"2", {}, L"3.25 mm", L"3.250000", {}, L""},
        // The widest bounds are a tenth of the largest double.
        {"RealBeyondWidestBound",
         L"2",
         {{L"default", L"1"}},
         L"1e308",
         L"1",
         {},
         RealMessage(L"1e+308", L"1", L"-1.79769e+307, 1.79769e+307")},
        {"RealAtWidestBound",
         L"2",
         {{L"default", L"1.7976931348623158e+307"}},
         {},
         L"1.7976931348623158e+307",
         {},
         L""},
    };
    return cases;
}

class NumericItem : public ModelTest, public ::testing::WithParamInterface<NumericCase> {};

TEST_P(NumericItem, ShowsRegistersAndReports) {
    const NumericCase& c = GetParam();
    Define(L"common/number", c.attributes + Pairs{{L"type", c.type}, {L"label", L"Count"}}, c.stored);

    const qv::LayoutRows::Column* row = Row(L"common/number");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, c.shown);
    const std::wstring* registered = DefaultOf(L"common/number");
    ASSERT_EQ(registered != nullptr, c.registeredDefault.has_value());
    if (registered != nullptr) {
        EXPECT_EQ(*registered, *c.registeredDefault);
    }
    if (c.message.empty()) {
        EXPECT_TRUE(boxes.empty()) << ::testing::PrintToString(boxes);
    } else {
        EXPECT_EQ(OnlyText(boxes), c.message);
        EXPECT_EQ(boxes.at(0).caption, L"Count");
        EXPECT_EQ(boxes.at(0).kind, qv::MessageBoxCall::Kind::Info);
        EXPECT_EQ(boxes.at(0).owner, GetActiveWindow());
    }
    EXPECT_TRUE(m_session->CallsOf(qv::SessionOperation::WriteData).empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, NumericItem, ::testing::ValuesIn(Cases()), kCaseName);

struct BoundCase {
    const char* name;
    const wchar_t* lower;
    const wchar_t* upper;
    int lowerBound;
    int upperBound;
    int digits;
};

class IntegerBounds : public ModelTest, public ::testing::WithParamInterface<BoundCase> {};

TEST_P(IntegerBounds, ReachTheRowAndTheRangeTable) {
    const BoundCase& c = GetParam();
    Define(L"common/number", {{L"type", L"1"}, {L"lowerbound", c.lower}, {L"upperbound", c.upper}}, L"3");
    const qv::LayoutRows::Column* row = Row(L"common/number");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->dataType, 3);
    EXPECT_EQ(row->controlType, 3);
    EXPECT_EQ(row->lower, c.lowerBound);
    EXPECT_EQ(row->upper, c.upperBound);
    EXPECT_EQ(row->limit, c.digits);
    const RangePair* range = Page()->FindRange(L"common/number");
    ASSERT_NE(range, nullptr);
    EXPECT_EQ(*range, RangePair(c.lowerBound, c.upperBound));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, IntegerBounds,
    ::testing::Values(BoundCase{"Plain", L"-5", L"1000", -5, 1000, 4},
                      BoundCase{"LowerIsLonger", L"-500", L"9", -500, 9, 4},
                      BoundCase{"BeyondBothEnds", L"-2147483649", L"2147483648", INT32_MIN, INT32_MAX, 11},
                      BoundCase{"FarBeyond", L"-99999999999999999999999", L"99999999999999999999999", INT32_MIN,
                                INT32_MAX, 11},
                      BoundCase{"AtBothEnds", L"-2147483648", L"2147483647", INT32_MIN, INT32_MAX, 11},
                      BoundCase{"TextCountsAsNothing", L"none", L"+7x", 0, 7, 1}),
    kCaseName);

TEST_F(ModelTest, RealItemKeepsItsBoundsInRowAndRangeTable) {
    Define(L"common/real", {{L"type", L"2"}, {L"lowerbound", L" 0.5 "}, {L"upperbound", L"2.25 m"}}, L"1");
    const qv::LayoutRows::Column* row = Row(L"common/real");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->dataType, 2);
    EXPECT_EQ(row->controlType, 3);
    EXPECT_EQ(row->lowerReal, 0.5);
    EXPECT_EQ(row->upperReal, 2.25);
    EXPECT_EQ(row->limit, 9);
    EXPECT_EQ(row->decimals, 5);
    ASSERT_NE(Page()->FindRange(L"common/real"), nullptr);
    EXPECT_EQ(*Page()->FindRange(L"common/real"), RangePair(0.5, 2.25));
}

TEST_F(ModelTest, RealsAreReadInTheNotationOfTheLocale) {
    const qvtest::ScopedNumberLocale comma({true, L",", L"."});
    Define(L"common/real", {{L"type", L"2"}, {L"lowerbound", L"1,5"}}, L"2,5");
    const qv::LayoutRows::Column* row = Row(L"common/real");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->value, L"2.500000");
    EXPECT_EQ(row->lowerReal, 1.5);
}

}  // namespace
