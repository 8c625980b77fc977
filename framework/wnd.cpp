// CWnd: objects for handles, and the window's end.
#include "framework/wnd.h"

#include <memory>
#include <unordered_map>

#include "framework/handle_map.h"

using qv::detail::FindPermanent;

namespace {

using TemporaryObjects = std::unordered_map<HWND, std::unique_ptr<CWnd>>;

// This thread's. Left to the system at the thread's end, as the rest of what a thread keeps (thread_state.cpp).
TemporaryObjects& Temporary() {
    thread_local auto* objects = new TemporaryObjects;
    return *objects;
}

}  // namespace

QV_RUNTIME_CLASS(CWnd, CCmdTarget)

CWnd::~CWnd() {
    if (m_hook != nullptr) SetHook(nullptr);
    if (m_hWnd == nullptr) return;
    // A temporary object only borrows its window.
    if (FindPermanent(m_hWnd) != this) return;
    CWnd::DestroyWindow();
    if (m_hWnd != nullptr) Forget();
}

CWnd* CWnd::FromHandle(HWND handle) {
    if (handle == nullptr) return nullptr;
    if (CWnd* permanent = FindPermanent(handle)) return permanent;
    std::unique_ptr<CWnd>& temporary = Temporary()[handle];
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

bool CWnd::PreCreateWindow(CREATESTRUCTW&) {
    return true;
}

void CWnd::PreSubclassWindow() {}

bool CWnd::DestroyWindow() {
    HWND handle = m_hWnd;
    if (handle == nullptr) return false;
    const bool destroyed = ::DestroyWindow(handle) != FALSE;
    // The object may be gone by now; when the map still has it, its window's messages did not come through it.
    if (FindPermanent(handle) == this && ::IsWindow(handle) == FALSE) Forget();
    return destroyed;
}

void CWnd::Forget() {
    qv::detail::RemovePermanent(m_hWnd, this);
    m_hWnd = nullptr;
    m_superProc = nullptr;
    m_routed = false;
    m_moduleState = nullptr;
}

void CWnd::PostNcDestroy() {}

bool CWnd::BelongsToWindow() const {
    return false;
}

void DeleteTemporaryObjects() {
    for (auto& [handle, object] : Temporary())
        object->m_hWnd = nullptr;
    Temporary().clear();
}

CWnd* on::detail::WindowFrom(HWND handle) {
    return CWnd::FromHandle(handle);
}
