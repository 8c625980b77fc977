// What registration enters into the registry, and the rules of registry scripts.
#include "qvclient/qvsettingsdialog/com/registrar.h"

#include <array>

#include "base/text.h"
#include "tests/component/com/component_dll.h"

namespace {

std::wstring ReadText(HKEY root, const std::wstring& path, const wchar_t* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return L"(no key)";
    std::array<wchar_t, 1024> text{};
    auto size = static_cast<DWORD>(sizeof text);
    const LSTATUS status = RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    RegCloseKey(key);
    return status == ERROR_SUCCESS ? std::wstring(text.data()) : L"(no value)";
}

std::vector<std::wstring> SubKeys(HKEY root, const std::wstring& path) {
    std::vector<std::wstring> names;
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return {L"(no key)"};
    for (DWORD i = 0;; ++i) {
        std::array<wchar_t, 256> name{};
        auto size = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        names.emplace_back(name.data());
    }
    RegCloseKey(key);
    return names;
}

void WriteText(HKEY root, const std::wstring& path, const wchar_t* name, const std::wstring& text) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
}

class Registration : public ComponentDll {
protected:
    Registration() {
        std::array<wchar_t, 64> text{};
        StringFromGUID2(CLSID_QVSettingsDialogManager, text.data(), static_cast<int>(text.size()));
        classId = text.data();
        classKey = L"CLSID\\" + classId;
    }
    std::wstring classId;
    std::wstring classKey;
};

TEST_F(Registration, EntersTheClassAndTakesItOutAgain) {
    ASSERT_EQ(Register(), S_OK);
    const std::wstring versioned = L"QVSettingsDialog.QVSettingsDialogManager.1";
    const std::wstring plain = L"QVSettingsDialog.QVSettingsDialogManager";
    const struct {
        std::wstring key;
        const wchar_t* name;
        std::wstring expected;
    } rows[] = {
        {versioned, nullptr, L"QVSettingsDialogManager Class"},
        {versioned + L"\\CLSID", nullptr, classId},
        {plain, nullptr, L"QVSettingsDialogManager Class"},
        {plain + L"\\CLSID", nullptr, classId},
        {plain + L"\\CurVer", nullptr, versioned},
        {classKey, nullptr, L"QVSettingsDialogManager Class"},
        {classKey + L"\\ProgID", nullptr, versioned},
        {classKey + L"\\VersionIndependentProgID", nullptr, plain},
        {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {classKey + L"\\TypeLib", nullptr, L"{QVSETTINGSDIALOG}"},  // the placeholder itself
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadText(HKEY_CLASSES_ROOT, row.key, row.name), row.expected);
    const std::wstring module = ReadText(HKEY_CLASSES_ROOT, classKey + L"\\InprocServer32", nullptr);
    EXPECT_NE(module.find(L"qvsettingsdialog."), std::wstring::npos);
    EXPECT_GT(module.find_last_of(L"\\/"), 1U) << "a full path";

    ASSERT_EQ(Unregister(), S_OK);
    EXPECT_EQ(ReadText(HKEY_CLASSES_ROOT, classKey, nullptr), L"(no key)");
    EXPECT_EQ(ReadText(HKEY_CLASSES_ROOT, versioned, nullptr), L"(no key)");
    EXPECT_EQ(ReadText(HKEY_CLASSES_ROOT, plain, nullptr), L"(no key)");
    EXPECT_NE(SubKeys(HKEY_CLASSES_ROOT, L"CLSID"), std::vector<std::wstring>{L"(no key)"});
}

TEST_F(Registration, ASecondRegistrationRewritesTheClassKey) {
    ASSERT_EQ(Register(), S_OK);
    WriteText(HKEY_CLASSES_ROOT, classKey + L"\\Stale", nullptr, L"left over");
    ASSERT_EQ(Register(), S_OK);
    EXPECT_EQ(ReadText(HKEY_CLASSES_ROOT, classKey + L"\\Stale", nullptr), L"(no key)");
    EXPECT_EQ(SubKeys(HKEY_CLASSES_ROOT, classKey).size(), 4U);
    EXPECT_EQ(Unregister(), S_OK);
}

TEST_F(Registration, ARegisteredClassIsCreatedByItsIdentifier) {
    ASSERT_EQ(Register(), S_OK);
    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    {
        const auto manager = qv::Receive<qv::ComPtr<IQVSettingsDialogManager>>([](auto out) {
            return CoCreateInstance(CLSID_QVSettingsDialogManager, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IQVSettingsDialogManager, out);
        });
        EXPECT_EQ(manager.status, S_OK);
        EXPECT_TRUE(manager.value);
    }
    CoUninitialize();
    EXPECT_EQ(Unregister(), S_OK);
}

constexpr const wchar_t* kTestKey = L"Software\\QVRegistrarTest";

class RegistryScript : public ::testing::Test {
protected:
    RegistryScript() { RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey); }
    ~RegistryScript() override { RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey); }

    static HRESULT Apply(const std::wstring& body, qv::RegistryAction action) {
        return qv::ApplyRegistryScript(
            L"HKCU\n{\n NoRemove Software\n {\n  NoRemove QVRegistrarTest\n  {\n" + body + L"\n  }\n }\n}\n",
            {{L"MODULE", L"C:\\it's {here}\\m.dll"}}, action);
    }
    static std::wstring Text(const std::wstring& key, const wchar_t* name = nullptr) {
        return ReadText(HKEY_CURRENT_USER, std::wstring(kTestKey) + L"\\" + key, name);
    }
    static void Put(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
        WriteText(HKEY_CURRENT_USER, std::wstring(kTestKey) + L"\\" + key, name, text);
    }
};

