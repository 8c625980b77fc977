#include "app/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Arguments = std::vector<std::wstring>;

TEST(Options, WrongCommandLinesAreRefusedInWords) {
    const struct {
        Arguments arguments;
        std::wstring problem;
    } cases[] = {
        {{}, L"--definitions FILE and --data DIR are needed"},
        {{L"--definitions", L"d.json"}, L"--definitions FILE and --data DIR are needed"},
        {{L"--definitions", L"--data", L"x"}, L"--definitions needs a value"},
        {{L"--data"}, L"--data needs a value"},
        {{L"--definition", L"d.json"}, L"unknown option --definition"},
        {{L"d.json"}, L"unknown option d.json"},
        {{L"--definitions", L"d", L"--data", L"x", L"--user", L"a"}, L"--users FILE and --user NAME go together"},
        {{L"--definitions", L"d", L"--data", L"x", L"--users", L"a"}, L"--users FILE and --user NAME go together"},
    };
    for (const auto& each : cases) {
        qv::Options options;
        std::wstring problem;
        EXPECT_FALSE(qv::ParseOptions(each.arguments, options, problem));
        EXPECT_EQ(problem, each.problem);
    }
}

TEST(Options, ScriptOpensTheDialogByItself) {
    qv::Options options;
    std::wstring problem;
    ASSERT_TRUE(
        qv::ParseOptions(Arguments{L"--definitions", L"d", L"--data", L"x", L"--script", L"s"}, options, problem));
    EXPECT_TRUE(options.open) << "nobody would choose the menu";
}

TEST(Options, EveryOptionReachesItsField) {
    const Arguments arguments{L"--open", L"--definitions", L"d.json",     L"--data", L"x",        L"--users", L"u.json",
                              L"--user", L"mira",          L"--language", L"de",     L"--script", L"s"};
    qv::Options options;
    std::wstring problem;
    ASSERT_TRUE(qv::ParseOptions(arguments, options, problem)) << problem;
    EXPECT_TRUE(options.open);
    EXPECT_EQ(
        (Arguments{options.definitions, options.data, options.users, options.user, options.language, options.script}),
        (Arguments{L"d.json", L"x", L"u.json", L"mira", L"de", L"s"}));
    EXPECT_TRUE(qv::ParseOptions(Arguments{L"--help"}, options, problem)) << "asks for nothing else";
}

}  // namespace
