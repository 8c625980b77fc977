#include "host/services/dialog_service.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "framework/controls.h"
#include "tests/support/scoped.h"

namespace {

using Step = std::function<void()>;

// The dialog that is open now, and its text, used by posted keys as a person would.
HWND Dialog() {
    return ::GetActiveWindow();
}
HWND Content() {
    return ::GetWindow(Dialog(), GW_CHILD);
}
std::wstring Text() {
    return CWnd::FromHandle(Content())->GetWindowText();
}
Step Press(WPARAM key) {
    return [key] { ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1); };
}
Step Type(wchar_t character) {
    return [character] { ::PostMessageW(::GetFocus(), WM_CHAR, character, 1); };
}

class DialogServiceTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(
            owner.CreateEx(0, nullptr, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{50, 60, 450, 360}, nullptr, 0));
        ASSERT_TRUE(before.Create(L"before", WS_VISIBLE | WS_TABSTOP, RECT{0, 0, 100, 30}, &owner, 1));
        ::SetActiveWindow(owner.m_hWnd);
        before.SetFocus();
    }
    void TearDown() override { owner.DestroyWindow(); }

    // Runs the call; each step is done once the dialog has dealt with the one before. A dialog that is open after the
    // last step is a failure and is cancelled.
    template <class Call>
    HRESULT Run(Call&& call, std::vector<Step> steps) {
        std::size_t next = 0;
        const qvtest::ScopedIdleHandler walk([&](int) {
            if (next == 0) {
                EXPECT_NE(Dialog(), owner.m_hWnd);
                EXPECT_FALSE(owner.IsWindowEnabled());
            }
            if (next < steps.size()) {
                steps[next++]();
            } else {
                ADD_FAILURE() << "still open";
                ::SendMessageW(Dialog(), WM_COMMAND, IDCANCEL, 0);
            }
            return true;
        });
        const HRESULT status = call();
        EXPECT_EQ(next, steps.size());
        EXPECT_TRUE(owner.IsWindowEnabled());
        EXPECT_EQ(::GetFocus(), before.m_hWnd) << "the focus goes back";
        return status;
    }
    HRESULT Edit(qv::Bstr& value, std::vector<Step> steps) {
        return Change(value, [&](BSTR argument, BSTR* result) {
            return Run([&] { return service->EditText(argument, result); }, std::move(steps));
        });
    }
    HRESULT Choose(qv::Bstr& value, LONG number, std::vector<Step> steps) {
        return Change(value, [&](BSTR argument, BSTR* result) {
            return Run([&] { return service->ChooseText(argument, result, number); }, std::move(steps));
        });
    }
    HRESULT View(qv::Bstr& value) {
        return Change(value, [&](BSTR argument, BSTR* result) { return service->ViewText(argument, result); });
    }
    // The callee is this tree's own: it leaves a text in the variable whatever it answers.
    template <class Call>
    static HRESULT Change(qv::Bstr& value, const Call& call) {
        BSTR variable = value.Detach();
        const HRESULT status = call(variable, &variable);
        value = qv::Bstr::Adopt(variable);
        return status;
    }

    qv::ComPtr<HostDialogService> service = qv::DialogService::Create();
    CWnd owner;
    CButton before;
};

TEST_F(DialogServiceTest, EditingByKeyboardReplacesTheText) {
    qv::Bstr value(L"one\ntwo");
    const Step look = [] {
        EXPECT_EQ(::GetFocus(), Content());
        EXPECT_EQ(Text(), L"one\r\ntwo");
    };
    const Step lookAgain = [] { EXPECT_EQ(Text(), L"x\r\none\r\ntwo") << "Enter is the editor's"; };
    const Step lookForOk = [] { EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDOK); };
    EXPECT_EQ(Edit(value, {look, Type(L'x'), Press(VK_RETURN), lookAgain, Press(VK_TAB), lookForOk, Press(VK_RETURN)}),
              S_OK);
    EXPECT_EQ(qv::TextOf(value.Get()), L"x\none\ntwo");
}

