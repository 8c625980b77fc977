// The type library that the DLL carries, read back as a development tool reads it: every member with its name,
// identifier, kind, help string and parameters.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "framework/com.h"
#include "framework/text.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

namespace {

struct Parameter {
    std::wstring name;
    std::wstring type;
    USHORT flags;
    bool operator==(const Parameter&) const = default;
};

struct Member {
    std::wstring name;
    MEMBERID id;
    INVOKEKIND kind;
    std::wstring help;
    std::vector<Parameter> parameters;
};

constexpr USHORT kIn = PARAMFLAG_FIN;
constexpr USHORT kOut = PARAMFLAG_FOUT;
constexpr USHORT kResult = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;

std::wstring NameOf(ITypeInfo& type) {
    const auto name = qv::Receive<qv::Bstr>(
        [&](BSTR* out) { return type.GetDocumentation(MEMBERID_NIL, out, nullptr, nullptr, nullptr); });
    return qv::TextOf(name.value.Get());
}

std::wstring TypeName(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
        case VT_PTR:
            return TypeName(type, *description.lptdesc) + L"*";
        case VT_BSTR:
            return L"BSTR";
        case VT_I4:
            return L"I4";
        case VT_UI2:
            return L"UI2";
        case VT_VARIANT:
            return L"VARIANT";
        case VT_HRESULT:
            return L"HRESULT";
        case VT_USERDEFINED: {
            const auto referred = qv::Receive<qv::ComPtr<ITypeInfo>>(
                [&](ITypeInfo** out) { return type.GetRefTypeInfo(description.hreftype, out); });
            return referred.value ? NameOf(*referred.value.Get()) : L"(unknown)";
        }
        default:
            return qv::Format(L"(type %d)", static_cast<int>(description.vt));
    }
}

class TypeLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        const HMODULE module = LoadLibraryW(L"qvsettingsdialog.dll");
        std::array<wchar_t, 1024> path{};
        GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        library = qv::Receive<qv::ComPtr<ITypeLib>>([&](ITypeLib** out) {
                      return LoadTypeLibEx(path.data(), REGKIND_NONE, out);
                  }).value;
        FreeLibrary(module);
        ASSERT_TRUE(library);
    }

    qv::ComPtr<ITypeInfo> TypeOf(const GUID& id) {
        auto type =
            qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return library->GetTypeInfoOfGuid(id, out); });
        EXPECT_EQ(type.status, S_OK);
        return std::move(type.value);
    }
    static std::wstring HelpOf(ITypeInfo& type, MEMBERID member) {
        const auto help = qv::Receive<qv::Bstr>(
            [&](BSTR* out) { return type.GetDocumentation(member, nullptr, out, nullptr, nullptr); });
        return qv::TextOf(help.value.Get());
    }

    void ExpectInterface(const IID& id, const wchar_t* help, const std::vector<Member>& members) {
        const auto type = TypeOf(id);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        EXPECT_EQ(attributes->wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FOLEAUTOMATION), 0);
        EXPECT_EQ(attributes->cFuncs, members.size());
        EXPECT_EQ(attributes->cImplTypes, 1);
        type->ReleaseTypeAttr(attributes);
        EXPECT_EQ(HelpOf(*type.Get(), MEMBERID_NIL), help);

        HREFTYPE base = 0;
        ASSERT_EQ(type->GetRefTypeOfImplType(0, &base), S_OK);
        const auto baseType =
            qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return type->GetRefTypeInfo(base, out); });
        ASSERT_EQ(baseType.status, S_OK);
        EXPECT_EQ(NameOf(*baseType.value.Get()), L"IUnknown");

        for (UINT i = 0; i < members.size(); ++i)
            ExpectMember(*type.Get(), i, members[i]);
    }

    static void ExpectMember(ITypeInfo& type, UINT index, const Member& expected) {
        SCOPED_TRACE(qv::ToUtf8(expected.name));
        FUNCDESC* member = nullptr;
        ASSERT_EQ(type.GetFuncDesc(index, &member), S_OK);
        EXPECT_EQ(member->memid, expected.id);
        EXPECT_EQ(member->invkind, expected.kind);
        EXPECT_EQ(member->funckind, FUNC_PUREVIRTUAL);
        EXPECT_EQ(member->callconv, CC_STDCALL);
        EXPECT_EQ(member->oVft, static_cast<SHORT>((3 + index) * sizeof(void*)));
        EXPECT_EQ(TypeName(type, member->elemdescFunc.tdesc), L"HRESULT");

        std::array<BSTR, 8> names{};
        UINT known = 0;
        type.GetNames(member->memid, names.data(), static_cast<UINT>(names.size()), &known);
        EXPECT_EQ(qv::TextOf(names[0]), expected.name);
        std::vector<Parameter> parameters;
        for (SHORT i = 0; i < member->cParams; ++i) {
            const ELEMDESC& parameter = member->lprgelemdescParam[i];
            parameters.push_back({qv::TextOf(names[static_cast<std::size_t>(i) + 1]), TypeName(type, parameter.tdesc),
                                  parameter.paramdesc.wParamFlags});
        }
        for (const BSTR name : names)
            SysFreeString(name);
        if (expected.kind == INVOKE_PROPERTYPUT) {
            // The identifier is the getter's too, whose names are answered for both; a put's value has no name.
            ASSERT_EQ(parameters.size(), 1U);
            parameters[0].name.clear();
        }
        EXPECT_EQ(parameters, expected.parameters);
        EXPECT_EQ(HelpOf(type, member->memid), expected.help);
        type.ReleaseFuncDesc(member);
    }

    qv::ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, NamesItselfAndHoldsFourTypes) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, LIBID_QVSETTINGSDIALOGLib);
    EXPECT_EQ(attributes->lcid, 1033U);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->syskind, SYS_WIN64);
    library->ReleaseTLibAttr(attributes);
    const auto name =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return library->GetDocumentation(-1, out, nullptr, nullptr, nullptr); });
    const auto help =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return library->GetDocumentation(-1, nullptr, out, nullptr, nullptr); });
    EXPECT_EQ(qv::TextOf(name.value.Get()), L"QVSETTINGSDIALOGLib");
    EXPECT_EQ(qv::TextOf(help.value.Get()), L"QVSettingsDialog 1.0 Type Library");
    EXPECT_EQ(library->GetTypeInfoCount(), 4U);
}

TEST_F(TypeLibrary, ManagerInterfaceHasItsMembers) {
    ExpectInterface(
        IID_IQVSettingsDialogManager, L"IQVSettingsDialogManager Interface",
        {
            {L"CreateModalDialog",
             0x60010000,
             INVOKE_FUNC,
             L"method CreateModalDialog",
             {{L"bstrCaption", L"BSTR", kIn}}},
            {L"CreateModalDialogEx",
             0x60010001,
             INVOKE_FUNC,
             L"method CreateModalDialogEx",
             {{L"bstrCaption", L"BSTR", kIn},
              {L"piSettingsDialogDataIO", L"IQVSettingsDialogDataIO*", kIn},
              {L"pRetVal", L"I4*", kResult}}},
            {L"m_CtrlPath", 0x60010002, INVOKE_PROPERTYGET, L"property m_CtrlPath", {{L"pVal", L"I4*", kResult}}},
            {L"m_CtrlPath", 0x60010002, INVOKE_PROPERTYPUT, L"property m_CtrlPath", {{L"", L"I4", kIn}}},
            {L"GetOptionKey",
             0x60010004,
             INVOKE_FUNC,
             L"method GetOptionKey",
             {{L"pbstrOptionKey", L"BSTR*", kResult}}},
            {L"SetOptionKey", 0x60010005, INVOKE_FUNC, L"method SetOptionKey", {{L"bstrOptionKey", L"BSTR", kIn}}},
        });
}

TEST_F(TypeLibrary, ValueOfTheWritablePropertyHasNoName) {
    std::wstring name = L"newVal";
    BOOL known = TRUE;
    ASSERT_EQ(library->IsName(name.data(), 0, &known), S_OK);
    EXPECT_FALSE(known);
}