TEST_F(RegistryScript, WritesKeysTextsNumbersAndReplacements) {
    ASSERT_EQ(Apply(L"A = s '%MODULE%' { val N = d '258' val 'two words' = s 'it''s 100%%' 'B c' = s 'x' }",
                    qv::RegistryAction::Register),
              S_OK);
    EXPECT_EQ(Text(L"A"), L"C:\\it's {here}\\m.dll");
    EXPECT_EQ(Text(L"A", L"two words"), L"it's 100%");
    EXPECT_EQ(Text(L"A\\B c"), L"x");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, (std::wstring(kTestKey) + L"\\A").c_str(), 0, KEY_READ, &key),
              ERROR_SUCCESS);
    DWORD type = 0;
    DWORD number = 0;
    DWORD size = sizeof number;
    RegQueryValueExW(key, L"N", nullptr, &type, reinterpret_cast<BYTE*>(&number), &size);
    RegCloseKey(key);
    EXPECT_EQ(type, REG_DWORD);
    EXPECT_EQ(number, 258U);
}

TEST_F(RegistryScript, MarksDecideWhatIsRemoved) {
    Put(L"Forced\\old", nullptr, L"x");
    Put(L"Kept\\old", nullptr, L"x");
    Put(L"Gone\\old", nullptr, L"x");
    const std::wstring script =
        L"ForceRemove Forced = s 'f'\nNoRemove Kept { New = s 'n' }\nDelete Gone\nPlain { Inner = s 'i' }\nShared { "
        L"Own = s 'o' }";
    ASSERT_EQ(Apply(script, qv::RegistryAction::Register), S_OK);
    EXPECT_EQ(Text(L"Forced"), L"f");
    EXPECT_EQ(Text(L"Forced\\old"), L"(no key)");
    EXPECT_EQ(Text(L"Kept\\old"), L"x");
    EXPECT_EQ(Text(L"Kept\\New"), L"n");
    EXPECT_EQ(Text(L"Gone"), L"(no key)");

    Put(L"Forced\\later", nullptr, L"x");
    Put(L"Shared\\Others", nullptr, L"x");
    ASSERT_EQ(Apply(script, qv::RegistryAction::Unregister), S_OK);
    EXPECT_EQ(Text(L"Forced"), L"(no key)");
    EXPECT_EQ(Text(L"Kept\\old"), L"x");
    EXPECT_EQ(Text(L"Kept\\New"), L"(no key)");
    EXPECT_EQ(Text(L"Plain"), L"(no key)");
    EXPECT_EQ(Text(L"Shared\\Own"), L"(no key)");
    EXPECT_EQ(Text(L"Shared\\Others"), L"x") << "somebody else's key keeps the one around it";
    EXPECT_EQ(Apply(script, qv::RegistryAction::Unregister), S_OK) << "nothing left to take back";
}

TEST_F(RegistryScript, AScriptThatCannotBeReadChangesNothing) {
    const wchar_t* const scripts[] = {
        L"First = s 'x' Second = q 'x'",  // no such type
        L"First = s 'x' Second = s 'x",   // no end of the text
        L"First = s 'x' val Second",      // a value without content
        L"First = s '%NOBODY%'",          // nothing to put in
        L"First = s '100%'",              // no end of the replacement
        L"First = s 'x' {",               // no closing brace
        L"First = ",
    };
    for (const wchar_t* script : scripts) {
        SCOPED_TRACE(qv::ToUtf8(script));
        EXPECT_EQ(Apply(script, qv::RegistryAction::Register), DISP_E_EXCEPTION);
        EXPECT_EQ(Text(L"First"), L"(no key)");
    }
    EXPECT_EQ(qv::ApplyRegistryScript(L"HKXX { A }", {}, qv::RegistryAction::Register), DISP_E_EXCEPTION);
    EXPECT_EQ(qv::ApplyRegistryScript(L"", {}, qv::RegistryAction::Register), S_OK);
}

}  // namespace