TEST_F(DialogServiceTest, EscapeLeavesTheCallersTextAlone) {
    qv::Bstr value(L"a|b");
    const BSTR untouched = value.Get();
    EXPECT_EQ(Edit(value, {Type(L'x'), Press(VK_ESCAPE)}), S_FALSE);
    EXPECT_EQ(value.Get(), untouched);
    EXPECT_EQ(Choose(value, 0, {Press(VK_DOWN), Press(VK_ESCAPE)}), S_FALSE);
    EXPECT_EQ(value.Get(), untouched);
    EXPECT_EQ(qv::TextOf(value.Get()), L"a|b");
}

TEST_F(DialogServiceTest, TheChosenEntryComesFirst) {
    const struct {
        const char* name;
        std::wstring text;
        LONG number;
        bool goesDown;
        std::wstring expected;
    } cases[] = {
        {"the one that was selected", L"a|b|c", 1, false, L"b|a|c"},
        {"the next", L"a|b|c", 1, true, L"c|a|b"},
        {"lines", L"a\r\nb\nc", 2, false, L"c|a|b"},
        {"number past the end", L"a|b", 7, false, L"a|b"},
        {"negative number", L"a|b", -1, false, L"a|b"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        qv::Bstr value(each.text);
        std::vector<Step> steps{[] { EXPECT_EQ(::GetFocus(), Content()); }};
        if (each.goesDown) steps.push_back(Press(VK_DOWN));
        steps.push_back(Press(VK_RETURN));
        EXPECT_EQ(Choose(value, each.number, std::move(steps)), S_OK);
        EXPECT_EQ(qv::TextOf(value.Get()), each.expected);
    }
}

TEST_F(DialogServiceTest, NothingToChooseFromOpensNothing) {
    qv::Bstr value(L"||\n");
    EXPECT_EQ(Choose(value, 0, {}), S_FALSE);
    BSTR untouched = nullptr;
    EXPECT_EQ(service->ChooseText(nullptr, &untouched, 0), S_FALSE);
    EXPECT_EQ(untouched, nullptr);
    EXPECT_EQ(service->ChooseText(value.Get(), nullptr, 0), E_POINTER);
    EXPECT_EQ(service->EditText(value.Get(), nullptr), E_POINTER);
    EXPECT_EQ(qv::TextOf(value.Get()), L"||\n");
}

TEST_F(DialogServiceTest, TheViewerShowsAndChangesNothing) {
    qv::Bstr value(L"one\ntwo");
    const Step look = [] { EXPECT_EQ(Text(), L"one\r\ntwo"); };
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}}) {
        EXPECT_EQ(Run([&] { return View(value); }, {look, Type(L'x'), look, Press(key)}), S_OK);
        EXPECT_EQ(qv::TextOf(value.Get()), L"one\ntwo");
    }
}

TEST_F(DialogServiceTest, TheNoteStandsBesideTheFrameInsideTheScreen) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    ASSERT_TRUE(::GetMonitorInfoW(::MonitorFromWindow(owner.m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor));
    const RECT work = monitor.rcWork;
    const int right = static_cast<int>(work.right);
    for (const int left : {50, right - 400}) {
        SCOPED_TRACE(left);
        owner.MoveWindow(left, 60, 400, 300);
        const auto frame = static_cast<LONG>(reinterpret_cast<LONG_PTR>(owner.m_hWnd));
        qv::Bstr text(L"note");
        const Step look = [&] {
            RECT note{};
            ::GetWindowRect(Dialog(), &note);
            const CRect other = owner.GetWindowRect();
            EXPECT_TRUE(note.left >= other.right || note.right <= other.left);
            EXPECT_GE(note.left, work.left);
            EXPECT_LE(note.right, work.right);
            EXPECT_EQ(note.top, other.top);
        };
        EXPECT_EQ(Run([&] { return service->PlaceBeside(text.Get(), frame); }, {look, Press(VK_ESCAPE)}), S_OK);
    }
    // A frame that is gone, or none, is no reason to fail.
    qv::Bstr text(L"note");
    EXPECT_EQ(Run([&] { return service->PlaceBeside(text.Get(), 0); }, {Press(VK_ESCAPE)}), S_OK);
}

}  // namespace
