// The standard accessible object of a client area, which windows that add nothing answer with.
#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"

namespace {

VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

class StandardAccessibleObject : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_GE(CoInitialize(nullptr), 0);
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = L"QvAccessibleTest";
        RegisterClassW(&windowClass);
        m_window = CreateWindowExW(0, L"QvAccessibleTest", L"My &Window", WS_POPUP | WS_VISIBLE, 100, 100, 400, 300,
                                   nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(nullptr, m_window);
        m_static = Add(L"STATIC", L"&Prompt && more:", WS_VISIBLE, 20, 30);
        m_edit = Add(L"EDIT", L"content", WS_VISIBLE, 120, 30);
        m_button = Add(L"BUTTON", L"Pr&ess", WS_VISIBLE, 20, 60);
        m_hidden = Add(L"BUTTON", L"", 0, 200, 60);
    }
    void TearDown() override {
        DestroyWindow(m_window);
        CoUninitialize();
    }

    [[nodiscard]] HWND Add(const wchar_t* windowClass, const wchar_t* text, DWORD style, int x, int y) const {
        return CreateWindowExW(0, windowClass, text, WS_CHILD | style, x, y, 90, 20, m_window, nullptr, nullptr,
                               nullptr);
    }

    HWND m_window = nullptr;
    HWND m_static = nullptr;
    HWND m_edit = nullptr;
    HWND m_button = nullptr;
    HWND m_hidden = nullptr;
};

// Owns the object of one window.
class Object {
public:
    explicit Object(HWND window) {
        EXPECT_EQ(S_OK, CreateStdAccessibleObject(window, OBJID_CLIENT, IID_IAccessible,
                                                  reinterpret_cast<void**>(&m_object)));
    }
    ~Object() { m_object->Release(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    IAccessible* operator->() const { return m_object; }

private:
    IAccessible* m_object = nullptr;
};

using Getter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::wstring Text(const Object& object, Getter getter) {
    BSTR text = nullptr;
    const HRESULT result = (object.operator->()->*getter)(Self(), &text);
    const std::wstring answer = result == S_OK ? std::wstring(text, SysStringLen(text)) : L"<none>";
    EXPECT_TRUE(result == S_OK || (result == S_FALSE && text == nullptr));
    SysFreeString(text);
    return answer;
}

TEST_F(StandardAccessibleObject, AnswersNamesRolesAndStates) {
    struct Case {
        HWND window;
        const wchar_t* name;
        const wchar_t* shortcut;
        const wchar_t* value;
        LONG role;
        LONG state;
    };
    const Case cases[] = {
        {m_static, L"Prompt && more:", L"Alt+P", L"<none>", ROLE_SYSTEM_CLIENT, STATE_SYSTEM_FOCUSABLE},
        // An edit is named by the static before it.
        {m_edit, L"Prompt && more:", L"Alt+P", L"content", ROLE_SYSTEM_TEXT, STATE_SYSTEM_FOCUSABLE},
        {m_button, L"Press", L"Alt+e", L"<none>", ROLE_SYSTEM_CLIENT, STATE_SYSTEM_FOCUSABLE},
        {m_hidden, L"<none>", L"<none>", L"<none>", ROLE_SYSTEM_CLIENT,
         STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_INVISIBLE},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(std::wstring(c.name)));
        const Object object(c.window);
        EXPECT_EQ(c.name, Text(object, &IAccessible::get_accName));
        EXPECT_EQ(c.shortcut, Text(object, &IAccessible::get_accKeyboardShortcut));
        EXPECT_EQ(c.value, Text(object, &IAccessible::get_accValue));
        VARIANT answer{};
        EXPECT_EQ(S_OK, object->get_accRole(Self(), &answer));
        EXPECT_EQ(c.role, answer.lVal);
        EXPECT_EQ(S_OK, object->get_accState(Self(), &answer));
        EXPECT_EQ(c.state, answer.lVal);
    }
}

TEST_F(StandardAccessibleObject, OutlivesItsWindow) {
    const Object object(m_button);
    DestroyWindow(m_button);
    BSTR name = nullptr;
    EXPECT_EQ(E_INVALIDARG, object->get_accName(Self(), &name));
    LONG count = -1;
    EXPECT_EQ(S_OK, object->get_accChildCount(&count));
    EXPECT_EQ(0, count);
    VARIANT state{};
    EXPECT_EQ(S_OK, object->get_accState(Self(), &state));
    EXPECT_EQ(STATE_SYSTEM_INVISIBLE, state.lVal);
    IAccessible* none = nullptr;
    EXPECT_EQ(E_FAIL,
              CreateStdAccessibleObject(m_button, OBJID_CLIENT, IID_IAccessible, reinterpret_cast<void**>(&none)));
}

}  // namespace
