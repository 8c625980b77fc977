// Files as only the native build's system has them: pipes, whose other end nobody should wait for, and administrators
// whom no attribute stops. Native only.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "platform/platform.h"

namespace {

// Nobody holds the other end. Without an answer at once these cases never end.
TEST(HeadlessFiles, APipeIsOpenedWithoutWaiting) {
    wchar_t temporary[MAX_PATH];
    ASSERT_NE(0u, GetTempPathW(MAX_PATH, temporary));
    const std::wstring pipe = std::wstring(temporary) + L"qvpipe" + std::to_wstring(GetCurrentProcessId());
    ASSERT_EQ(::mkfifo(std::string(pipe.begin(), pipe.end()).c_str(), 0600), 0);

    const HANDLE file = CreateFileW(pipe.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, file);
    char byte = 0;
    DWORD read = 1;
    EXPECT_TRUE(ReadFile(file, &byte, 1, &read, nullptr));
    EXPECT_EQ(0u, read);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(pipe.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(DeleteFileW(pipe.c_str()));
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
