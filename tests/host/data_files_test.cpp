#include "host/services/data_files.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "tests/host/session_caller.h"
#include "tests/support/memory_session_data.h"
#include "tests/support/temporary_folder.h"

namespace {

using Texts = std::vector<std::wstring>;

class DataFiles : public testing::Test {
protected:
    std::wstring File(std::string_view content) {
        m_folder.Write(L"file.json", content);
        return m_folder.At(L"file.json");
    }
    qvtest::TemporaryFolder m_folder;
};

TEST_F(DataFiles, DefinitionFileBecomesTheDefinitionTreeInItsOwnOrder) {
    const auto data = qv::MemorySessionData::Create();
    SessionCaller caller(*data.Get());
    EXPECT_EQ(qv::LoadDefinitions(File(R"({ "Option": {
        "Pages": { "2": "Second", "1": "First" },
        "zoo": { "b": { "type": 1, "label": "B", "default": 2.50 }, "a": { "type": "0", "default": true } },
        "air": { "none": {} } } })"),
                                  data->Definitions()),
              L"");
    EXPECT_EQ(caller.SubKeys(L"option", 1), (Texts{L"Option/Pages", L"Option/zoo/b", L"Option/zoo/a"}));
    EXPECT_EQ(caller.SubKeys(L"option", 0), (Texts{L"Option/Pages", L"Option/zoo", L"Option/air"}));
    EXPECT_EQ(caller.Values(L"option/pages"), (Texts{L"2", L"Second", L"1", L"First"}));
    EXPECT_EQ(caller.Values(L"option/zoo/b"), (Texts{L"type", L"1", L"label", L"B", L"default", L"2.50"}));
    EXPECT_EQ(caller.Values(L"option/zoo/a"), (Texts{L"type", L"0", L"default", L"true"}));
}

TEST_F(DataFiles, DefinitionFileOfAWrongShapeIsRefusedWithOnePlace) {
    const struct {
        std::string content;
        const wchar_t* message;
    } cases[] = {
        {"", L"is not valid JSON"},
        {"settings = 1", L"is not valid JSON"},
        {std::string("\xff\xfe{\0}\0", 6), L"is not valid JSON"},
        {"{ \"o\": { \"k\": \"\xc3\x28\" } }", L"is not valid JSON"},
        {std::string(100000, '['), L"nested too deeply"},
        {"null", L"expected an object, found null"},
        {"[]", L"the document: expected an object, found a list"},
        {R"({"o": {"pages": ["One"]}})", L"o/pages: expected an object, found a list"},
        {R"({"o": {"pages": {"1": {"title": "One"}}}})", L"expected a text, found an object"},
        {R"({"o": 1})", L"o: expected an object, found a text"},
        {R"({"o": {"pages": {"1": null}}})", L"o/pages/1: expected a text, found null"},
        {R"({"o": {"k": {"n": "text"}}})", L"o/k/n: expected an object, found a text"},
        {R"({"o": {"k": {"n": {"type": [1]}}}})", L"o/k/n/type: expected a text, found a list"},
        {R"({"o": {"k": {"n": {"type": 1, "TYPE": 2}}}})", L"o/k/n/TYPE: given twice"},
        {"{\n\n  \"o\": {,", L"line 3, column 9"},
        {"{} {}", L"line 1, column 4"},
    };
    for (const auto& c : cases) {
        qv::ScopeData definitions;
        definitions.Set(L"old", L"name", L"text");
        const std::wstring problem = qv::LoadDefinitions(File(c.content), definitions);
        EXPECT_NE(problem.find(c.message), std::wstring::npos) << c.content.substr(0, 60) << L" gives " << problem;
        EXPECT_NE(problem.find(L"file.json"), std::wstring::npos);
        EXPECT_NE(definitions.Find(L"old", L"name"), nullptr) << "kept as it was";
    }
    qv::ScopeData definitions;
    EXPECT_NE(qv::LoadDefinitions(m_folder.At(L"none.json"), definitions).find(L"no such file"), std::wstring::npos);
}

TEST_F(DataFiles, UsersKeepTheRightsThatTheFileGrantsThem) {
    qv::MultiUserManager::UserRights users;
    EXPECT_EQ(qv::LoadUsers(File(R"({"users": {"anna": {"rights": ["r1", "r2"]}, "bert": {}}})"), users), L"");
    EXPECT_EQ(users[L"anna"], (std::set<std::wstring>{L"r1", L"r2"}));
    EXPECT_TRUE(users.contains(L"bert"));
    EXPECT_NE(qv::LoadUsers(File(R"({"user": {}})"), users), L"");
    EXPECT_NE(qv::LoadUsers(File(R"({"users": {"anna": {"rights": "all"}}})"), users), L"");
    EXPECT_EQ(users.size(), 2u) << "kept as they were";
}

TEST_F(DataFiles, UnitsKeepTheirOrderAndTheirEmptyPlaces) {
    std::unique_ptr<XUAAdmin> database;
    std::unique_ptr<XLMTranslDict> names;
    const std::wstring path = File(R"({"categories": {"LEN": ["m", null, "mm"], "NONE": []},
                                       "names": {"de": {"m": "Meter"}}})");
    EXPECT_EQ(qv::LoadUnits(path, L"DE", database, names), L"");
    ASSERT_NE(database, nullptr);
    const XUACategory* const length = database->FindCategory(L"LEN");
    ASSERT_NE(length, nullptr);
    std::vector<const XUAUnit*> units;
    length->GetUnits(units);
    ASSERT_EQ(units.size(), 3u);
    EXPECT_EQ(units[0]->GetName(), L"m");
    EXPECT_EQ(units[1], nullptr);
    EXPECT_EQ(units[2]->GetName(), L"mm");
    EXPECT_EQ(database->FindCategory(L"len"), nullptr);
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->StringTranslate(L"m"), L"Meter");
    EXPECT_EQ(names->StringTranslate(L"mm"), L"mm");
    EXPECT_EQ(qv::LoadUnits(path, L"fr", database, names), L"");
    EXPECT_EQ(names, nullptr) << "no names in this language";
}

TEST_F(DataFiles, FilesThatAreShippedCanBeRead) {
    const std::wstring folder = qv::FromUtf8(QV_HOST_DATA);
    std::unique_ptr<XUAAdmin> database;
    std::unique_ptr<XLMTranslDict> names;
    EXPECT_EQ(qv::LoadUnits(folder + L"/units.json", L"en", database, names), L"");
    ASSERT_NE(database, nullptr);
    EXPECT_NE(database->FindCategory(L"UA_LENGTH"), nullptr);
    qv::Dictionary dictionary;
    EXPECT_EQ(qv::LoadTranslations(folder + L"/translations.json", L"de", dictionary), L"");
    EXPECT_EQ(dictionary[L"Settings"], L"Einstellungen");
    qv::MultiUserManager::UserRights users;
    EXPECT_EQ(qv::LoadUsers(folder + L"/users.json", users), L"");
    EXPECT_EQ(users[L"administrator"], qv::AllSettingsRights());
}

}  // namespace
