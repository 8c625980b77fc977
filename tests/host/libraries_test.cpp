// Message boxes, the error display and the browser settings: what callers see of them.
#include <gtest/gtest.h>

#include "framework/wnd.h"
#include "host/libraries/browser_settings.h"
#include "host/libraries/error_display.h"
#include "tests/support/recorders.h"

namespace {

using Kind = qv::MessageBoxCall::Kind;

class MessageBoxes : public testing::Test, protected qvtest::MessageBoxRecorder {};

TEST_F(MessageBoxes, ReachTheSinkAsTheyWereCalledAndAnswerWithItsButton) {
    CWnd owner;
    ASSERT_TRUE(owner.CreateEx(0, nullptr, L"owner", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0));
    ::SetActiveWindow(owner.m_hWnd);
    answer = IDCANCEL;
    EXPECT_EQ(CoInfoBox(owner.m_hWnd, L"caption", L"info\nline", 0), IDCANCEL);
    EXPECT_EQ(CoErrorBox(nullptr, L"", L"error", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(CoPlainBox(L"plain"), IDCANCEL);
    XQVError::DisplayErrorMessageBox(L"Module", L"Class::Function", 2537, L"100% wrong %s", L"");
    XQVError::DisplayErrorMessageBox(L"Module", L"Class::Function", -1, L"wrong", L"more");

    struct Expected {
        Kind kind;
        HWND window;
        const wchar_t* caption;
        const wchar_t* text;
        UINT flags;
    };
    const Expected expected[] = {
        {Kind::Info, owner.m_hWnd, L"caption", L"info\nline", 0},
        {Kind::Error, nullptr, L"", L"error", MB_OKCANCEL},
        {Kind::Plain, owner.m_hWnd, L"host_tests", L"plain", 0},
        {Kind::Error, owner.m_hWnd, L"Module", L"100% wrong %s\n\nClass::Function (2537)", 0},
        {Kind::Error, owner.m_hWnd, L"Module", L"wrong\n\nClass::Function (-1)\nmore", 0},
    };
    ASSERT_EQ(boxes.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(boxes[i].kind, expected[i].kind) << i;
        EXPECT_EQ(boxes[i].owner, expected[i].window) << i;
        EXPECT_EQ(boxes[i].caption, expected[i].caption) << i;
        EXPECT_EQ(boxes[i].text, expected[i].text) << i;
        EXPECT_EQ(boxes[i].flags, expected[i].flags) << i;
    }
}

TEST_F(MessageBoxes, SinkMayReplaceItselfWhileItAnswers) {
    qv::SetMessageBoxSink([](const qv::MessageBoxCall& call) {
        const std::wstring text = call.text;
        qv::SetMessageBoxSink([](const qv::MessageBoxCall&) { return IDNO; });
        return text == call.text ? IDYES : IDABORT;
    });
    EXPECT_EQ(CoInfoBox(nullptr, L"", L"first", 0), IDYES);
    EXPECT_EQ(CoInfoBox(nullptr, L"", L"second", 0), IDNO);
}

TEST(BrowserSettings, SharedObjectLivesAsLongAsItHasUsersAndIsReadAgainOnDemand) {
    ASSERT_EQ(XQVBrowserSettings::GetBrowserSettingsObject(), nullptr) << "a host without them";
    XQVBrowserSettings::ReleaseBrowserSettingsObject();
    XQVBrowserSettings::SetReader([](XQVBrowserSettings& settings) { ++settings.m_numbers[0]; });
    XQVBrowserSettings* const first = XQVBrowserSettings::GetBrowserSettingsObject();
    XQVBrowserSettings* const second = XQVBrowserSettings::GetBrowserSettingsObject();
    EXPECT_EQ(first, second);
    first->Initialize();
    XQVBrowserSettings::ReleaseBrowserSettingsObject();
    second->Initialize();
    EXPECT_EQ(second->m_numbers[0], 2);
    XQVBrowserSettings::SetReader(nullptr);
    XQVBrowserSettings::ReleaseBrowserSettingsObject();
    EXPECT_EQ(XQVBrowserSettings::GetBrowserSettingsObject(), nullptr);
}

}  // namespace
