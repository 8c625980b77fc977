#include <memory>

#include "base/com.h"
#include "base/module_state.h"
#include "framework/controls.h"
#include "framework/gdi.h"
#include "tests/framework/test_windows.h"

namespace {

// Writes down what it hears from its window.
class Listener : public CWnd {
public:
    explicit Listener(std::wstring& log) : m_log(log) {}
    LRESULT answerToCreate = 0;
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CWnd::GetThisMessageMap(),
                                    {
                                        on::Create<&Listener::OnCreate>(),
                                        on::Destroy<&Listener::OnDestroy>(),
                                        on::Message<&Listener::OnNcCreate>(WM_NCCREATE),
                                    }};
        return &map;
    }
    LRESULT OnNcCreate(WPARAM, LPARAM) {
        m_log += L"nccreate;";
        return Default();
    }
    int OnCreate(CREATESTRUCTW* cs) {
        m_log += L"create;";
        return answerToCreate != 0 ? static_cast<int>(answerToCreate) : CWnd::OnCreate(cs);
    }
    void OnDestroy() {
        CWnd::OnDestroy();
        m_log += name + L"destroy;";
    }
    void PostNcDestroy() override { m_log += L"gone;"; }
    std::wstring name;

private:
    std::wstring& m_log;
};

TEST(Creation, ObjectHearsItsWindowsFirstMessages) {
    TopWindow top;
    for (const wchar_t* className : {static_cast<const wchar_t*>(nullptr), L"EDIT"}) {
        std::wstring log;
        Listener window(log);
        ASSERT_TRUE(window.Create(className, L"t", 0, {0, 0, 10, 10}, &top, 7));
        EXPECT_EQ(log, L"nccreate;create;");
        EXPECT_EQ(CWnd::FromHandlePermanent(window.m_hWnd), &window);
        EXPECT_EQ(window.GetWindowText(), L"t");
        EXPECT_EQ(window.GetDlgCtrlID(), 7);
        EXPECT_NE(window.GetStyle() & WS_CHILD, 0u);
    }
}

TEST(Creation, RefusalLeavesNoWindowAndAnObjectThatNobodyHasTouched) {
    TopWindow top;
    std::wstring log;
    Listener refusing(log);
    refusing.answerToCreate = -1;
    EXPECT_FALSE(refusing.Create(nullptr, L"", 0, {0, 0, 10, 10}, &top, 1));
    EXPECT_EQ(refusing.m_hWnd, nullptr);
    EXPECT_EQ(log.find(L"gone;"), std::wstring::npos);
    log.clear();
    Listener unknown(log);
    EXPECT_FALSE(unknown.Create(L"QvNoSuchClass", L"", 0, {0, 0, 10, 10}, &top, 1));
    EXPECT_FALSE(unknown.Create(nullptr, L"", 0, {0, 0, 10, 10}, nullptr, 1));
    EXPECT_EQ(log, L"");
    // The next window is not mistaken for the one that failed.
    CStatic label;
    ASSERT_TRUE(label.Create(L"l", 0, {0, 0, 10, 10}, &top));
    EXPECT_EQ(unknown.m_hWnd, nullptr);
}

TEST(Destruction, ParentsHearOfItBeforeTheirChildren) {
    std::wstring log;
    {
        TopWindow top;
        Listener outer(log);
        Listener inner(log);
        outer.name = L"outer-";
        inner.name = L"inner-";
        ASSERT_TRUE(outer.Create(nullptr, L"", 0, {0, 0, 10, 10}, &top, 1));
        ASSERT_TRUE(inner.Create(nullptr, L"", 0, {0, 0, 10, 10}, &outer, 1));
        log.clear();
        outer.DestroyWindow();
        EXPECT_EQ(inner.m_hWnd, nullptr);
    }
    EXPECT_EQ(log, L"outer-destroy;inner-destroy;gone;gone;");
}

