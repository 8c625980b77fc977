// The headless layer's own doors: faults, counts, resources that a module registers, recorded shell calls. Native only.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/headless/faults.h"
#include "platform/headless/resources.h"
#include "platform/headless/shell_hooks.h"
#include "platform/platform.h"

namespace {

using namespace qv::headless;

TEST(HeadlessMemory, CountsWhatIsAliveAndFailsOnDemand) {
    const auto strings = LiveStrings();
    const auto blocks = LiveTaskAllocations();
    FailStringAllocation(2);
    const BSTR first = SysAllocString(L"a");
    EXPECT_EQ(nullptr, SysAllocString(L"b"));
    const BSTR third = SysAllocString(L"c");
    EXPECT_EQ(strings + 2, LiveStrings());
    SysFreeString(first);
    SysFreeString(third);
    FailTaskAllocation(1);
    EXPECT_EQ(nullptr, CoTaskMemAlloc(1));
    CoTaskMemFree(CoTaskMemAlloc(1));
    EXPECT_EQ(strings, LiveStrings());
    EXPECT_EQ(blocks, LiveTaskAllocations());
}

TEST(HeadlessMemory, FailedConversionsLeaveNothingBehind) {
    const auto strings = LiveStrings();
    VARIANT source{};
    source.vt = VT_I4;
    source.lVal = 5;
    VARIANT result{};
    FailStringAllocation(1);
    EXPECT_EQ(E_OUTOFMEMORY, VariantChangeType(&result, &source, 0, VT_BSTR));
    EXPECT_EQ(VT_EMPTY, result.vt);
    EXPECT_EQ(strings, LiveStrings());
}

TEST(HeadlessRegistry, FailsTheOrderedCallOnceAndComparesStates) {
    ResetRegistry();
    const auto empty = DumpRegistry();
    HKEY key = nullptr;
    FailRegistryCall(2, ERROR_ACCESS_DENIED);
    EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyW(HKEY_LOCAL_MACHINE, L"Software\\X", &key));
    const BYTE data[] = {1, 2};
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegSetValueExW(key, L"v", 0, REG_BINARY, data, 2));
    EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, L"v", 0, REG_BINARY, data, 2));
    RegCloseKey(key);
    EXPECT_NE(std::wstring::npos, DumpRegistry().find(L"HKEY_LOCAL_MACHINE\\Software\\X \"v\" 3:0102"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software"));
    EXPECT_EQ(empty, DumpRegistry());
    EXPECT_EQ(0u, OpenRegistryKeys());
}

TEST(HeadlessResources, AreFoundByTypeNameAndLanguage) {
    static constexpr std::array<std::byte, 2> s_neutral = {std::byte{1}, std::byte{2}};
    static constexpr std::array<std::byte, 1> s_german = {std::byte{3}};
    const HMODULE module = GetModuleHandleW(nullptr);
    EXPECT_EQ(nullptr, FindResourceW(module, MAKEINTRESOURCEW(7), RT_DIALOG));
    RegisterResource(module, RT_DIALOG, MAKEINTRESOURCEW(7), s_neutral);
    RegisterResource(module, RT_DIALOG, MAKEINTRESOURCEW(7), s_german, 0x0407);
    RegisterResource(module, L"REGISTRY", L"script", s_neutral);
    const HRSRC found = FindResourceW(nullptr, L"#7", RT_DIALOG);
    ASSERT_NE(nullptr, found);
    EXPECT_EQ(2u, SizeofResource(module, found));
    EXPECT_EQ(s_neutral.data(), LockResource(LoadResource(module, found)));
    EXPECT_EQ(1u, SizeofResource(module, FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(7), 0x0407)));
    EXPECT_NE(nullptr, FindResourceW(module, L"SCRIPT", L"registry"));
    EXPECT_EQ(nullptr, FindResourceW(module, MAKEINTRESOURCEW(8), RT_DIALOG));
    EXPECT_EQ(static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND), GetLastError());
    EXPECT_EQ(nullptr, FindResourceW(module, MAKEINTRESOURCEW(7), RT_MENU));
    EXPECT_EQ(static_cast<DWORD>(ERROR_RESOURCE_TYPE_NOT_FOUND), GetLastError());
    UnregisterResources(module);
    EXPECT_EQ(nullptr, FindResourceW(module, L"#7", RT_DIALOG));
}

TEST(HeadlessResources, TextsShareTheirBlocks) {
    const HMODULE module = GetModuleHandleW(nullptr);
    RegisterString(module, 17, L"seventeen \u00E4");
    RegisterString(module, 31, L"\U0001F600");
    wchar_t buffer[32] = {};
    EXPECT_EQ(11, LoadStringW(module, 17, buffer, 32));
    EXPECT_STREQ(L"seventeen \u00E4", buffer);
    EXPECT_EQ(4, LoadStringW(module, 17, buffer, 5));
    EXPECT_STREQ(L"seve", buffer);
    EXPECT_EQ(1, LoadStringW(module, 31, buffer, 32));
    EXPECT_EQ(0, LoadStringW(module, 18, buffer, 32));
    UnregisterResources(module);
}

TEST(HeadlessShell, RecordsWhatWouldBeOpenedAndAnswersPickers) {
    ClearExecutions();
    EXPECT_GT(reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", L"help.htm", nullptr, nullptr, 1)), 32);
    ASSERT_EQ(1u, Executions().size());
    EXPECT_EQ(L"help.htm", Executions()[0].file);
    BROWSEINFOW info{};
    EXPECT_EQ(nullptr, SHBrowseForFolderW(&info));
    SetFolderAnswer([](const BROWSEINFOW&, const std::wstring&) { return L"/some/folder"; });
    const PIDLIST_ABSOLUTE item = SHBrowseForFolderW(&info);
    wchar_t path[MAX_PATH];
    EXPECT_TRUE(SHGetPathFromIDListW(item, path));
    EXPECT_STREQ(L"/some/folder", path);
    CoTaskMemFree(item);
    SetFolderAnswer({});
}

// Whoever runs the program: a system that lets its administrator write everything would not show this.
TEST(HeadlessFiles, ReadOnlyOnesAreReadOnlyForEverybody) {
    wchar_t folder[MAX_PATH];
    wchar_t path[MAX_PATH];
    ASSERT_NE(0u, GetTempPathW(MAX_PATH, folder));
    ASSERT_NE(0u, GetTempFileNameW(folder, L"qvr", 0, path));
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(path, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(static_cast<DWORD>(ERROR_ACCESS_DENIED), GetLastError());
    EXPECT_FALSE(DeleteFileW(path));
    EXPECT_EQ(static_cast<DWORD>(ERROR_ACCESS_DENIED), GetLastError());
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(DeleteFileW(path));
}

}  // namespace
