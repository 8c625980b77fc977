#include <stdexcept>

#include "framework/controls.h"
#include "tests/framework/test_windows.h"

namespace {

using Steps = std::vector<std::function<void()>>;

const Builder& Layout() {
    static const Builder layout = Builder(WS_POPUP | WS_CAPTION | WS_SYSMENU, 120, 80, L"dialog")
                                      .Add(Builder::Edit, 10, WS_TABSTOP, L"", 5, 5)
                                      .Add(Builder::Button, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, L"OK", 5, 40)
                                      .Add(Builder::Button, IDCANCEL, WS_TABSTOP | BS_PUSHBUTTON, L"Cancel", 60, 40);
    return layout;
}

class ModalDialog : public CDialog {
public:
    explicit ModalDialog(CWnd* parent) { InitModalIndirect(Layout().Bytes(), parent); }
    std::function<void()> onInit;
    std::function<void()> onDestroy;
    std::function<void()> onNotShown;
    using CDialog::GiveUpInit;
    void OnNotShown() override {
        if (onNotShown) onNotShown();
    }
    bool OnInitDialog() override {
        const bool result = CDialog::OnInitDialog();
        if (onInit) onInit();
        return result;
    }
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CDialog::GetThisMessageMap(), {on::Destroy<&ModalDialog::OnDestroy>()}};
        return &map;
    }
    void OnDestroy() {
        if (onDestroy) onDestroy();
        CDialog::OnDestroy();
    }
};

INT_PTR RunWith(CDialog& dialog, Steps steps) {
    const Script script(std::move(steps));
    return dialog.DoModal();
}

TEST(ModalDialog, DisablesItsTopLevelOwnerAndGivesItsFocusBack) {
    TopWindow top;
    CEdit first;
    CEdit second;
    ASSERT_TRUE(first.Create(WS_VISIBLE, {0, 0, 90, 20}, &top, 1));
    ASSERT_TRUE(second.Create(WS_VISIBLE, {0, 30, 90, 50}, &top, 2));
    second.SetFocus();
    // The parent is a control deep inside; its top-level window becomes the owner.
    ModalDialog dialog(&first);
    bool ownerEnabledAtEnd = false;
    dialog.onDestroy = [&] { ownerEnabledAtEnd = top.IsWindowEnabled(); };
    const auto result = RunWith(dialog, {[&] {
                                    EXPECT_FALSE(top.IsWindowEnabled());
                                    EXPECT_TRUE(dialog.IsWindowVisible());
                                    EXPECT_EQ(::GetWindow(dialog.m_hWnd, GW_OWNER), top.m_hWnd);
                                    EXPECT_EQ(::GetFocus(), dialog.GetDlgItem(10)->m_hWnd);
                                    EXPECT_TRUE(MakeUser().Click(dialog.GetDlgItem(IDOK)->m_hWnd));
                                }});
    EXPECT_EQ(result, IDOK);
    EXPECT_TRUE(ownerEnabledAtEnd);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(::GetActiveWindow(), top.m_hWnd);
    EXPECT_EQ(::GetFocus(), second.m_hWnd);
}

TEST(ModalDialog, WithoutParentIsOwnedByTheActiveWindow) {
    TopWindow top;
    ModalDialog dialog(nullptr);
    RunWith(dialog, {[&] {
                EXPECT_EQ(::GetWindow(dialog.m_hWnd, GW_OWNER), top.m_hWnd);
                dialog.EndDialog(7);
            }});
    EXPECT_TRUE(top.IsWindowEnabled());
}

TEST(ModalDialog, LeavesADisabledOwnerDisabled) {
    TopWindow top;
    top.EnableWindow(false);
    ModalDialog dialog(&top);
    RunWith(dialog, {[&] { dialog.EndDialog(IDOK); }});
    EXPECT_FALSE(top.IsWindowEnabled());
}

