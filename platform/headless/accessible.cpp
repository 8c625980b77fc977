#include "platform/headless/accessible.h"

#include <new>
#include <string>

namespace {

HWND ChildAt(HWND parent, LONG index) {
    HWND child = GetWindow(parent, GW_CHILD);
    for (; child != nullptr && index > 1; --index)
        child = GetWindow(child, GW_HWNDNEXT);
    return child;
}

std::wstring NameOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    // The mark of a mnemonic is not part of the name.
    if (const auto mark = text.find(L'&'); mark != std::wstring::npos) text.erase(mark, 1);
    return text;
}

class StandardObject final : public IAccessible {
public:
    StandardObject(HWND window, bool client) : m_window(window), m_client(client) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
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
        if (IsWindow(m_window) == FALSE) return E_INVALIDARG;
        for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
            ++*count;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** dispatch) override {
        *dispatch = nullptr;
        HWND window = WindowOf(child);
        if (window == nullptr) return E_INVALIDARG;
        if (window == m_window) {
            AddRef();
            *dispatch = this;
            return S_OK;
        }
        return CreateStdAccessibleObject(window, OBJID_WINDOW, IID_IDispatch, reinterpret_cast<void**>(dispatch));
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        *name = nullptr;
        HWND window = WindowOf(child);
        if (window == nullptr) return E_INVALIDARG;
        const std::wstring text = NameOf(window);
        if (text.empty()) return S_FALSE;
        *name = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
        return *name != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        HWND window = WindowOf(child);
        if (window == nullptr) return E_INVALIDARG;
        const RECT rect = RectOf(window);
        *left = rect.left;
        *top = rect.top;
        *width = rect.right - rect.left;
        *height = rect.bottom - rect.top;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        child->vt = VT_EMPTY;
        if (IsWindow(m_window) == FALSE) return E_INVALIDARG;
        const POINT point{left, top};
        const RECT own = RectOf(m_window);
        if (PtInRect(&own, point) == FALSE) return S_FALSE;
        for (HWND below = GetWindow(m_window, GW_CHILD); below != nullptr; below = GetWindow(below, GW_HWNDNEXT)) {
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
        child->vt = VT_I4;
        child->lVal = CHILDID_SELF;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT, VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT, VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

private:
    // Null when the identifier is no number, names no child, or the window is gone.
    HWND WindowOf(const VARIANT& child) const {
        if (child.vt != VT_I4 || child.lVal < 0 || IsWindow(m_window) == FALSE) return nullptr;
        return child.lVal == CHILDID_SELF ? m_window : ChildAt(m_window, child.lVal);
    }
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
    if (IsWindow(window) == FALSE || (object != OBJID_CLIENT && object != OBJID_WINDOW)) return E_INVALIDARG;
    auto* made = new (std::nothrow) StandardObject(window, object == OBJID_CLIENT);
    if (made == nullptr) return E_OUTOFMEMORY;
    made->AddRef();
    const HRESULT answer = made->QueryInterface(riid, result);
    made->Release();
    return answer;
}
