// Every script ends, with a word if it did not go as written: whatever the definition tree makes of the dialog, and
// whatever stands in the way of a person's hands.
#include "base/text.h"
#include "framework/app.h"
#include "tests/app/sample_host_fixture.h"

namespace {

class ScriptEnd : public SampleHostTest {
protected:
    void Pages(const std::string& pages, const std::string& items) {
        folder.Write(L"definitions.json",
                     R"({ "option-configuration": { "pages": { )" + pages + " }, \"k\": { " + items + " } } }");
    }
    // Script and what comes of it.
    struct Case {
        std::string script;
        const wchar_t* problem;
    };
    void Expect(const std::vector<Case>& cases) {
        for (const Case& each : cases) {
            Run(each.script);
            EXPECT_EQ(problem, each.problem) << each.script;
        }
    }
};

constexpr const wchar_t* kLeftOpen = L"the script ended with the dialog open; it is cancelled";

TEST_F(ScriptEnd, DialogWithoutPagesIsSeenAndLeft) {
    const std::pair<const char*, const char*> trees[] = {
        {R"("1": "Nobody's")", ""},
        {R"("1": "Nobody's", "2": "Nor this")", R"("n": { "type": 3, "label": "Elsewhere", "pagenumber": 3 })"},
        {R"("1": "Dropped")", R"("n": { "type": 4, "pagenumber": 1, "value1": "|x" })"},
    };
    for (const auto& [pages, items] : trees) {
        SCOPED_TRACE(pages);
        Pages(pages, items);
        Expect({
            {"press ok", L""},
            {"press cancel", L""},
            {"key ESC", L""},
            {"key ENTER", L""},
            {"", kLeftOpen},
            {"press default", kLeftOpen},
            {"resize 300 200\nkey CTRL+PGDN\nkey TAB\npress cancel", L""},
            {"page 0\npress ok", L"line 1: there is no page \"0\""},
            {"set k/n 1", L"line 1: there is no item k/n"},
            {"press k/n", L"line 1: there is nothing to press for \"k/n\""},
            {"press ok\npress ok", L"line 2: the dialog is closed already"},
        });
        Run(DumpAction() + "press ok");
        EXPECT_EQ(problem, L"");
        EXPECT_EQ(Dump()["pages"].size(), 0u);
    }
}

TEST_F(ScriptEnd, PagesAreTurnedToByWhatTheyAreNotByTheirTitles) {
    // Titles that read like the numbers of other pages.
    Pages(R"("1": "2", "2": "0", "3": "1")", R"("a": { "type": 3, "label": "A", "pagenumber": 1, "globaldata": 0 },
        "b": { "type": 3, "label": "B", "pagenumber": 2, "globaldata": 0 },
        "c": { "type": 12, "label": "C", "pagenumber": 3, "globaldata": 0 })");
    Run("set k/b second\nset k/a first\npress k/c\npress cancel\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "k", "a"), L"first");
    EXPECT_EQ(Stored(L"user", "k", "b"), L"second");
}

// A window in front, among others, is neither reached through nor left behind.
TEST_F(ScriptEnd, WhatDoesNotFitTheDialogFailsInWordsAndStoresNothing) {
    CopyStationFiles();
    Expect({
        {"press person/note", L"the script ended with \"Edit text\" open; it and the dialog are cancelled"},
        {"press person/note\nset station/height 3", L"line 2: the page of station/height did not open"},
        {"press person/note\npage Team", L"line 2: page \"Team\" did not open"},
        {"press person/note\nset person/name Ada",
         L"line 2: person/name cannot be reached: it is hidden, greyed or behind another window"},
        {"press person/note\npress default",
         L"line 2: \"default\" cannot be reached: it is hidden, greyed or behind another window"},
        {"press person/note\npress person/note",
         L"line 2: \"person/note\" cannot be reached: it is hidden, greyed or behind another window"},
        {"press person/note\npress ok", kLeftOpen},
        {"press apply", L"line 1: \"apply\" is greyed"},
        {"set person/name Ada", kLeftOpen},
        {"press ok\nset person/name Ada", L"line 2: the dialog is closed already"},
        {"set person/nothing 1", L"line 1: there is no item person/nothing"},
        {"set station/mount A tree", L"line 1: station/mount has no entry \"A tree\""},
        {"page Somewhere", L"line 1: there is no page \"Somewhere\""},
        {"press nothing", L"line 1: there is nothing to press for \"nothing\""},
        {"key HYPER+X", L"line 1: unknown key \"HYPER+X\""},
    });
    EXPECT_EQ(Stored(L"user", "person", "name"), L"Mira, 2,5");
}

TEST_F(ScriptEnd, BoxesAndPickersWithoutAnAnswerAreLeftAsAPersonWouldLeaveThem) {
    Pages(R"("1": "One")", R"("n": { "type": 1, "label": "Number", "pagenumber": 1, "globaldata": 0,
            "default": 5, "lowerbound": 1, "upperbound": 50 },
        "f": { "type": 7, "label": "Folder", "pagenumber": 1, "globaldata": 0, "default": "before" },
        "c": { "type": 8, "label": "Colour", "pagenumber": 1, "globaldata": 0, "default": "255" })");
    // The refusals' boxes, one more than there are answers; then pickers that are answered with something else.
    Run("set k/n 77\npress ok\npress ok\nanswer ok\npress k/f\nanswer colour 3\npress k/f\npress k/c\n"
        "set k/n 7\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(told.size(), 5u) << testing::PrintToString(told);
    EXPECT_EQ(Stored(L"user", "k", "f"), L"before");
    EXPECT_EQ(Stored(L"user", "k", "c"), L"3");
}

TEST_F(ScriptEnd, KeyThatOpensTheSystemMenuIsRefused) {
    CopyStationFiles();
    Expect({{"key ALT+SPACE\nkey ESC", L"line 1: ALT+SPACE opens a menu, where a script cannot go on"},
            {"key alt+shift+space", L"line 1: alt+shift+space opens a menu, where a script cannot go on"},
            {"key ALT+F4", L""}});
}

// As the platform's menus and boxes do, which call nobody while they wait.
TEST_F(ScriptEnd, LoopThatIsNotTheFrameworksIsGivenUp) {
    CopyStationFiles();
    Pages(R"("1": "One")", R"("f": { "type": 7, "label": "Folder", "pagenumber": 1 })");
    onTold = [this] {
        onTold = {};
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        PostQuitMessage(0);
    };
    Run("press k/f\npress ok");
    EXPECT_EQ(problem, L"line 1: something that no script can answer waits for a person; the dialog is cancelled");
}

TEST_F(ScriptEnd, DialogThatNeverComesIsGivenUp) {
    Pages(R"("1": "One")",
          R"("n": { "type": 1, "pagenumber": 1, "default": 5, "lowerbound": 1, "upperbound": 2, "globaldata": 0 })");
    onTold = [this] {
        onTold = {};
        RunMessageLoop([] { return true; });
    };
    folder.Write(L"user.json", R"({ "k": { "n": "3" } })");
    Run("press ok");
    EXPECT_EQ(problem, L"no settings dialog appeared");
}

TEST_F(ScriptEnd, FileThatCannotBeWrittenFailsInWords) {
    CopyStationFiles();
    const std::wstring file = folder.At(L"no/such/folder.json");
    Run("set person/name Ada\ndump " + qv::ToUtf8(file));
    EXPECT_EQ(problem, L"line 2: " + file + L" could not be written");
}

}  // namespace
