#include <gtest/gtest.h>

#include "tests/host/session_caller.h"
#include "tests/support/memory_session_data.h"

namespace {

using Texts = std::vector<std::wstring>;

class SessionData : public testing::Test {
protected:
    qv::ComPtr<qv::MemorySessionData> m_data = qv::MemorySessionData::Create();
    SessionCaller m_caller{*m_data.Get()};
};

TEST_F(SessionData, ValueOfSeveralScopesIsAnsweredFromTheMostPersonalOne) {
    const std::pair<SESSIONDATATYPE, const wchar_t*> scopes[] = {{SDT_globalData, L"global"},
                                                                 {SDT_machineData, L"machine"},
                                                                 {SDT_userDataDB, L"userdb"},
                                                                 {SDT_userData, L"user"}};
    EXPECT_FALSE(m_caller.Read(SDT_allData, L"common", L"v"));
    for (const auto& [scope, text] : scopes) {
        m_data->Put(scope, L"common", L"v", text);
        EXPECT_EQ(m_caller.Read(SDT_allData, L"common", L"v"), text);
    }
    EXPECT_EQ(m_caller.Read(SDT_machineData, L"common", L"v"), L"machine");
    EXPECT_EQ(m_caller.Values(L"common", SDT_allData), (Texts{L"v", L"user"}));
    EXPECT_FALSE(m_caller.Read(SDT_volatileData, L"common", L"v"));
}

TEST_F(SessionData, KeysAndNamesCompareWithoutCaseAndKeepTheirFirstSpelling) {
    ASSERT_TRUE(m_caller.Store(SDT_userData, L"Common/Sub", L"Größe", L"1"));
    ASSERT_TRUE(m_caller.Store(SDT_userData, L"/common/SUB/", L"GRÖSSE", L"2")) << "another name";
    ASSERT_TRUE(m_caller.Store(SDT_userData, L"COMMON/sub", L"GRÖßE", L"3"));
    EXPECT_EQ(m_caller.Values(L"common/sub", SDT_userData), (Texts{L"Größe", L"3", L"GRÖSSE", L"2"}));
    EXPECT_EQ(m_caller.SubKeys(L"COMMON", 0, SDT_userData), (Texts{L"Common/Sub"}));
}

TEST_F(SessionData, DefinitionsAreListedByChildrenOrByEveryKeyWithValues) {
    m_data->Define(L"options/pages", L"1", L"General");
    m_data->Define(L"options/common/b", L"type", L"1");
    m_data->Define(L"options/Common/a", L"type", L"2");
    m_data->Define(L"options/files/workdir", L"type", L"7");
    m_data->Define(L"optionsmore/x/y", L"type", L"1");
    m_data->Definitions().AddKey(L"options/empty/item");
    for (const SESSIONDATATYPE scope : {SDT_machineData, SDT_userData, SDT_allData, SDT_UserSpec2}) {
        EXPECT_EQ(m_caller.SubKeys(L"OPTIONS", 0, scope),
                  (Texts{L"options/pages", L"options/common", L"options/files", L"options/empty"}));
        EXPECT_EQ(m_caller.SubKeys(L"options", 1, scope),
                  (Texts{L"options/pages", L"options/common/b", L"options/Common/a", L"options/files/workdir"}));
    }
    EXPECT_EQ(m_caller.SubKeys(L"options/none", 0), Texts{});
    EXPECT_EQ(m_caller.Values(L"options/empty/item"), Texts{}) << "known, without values";
    EXPECT_EQ(m_caller.Values(L"options/none"), std::nullopt) << "unknown";
}

TEST_F(SessionData, KeyOfSeveralSourcesIsListedOnceAsTheFirstSpellsIt) {
    m_data->Define(L"options/common/b", L"type", L"1");
    m_data->Define(L"options/files/c", L"type", L"1");
    m_data->Put(SDT_machineData, L"Options/Common/B", L"v", L"1");
    m_data->Put(SDT_userData, L"options/COMMON/d", L"v", L"1");
    EXPECT_EQ(m_caller.SubKeys(L"options", 0, SDT_allData), (Texts{L"options/COMMON", L"options/files"}));
    EXPECT_EQ(m_caller.SubKeys(L"options", 1, SDT_allData),
              (Texts{L"options/COMMON/d", L"Options/Common/B", L"options/files/c"}));
}

TEST_F(SessionData, WriteIsSeenAtOnceAndPermanentOnlyWhenSaved) {
    ASSERT_EQ(m_caller.Write(SDT_userData, L"k", L"v", L"new"), S_OK);
    EXPECT_EQ(m_caller.Read(SDT_userData, L"k", L"v"), L"new");
    EXPECT_EQ(m_data->GetSaved(SDT_userData, L"k", L"v"), nullptr);
    ASSERT_EQ(m_caller.Save(SDT_userData, L"k", L"v"), S_OK);
    EXPECT_EQ(*m_data->GetSaved(SDT_userData, L"k", L"v"), L"new");

    EXPECT_NE(m_caller.Save(SDT_userData, L"k", L"never written"), S_OK);
    EXPECT_NE(m_caller.Write(SDT_allData, L"k", L"v", L"x"), S_OK) << "no single place to keep it";
    EXPECT_NE(m_caller.Write(SDT_userData, L"k", L"", L"x"), S_OK);
}

TEST_F(SessionData, ValuesOfOtherTypesAreConvertedOnTheWayInAndOut) {
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = -42;
    ASSERT_EQ(m_data->WriteData(qv::Bstr(L"k").Get(), qv::Bstr(L"v").Get(), number, SDT_userData), S_OK);
    EXPECT_EQ(m_caller.Read(SDT_userData, L"k", L"v"), L"-42");
    VARIANT read{};
    ASSERT_EQ(m_data->ReadData(qv::Bstr(L"k").Get(), qv::Bstr(L"v").Get(), VT_I4, &read, SDT_userData), S_OK);
    EXPECT_EQ(read.lVal, -42);
    m_data->Put(SDT_userData, L"k", L"v", L"no number");
    EXPECT_NE(m_data->ReadData(qv::Bstr(L"k").Get(), qv::Bstr(L"v").Get(), VT_I4, &read, SDT_userData), S_OK);
}

TEST_F(SessionData, NullArgumentsAreRefusedOrEmpty) {
    ULONG count = 0;
    BSTR* block = nullptr;
    EXPECT_EQ(m_data->EnumSubKeys(nullptr, 0, nullptr, &block, SDT_userData), E_POINTER);
    EXPECT_EQ(m_data->EnumValues(nullptr, &count, nullptr, SDT_userData), E_POINTER);
    EXPECT_EQ(m_data->ReadData(nullptr, nullptr, VT_BSTR, nullptr, SDT_userData), E_POINTER);
    ASSERT_TRUE(m_caller.Store(SDT_userData, L"", L"v", L"root")) << "a null key is the empty one";
    const auto value = qv::Receive<qv::Variant>(
        [&](VARIANT* out) { return m_data->ReadData(nullptr, qv::Bstr(L"v").Get(), VT_BSTR, out, SDT_userData); });
    EXPECT_EQ(value.value.Text(), L"root");
}

}  // namespace
