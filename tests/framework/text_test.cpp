#include "base/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(Format, FollowsThePrintfRules) {
    const struct {
        std::wstring_view format;
        qv::FormatArgument argument;
        std::wstring_view expected;
    } cases[] = {
        {L"%d", std::int64_t{-42}, L"-42"},
        {L"[%5d]", std::int64_t{42}, L"[   42]"},
        {L"[%-5d]", std::int64_t{42}, L"[42   ]"},
        {L"[%05d]", std::int64_t{-42}, L"[-0042]"},
        {L"[%+.3d]", std::int64_t{7}, L"[+007]"},
        {L"[%05.3d]", std::int64_t{7}, L"[  007]"},
        {L"%d", std::numeric_limits<std::int64_t>::min(), L"-9223372036854775808"},
        {L"%g", 0.1, L"0.1"},
        {L"%g", 1e-5, L"1e-05"},
        {L"%g", 1234567.0, L"1.23457e+06"},
        {L"%#g", 1.5, L"1.50000"},
        {L"%f", -0.5, L"-0.500000"},
        {L"%.0f", 2.5, L"2"},
        {L"%.0f", 16711680.0, L"16711680"},
        {L"%.10g", 3.14159265358979, L"3.141592654"},
        {L"%5.2e", 12345.678, L"1.23e+04"},
        {L"[%12.2e]", 1e-300, L"[   1.00e-300]"},
        {L"[%08.3f]", -3.14159, L"[-003.142]"},
        {L"%E", 1.0, L"1.000000E+00"},
        {L"[%06f]", std::numeric_limits<double>::infinity(), L"[   inf]"},
        {L"[%5s]", std::wstring(L"ab"), L"[   ab]"},
        {L"[%-5.1s]", std::wstring(L"ab"), L"[a    ]"},
        {L"100%% %s", std::wstring(L"sure"), L"100% sure"},
        {L"<%d>", std::wstring(L"no number"), L"<>"},
        {L"%ld", std::int64_t{5}, L"5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(qv::FormatArguments(c.format, {c.argument}), c.expected) << qv::ToUtf8(c.format);
    }
    EXPECT_EQ(qv::Format(L"%d of %s", 3, L"many"), L"3 of many");
    EXPECT_EQ(qv::Format(L"%s", nullptr == nullptr ? L"" : L"x"), L"");
    EXPECT_EQ(qv::Format(L"missing %d%d", 1), L"missing 1");
}

TEST(ParseDouble, ReadsAsTheCLibrary) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const struct {
        std::wstring_view text;
        double expected;
    } cases[] = {
        {L" \t+1.5rest", 1.5},
        {L"-.5", -0.5},
        {L"5.", 5.0},
        {L"1e3", 1000.0},
        {L"1e", 1.0},
        {L"1e+", 1.0},
        {L"0x1Ap1", 52.0},
        {L"0x", 0.0},
        {L"-0X.8", -0.5},
        {L"inf", kInfinity},
        {L"-INFINITYx", -kInfinity},
        {L"1,5", 1.0},
        {L"", 0.0},
        {L"abc", 0.0},
        {L"--1", 0.0},
        {L"+-1", 0.0},
        {L"1e999", kInfinity},
        {L"-1e999", -kInfinity},
        {L"1e-999", 0.0},
        {L"0.000e999", 0.0},
        {L"100000e-400", 0.0},
        {L"5e-324", 5e-324},
        {L"1\u0663", 1.0},
        {L"0x1p-5000", 0.0},
        {L"0x1p5000", kInfinity},
    };
    for (const auto& c : cases)
        EXPECT_EQ(qv::ParseDouble(c.text), c.expected) << qv::ToUtf8(c.text);
    EXPECT_TRUE(std::isnan(qv::ParseDouble(L"nan")));
    EXPECT_TRUE(std::signbit(qv::ParseDouble(L"-0")));
}

TEST(LeadingInteger, StopsAtTheFirstOtherCharacterAndSaturates) {
    const struct {
        std::wstring_view text;
        std::int64_t expected64;
        std::int32_t expected32;
    } cases[] = {
        {L"", 0, 0},
        {L"abc", 0, 0},
        {L" \t-12x3", -12, -12},
        {L"+7", 7, 7},
        {L"- 7", 0, 0},
        {L"2147483648", 2147483648, 2147483647},
        {L"-2147483649", -2147483649, std::numeric_limits<std::int32_t>::min()},
        {L"9223372036854775807", std::numeric_limits<std::int64_t>::max(), 2147483647},
        {L"9223372036854775808", std::numeric_limits<std::int64_t>::max(), 2147483647},
        {L"-9223372036854775808", std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int32_t>::min()},
        {L"99999999999999999999", std::numeric_limits<std::int64_t>::max(), 2147483647},
        {L"-99999999999999999999", std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int32_t>::min()},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(qv::LeadingInteger64(c.text), c.expected64) << qv::ToUtf8(c.text);
        EXPECT_EQ(qv::LeadingInteger(c.text), c.expected32) << qv::ToUtf8(c.text);
    }
}

TEST(Text, ReadsLabels) {
    const struct {
        const wchar_t *label, *plain;
        wchar_t mnemonic;
    } cases[] = {{L"&Save", L"Save", L'S'},          {L"Sa&ve && cl&ose", L"Save & close", L'v'},
                 {L"Q && &a", L"Q & a", L'a'},       {L"None && none", L"None & none", 0},
                 {L"At the end&", L"At the end", 0}, {L"", L"", 0}};
    for (const auto& each : cases) {
        EXPECT_EQ(qv::PlainLabel(each.label), each.plain);
        EXPECT_EQ(qv::MnemonicOf(each.label), each.mnemonic);
    }
}

TEST(Text, TrimsAndComparesWithoutCase) {
    EXPECT_EQ(qv::Trim(L" \r\n a b\t "), L"a b");
    EXPECT_EQ(qv::Trim(L" \t "), L"");
    EXPECT_EQ(qv::ToLower(L"MiXed \u00C4\u00DF"), L"mixed \u00E4\u00DF");
    EXPECT_TRUE(qv::EqualIgnoringCase(L"Top.X", L"TOP.x"));
    EXPECT_FALSE(qv::EqualIgnoringCase(L"Top.X", L"Top.XX"));
}

TEST(Utf8, RoundTripsAndReplacesWhatIsMalformed) {
    const struct {
        std::string_view bytes;
        std::wstring text;
    } good[] = {{"", L""}, {"a\xC3\xA4\xE2\x82\xAC", L"a\u00E4\u20AC"}, {"\xF0\x9F\x98\x80", L"\U0001F600"}};
    for (const auto& c : good) {
        EXPECT_EQ(qv::FromUtf8(c.bytes), c.text);
        EXPECT_EQ(qv::ToUtf8(c.text), c.bytes);
    }
    const struct {
        std::string_view bytes;
        std::wstring_view text;
    } bad[] = {
        {"\x80", L"\uFFFD"},
        {"\xC3", L"\uFFFD"},
        {"\xC3(", L"\uFFFD("},
        {"\xC0\x80", L"\uFFFD\uFFFD"},
        {"\xE0\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xE2\x82x", L"\uFFFDx"},
    };
    for (const auto& c : bad)
        EXPECT_EQ(qv::FromUtf8(c.bytes), c.text);
    const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD800), L'b', 0};
    EXPECT_EQ(qv::ToUtf8(lone),
              "a\xEF\xBF\xBD"
              "b");
}

}  // namespace
