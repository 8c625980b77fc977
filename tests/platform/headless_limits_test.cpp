// What would never end: waiting for the other end of a pipe in the file system, which the platform does not have, and
// work that grows faster than what it is done on. Native only.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>
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

// Processor time of an action: other programs on the machine do not count. The least of three, as the others were
// disturbed.
template <class Action>
double SecondsOf(const Action& action) {
    double least = 0;
    for (int run = 0; run < 3; ++run) {
        const std::clock_t begin = std::clock();
        action();
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        if (run == 0 || seconds < least) least = seconds;
    }
    return least;
}

// Eight times as much takes eight times as long, and 64 times where every piece is held against every other.
constexpr int kTimes = 8;
constexpr double kTooLong = 24;

TEST(HeadlessText, ALongTextIsMeasuredInNoMoreTimeThanItIsLong) {
    const HDC dc = GetDC(nullptr);
    for (const std::wstring& piece : {std::wstring(L"several words "), std::wstring(14, L'n')}) {
        for (const UINT format : {UINT{DT_WORDBREAK}, UINT{DT_WORDBREAK | DT_EDITCONTROL}}) {
            const auto measure = [&](int pieces) {
                std::wstring text;
                for (int i = 0; i < pieces; ++i)
                    text += piece;
                return SecondsOf([&] {
                    RECT rect{0, 0, 400, 0};
                    EXPECT_GT(DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_CALCRECT | format),
                              0);
                });
            };
            constexpr int kPieces = 2000;
            EXPECT_LT(measure(kTimes * kPieces), kTooLong * measure(kPieces)) << piece.size() << ' ' << format;
        }
    }
    ReleaseDC(nullptr, dc);
}

TEST(HeadlessTabs, AreSetInNoMoreTimeThanThereAre) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES};
    ASSERT_TRUE(InitCommonControlsEx(&classes));
    const auto fill = [](int tabs) {
        return SecondsOf([&] {
            const HWND tab =
                CreateWindowExW(0, WC_TABCONTROLW, L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            wchar_t title[] = L"Title";
            item.pszText = title;
            for (int i = 0; i < tabs; ++i)
                SendMessageW(tab, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            for (int i = 0; i < tabs; ++i)
                SendMessageW(tab, TCM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            RECT rect{};
            EXPECT_TRUE(
                SendMessageW(tab, TCM_GETITEMRECT, static_cast<WPARAM>(tabs) - 1, reinterpret_cast<LPARAM>(&rect)));
            EXPECT_GT(rect.right, rect.left);
            DestroyWindow(tab);
        });
    };
    constexpr int kTabs = 500;
    EXPECT_LT(fill(kTimes * kTabs), kTooLong * fill(kTabs));
}

}  // namespace
