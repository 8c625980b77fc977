// What a person does in the dialog, from the files that the host starts with to the files that it leaves.
#include <algorithm>

#include "tests/app/sample_host_fixture.h"

namespace {

class UserSession : public SampleHostTest {
protected:
    void SetUp() override { CopyStationFiles(); }

    // All scopes' files as one text.
    [[nodiscard]] std::string AllFiles() const {
        std::string all;
        for (const wchar_t* file : {L"user.json", L"machine.json", L"userdb.json", L"global.json"})
            all += folder.Read(file) + "\n--\n";
        return all;
    }
};

TEST_F(UserSession, StoresChangesInEveryScopeAndShowsThemTheNextTime) {
    Run("set person/name Ada\nset station/mount A mast\nset team/open off\nset network/port 8080\n"
        "set station/height 12.5\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(told, Lines{});
    EXPECT_EQ(Stored(L"user", "person", "name"), L"Ada");
    EXPECT_EQ(Stored(L"machine", "station", "mount"), L"mast");
    EXPECT_EQ(Stored(L"machine", "station", "height"), L"12.5") << "what is typed is not reformatted";
    EXPECT_EQ(Stored(L"userdb", "team", "open"), L"0");
    EXPECT_EQ(Stored(L"global", "network", "port"), L"8080");
    EXPECT_EQ(std::count(changes.begin(), changes.end(), L"user person/name = \"Ada\" (was \"Mira, 2,5\")"), 1)
        << "told when the dialog is closed, while the program goes on";

    Run(DumpAction() + "press cancel");
    EXPECT_EQ(problem, L"");
    const std::pair<const char*, const char*> shown[] = {
        {"person/name", "Ada"}, {"station/mount", "A mast"}, {"station/height", "12.500000"},
        {"team/open", "0"},     {"network/port", "8080"},    {"network/server", "collect.example.org"},
    };
    for (const auto& [item, value] : shown)
        EXPECT_EQ(Row(item)["value"], value) << item;
}

TEST_F(UserSession, StoresUntouchedValuesByTheFormatOfTheirKind) {
    Run("press ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "person", "width"), L"2.250000");
    EXPECT_EQ(Stored(L"user", "person", "name"), L"Mira, 2,5");
    EXPECT_EQ(Stored(L"machine", "station", "odd"), L"0") << "unreadable";
    EXPECT_EQ(Stored(L"machine", "station", "height"), L"10") << "the default as it is written";
    EXPECT_EQ(Stored(L"userdb", "team", "open"), L"1");
    EXPECT_EQ(Stored(L"global", "network", "port"), L"443");
}

TEST_F(UserSession, DecimalCommaBecomesAPointInEveryKindButText) {
    qv::SetNumberLocale({true, L",", L"."});
    Run("set person/width 3,75\nset station/mount Two, five\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "person", "width"), L"3.75");
    EXPECT_EQ(Stored(L"machine", "station", "mount"), L"2.5");  // deliberate: a list entry is no text
    EXPECT_EQ(Stored(L"user", "person", "name"), L"Mira, 2,5");
    EXPECT_EQ(Stored(L"userdb", "team", "motto"), L"Rain, again");
}

TEST_F(UserSession, CancelAndEscapeStoreNothing) {
    const std::string before = AllFiles();
    for (const char* end : {"press cancel", "key ESC", "page Team\npress cancel"}) {
        Run(std::string("set person/name Nobody\nset person/recent 3\n") + end);
        EXPECT_EQ(problem, L"") << end;
        EXPECT_EQ(AllFiles(), before) << end;
    }
}

TEST_F(UserSession, RefusalBringsTheNumberToTheFrontWithItsTextSelected) {
    const std::string before = AllFiles();
    for (const char* button : {"apply", "ok"}) {
        SCOPED_TRACE(button);
        // What is typed after the refusal replaces the whole number.
        Run("set network/port 70000\nset team/motto Sun\nset person/name Ada\npress " + std::string(button) + "\n" +
            DumpAction() + "type 81\npress apply\npress cancel");
        EXPECT_EQ(problem, L"");
        EXPECT_EQ(told, Lines{L"message box \"&Port\": Data out of range !\nRange[1, 65535]\nActValue = 70000\n"
                              L"Correct your inputs"});
        EXPECT_EQ(Dump()["activePage"], 3);
        EXPECT_EQ(Row("network/port")["focus"], true);
        EXPECT_EQ(Row("network/port")["value"], "70000");
        EXPECT_EQ(Stored(L"global", "network", "port"), L"81");
    }
    EXPECT_NE(AllFiles(), before);
}

TEST_F(UserSession, ObserverSeesEverythingAndChangesOnlyTheirOwn) {
    options.users = folder.At(L"users.json");
    options.user = L"observer";
    Run(DumpAction() + "set person/name Ada\nset team/motto Sun\npress ok");
    EXPECT_EQ(problem, L"");
    const std::pair<const char*, bool> rows[] = {
        {"person/name", true}, {"station/mount", false}, {"team/motto", true}, {"network/server", false}};
    for (const auto& [item, enabled] : rows)
        EXPECT_EQ(Row(item)["enabled"], enabled) << item;
    EXPECT_EQ(Stored(L"user", "person", "name"), L"Ada");
    EXPECT_EQ(Stored(L"userdb", "team", "motto"), L"Sun");
    EXPECT_EQ(Stored(L"machine", "station", "odd"), L"two") << "a greyed row is not stored";
    EXPECT_EQ(folder.Read(L"global.json"), "");

    Run("set station/height 3\npress cancel");
    EXPECT_EQ(problem, L"line 1: station/height may not be changed");
    options.user = L"stranger";
    Run("press cancel");
    EXPECT_NE(problem.find(L"does not list the user \"stranger\""), std::wstring::npos) << problem;
}

TEST_F(UserSession, KeyboardAloneIsEnough) {
    // To the first field by its letter, down and up again with Tab, Enter is OK.
    Run("key ALT+N\nkey TAB\ntype 12\nkey TAB\nkey TAB\nkey SHIFT+TAB\ntype 3.5\nkey ENTER");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "person", "recent"), L"12");
    EXPECT_EQ(Stored(L"user", "person", "width"), L"3.5");
}

TEST_F(UserSession, DialogInFrontHearsTheButtonsFirst) {
    Run("press person/note\ntype Bring a spare battery\npress ok\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "person", "note"), L"Bring a spare battery");
    Run("press person/note\ntype Nothing\npress cancel\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(Stored(L"user", "person", "note"), L"Bring a spare battery");
}

}  // namespace
