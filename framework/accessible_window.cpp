#include "framework/accessible_window.h"

#include <new>

#include "base/com.h"

namespace qv {

namespace {

// Clients may keep it longer than the window lives, so it holds the handle and looks the window up for each question.
class AccessibleWindow final : public IAccessible, public IOleWindow {
public:
    AccessibleWindow(HWND window, ComPtr<IAccessible> standard) : m_window(window), m_standard(std::move(standard)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDispatch) || IsEqualIID(riid, IID_IAccessible)) {
            *object = static_cast<IAccessible*>(this);
        } else if (IsEqualIID(riid, IID_IOleWindow)) {
            *object = static_cast<IOleWindow*>(this);
        } else {
            return E_NOINTERFACE;
        }
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
        if (window == nullptr) return E_POINTER;
        *window = m_window;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return m_standard->GetTypeInfoCount(count); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return m_standard->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        return m_standard->GetIDsOfNames(riid, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID riid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* error) override {
        return m_standard->Invoke(id, riid, locale, flags, parameters, result, exception, error);
    }

    // What a window answers itself.
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        CWnd* window = Window();
        return window != nullptr ? window->get_accChildCount(count) : m_standard->get_accChildCount(count);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** dispatch) override {
        CWnd* window = Window();
        return window != nullptr ? window->get_accChild(child, dispatch) : m_standard->get_accChild(child, dispatch);
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        CWnd* window = Window();
        return window != nullptr ? window->get_accName(child, name) : m_standard->get_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        CWnd* window = Window();
        return window != nullptr ? window->accLocation(left, top, width, height, child)
                                 : m_standard->accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        CWnd* window = Window();
        return window != nullptr ? window->accHitTest(left, top, child) : m_standard->accHitTest(left, top, child);
    }

    // The rest is the standard object's.
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override { return m_standard->get_accParent(parent); }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return m_standard->get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        return m_standard->get_accDescription(child, text);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return m_standard->get_accRole(child, role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return m_standard->get_accState(child, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return m_standard->get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return m_standard->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return m_standard->get_accKeyboardShortcut(child, shortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override { return m_standard->get_accFocus(child); }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return m_standard->get_accSelection(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return m_standard->get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        return m_standard->accSelect(flags, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return m_standard->accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return m_standard->accDoDefaultAction(child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
        return m_standard->put_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        return m_standard->put_accValue(child, value);
    }

private:
    [[nodiscard]] CWnd* Window() const { return CWnd::FromHandlePermanent(m_window); }

    HWND m_window;
    ComPtr<IAccessible> m_standard;
    ULONG m_references = 1;
};

}  // namespace

LRESULT AccessibleObjectResult(const CWnd& window, WPARAM wParam) {
    auto standard = Receive<ComPtr<IAccessible>>(
        [&](auto out) { return ::CreateStdAccessibleObject(window.m_hWnd, OBJID_CLIENT, IID_IAccessible, out); });
    if (!standard.value) return 0;
    const auto object = ComPtr<IAccessible>::Adopt(
        static_cast<IAccessible*>(new (std::nothrow) AccessibleWindow(window.m_hWnd, std::move(standard.value))));
    return object ? ::LresultFromObject(IID_IAccessible, wParam, object.Get()) : 0;
}

}  // namespace qv
