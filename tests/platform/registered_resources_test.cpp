// What the native build alone has of resources: a module registers its own. Native only.
#include <gtest/gtest.h>

#include <array>

#include "platform/module_resources.h"
#include "platform/platform.h"

namespace {

using namespace qv::headless;

TEST(RegisteredResources, AreFoundByTypeNameAndLanguage) {
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

}  // namespace
