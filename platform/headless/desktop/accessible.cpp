#include "platform/headless/desktop/accessible.h"

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "platform/headless/base/encoding.h"
#include "platform/headless/desktop/controls.h"

namespace {

using qv::headless::CompareIgnoringCase;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool IsOfClass(HWND window, const wchar_t* name) {
    wchar_t own[64] = {};
    GetClassNameW(window, own, 64);
    return CompareIgnoringCase(own, name) == 0;
}

// The text that names a window, with the mark of its mnemonic. An edit shows its contents, so the static before it is
// its name.
std::wstring LabelOf(HWND window) {
    if (!IsOfClass(window, L"EDIT")) return TextOf(window);
    for (HWND before = GetWindow(window, GW_HWNDPREV); before != nullptr; before = GetWindow(before, GW_HWNDPREV)) {
        if (IsOfClass(before, L"STATIC")) return TextOf(before);
    }
    return {};
}

// S_FALSE and no text for an empty one.
HRESULT Answer(const std::wstring& text, BSTR* result) {
    if (text.empty()) return S_FALSE;
    *result = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
    return *result != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT Answer(LONG number, VARIANT* result) {
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
}

class StandardObject final : public IAccessible, public IOleWindow {
public:
    StandardObject(HWND window, bool client) : m_window(window), m_client(client) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (riid == IID_IOleWindow) {
            *object = static_cast<IOleWindow*>(this);
            AddRef();
            return S_OK;
        }
        if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IDispatch) && !IsEqualIID(riid, IID_IAccessible)) {
            return E_NOINTERFACE;
        }
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
        *window = m_window;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        *parent = nullptr;
        HWND above = GetAncestor(m_window, GA_PARENT);
        if (above == nullptr) return S_FALSE;
        return CreateStdAccessibleObject(above, OBJID_CLIENT, IID_IDispatch, reinterpret_cast<void**>(parent));
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        *count = 0;
        for (HWND child = ::GetWindow(m_window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
            ++*count;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT, IDispatch** dispatch) override {
        // Children are windows, not numbers: nobody gets one by counting.
        *dispatch = nullptr;
        return E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        *name = nullptr;
        if (!IsSelf(child) || IsWindow(m_window) == FALSE) return E_INVALIDARG;
        std::wstring text = LabelOf(m_window);
        // The mark of a mnemonic is not part of the name; a doubled one further on stays as it is.
        if (const auto mark = text.find(L'&'); mark != std::wstring::npos) text.erase(mark, 1);
        return Answer(text, name);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        *shortcut = nullptr;
        if (!IsSelf(child)) return E_INVALIDARG;
        const std::wstring text = LabelOf(m_window);
        const auto mark = text.find(L'&');
        if (mark == std::wstring::npos || mark + 1 == text.size()) return S_FALSE;
        return Answer(L"Alt+" + text.substr(mark + 1, 1), shortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        *value = nullptr;
        if (!IsSelf(child)) return E_INVALIDARG;
        if (!IsOfClass(m_window, L"EDIT")) return S_FALSE;
        // A password is nobody's to read.
        if (IsPassword()) return E_ACCESSDENIED;
        const std::wstring text = TextOf(m_window);
        *value = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
        return *value != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        role->vt = VT_EMPTY;
        if (!IsSelf(child)) return E_INVALIDARG;
        return Answer(!m_client                      ? ROLE_SYSTEM_WINDOW
                      : IsOfClass(m_window, L"EDIT") ? ROLE_SYSTEM_TEXT
                                                     : ROLE_SYSTEM_CLIENT,
                      role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        state->vt = VT_EMPTY;
        if (!IsSelf(child)) return E_INVALIDARG;
        if (IsWindow(m_window) == FALSE) return Answer(STATE_SYSTEM_INVISIBLE, state);
        LONG bits = IsWindowEnabled(m_window) == FALSE ? STATE_SYSTEM_UNAVAILABLE : STATE_SYSTEM_FOCUSABLE;
        if ((GetWindowLongW(m_window, GWL_STYLE) & static_cast<LONG>(WS_VISIBLE)) == 0) bits |= STATE_SYSTEM_INVISIBLE;
        if (HasFocus()) bits |= STATE_SYSTEM_FOCUSED;
        if (IsOfClass(m_window, L"EDIT") && IsPassword()) bits |= STATE_SYSTEM_PROTECTED;
        return Answer(bits, state);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        child->vt = VT_EMPTY;
        return HasFocus() ? Answer(CHILDID_SELF, child) : S_OK;
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        *left = *top = *width = *height = 0;
        if (!IsSelf(child)) return E_INVALIDARG;
        if (IsWindow(m_window) == FALSE) return S_OK;
        const RECT rect = RectOf(m_window);
        *left = rect.left;
        *top = rect.top;
        *width = rect.right - rect.left;
        *height = rect.bottom - rect.top;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        child->vt = VT_EMPTY;
        if (IsWindow(m_window) == FALSE) return Answer(CHILDID_SELF, child);
        const POINT point{left, top};
        const RECT own = RectOf(m_window);
        if (PtInRect(&own, point) == FALSE) return S_FALSE;
        for (HWND below = ::GetWindow(m_window, GW_CHILD); below != nullptr; below = ::GetWindow(below, GW_HWNDNEXT)) {
            RECT rect{};
            GetWindowRect(below, &rect);
            if (IsWindowVisible(below) == FALSE || PtInRect(&rect, point) == FALSE) continue;
            IDispatch* found = nullptr;
            const HRESULT result =
                CreateStdAccessibleObject(below, OBJID_WINDOW, IID_IDispatch, reinterpret_cast<void**>(&found));
            if (FAILED(result)) return result;
            child->vt = VT_DISPATCH;
            child->pdispVal = found;
            return S_OK;
        }
        return Answer(CHILDID_SELF, child);
    }

    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        *text = nullptr;
        return IsSelf(child) ? S_FALSE : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* text) override {
        *text = nullptr;
        return IsSelf(child) ? S_FALSE : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

private:
    static bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }
    [[nodiscard]] bool IsPassword() const {
        return (GetWindowLongW(m_window, GWL_STYLE) & static_cast<LONG>(ES_PASSWORD)) != 0;
    }
    // The window that has the keyboard focus, or the active one.
    [[nodiscard]] bool HasFocus() const { return m_window == GetFocus() || m_window == GetForegroundWindow(); }
    RECT RectOf(HWND window) const {
        RECT rect{};
        if (window != m_window || !m_client) {
            GetWindowRect(window, &rect);
            return rect;
        }
        GetClientRect(window, &rect);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }

    HWND m_window;
    bool m_client;
    ULONG m_references = 0;
};

}  // namespace

HRESULT CreateStdAccessibleObject(HWND window, LONG object, REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (IsWindow(window) == FALSE) return E_FAIL;
    if (object != OBJID_CLIENT && object != OBJID_WINDOW) return E_NOTIMPL;
    auto* made = new (std::nothrow) StandardObject(window, object == OBJID_CLIENT);
    if (made == nullptr) return E_OUTOFMEMORY;
    made->AddRef();
    const HRESULT answer = made->QueryInterface(riid, result);
    made->Release();
    return answer;
}

HRESULT AccessibleObjectFromWindow(HWND window, DWORD object, REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (IsWindow(window) == FALSE) return E_FAIL;
    const LRESULT own = SendMessageW(window, WM_GETOBJECT, 0, static_cast<LPARAM>(static_cast<LONG>(object)));
    if (own > 0) return ObjectFromLresult(own, riid, 0, result);
    return CreateStdAccessibleObject(window, static_cast<LONG>(object), riid, result);
}

HRESULT WindowFromAccessibleObject(IAccessible* object, HWND* window) {
    if (object == nullptr || window == nullptr) return E_INVALIDARG;
    *window = nullptr;
    IOleWindow* holder = nullptr;
    const HRESULT asked = object->QueryInterface(IID_IOleWindow, reinterpret_cast<void**>(&holder));
    if (FAILED(asked)) return asked;
    const HRESULT result = holder->GetWindow(window);
    holder->Release();
    return result;
}

// Everything is in one process and one thread here, so the address itself is the result; it is positive.
LRESULT LresultFromObject(REFIID riid, WPARAM, IUnknown* object) {
    if (object == nullptr) return E_INVALIDARG;
    void* asked = nullptr;
    const HRESULT result = object->QueryInterface(riid, &asked);
    return FAILED(result) ? result : reinterpret_cast<LRESULT>(asked);
}

HRESULT ObjectFromLresult(LRESULT result, REFIID riid, WPARAM, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (result <= 0) return result == 0 ? E_FAIL : static_cast<HRESULT>(result);
    auto* held = reinterpret_cast<IUnknown*>(result);
    const HRESULT asked = held->QueryInterface(riid, object);
    held->Release();
    return asked;
}
