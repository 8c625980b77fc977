// Identifiers, classes, task memory and modules.
#include <gtest/gtest.h>

#include <string>

#include "platform/module_address.h"
#include "platform/platform.h"

namespace {

const GUID kSome = {0x12345678, 0x9ABC, 0xDEF0, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};

class Com : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_GE(CoInitialize(nullptr), 0); }
    void TearDown() override { CoUninitialize(); }
};

TEST_F(Com, UnknownClassesAreNotRegistered) {
    void* object = &object;
    EXPECT_EQ(REGDB_E_CLASSNOTREG, CoCreateInstance(kSome, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
}

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
