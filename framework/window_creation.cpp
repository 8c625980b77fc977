// CWnd's ways to a window: creating one, and taking over one that is there.
#include "framework/window_creation.h"

#include <utility>

#include "base/module_state.h"
#include "base/text.h"
#include "framework/handle_map.h"
#include "framework/thread_state.h"
#include "framework/window_procedure.h"

namespace qv::detail {
namespace {

// The input method's helper window may be created in between; it is never the one that is waited for.
bool IsInputMethodWindow(HWND window) {
    wchar_t name[8] = {};
    GetClassNameW(window, name, 8);
    return EqualIgnoringCase(name, L"IME");
}

LRESULT CALLBACK OnComputerBasedTraining(int code, WPARAM wParam, LPARAM lParam) noexcept {
    ThreadState& thread = ThisThread();
    auto* window = reinterpret_cast<HWND>(wParam);
    const bool isAwaited = code == HCBT_CREATEWND && thread.toAttach != nullptr && !IsInputMethodWindow(window);
    if (isAwaited) WindowAccess::AttachRouted(*std::exchange(thread.toAttach, nullptr), window);
    const LRESULT result = CallNextHookEx(nullptr, code, wParam, lParam);
    // A dialog makes all its windows while it is created itself; they need not pass through its hook.
    if (isAwaited && thread.creationHook != nullptr) UnhookWindowsHookEx(std::exchange(thread.creationHook, nullptr));
    return result;
}

}  // namespace

CreationScope::CreationScope(CWnd& object, bool ownClass)
    : m_object(object),
      m_hold(object),
      m_previousToAttach(std::exchange(ThisThread().toAttach, &object)),
      m_previousBeingCreated(std::exchange(ThisThread().beingCreated, &object)) {
    HHOOK hook = nullptr;
    if (!ownClass) hook = SetWindowsHookExW(WH_CBT, &OnComputerBasedTraining, nullptr, GetCurrentThreadId());
    m_previousHook = std::exchange(ThisThread().creationHook, hook);
}

CreationScope::~CreationScope() {
    // A window that was given up before its first message, by somebody's hook, ends without a last one too.
    HWND window = m_object.m_hWnd;
    if (window != nullptr && ::IsWindow(window) == FALSE) WindowAccess::Forget(m_object);
    if (const HHOOK hook = std::exchange(ThisThread().creationHook, m_previousHook)) UnhookWindowsHookEx(hook);
    ThisThread().toAttach = m_previousToAttach;
    ThisThread().beingCreated = m_previousBeingCreated;
}

CreationHold::CreationHold(CWnd& object) : m_object(object) {
    ++WindowAccess::Creations(object);
}

CreationHold::~CreationHold() {
    --WindowAccess::Creations(m_object);
}

}  // namespace qv::detail

using qv::detail::CreationScope;
using qv::detail::FindPermanent;
using qv::detail::WindowAccess;

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

HWND CWnd::Detach() {
    HWND handle = m_hWnd;
    if (handle == nullptr) return nullptr;
    if (m_routed) return UnsubclassWindow();
    WindowAccess::Forget(*this);
    return handle;
}