TEST_F(TypeLibrary, DataInterfaceHasItsMembers) {
    ExpectInterface(IID_IQVSettingsDialogDataIO, L"IQVSettingsDialogDataIO Interface",
                    {
                        {L"GetData",
                         0x60010000,
                         INVOKE_FUNC,
                         L"method GetData",
                         {{L"bstrKeyName", L"BSTR", kIn},
                          {L"bstrValueName", L"BSTR", kIn},
                          {L"varType", L"UI2", kIn},
                          {L"pVariantValue", L"VARIANT*", kOut},
                          {L"dataType", L"SESSIONDATATYPE", kIn}}},
                        {L"WriteData",
                         0x60010001,
                         INVOKE_FUNC,
                         L"method WriteData",
                         {{L"bstrKeyName", L"BSTR", kIn},
                          {L"bstrValueName", L"BSTR", kIn},
                          {L"VariantValue", L"VARIANT", kIn},
                          {L"dataType", L"SESSIONDATATYPE", kIn}}},
                        {L"SaveData",
                         0x60010002,
                         INVOKE_FUNC,
                         L"method SaveData",
                         {{L"dataType", L"SESSIONDATATYPE", kIn},
                          {L"bstrKeyName", L"BSTR", kIn},
                          {L"bstrValueName", L"BSTR", kIn}}},
                    });
}

TEST_F(TypeLibrary, ClassIsCreatableAndDefaultsToTheManagerInterface) {
    const auto type = TypeOf(CLSID_QVSettingsDialogManager);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(attributes->cImplTypes, 1);
    type->ReleaseTypeAttr(attributes);
    EXPECT_EQ(NameOf(*type.Get()), L"QVSettingsDialogManager");
    EXPECT_EQ(HelpOf(*type.Get(), MEMBERID_NIL), L"QVSettingsDialogManager Class");
    HREFTYPE reference = 0;
    ASSERT_EQ(type->GetRefTypeOfImplType(0, &reference), S_OK);
    const auto implemented =
        qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return type->GetRefTypeInfo(reference, out); });
    ASSERT_EQ(implemented.status, S_OK);
    EXPECT_EQ(NameOf(*implemented.value.Get()), L"IQVSettingsDialogManager");
    INT flags = 0;
    type->GetImplTypeFlags(0, &flags);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
}

TEST_F(TypeLibrary, ScopesAreAnEnumerationOfNumbers) {
    qv::ComPtr<ITypeInfo> type;
    for (UINT i = 0; i < library->GetTypeInfoCount() && !type; ++i) {
        TYPEKIND kind{};
        library->GetTypeInfoType(i, &kind);
        if (kind != TKIND_ENUM) continue;
        type = qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return library->GetTypeInfo(i, out); }).value;
    }
    ASSERT_TRUE(type);
    EXPECT_EQ(NameOf(*type.Get()), L"SESSIONDATATYPE");
    const std::vector<std::pair<std::wstring, int>> expected{
        {L"SDT_allData", 0},      {L"SDT_globalData", 1},   {L"SDT_userDataDB", 2},
        {L"SDT_machineData", 3},  {L"SDT_userData", 4},     {L"SDT_volatileData", 5},
        {L"SDT_UserSpec1", 1000}, {L"SDT_UserSpec2", 1001}, {L"SDT_UserSpec3", 1002},
    };
    std::vector<std::pair<std::wstring, int>> found;
    for (UINT i = 0;; ++i) {
        VARDESC* variable = nullptr;
        if (FAILED(type->GetVarDesc(i, &variable))) break;
        const auto name = qv::Receive<qv::Bstr>(
            [&](BSTR* out) { return type->GetDocumentation(variable->memid, out, nullptr, nullptr, nullptr); });
        found.emplace_back(qv::TextOf(name.value.Get()), variable->lpvarValue->lVal);
        type->ReleaseVarDesc(variable);
    }
    EXPECT_EQ(found, expected);
}

}  // namespace
