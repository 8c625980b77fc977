// The registry, under a key of its own that each test makes and takes away.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"

namespace {

class RegistryKey : public ::testing::Test {
protected:
    void SetUp() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
        ASSERT_EQ(ERROR_SUCCESS,
                  RegCreateKeyExW(HKEY_CURRENT_USER, kPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key, nullptr));
    }
    void TearDown() override {
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
    }

    [[nodiscard]] HKEY Create(HKEY parent, const wchar_t* name, DWORD* disposition = nullptr) const {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_SUCCESS,
                  RegCreateKeyExW(parent, name, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, disposition));
        return key;
    }
    static LSTATUS SetText(HKEY key, const wchar_t* name, const std::wstring& text) {
        return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    static std::wstring GetText(HKEY key, const wchar_t* name) {
        wchar_t buffer[64] = {};
        DWORD size = sizeof(buffer);
        DWORD type = 0;
        const LSTATUS status = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size);
        return status == ERROR_SUCCESS && type == REG_SZ ? buffer : L"<" + std::to_wstring(status) + L">";
    }
    static LSTATUS Open(HKEY parent, const wchar_t* name) {
        HKEY key = nullptr;
        const LSTATUS status = RegOpenKeyExW(parent, name, 0, KEY_READ, &key);
        if (status == ERROR_SUCCESS) RegCloseKey(key);
        return status;
    }
    static std::vector<std::wstring> SubKeys(HKEY key) {
        std::vector<std::wstring> names;
        wchar_t name[256];
        for (DWORD index = 0;; ++index) {
            DWORD size = 256;
            if (RegEnumKeyExW(key, index, name, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
                return names;
            }
            EXPECT_EQ(std::wstring(name).size(), size);
            names.emplace_back(name);
        }
    }

    static constexpr const wchar_t* kPath = L"Software\\QvPlatformTest";
    HKEY m_key = nullptr;
};

TEST_F(RegistryKey, NamesIgnoreCaseAndKeepTheFirstSpelling) {
    DWORD disposition = 0;
    RegCloseKey(Create(m_key, L"Alpha", &disposition));
    EXPECT_EQ(static_cast<DWORD>(REG_CREATED_NEW_KEY), disposition);
    RegCloseKey(Create(m_key, L"ALPHA", &disposition));
    EXPECT_EQ(static_cast<DWORD>(REG_OPENED_EXISTING_KEY), disposition);
    EXPECT_EQ(std::vector<std::wstring>{L"Alpha"}, SubKeys(m_key));
    EXPECT_EQ(ERROR_SUCCESS, SetText(m_key, L"Value", L"one"));
    EXPECT_EQ(ERROR_SUCCESS, SetText(m_key, L"VALUE", L"two"));
    EXPECT_EQ(L"two", GetText(m_key, L"value"));
}

TEST_F(RegistryKey, MakesEveryKeyOnTheWay) {
    RegCloseKey(Create(m_key, L"a\\b\\c"));
    EXPECT_EQ(ERROR_SUCCESS, Open(m_key, L"A\\B"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, Open(m_key, L"a\\c"));
    // No name is the key itself.
    EXPECT_EQ(ERROR_SUCCESS, Open(m_key, L""));
    EXPECT_EQ(ERROR_SUCCESS, Open(m_key, nullptr));
}

TEST_F(RegistryKey, DeletesValuesKeysAndTrees) {
    ASSERT_EQ(ERROR_SUCCESS, SetText(m_key, L"v", L"1"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteValueW(m_key, L"V"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteValueW(m_key, L"v"));
    RegCloseKey(Create(m_key, L"parent\\child"));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegDeleteKeyW(m_key, L"parent"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(m_key, L"parent\\child"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(m_key, L"parent"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteKeyW(m_key, L"parent"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteTreeW(m_key, L"tree"));
}

TEST_F(RegistryKey, KeysAndValuesAreEnumerated) {
    RegCloseKey(Create(m_key, L"longer"));
    RegCloseKey(Create(m_key, L"Alpha"));
    EXPECT_EQ((std::vector<std::wstring>{L"Alpha", L"longer"}), SubKeys(m_key));
    ASSERT_EQ(ERROR_SUCCESS, SetText(m_key, nullptr, L"the unnamed one"));
    EXPECT_EQ(L"the unnamed one", GetText(m_key, L""));
    wchar_t name[6] = L"?";
    DWORD size = 6;
    EXPECT_EQ(ERROR_SUCCESS, RegEnumValueW(m_key, 0, name, &size, nullptr, nullptr, nullptr, nullptr));
    EXPECT_STREQ(L"", name);
}

TEST_F(RegistryKey, ClassesAreTheMachinesWithTheUsersOverThem) {
    const std::wstring name = L"QvPlatformTest.Class";
    const HKEY machine = Create(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + name).c_str());
    ASSERT_EQ(ERROR_SUCCESS, SetText(machine, nullptr, L"machine"));
    HKEY classes = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_READ, &classes));
    EXPECT_EQ(L"machine", GetText(classes, nullptr));
    RegCloseKey(classes);
    RegCloseKey(machine);
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CLASSES_ROOT, name.c_str()));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, Open(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + name).c_str()));
}

TEST_F(RegistryKey, ARootCanBeRedirected) {
    const HKEY replacement = Create(m_key, L"root");
    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, replacement));
    RegCloseKey(Create(HKEY_CLASSES_ROOT, L"Some.Class\\CLSID"));
    EXPECT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, Open(replacement, L"Some.Class\\CLSID"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, Open(HKEY_CLASSES_ROOT, L"Some.Class"));
    RegCloseKey(replacement);
}

}  // namespace
