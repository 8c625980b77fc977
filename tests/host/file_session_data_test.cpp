#include "tests/host/session_files.h"

namespace {

using SessionFiles = qvtest::SessionFiles;

TEST_F(SessionFiles, SavedValueOutlivesTheProgramAndAWrittenOneDoesNot) {
    const std::pair<SESSIONDATATYPE, const wchar_t*> scopes[] = {{SDT_userData, L"user.json"},
                                                                 {SDT_machineData, L"machine.json"},
                                                                 {SDT_userDataDB, L"userdb.json"},
                                                                 {SDT_globalData, L"global.json"}};
    for (const auto& [scope, file] : scopes) {
        const std::wstring text = std::wstring(L"\"ä\\\n€\" in ") + file;
        {
            const auto data = Start();
            SessionCaller caller(*data.Get());
            ASSERT_EQ(caller.Write(scope, L"common", L"unsaved", L"x"), S_OK);
            ASSERT_TRUE(caller.Store(scope, L"common", L"saved", text));
        }
        EXPECT_EQ(ReadAfresh(scope, L"Common", L"Saved"), text);
        EXPECT_EQ(ReadAfresh(scope, L"common", L"unsaved"), std::nullopt) << "saving one value saves no other";
    }
    EXPECT_EQ(m_folder.Files(), (Texts{L"global.json", L"machine.json", L"user.json", L"userdb.json"}));
    EXPECT_TRUE(m_problems.empty());
}

TEST_F(SessionFiles, LoadingAgainSeesOtherProgramsSavesAndKeepsOwnWrites) {
    const auto mine = Start();
    const auto other = Start();
    SessionCaller me(*mine.Get());
    ASSERT_TRUE(me.Store(SDT_userData, L"k", L"a", L"1"));
    ASSERT_EQ(me.Write(SDT_userData, L"k", L"b", L"mine"), S_OK);
    ASSERT_EQ(other->LoadData(SDT_userData), S_OK);
    ASSERT_TRUE(SessionCaller(*other.Get()).Store(SDT_userData, L"k", L"a", L"2"));
    EXPECT_EQ(me.Read(SDT_userData, L"k", L"a"), L"1");
    ASSERT_EQ(mine->LoadData(SDT_userData), S_OK);
    EXPECT_EQ(me.Read(SDT_userData, L"k", L"a"), L"2");
    EXPECT_EQ(me.Read(SDT_userData, L"k", L"b"), L"mine");
}

TEST_F(SessionFiles, DamagedFileIsKeptAsideAndReportedAndOthersAreUntouched) {
    const struct {
        const char* name;
        const char* content;
        const wchar_t* reported;           // part of the message
        std::optional<std::wstring> kept;  // what is left of common/a
    } cases[] = {
        {"cut off", "{\n \"common\": { \"a\": \"1\"", L"line 2", std::nullopt},
        {"empty", "", L"line 1", std::nullopt},
        {"a list", "[1]", L"a list", std::nullopt},
        {"no texts", "{ \"x\": 1, \"common\": { \"a\": \"1\", \"b\": [] } }", L"x: expected an object", L"1"},
        {"null", "{ \"common\": { \"a\": 1, \"b\": null } }", L"common/b: expected a text, found null", L"1"},
        {"bottomless",
         "{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":"
         "{\"a\":{\"a\":{\"a\":{\"a\":{\"a\":1}}}}}}}}}}}}}}}}}}",
         L"nested", std::nullopt},
    };
    int damaged = 0;
    for (const auto& c : cases) {
        m_problems.clear();
        m_folder.Write(L"user.json", c.content);
        m_folder.Write(L"machine.json", "{\"common\": {\"m\": \"2\"}}");
        const auto data = Start();
        SessionCaller caller(*data.Get());
        EXPECT_EQ(data->LoadData(SDT_allData), S_OK) << c.name;
        EXPECT_EQ(caller.Read(SDT_userData, L"common", L"a"), c.kept) << c.name;
        EXPECT_EQ(caller.Read(SDT_machineData, L"common", L"m"), L"2") << c.name;
        ASSERT_EQ(m_problems.size(), 1u) << c.name;
        EXPECT_NE(m_problems[0].find(c.reported), std::wstring::npos) << c.name << ": " << m_problems[0];
        const std::wstring aside =
            ++damaged == 1 ? L"user.json.damaged" : L"user.json.damaged." + std::to_wstring(damaged);
        EXPECT_EQ(m_folder.Read(aside), c.content) << c.name;

        EXPECT_TRUE(caller.Store(SDT_userData, L"common", L"z", L"new")) << c.name;
        EXPECT_EQ(ReadAfresh(SDT_userData, L"common", L"a"), c.kept) << c.name << ": after the save";
        EXPECT_EQ(m_problems.size(), 1u) << "reported once";
    }
}

TEST_F(SessionFiles, NumbersAndBooleansAreTakenAsTheirText) {
    m_folder.Write(L"user.json",
                   "\xEF\xBB\xBF{\"k\": {\"i\": -12, \"f\": 1.50e3, \"b\": true, \"big\": 18446744073709551615}}");
    const auto data = Start();
    EXPECT_EQ(SessionCaller(*data.Get()).Values(L"k", SDT_userData),
              (Texts{L"i", L"-12", L"f", L"1.50e3", L"b", L"true", L"big", L"18446744073709551615"}));
    EXPECT_TRUE(m_problems.empty());
}

TEST_F(SessionFiles, FileThatCannotBeReadIsNeverReplaced) {
    m_folder.Write(L"user.json", "{\"k\": {\"v\": \"precious\"}}");
    const HANDLE lock =
        ::CreateFileW(m_folder.At(L"user.json").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    const auto data = Start();
    SessionCaller caller(*data.Get());
    EXPECT_EQ(data->LoadData(SDT_userData), S_OK) << "the dialog is not blocked";
    EXPECT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(caller.Write(SDT_userData, L"k", L"v", L"poor"), S_OK);
    EXPECT_NE(caller.Save(SDT_userData, L"k", L"v"), S_OK);
    ::CloseHandle(lock);
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"v"), L"precious");
    EXPECT_EQ(data->LoadData(SDT_userData), S_OK);
    EXPECT_EQ(caller.Save(SDT_userData, L"k", L"v"), S_OK) << "readable again, saved again";
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"v"), L"poor");
}

TEST_F(SessionFiles, ScopeWithoutAFileLivesInMemory) {
    const auto data = Start();
    EXPECT_TRUE(SessionCaller(*data.Get()).Store(SDT_volatileData, L"k", L"v", L"1"));
    EXPECT_EQ(SessionCaller(*data.Get()).Read(SDT_volatileData, L"k", L"v"), L"1");
    EXPECT_EQ(m_folder.Files(), Texts{});
}

}  // namespace
