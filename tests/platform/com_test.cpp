// Modules: where they lie, and what cannot be found.
#include <gtest/gtest.h>

#include <string>

#include "platform/module_address.h"
#include "platform/platform.h"

namespace {

TEST(Modules, AreFoundByNameAddressAndFile) {
    const HMODULE program = GetModuleHandleW(nullptr);
    ASSERT_NE(nullptr, program);
    static const int s_here = 0;
    EXPECT_EQ(program, qv::ModuleFromAddress(&s_here));
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_EQ(std::wstring(path).size(), length);
    EXPECT_NE(std::wstring::npos, std::wstring(path).find(L"platform_tests"));
    wchar_t cut[6];
    EXPECT_EQ(6u, GetModuleFileNameW(nullptr, cut, 6));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER), GetLastError());
    EXPECT_EQ(nullptr, GetModuleHandleW(L"nosuchmodule.dll"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_MOD_NOT_FOUND), GetLastError());
    EXPECT_EQ(nullptr, LoadLibraryW(L"nosuchmodule.dll"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_MOD_NOT_FOUND), GetLastError());
    EXPECT_EQ(nullptr, GetProcAddress(program, "NoSuchProcedure"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PROC_NOT_FOUND), GetLastError());
}

}  // namespace
