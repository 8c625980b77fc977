// The type library that the DLL carries, read back as a development tool reads it and compared line by line.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "base/com.h"
#include "base/text.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

namespace {

using Lines = std::vector<std::wstring>;

std::wstring NameOf(ITypeInfo& type, MEMBERID member = MEMBERID_NIL) {
    const auto name =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return type.GetDocumentation(member, out, nullptr, nullptr, nullptr); });
    return qv::TextOf(name.value.Get());
}

std::wstring HelpOf(ITypeInfo& type, MEMBERID member = MEMBERID_NIL) {
    const auto help =
        qv::Receive<qv::Bstr>([&](BSTR* out) { return type.GetDocumentation(member, nullptr, out, nullptr, nullptr); });
    return qv::TextOf(help.value.Get());
}

std::wstring Referred(ITypeInfo& type, HREFTYPE reference) {
    const auto referred =
        qv::Receive<qv::ComPtr<ITypeInfo>>([&](ITypeInfo** out) { return type.GetRefTypeInfo(reference, out); });
    return referred.value ? NameOf(*referred.value.Get()) : L"(unknown)";
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
        case VT_USERDEFINED:
            return Referred(type, description.hreftype);
        default:
            return qv::Format(L"(type %d)", static_cast<int>(description.vt));
    }
}

// "number kind name(direction type name, ...): help", the number being the identifier's last word.
std::wstring MemberLine(ITypeInfo& type, const FUNCDESC& member) {
    constexpr USHORT kResult = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
    std::array<BSTR, 8> names{};
    UINT known = 0;
    type.GetNames(member.memid, names.data(), static_cast<UINT>(names.size()), &known);
    // The identifier is the getter's too, whose names are answered for both; a put's value has no name.
    const bool isPut = member.invkind == INVOKE_PROPERTYPUT;
    std::wstring line = std::to_wstring(member.memid & 0xFFFF) + (isPut                                  ? L" put "
                                                                  : member.invkind == INVOKE_PROPERTYGET ? L" get "
                                                                                                         : L" ");
    line += qv::TextOf(names[0]) + L"(";
    for (SHORT i = 0; i < member.cParams; ++i) {
        const ELEMDESC& parameter = member.lprgelemdescParam[i];
        const USHORT flags = parameter.paramdesc.wParamFlags;
        line += i == 0 ? L"" : L", ";
        line += flags == PARAMFLAG_FIN    ? L"in "
                : flags == PARAMFLAG_FOUT ? L"out "
                : flags == kResult        ? L"retval "
                                          : L"? ";
        line += TypeName(type, parameter.tdesc);
        if (!isPut) line += L" " + qv::TextOf(names[static_cast<std::size_t>(i) + 1]);
    }
    for (const BSTR name : names)
        SysFreeString(name);
    return line + L"): " + HelpOf(type, member.memid);
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
    // What the type is made of or implements: its only base.
    static std::wstring BaseOf(ITypeInfo& type) {
        HREFTYPE base = 0;
        EXPECT_EQ(type.GetRefTypeOfImplType(0, &base), S_OK);
        return Referred(type, base);
    }

    void ExpectInterface(const IID& id, const wchar_t* name, const Lines& members) {
        const auto type = TypeOf(id);
        EXPECT_EQ(NameOf(*type.Get()), name);
        EXPECT_EQ(HelpOf(*type.Get()), std::wstring(name) + L" Interface");
        EXPECT_EQ(BaseOf(*type.Get()), L"IUnknown");
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        EXPECT_EQ(attributes->wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FOLEAUTOMATION), 0);
        EXPECT_EQ(attributes->cImplTypes, 1);
        const UINT count = attributes->cFuncs;
        type->ReleaseTypeAttr(attributes);

        Lines found;
        for (UINT i = 0; i < count; ++i) {
            FUNCDESC* member = nullptr;
            ASSERT_EQ(type->GetFuncDesc(i, &member), S_OK);
            EXPECT_EQ(member->memid & ~0xFFFF, 0x60010000);
            EXPECT_EQ(member->funckind, FUNC_PUREVIRTUAL);
            EXPECT_EQ(member->callconv, CC_STDCALL);
            EXPECT_EQ(member->oVft, static_cast<SHORT>((3 + i) * sizeof(void*)));
            EXPECT_EQ(TypeName(*type.Get(), member->elemdescFunc.tdesc), L"HRESULT");
            found.push_back(MemberLine(*type.Get(), *member));
            type->ReleaseFuncDesc(member);
        }
        EXPECT_EQ(found, members);
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

TEST_F(TypeLibrary, InterfacesHaveTheirMembers) {
    ExpectInterface(IID_IQVSettingsDialogManager, L"IQVSettingsDialogManager",
                    {
                        L"0 CreateModalDialog(in BSTR bstrCaption): method CreateModalDialog",
                        L"1 CreateModalDialogEx(in BSTR bstrCaption, in IQVSettingsDialogDataIO* "
                        L"piSettingsDialogDataIO, retval I4* pRetVal): method CreateModalDialogEx",
                        L"2 get m_CtrlPath(retval I4* pVal): property m_CtrlPath",
                        L"2 put m_CtrlPath(in I4): property m_CtrlPath",
                        L"4 GetOptionKey(retval BSTR* pbstrOptionKey): method GetOptionKey",
                        L"5 SetOptionKey(in BSTR bstrOptionKey): method SetOptionKey",
                    });
    ExpectInterface(IID_IQVSettingsDialogDataIO, L"IQVSettingsDialogDataIO",
                    {
                        L"0 GetData(in BSTR bstrKeyName, in BSTR bstrValueName, in UI2 varType, out VARIANT* "
                        L"pVariantValue, in SESSIONDATATYPE dataType): method GetData",
                        L"1 WriteData(in BSTR bstrKeyName, in BSTR bstrValueName, in VARIANT VariantValue, in "
                        L"SESSIONDATATYPE dataType): method WriteData",
                        L"2 SaveData(in SESSIONDATATYPE dataType, in BSTR bstrKeyName, in BSTR bstrValueName): method "
                        L"SaveData",
                    });
}

TEST_F(TypeLibrary, ValueOfTheWritablePropertyHasNoName) {
    std::wstring name = L"newVal";
    BOOL known = TRUE;
    ASSERT_EQ(library->IsName(name.data(), 0, &known), S_OK);
    EXPECT_FALSE(known);
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
    EXPECT_EQ(HelpOf(*type.Get()), L"QVSettingsDialogManager Class");
    EXPECT_EQ(BaseOf(*type.Get()), L"IQVSettingsDialogManager");
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
    Lines found;
    VARDESC* variable = nullptr;
    for (UINT i = 0; SUCCEEDED(type->GetVarDesc(i, &variable)); ++i) {
        found.push_back(
            qv::Format(L"%s %d", NameOf(*type.Get(), variable->memid), static_cast<int>(variable->lpvarValue->lVal)));
        type->ReleaseVarDesc(variable);
    }
    EXPECT_EQ(found, (Lines{L"SDT_allData 0", L"SDT_globalData 1", L"SDT_userDataDB 2", L"SDT_machineData 3",
                            L"SDT_userData 4", L"SDT_volatileData 5", L"SDT_UserSpec1 1000", L"SDT_UserSpec2 1001",
                            L"SDT_UserSpec3 1002"}));
}

}  // namespace
