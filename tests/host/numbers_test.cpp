#include "host/libraries/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/recorders.h"

namespace {

TEST(Numbers, TextIsReadInTheLocalNotationAndWithAPoint) {
    const struct {
        const wchar_t* decimal;
        const wchar_t* text;
        double value;  // NaN: refused
    } cases[] = {
        {L".", L"2.5", 2.5},
        {L".", L"2,5", NAN},
        {L",", L"2,5", 2.5},
        {L",", L"2.5", 2.5},
        {L",", L"1.234,5", NAN},
        {L"::", L"-1::5e2", -150},
        {L".", L" \t-.5 \n", -0.5},
        {L".", L"+7.", 7},
        {L".", L"1E+3", 1000},
        {L".", L"", NAN},
        {L".", L".", NAN},
        {L".", L"1 2", NAN},
        {L".", L"1e", NAN},
        {L".", L"--1", NAN},
        {L".", L"0x10", NAN},
        {L".", L"inf", NAN},
        {L".", L"1e999", NAN},
        {L".", L"1e-999", 0},
        {L".", L"1.7976931348623157e308", 1.7976931348623157e308},
        {L".", L"１", NAN},
    };
    for (const auto& c : cases) {
        const qvtest::ScopedNumberLocale locale({true, c.decimal, L" "});
        double value = 17;
        const bool isNumber = String2Double(c.text, value);
        EXPECT_EQ(isNumber, !std::isnan(c.value)) << c.text;
        EXPECT_EQ(value, isNumber ? c.value : 17) << c.text;
    }
}

TEST(Numbers, NumberIsWrittenWithAPointInAnyLocale) {
    const struct {
        const wchar_t* format;
        double value;
        const wchar_t* text;  // null: the format is refused
    } cases[] = {
        {L"%g", 0.1, L"0.1"},
        {L"%f", 3.14, L"3.140000"},
        {L"%5.2e", 1004, L"1.00e+03"},
        {L"%.0f", 65280, L"65280"},
        {L"<%+8.2f>%%", 1.5, L"<   +1.50>%"},
        {L"%d", 1, nullptr},
        {L"%s", 1, nullptr},
        {L"%g %g", 1, nullptr},
        {L"none", 1, nullptr},
        {L"%", 1, nullptr},
        {L"%n", 1, nullptr},
        {L"%*g", 1, nullptr},
    };
    const qvtest::ScopedNumberLocale locale({true, L",", L" "});
    for (const auto& c : cases) {
        std::wstring text = L"kept";
        EXPECT_EQ(Double2String(text, c.value, c.format), c.text != nullptr) << c.format;
        EXPECT_EQ(text, c.text != nullptr ? c.text : L"kept");
    }
}

TEST(Numbers, LocalSeparatorIsReplacedAndAnUnknownLocaleIsReported) {
    std::wstring text = L"2,5;3.5,";
    const qvtest::ScopedNumberLocale comma({true, L",", L" "});
    EXPECT_TRUE(ReplaceLocalWith(text, L"."));
    EXPECT_EQ(text, L"2.5;3.5.");
    const qvtest::ScopedNumberLocale point({true, L".", L" "});
    text = L"2,5";
    EXPECT_TRUE(ReplaceLocalWith(text, L"."));
    EXPECT_EQ(text, L"2,5");
    const qvtest::ScopedNumberLocale unknown({.known = false});
    EXPECT_FALSE(ReplaceLocalWith(text, L"."));
    EXPECT_EQ(text, L"2,5");
    double value = 0;
    EXPECT_TRUE(String2Double(L"2.5", value)) << "a point is understood everywhere";
}

}  // namespace
