// Definition files that a person may hand to the program by mistake: each ends in one line that says what is wrong and
// an exit status, or in a dialog that makes the best of it. The program itself is run for one of each.
#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "tests/app/sample_host_fixture.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;
constexpr int kUnusableFile = 3;

class BadDefinitions : public SampleHostTest {
protected:
    // Runs the built program as a shell does. Its exit status; errors: what it wrote to the standard error stream.
    int RunProgram(const std::string& arguments, std::string& errors) const {
        std::wstring program(32768, L'\0');
        program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
        program = program.substr(0, program.find_last_of(L"\\/") + 1) + L"qvhost";
        const std::wstring files = L" > " + folder.At(L"out.txt") + L" 2> " + folder.At(L"err.txt");
        const std::string command = qv::ToUtf8(program) + " " + arguments + qv::ToUtf8(files);
        const int status = std::system(command.c_str());
        errors = folder.Read(L"err.txt");
        // Where a status also tells of signals, the exit code stands in its second byte.
        return status > 255 ? status >> 8 : status;
    }
};

std::string Tree(const std::string& keys) {
    return R"({ "option-configuration": { )" + keys + " } }";
}
std::string Item(const std::string& attributes) {
    return Tree(R"("pages": { "1": "One" }, "k": { "n": { "pagenumber": 1, )" + attributes + " } }");
}

TEST_F(BadDefinitions, TreesWithNothingToShowAreToldInABox) {
    for (const std::string& content :
         {std::string("{}"), Tree(""), Tree(R"("k": { "n": { "type": 1 } })"), Tree(R"("pages": {})"),
          std::string(R"({ "other": { "pages": { "1": "One" } } })")}) {
        folder.Write(L"definitions.json", content);
        Run("press ok");
        EXPECT_EQ(problem, L"no settings dialog appeared") << content;
        ASSERT_EQ(told.size(), 1u) << content;
        EXPECT_NE(told[0].find(L"No settings defined"), std::wstring::npos) << told[0];
    }
}

TEST_F(BadDefinitions, OddTreesStillOpen) {
    const std::string longText(100000, 'x');
    const struct {
        const char* name;
        std::string content;
        std::size_t pages;
        std::size_t rows;
    } cases[] = {
        {"item on a page without a title",
         Tree(
             R"("pages": { "1": "One" }, "k": { "n": { "type": 3, "pagenumber": 7 }, "m": { "type": 3, "pagenumber": 1 } })"),
         1, 1},
        {"numbers and booleans for texts", Item(R"("type": 1.0, "label": true, "default": 5, "ordernumber": -3.5e2)"),
         1, 1},
        {"unknown type", Item(R"("type": 99 }, "m": { "type": 3, "pagenumber": 1)"), 1, 1},
        {"no type", Item(R"("label": "x" }, "m": { "type": 3, "pagenumber": 1)"), 1, 1},
        {"texts of 100,000 characters",
         Item(R"("type": 4, "label": ")" + longText + R"(", "default": ")" + longText + R"(", "value1": ")" + longText +
              "|" + longText + "\""),
         1, 1},
        {"a long text to edit", Item(R"("type": 3, "label": "x", "default": ")" + longText + "\""), 1, 1},
        {"attributes that are no numbers",
         Item(R"("type": 1, "ordernumber": "first", "lowerbound": "a", "upperbound": "99999999999999999999",
                 "globaldata": "x", "functiongroup": "-7", "default": 0)"),
         1, 1},
        {"bounds the wrong way round", Item(R"("type": 2, "lowerbound": 9, "upperbound": 1, "default": "nan")"), 1, 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        folder.Write(L"definitions.json", each.content);
        Run(DumpAction() + "press cancel");
        EXPECT_EQ(problem, L"");
        const auto dump = Dump();
        ASSERT_EQ(dump["pages"].size(), each.pages);
        EXPECT_EQ(dump["pages"][0]["rows"].size(), each.rows);
    }
}

TEST_F(BadDefinitions, ProgramEndsWithItsExitStatus) {
    CopyStationFiles();
    folder.Write(L"broken.json", "{ broken");
    folder.Write(L"empty.json", "{}");
    folder.Write(L"bare.json", Tree(R"("pages": { "1": "Nobody's" })"));
    folder.Write(L"ok.script", "press ok");
    folder.Write(L"page.script", "page 0");
    folder.Write(L"wrong.script", "dance");
    const std::string at = qv::ToUtf8(folder.Path()) + "/";
    const auto with = [&](const std::string& definitions, const std::string& script) {
        return "--definitions " + at + definitions + " --data " + at + " --script " + at + script;
    };
    const struct {
        std::string arguments;
        int status;
        const char* error;
    } cases[] = {
        {with("definitions.json", "ok.script"), kDone, ""},
        {with("broken.json", "ok.script"), kUnusableFile, "is not valid JSON"},
        {with("nowhere.json", "ok.script"), kUnusableFile, "there is no such file"},
        {with("definitions.json", "wrong.script"), kUnusableFile, "line 1: unknown action \"dance\""},
        {with("empty.json", "ok.script"), kFailed, "no settings dialog appeared"},
        {with("bare.json", "ok.script"), kDone, ""},
        {with("bare.json", "page.script"), kFailed, "line 1: there is no page \"0\""},
        {"--definitions x", kWrongCommandLine, "are needed"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        std::string errors;
        EXPECT_EQ(RunProgram(each.arguments, errors), each.status);
        EXPECT_NE(errors.find(each.error), std::string::npos) << errors;
        EXPECT_LE(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    }
}

}  // namespace