TEST(Destruction, ObjectTakesItsWindowAlong) {
    TopWindow top;
    auto edit = std::make_unique<CEdit>();
    ASSERT_TRUE(edit->Create(0, {0, 0, 10, 10}, &top, 1));
    HWND handle = edit->m_hWnd;
    edit.reset();
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

// Null stands for something else in many of the platform's calls: nobody's focus, the whole screen, this thread.
TEST(Destruction, ObjectWithoutAWindowDoesNothing) {
    TopWindow top;
    top.SetFocus();
    CWnd gone;
    EXPECT_EQ(gone.SetFocus(), nullptr);
    EXPECT_EQ(::GetFocus(), top.m_hWnd);
    EXPECT_FALSE(gone.PostMessage(WM_USER));
    MSG message{};
    EXPECT_FALSE(::PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_FALSE(CClientDC(gone).IsValid());
    PumpPending();
    gone.Invalidate();
    EXPECT_FALSE(::GetUpdateRect(top.m_hWnd, nullptr, FALSE));
}

TEST(Handles, TemporaryObjectLeavesItsWindowAlone) {
    TopWindow top;
    HWND handle = ::CreateWindowExW(0, L"EDIT", L"raw", WS_CHILD, 0, 0, 10, 10, top.m_hWnd, nullptr, nullptr, nullptr);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_EQ(CWnd::FromHandle(handle)->GetWindowText(), L"raw");
    DeleteTemporaryObjects();
    EXPECT_TRUE(::IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

class UpperCaseEdit : public CEdit {
public:
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CEdit::GetThisMessageMap(), {on::Message<&UpperCaseEdit::OnChar>(WM_CHAR)}};
        return &map;
    }
    LRESULT OnChar(WPARAM wParam, LPARAM lParam) { return DefWindowProc(WM_CHAR, wParam - (L'a' - L'A'), lParam); }
};

TEST(Subclassing, RoutesMessagesUntilItIsUndone) {
    TopWindow top;
    HWND handle = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 90, 20, top.m_hWnd, reinterpret_cast<HMENU>(9),
                                    nullptr, nullptr);
    UpperCaseEdit edit;
    CWnd other;
    ASSERT_TRUE(edit.SubclassDlgItem(9, &top));
    EXPECT_FALSE(other.SubclassWindow(handle)) << "two objects for one window";
    EXPECT_FALSE(other.Attach(handle));
    edit.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(edit.UnsubclassWindow(), handle);
    ::SendMessageW(handle, WM_CHAR, L'a', 0);
    EXPECT_EQ(CWnd::FromHandle(handle)->GetWindowText(), L"Aa");
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

WNDPROC g_below = nullptr;
LRESULT CALLBACK ForeignProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcW(g_below, window, message, wParam, lParam);
}

TEST(Subclassing, GivenUpBelowSomebodyElsesProcedureLeavesAWorkingControl) {
    TopWindow top;
    HWND handle = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 90, 20, top.m_hWnd, nullptr, nullptr, nullptr);
    UpperCaseEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(handle));
    g_below = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ForeignProcedure)));
    EXPECT_EQ(edit.UnsubclassWindow(), handle);
    ::SendMessageW(handle, WM_CHAR, L'a', 0);
    EXPECT_EQ(CWnd::FromHandle(handle)->GetWindowText(), L"a");
}

TEST(ModuleState, WindowHandlesItsMessagesInTheStateItWasMadeIn) {
    static HINSTANCE seen;
    class Asker : public CWnd {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_USER) seen = GetResourceHandle();
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    TopWindow top;
    ModuleState component{::GetModuleHandleW(nullptr)};
    auto* const marker = reinterpret_cast<HINSTANCE>(0x30000);
    Asker window;
    {
        const ModuleStateSwitch state(component);
        ASSERT_TRUE(window.Create(nullptr, L"", 0, {0, 0, 10, 10}, &top, 1));
    }
    component.resources = marker;
    ModuleState host{reinterpret_cast<HINSTANCE>(0x40000)};
    const ModuleStateSwitch state(host);
    window.SendMessage(WM_USER);
    EXPECT_EQ(seen, marker);
    EXPECT_EQ(GetResourceHandle(), host.resources);
    component.resources = nullptr;
}

TEST(Accessibility, GivesAWindowTheNameItWasGivenForAsLongAsItLives) {
    ASSERT_GE(OleInitialize(nullptr), S_OK);
    {
        TopWindow top;
        CComboBox combo;
        ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST, {10, 10, 90, 100}, &top, 1));
        combo.AddString(L"Entry");
        combo.SetCurSel(0);
        combo.SetAccessibleName(L"Label");
        const auto object = qv::Receive<qv::ComPtr<IAccessible>>([&](auto out) {
                                return ::AccessibleObjectFromWindow(combo.m_hWnd, static_cast<DWORD>(OBJID_CLIENT),
                                                                    IID_IAccessible, out);
                            }).value;
        ASSERT_TRUE(object);
        VARIANT self{};
        V_VT(&self) = VT_I4;
        V_I4(&self) = CHILDID_SELF;
        const auto askName = [&] {
            return qv::Receive<qv::Bstr>([&](BSTR* out) { return object->get_accName(self, out); });
        };
        EXPECT_EQ(qv::TextOf(askName().value.Get()), L"Label");
        EXPECT_EQ(top.get_accChildCount(nullptr), E_POINTER);
        HWND window = nullptr;
        EXPECT_EQ(::WindowFromAccessibleObject(object.Get(), &window), S_OK);
        EXPECT_EQ(window, combo.m_hWnd);
        // A client may hold the object longer than there is a window.
        combo.DestroyWindow();
        EXPECT_NE(askName().status, S_OK);
    }
    OleUninitialize();
}

}  // namespace
