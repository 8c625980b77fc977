// Comparison, case and encodings of texts, locale settings, the command line.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/command_line.h"
#include "platform/platform.h"

namespace {

TEST(WordOrder, SortsLettersBeforeMarksBeforeCaseAndHyphensLast) {
    const std::vector<std::wstring> sorted = {
        L"",
        L"-",
        L"1",
        L"2",
        L"a",
        L"-a",
        L"A",
        L"\u00E4",
        L"aa",
        L"ab",
        L"a-b",
        L"AB",
        L"\u00E4"
        L"b",
        L"ab1",
        L"coop",
        L"co-op",
        L"its",
        L"it's",
        L"resume",
        L"Resume",
        L"r\u00E9sum\u00E9",
        L"R\u00E9sum\u00E9",
        L"z",
        L"Zebra",
    };
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        SCOPED_TRACE(::testing::PrintToString(sorted[i]));
        EXPECT_EQ(CSTR_LESS_THAN,
                  CompareStringW(LOCALE_USER_DEFAULT, 0, sorted[i].c_str(), -1, sorted[i + 1].c_str(), -1));
    }
}

TEST(TextComparison, IgnoresCaseWhenAsked) {
    EXPECT_EQ(0, lstrcmpiW(L"\u00C4pfel", L"\u00E4PFEL"));
    EXPECT_NE(0, lstrcmpiW(L"\u00C4pfel", L"Apfel"));
    EXPECT_EQ(0, lstrcmpiW(nullptr, nullptr));
}

TEST(TextCase, MapsPairsOnly) {
    wchar_t text[] = L"\u00C4B\u00DF\u0130\u00B5\u00FF";
    CharUpperBuffW(text, 6);
    EXPECT_STREQ(L"\u00C4B\u00DF\u0130\u00B5\u0178", text);
    CharLowerW(text);
    EXPECT_STREQ(L"\u00E4b\u00DF\u0130\u00B5\u00FF", text);
    EXPECT_EQ(reinterpret_cast<LPWSTR>(static_cast<UINT_PTR>(L'a')),
              CharLowerW(reinterpret_cast<LPWSTR>(static_cast<UINT_PTR>(L'A'))));
}

// Characters that the code page does not have become those which look like them, where there are any.
TEST(TextEncoding, TakesLikenessesForFullWidthForms) {
    const auto narrow = [](std::wstring_view text, DWORD flags, BOOL* replaced) {
        char bytes[16] = {};
        const int length =
            WideCharToMultiByte(1252, flags, text.data(), static_cast<int>(text.size()), bytes, 16, nullptr, replaced);
        return std::string(bytes, static_cast<std::size_t>(length));
    };
    BOOL replaced = TRUE;
    EXPECT_EQ("-12 Az~!", narrow(L"\uFF0D\uFF11\uFF12\u3000\uFF21\uFF5A\uFF5E\uFF01", 0, &replaced));
    EXPECT_FALSE(replaced);
    EXPECT_EQ("478?059", narrow(L"\u2074\u2077\u2078\u2079\u2080\u2085\u2089", 0, nullptr));
    EXPECT_EQ("- - 1", narrow(L"\u2212\u2003\u2010\u2000\uFF11", 0, nullptr));
    EXPECT_EQ("?", narrow(L"\uFF11", WC_NO_BEST_FIT_CHARS, &replaced));
    EXPECT_TRUE(replaced);
    EXPECT_EQ("?", narrow(L"\u0416", 0, &replaced));
    EXPECT_TRUE(replaced);
}

TEST(LocaleSettings, AnswerSeparatorsWithTheirTerminator) {
    wchar_t text[8] = {};
    EXPECT_EQ(2, GetLocaleInfoW(0x0407, LOCALE_SDECIMAL, nullptr, 0));
    EXPECT_EQ(2, GetLocaleInfoW(0x0407, LOCALE_SDECIMAL, text, 8));
    EXPECT_STREQ(L",", text);
    EXPECT_EQ(2, GetLocaleInfoW(0x0409, LOCALE_STHOUSAND, text, 8));
    EXPECT_STREQ(L",", text);
    EXPECT_EQ(0, GetLocaleInfoW(0x0407, LOCALE_SDECIMAL, text, 1));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER), GetLastError());
}

TEST(CommandLine, SplitsByTheRulesOfQuotesAndBackslashes) {
    struct Case {
        const wchar_t* line;
        std::vector<std::wstring> arguments;
    };
    const Case cases[] = {
        {L"program a b", {L"program", L"a", L"b"}},   {L"\"C:\\my dir\\p.exe\" x", {L"C:\\my dir\\p.exe", L"x"}},
        {L"p  \t \"a b\"  c", {L"p", L"a b", L"c"}},  {L"p a\\b \\\\\"c d\" e", {L"p", L"a\\b", L"\\c d", L"e"}},
        {L"p \"a\\\"b\" \"\"", {L"p", L"a\"b", L""}}, {L"p x\"y z\"w", {L"p", L"xy zw"}},
        {L"p trailing\\", {L"p", L"trailing\\"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(std::wstring(c.line)));
        int count = 0;
        LPWSTR* arguments = CommandLineToArgvW(c.line, &count);
        EXPECT_EQ(c.arguments, std::vector<std::wstring>(arguments, arguments + count));
        LocalFree(arguments);
    }
    EXPECT_NE(std::wstring::npos, qv::CommandLineArguments().at(0).find(L"platform_tests"));
}

}  // namespace
