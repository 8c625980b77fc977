// CWnd: accessibility, answered by the standard accessible object that the platform makes for any window.
#include "base/com.h"
#include "framework/accessible_window.h"
#include "framework/wnd.h"

namespace {

constexpr LONG kSelf = 0;  // the window itself, not a part of it

// Asks the standard object one question.
template <class Question>
HRESULT Ask(HWND window, const Question& question) {
    const auto object = qv::Receive<qv::ComPtr<IAccessible>>(
        [&](auto out) { return ::CreateStdAccessibleObject(window, OBJID_CLIENT, IID_IAccessible, out); });
    if (FAILED(object.status)) return object.status;
    return object.value ? question(*object.value.Get()) : E_FAIL;
}

}  // namespace

void CWnd::SetAccessibleName(std::wstring_view name) {
    m_accessibleName = name;
}

LRESULT CWnd::OnGetObject(WPARAM wParam, LPARAM lParam) {
    if (m_accessibleName.empty() || static_cast<LONG>(lParam) != static_cast<LONG>(OBJID_CLIENT)) return Default();
    const LRESULT object = qv::AccessibleObjectResult(*this, wParam);
    return object > 0 ? object : Default();
}

HRESULT CWnd::get_accChildCount(LONG* count) {
    return GetAccessibleChildCount(count);
}

HRESULT CWnd::get_accChild(VARIANT child, IDispatch** dispatch) {
    return GetAccessibleChild(child, dispatch);
}

HRESULT CWnd::get_accName(VARIANT child, BSTR* name) {
    if (name != nullptr && !m_accessibleName.empty() && child.vt == VT_I4 && child.lVal == kSelf) {
        *name = ::SysAllocStringLen(m_accessibleName.data(), static_cast<UINT>(m_accessibleName.size()));
        return *name != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    return GetAccessibleName(child, name);
}

HRESULT CWnd::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    return GetAccessibilityLocation(left, top, width, height, child);
}

HRESULT CWnd::accHitTest(LONG left, LONG top, VARIANT* child) {
    return GetAccessibilityHitTest(left, top, child);
}

HRESULT CWnd::GetAccessibleChildCount(LONG* count) {
    if (count == nullptr) return E_POINTER;
    return Ask(m_hWnd, [&](IAccessible& object) { return object.get_accChildCount(count); });
}

HRESULT CWnd::GetAccessibleChild(VARIANT child, IDispatch** dispatch) {
    if (dispatch == nullptr) return E_POINTER;
    return Ask(m_hWnd, [&](IAccessible& object) { return object.get_accChild(child, dispatch); });
}

HRESULT CWnd::GetAccessibleName(VARIANT child, BSTR* name) {
    if (name == nullptr) return E_POINTER;
    return Ask(m_hWnd, [&](IAccessible& object) { return object.get_accName(child, name); });
}

HRESULT CWnd::GetAccessibilityLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_POINTER;
    return Ask(m_hWnd, [&](IAccessible& object) { return object.accLocation(left, top, width, height, child); });
}

HRESULT CWnd::GetAccessibilityHitTest(LONG left, LONG top, VARIANT* child) {
    if (child == nullptr) return E_POINTER;
    return Ask(m_hWnd, [&](IAccessible& object) { return object.accHitTest(left, top, child); });
}
