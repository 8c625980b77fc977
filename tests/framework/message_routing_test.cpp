#include <string>

#include "framework/check_list_box.h"
#include "framework/controls.h"
#include "tests/framework/test_windows.h"

namespace {

constexpr UINT kButton = 101;
constexpr UINT kPrivateMessage = WM_USER + 7;

class Parent : public TopWindow {
public:
    std::wstring log;
    const MessageMap* GetMessageMap() const override { return GetThisMessageMap(); }
    static const MessageMap* GetThisMessageMap() {
        static const MessageMap map{TopWindow::GetThisMessageMap(),
                                    {
                                        on::Message<&Parent::OnPrivate>(kPrivateMessage),
                                        on::Command<&Parent::OnButton>(kButton),
                                        on::Size<&Parent::OnSize>(),
                                    }};
        return &map;
    }
    LRESULT OnPrivate(WPARAM wParam, LPARAM lParam) {
        log += L"base;";
        return static_cast<LRESULT>(wParam) + lParam;
    }
    void OnButton() { log += L"button;"; }
    void OnSize(UINT type, int cx, int cy) {
        TopWindow::OnSize(type, cx, cy);
        clientSize = {cx, cy};
    }
    SIZE clientSize{0, 0};
};

class Derived : public Parent {
public:
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{Parent::GetThisMessageMap(),
                                    {on::Message<&Derived::OnPrivateToo>(kPrivateMessage)}};
        return &map;
    }
    LRESULT OnPrivateToo(WPARAM, LPARAM) {
        log += L"derived;";
        return 5;
    }
};

TEST(MessageMap, MostDerivedEntryWinsAndBaseEntriesStay) {
    Derived window;
    EXPECT_EQ(window.SendMessage(kPrivateMessage, 1, 2), 5);
    window.SendMessage(WM_COMMAND, kButton, 0);
    EXPECT_EQ(window.log, L"derived;button;");
    Parent base;
    EXPECT_EQ(base.SendMessage(kPrivateMessage, 1, 2), 3);
}

TEST(MessageMap, DecodesSizesBeyondFifteenBits) {
    Parent window;
    window.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(40000, 50000));
    EXPECT_EQ(window.clientSize.cx, 40000);
    EXPECT_EQ(window.clientSize.cy, 50000);
}

// A control that colours itself in its parent's place.
class ColouredStatic : public CStatic {
public:
    HBRUSH brush = ::GetSysColorBrush(COLOR_HIGHLIGHT);
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CStatic::GetThisMessageMap(),
                                    {on::MessageReflect<&ColouredStatic::OnColour>(WM_CTLCOLORSTATIC)}};
        return &map;
    }
    LRESULT OnColour(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(brush); }
};

TEST(Reflection, ControlAnswersItsParentsColourQuestion) {
    Parent window;
    ColouredStatic label;
    ASSERT_TRUE(label.Create(L"l", WS_VISIBLE, {0, 0, 50, 20}, &window));
    const auto answer = window.SendMessage(WM_CTLCOLORSTATIC, 0, reinterpret_cast<LPARAM>(label.m_hWnd));
    EXPECT_EQ(answer, reinterpret_cast<LRESULT>(label.brush));
}

class Thrower : public TopWindow {
public:
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{TopWindow::GetThisMessageMap(),
                                    {on::Message<&Thrower::OnPrivate>(kPrivateMessage)}};
        return &map;
    }
    LRESULT OnPrivate(WPARAM, LPARAM) { throw std::runtime_error("handler"); }
};

TEST(WindowProcedure, ReportsAnExceptionAndAnswersZero) {
    Thrower window;
    std::string reported;
    const qvtest::ScopedExceptionHandler handler([&reported](const std::exception_ptr& exception) {
        try {
            std::rethrow_exception(exception);
        } catch (const std::exception& e) {
            reported = e.what();
        }
    });
    EXPECT_EQ(window.SendMessage(kPrivateMessage), 0);
    EXPECT_EQ(reported, "handler");
    EXPECT_TRUE(window.IsLive());
}

TEST(RuntimeClass, KnowsItsAncestors) {
    CCheckListBox list;
    CListBox plain;
    EXPECT_NE(DynamicDownCast<CListBox>(&list), nullptr);
    EXPECT_EQ(DynamicDownCast<CCheckListBox>(static_cast<CObject*>(&plain)), nullptr);
}

}  // namespace
