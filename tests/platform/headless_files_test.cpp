// What would never end: waiting for the other end of a pipe in the file system, which the platform does not have.
// Native only.
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
    const std::wstring copy = pipe + L"-copy";
    ASSERT_EQ(::mkfifo(std::string(pipe.begin(), pipe.end()).c_str(), 0600), 0);

    const HANDLE file = CreateFileW(pipe.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, file);
    char byte = 0;
    DWORD read = 1;
    EXPECT_TRUE(ReadFile(file, &byte, 1, &read, nullptr));
    EXPECT_EQ(0u, read);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(pipe.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(CopyFileW(pipe.c_str(), copy.c_str(), TRUE));
    EXPECT_FALSE(CopyFileW(copy.c_str(), pipe.c_str(), FALSE));

    EXPECT_TRUE(DeleteFileW(copy.c_str()));
    EXPECT_TRUE(DeleteFileW(pipe.c_str()));
}

}  // namespace
