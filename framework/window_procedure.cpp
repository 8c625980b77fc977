#include "framework/window_procedure.h"

#include <utility>

#include "base/module_state.h"
#include "framework/call_scope.h"
#include "framework/exceptions.h"
#include "framework/handle_map.h"
#include "framework/thread_state.h"
#include "framework/window_hook.h"

namespace qv::detail {
namespace {

// The message that is being handled, put back at the end.
class HandlingScope {
public:
    HandlingScope(ThreadState& thread, const HandledMessage& message)
        : m_call(message.window), m_thread(thread), m_previous(std::exchange(thread.current, message)) {}
    ~HandlingScope() { m_thread.current = m_previous; }
    HandlingScope(const HandlingScope&) = delete;
    HandlingScope& operator=(const HandlingScope&) = delete;

private:
    CallScope m_call;
    ThreadState& m_thread;
    HandledMessage m_previous;
};

LRESULT PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const WNDPROC procedure = FindPassedOn(window, message)) {
        return CallWindowProcW(procedure, window, message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool IsShown(HWND window) {
    return (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

// Is everything shown from the window up to, and without, the one around it?
bool IsShownUpTo(HWND window, HWND around) {
    while (window != nullptr && window != around) {
        if (!IsShown(window)) return false;
        window = GetAncestor(window, GA_PARENT);
    }
    return window != nullptr;
}

// Tells the hooks of a window that is about to be seen and of those inside it (WindowHook::OnShowing). The message
// comes before the change, whichever way the window is shown.
void AnnounceShowing(HWND window, const WINDOWPOS& change) {
    if ((change.flags & SWP_SHOWWINDOW) == 0 || IsShown(window)) return;
    const HWND around = GetAncestor(window, GA_PARENT);
    if (around != GetDesktopWindow() && IsWindowVisible(around) == FALSE) return;
    ForEachHooked([window](CWnd& each) {
        if (each.m_hWnd != nullptr && IsShownUpTo(each.m_hWnd, window)) each.GetHook()->OnShowing();
    });
}

LRESULT AnswerAfterException(HWND window, UINT message) {
    if (message == WM_PAINT) ValidateRect(window, nullptr);  // or the message would come again at once
    return message == WM_CREATE ? -1 : 0;                    // a half-made window is given up
}

}  // namespace

const wchar_t* PlainClassName() {
    static constexpr const wchar_t* kName = L"QvFrameworkWindow";
    static const bool registered = [] {
        // The class holds the address of the procedure, so this module stays in the process from now on.
        HMODULE module = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                           reinterpret_cast<LPCWSTR>(&WindowProcedure), &module);
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = &WindowProcedure;
        windowClass.hInstance = module;
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
        windowClass.lpszClassName = kName;
        // A class of a DLL is known to the whole process only when it is global.
        windowClass.style |= CS_GLOBALCLASS;
        return RegisterClassExW(&windowClass) != 0;
    }();
    static_cast<void>(registered);
    return kName;
}

// Whoever scrolls on a focus would take the window away from under the pointer that clicked on it, so the mouse button
// comes up first.
void AnnounceFocus(HWND window, UINT message) {
    ThreadState& thread = ThisThread();
    if (message == WM_SETFOCUS && GetFocus() == window) {
        const bool clicked = GetKeyState(VK_LBUTTON) < 0;
        thread.focusToTell = clicked ? window : nullptr;
        if (!clicked) CWnd::TellOfFocus(window);
    } else if (message == WM_LBUTTONUP && thread.focusToTell != nullptr) {
        HWND focus = std::exchange(thread.focusToTell, nullptr);
        if (GetFocus() == focus) CWnd::TellOfFocus(focus);
    }
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    ThreadState& thread = ThisThread();
    CWnd* object = FindPermanent(window);
    if (object == nullptr && thread.toAttach != nullptr) {
        object = std::exchange(thread.toAttach, nullptr);
        WindowAccess::AttachRouted(*object, window);
    }
    if (object == nullptr) return PassOn(window, message, wParam, lParam);

    const HandlingScope scope(thread, {window, message, wParam, lParam});
    if (message == WM_DESTROY) WindowAccess::BeginEnd(*object);
    LRESULT result = 0;
    try {
        result = WindowAccess::Dispatch(*object, message, wParam, lParam);
        AnnounceFocus(window, message);
        if (message == WM_WINDOWPOSCHANGING && lParam != 0)
            AnnounceShowing(window, *reinterpret_cast<const WINDOWPOS*>(lParam));
    } catch (...) {
        ReportException();
        result = AnswerAfterException(window, message);
    }
    if (message == WM_NCDESTROY) {
        // Asked again, since the handler may have detached or deleted the object.
        if (CWnd* gone = FindPermanent(window); gone != nullptr) WindowAccess::FinishEnd(*gone);
    }
    return result;
}

void WindowAccess::AttachRouted(CWnd& object, HWND window) {
    object.m_hWnd = window;
    object.m_routed = true;
    object.m_moduleState = &GetModuleState();
    object.m_madeAt = Deferral::Now();
    AddPermanent(window, &object);
    ++ThisThread().attachments;
    const auto old = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (old == &WindowProcedure) {
        object.m_superProc = nullptr;
        return;
    }
    object.m_superProc = old;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure));
}

LRESULT WindowAccess::Dispatch(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam) {
    const ModuleStateSwitch state(object.m_moduleState != nullptr ? *object.m_moduleState : GetModuleState());
    return object.WindowProc(message, wParam, lParam);
}

void WindowAccess::BeginEnd(CWnd& object) {
    // Asked while the window still stands in its tree.
    if (object.BelongsToWindow()) object.m_treeRoot = ::GetAncestor(object.m_hWnd, GA_ROOT);
}

void WindowAccess::FinishEnd(CWnd& object) {
    HWND window = object.m_hWnd;
    object.Forget();
    if (object.m_creations != 0) return;
    std::unique_ptr<CWnd> owned(object.BelongsToWindow() ? &object : nullptr);
    try {
        object.PostNcDestroy();
    } catch (...) {
        ReportException();
    }
    if (owned != nullptr) Deferral::Delete(std::move(owned), window, object.m_treeRoot, object.m_madeAt);
}

}  // namespace qv::detail
