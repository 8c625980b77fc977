// CWnd: handles, objects, creation and destruction.
#include "framework/wnd.h"

#include <utility>

#include "base/module_state.h"
#include "framework/window_internals.h"

using qv::detail::CreationScope;
using qv::detail::FindPermanent;
using qv::detail::ThisThread;
using qv::detail::WindowAccess;

QV_RUNTIME_CLASS_CREATE(CWnd, CCmdTarget)

CWnd::~CWnd() {
    if (m_hWnd == nullptr) return;
    // A temporary object only borrows its window.
    if (FindPermanent(m_hWnd) != this) return;
    CWnd::DestroyWindow();
    if (m_hWnd != nullptr) WindowAccess::Forget(*this);
}

CWnd* CWnd::FromHandle(HWND handle) {
    if (handle == nullptr) return nullptr;
    if (CWnd* permanent = FindPermanent(handle)) return permanent;
    std::unique_ptr<CWnd>& temporary = ThisThread().temporary[handle];
    if (temporary == nullptr) {
        temporary = std::make_unique<CWnd>();
        temporary->m_hWnd = handle;
    }
    return temporary.get();
}

CWnd* CWnd::FromHandlePermanent(HWND handle) {
    return handle != nullptr ? FindPermanent(handle) : nullptr;
}

bool CWnd::Attach(HWND handle) {
    if (handle == nullptr || m_hWnd != nullptr || FindPermanent(handle) != nullptr) return false;
    m_hWnd = handle;
    qv::detail::AddPermanent(handle, this);
    return true;
}

HWND CWnd::Detach() {
    HWND handle = m_hWnd;
    if (handle == nullptr) return nullptr;
    if (m_routed) return UnsubclassWindow();
    WindowAccess::Forget(*this);
    return handle;
}

bool CWnd::SubclassWindow(HWND handle) {
    if (handle == nullptr || m_hWnd != nullptr || FindPermanent(handle) != nullptr || ::IsWindow(handle) == FALSE) {
        return false;
    }
    WindowAccess::AttachRouted(*this, handle);
    PreSubclassWindow();
    return true;
}

bool CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    return parent != nullptr && SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
    HWND handle = m_hWnd;
    if (handle == nullptr) return nullptr;
    // Somebody may have put a procedure above ours; then ours stays and passes everything on.
    const auto current = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(handle, GWLP_WNDPROC));
    if (m_superProc != nullptr && current == &qv::detail::WindowProcedure) {
        ::SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_superProc));
    } else if (m_superProc != nullptr) {
        qv::detail::AddPassedOn(handle, m_superProc);
    }
    WindowAccess::Forget(*this);
    return handle;
}

bool CWnd::CreateEx(DWORD exStyle, const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect,
                    HWND parent, UINT_PTR idOrMenu) {
    const std::wstring text(title);
    CREATESTRUCTW cs{};
    cs.dwExStyle = exStyle;
    cs.lpszClass = className != nullptr ? className : qv::detail::PlainClassName();
    cs.lpszName = text.c_str();
    cs.style = static_cast<LONG>(style);
    cs.x = static_cast<int>(rect.left);
    cs.y = static_cast<int>(rect.top);
    cs.cx = static_cast<int>(rect.right - rect.left);
    cs.cy = static_cast<int>(rect.bottom - rect.top);
    cs.hwndParent = parent;
    cs.hMenu = reinterpret_cast<HMENU>(idOrMenu);
    cs.hInstance = GetResourceHandle();
    if (m_hWnd != nullptr || !PreCreateWindow(cs)) return false;
    const CreationScope scope(*this, cs.lpszClass == qv::detail::PlainClassName());
    return ::CreateWindowExW(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y, cs.cx,
                             cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams) != nullptr;
}

bool CWnd::Create(const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id) {
    if (parent == nullptr) {
        ::SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    return CreateEx(0, className, title, style | WS_CHILD, rect, parent->m_hWnd, id);
}

bool CWnd::PreCreateWindow(CREATESTRUCTW&) {
    return true;
}

void CWnd::PreSubclassWindow() {}

bool CWnd::DestroyWindow() {
    HWND handle = m_hWnd;
    if (handle == nullptr) return false;
    const bool destroyed = ::DestroyWindow(handle) != FALSE;
    // The object may be gone by now; when the map still has it, its window's messages did not come through it.
    if (FindPermanent(handle) == this && ::IsWindow(handle) == FALSE) WindowAccess::Forget(*this);
    return destroyed;
}

void CWnd::PostNcDestroy() {}

bool CWnd::BelongsToWindow() const {
    return false;
}

void DeleteTemporaryObjects() {
    for (auto& [handle, object] : ThisThread().temporary)
        object->m_hWnd = nullptr;
    ThisThread().temporary.clear();
}

CWnd* on::detail::WindowFrom(HWND handle) {
    return CWnd::FromHandle(handle);
}