TEST(ModalDialog, EndsInEveryWay) {
    TopWindow top;
    const struct {
        const char* name;
        std::function<void(ModalDialog&)> act;
        INT_PTR result;
    } cases[] = {
        {"code of EndDialog", [](ModalDialog& d) { d.EndDialog(77); }, 77},
        {"cancel button", [](ModalDialog& d) { MakeUser().Click(d.GetDlgItem(IDCANCEL)->m_hWnd); }, IDCANCEL},
        {"close box", [](ModalDialog& d) { d.PostMessage(WM_CLOSE); }, IDCANCEL},
        {"escape", [](ModalDialog&) { MakeUser().Press(VK_ESCAPE); }, IDCANCEL},
        {"enter in the edit", [](ModalDialog&) { MakeUser().Press(VK_RETURN); }, IDOK},
        {"window destroyed", [](ModalDialog& d) { d.DestroyWindow(); }, IDCANCEL},
        {"window destroyed after it was ended",
         [](ModalDialog& d) {
             d.EndDialog(8);
             d.DestroyWindow();
         },
         8},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ModalDialog dialog(&top);
        for (const char* run : {"first", "again"})
            EXPECT_EQ(RunWith(dialog, {[&] { c.act(dialog); }}), c.result) << run;
        EXPECT_TRUE(top.IsWindowEnabled());
    }
}

TEST(ModalDialog, WithoutATemplateIsMinusOneAndFreesTheOwner) {
    TopWindow top;
    CDialog missing(4711, &top);
    EXPECT_EQ(missing.DoModal(), -1);
    EXPECT_TRUE(top.IsWindowEnabled());
}

// The dialog hears of it when everything is as it was before, so that it can tell the user.
TEST(ModalDialog, TellsOfEveryEndBeforeItWasShown) {
    const struct {
        const char* name;
        std::function<void(ModalDialog&, TopWindow&)> act;
        INT_PTR result;
        int told;
    } cases[] = {
        {"gives up", [](ModalDialog& d, TopWindow&) { d.GiveUpInit(); }, -1, 1},
        {"throws", [](ModalDialog&, TopWindow&) { throw std::runtime_error("init"); }, -1, 1},
        {"gives up after it was ended",
         [](ModalDialog& d, TopWindow&) {
             d.EndDialog(IDOK);
             d.GiveUpInit();
         },
         -1, 1},
        {"is destroyed", [](ModalDialog& d, TopWindow&) { d.DestroyWindow(); }, IDCANCEL, 0},
        {"loses its owner", [](ModalDialog&, TopWindow& top) { top.DestroyWindow(); }, IDCANCEL, 0},
        {"is ended and destroyed",
         [](ModalDialog& d, TopWindow&) {
             d.EndDialog(9);
             d.DestroyWindow();
         },
         9, 0},
        {"is ended", [](ModalDialog& d, TopWindow&) { d.EndDialog(-1); }, -1, 0},
    };
    const qvtest::ScopedExceptionHandler silence([](const std::exception_ptr&) {});
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        TopWindow top;
        ModalDialog dialog(&top);
        int told = 0;
        dialog.onInit = [&] { each.act(dialog, top); };
        dialog.onNotShown = [&] {
            ++told;
            EXPECT_EQ(dialog.m_hWnd, nullptr);
            EXPECT_TRUE(top.IsWindowEnabled());
        };
        dialog.onDestroy = [&] { EXPECT_FALSE(dialog.IsWindowVisible()); };
        EXPECT_EQ(dialog.DoModal(), each.result);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(told, each.told);
    }
}

TEST(CenterWindow, UsesTheOwnerWhenItIsVisibleAndTheScreenOtherwise) {
    TopWindow top({100, 100, 700, 500});
    ModalDialog dialog(&top);
    const auto middle = [](const CRect& rect) { return rect.left + rect.right; };
    RunWith(dialog, {[&] {
                dialog.SetWindowPos(nullptr, 0, 0, 200, 100, SWP_NOZORDER);
                dialog.CenterWindow();
                EXPECT_NEAR(middle(dialog.GetWindowRect()), middle(top.GetWindowRect()), 2);
                dialog.CenterWindow(true);
                EXPECT_NEAR(middle(dialog.GetWindowRect()), ::GetSystemMetrics(SM_CXSCREEN), 2);
                dialog.EndDialog(0);
            }});
}

}  // namespace
