// The type library, read back by the platform. Windows only: type libraries exist nowhere else.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "framework/com.h"
#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

namespace {

const int kInsideProgram = 0;

std::wstring HelpText(ITypeInfo& info, MEMBERID member) {
    const auto text =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return info.GetDocumentation(member, nullptr, out, nullptr, nullptr); });
    return qv::TextOf(text.value.Get());
}

class TypeLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        std::array<wchar_t, MAX_PATH> path{};
        GetModuleFileNameW(qv::ModuleFromAddress(&kInsideProgram), path.data(), MAX_PATH);
        library = qv::Receive<qv::ComPtr<ITypeLib>>([&](ITypeLib** out) {
                      return LoadTypeLibEx(path.data(), REGKIND_NONE, out);
                  }).value;
        ASSERT_TRUE(library);
    }
    qv::ComPtr<ITypeInfo> Find(const GUID& id) {
        return qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return library->GetTypeInfoOfGuid(id, out); })
            .value;
    }
    qv::ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, IsTheSettingsLibraryInItsVersionAndLocale) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, LIBID_QVSETTINGSDIALOGLib));
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 1033U);
    library->ReleaseTLibAttr(attributes);
    const auto name =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return library->GetDocumentation(-1, out, nullptr, nullptr, nullptr); });
    const auto help =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return library->GetDocumentation(-1, nullptr, out, nullptr, nullptr); });
    EXPECT_EQ(qv::TextOf(name.value.Get()), L"QVSETTINGSDIALOGLib");
    EXPECT_EQ(qv::TextOf(help.value.Get()), L"QVSettingsDialog 1.0 Type Library");
}

struct Member {
    const wchar_t* name;
    MEMBERID id;
    INVOKEKIND kind;
    const wchar_t* help;
    std::vector<std::wstring> parameters;
};

struct InterfaceCase {
    const char* name;
    const IID& id;
    const wchar_t* help;
    std::vector<Member> members;
};

TEST_F(TypeLibrary, DescribesBothInterfacesMemberByMember) {
    const InterfaceCase cases[] = {
        {"manager",
         IID_IQVSettingsDialogManager,
         L"IQVSettingsDialogManager Interface",
         {{L"CreateModalDialog", 0x60010000, INVOKE_FUNC, L"method CreateModalDialog", {L"bstrCaption"}},
          {L"CreateModalDialogEx",
           0x60010001,
           INVOKE_FUNC,
           L"method CreateModalDialogEx",
           {L"bstrCaption", L"piSettingsDialogDataIO", L"pRetVal"}},
          {L"m_CtrlPath", 0x60010002, INVOKE_PROPERTYGET, L"property m_CtrlPath", {L"pVal"}},
          {L"m_CtrlPath", 0x60010002, INVOKE_PROPERTYPUT, L"property m_CtrlPath", {}},
          {L"GetOptionKey", 0x60010004, INVOKE_FUNC, L"method GetOptionKey", {L"pbstrOptionKey"}},
          {L"SetOptionKey", 0x60010005, INVOKE_FUNC, L"method SetOptionKey", {L"bstrOptionKey"}}}},
        {"data",
         IID_IQVSettingsDialogDataIO,
         L"IQVSettingsDialogDataIO Interface",
         {{L"GetData",
           0x60010000,
           INVOKE_FUNC,
           L"method GetData",
           {L"bstrKeyName", L"bstrValueName", L"varType", L"pVariantValue", L"dataType"}},
          {L"WriteData",
           0x60010001,
           INVOKE_FUNC,
           L"method WriteData",
           {L"bstrKeyName", L"bstrValueName", L"VariantValue", L"dataType"}},
          {L"SaveData", 0x60010002, INVOKE_FUNC, L"method SaveData", {L"dataType", L"bstrKeyName", L"bstrValueName"}}}},
    };
    for (const InterfaceCase& each : cases) {
        SCOPED_TRACE(each.name);
        const qv::ComPtr<ITypeInfo> info = Find(each.id);
        ASSERT_TRUE(info);
        EXPECT_EQ(HelpText(*info.Get(), MEMBERID_NIL), each.help);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        EXPECT_EQ(attributes->wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE), 0);
        ASSERT_EQ(attributes->cFuncs, each.members.size());
        info->ReleaseTypeAttr(attributes);
        for (UINT i = 0; i < each.members.size(); ++i) {
            const Member& member = each.members[i];
            SCOPED_TRACE(i);
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
            EXPECT_EQ(function->memid, member.id);
            EXPECT_EQ(function->invkind, member.kind);
            EXPECT_EQ(function->oVft, static_cast<SHORT>((3 + i) * sizeof(void*)));
            std::array<BSTR, 8> names{};
            UINT count = 0;
            info->GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count);
            if (member.kind != INVOKE_PROPERTYPUT) {  // names are asked by number, and the getter has the same one
                std::vector<std::wstring> texts;
                for (UINT n = 0; n < count; ++n)
                    texts.push_back(qv::TextOf(names[n]));
                std::vector<std::wstring> expected{member.name};
                expected.insert(expected.end(), member.parameters.begin(), member.parameters.end());
                EXPECT_EQ(texts, expected);
                EXPECT_EQ(HelpText(*info.Get(), function->memid), member.help);
            }
            for (BSTR name : names)
                SysFreeString(name);
            info->ReleaseFuncDesc(function);
        }
    }
}

TEST_F(TypeLibrary, DescribesTheClassAndTheScopes) {
    const qv::ComPtr<ITypeInfo> coclass = Find(CLSID_QVSettingsDialogManager);
    ASSERT_TRUE(coclass);
    EXPECT_EQ(HelpText(*coclass.Get(), MEMBERID_NIL), L"QVSettingsDialogManager Class");
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(coclass->GetTypeAttr(&attributes), S_OK);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(attributes->cImplTypes, 1);
    coclass->ReleaseTypeAttr(attributes);

    qv::ComPtr<ITypeInfo> scopes;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        library->GetTypeInfoType(i, &kind);
        if (kind != TKIND_ENUM) continue;
        scopes =
            qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return library->GetTypeInfo(i, out); }).value;
    }
    ASSERT_TRUE(scopes);
    const std::pair<const wchar_t*, int> expected[] = {
        {L"SDT_allData", 0},      {L"SDT_globalData", 1},   {L"SDT_userDataDB", 2},
        {L"SDT_machineData", 3},  {L"SDT_userData", 4},     {L"SDT_volatileData", 5},
        {L"SDT_UserSpec1", 1000}, {L"SDT_UserSpec2", 1001}, {L"SDT_UserSpec3", 1002},
    };
    for (UINT i = 0; i < std::size(expected); ++i) {
        VARDESC* value = nullptr;
        ASSERT_EQ(scopes->GetVarDesc(i, &value), S_OK);
        UINT count = 0;
        const auto name =
            qv::Receive<qv::Bstr>([&](BSTR* out) { return scopes->GetNames(value->memid, out, 1, &count); });
        EXPECT_EQ(qv::TextOf(name.value.Get()), expected[i].first);
        EXPECT_EQ(value->lpvarValue->lVal, expected[i].second);
        scopes->ReleaseVarDesc(value);
    }
}

}  // namespace
