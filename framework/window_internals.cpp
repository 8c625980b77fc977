#include "framework/window_internals.h"

#include <cstdio>
#include <mutex>
#include <utility>

#include "base/module_state.h"
#include "base/text.h"

namespace qv::detail {
namespace {

// Never destroyed: windows and objects may outlive the program's static objects.
struct PermanentMap {
    std::mutex mutex;
    std::unordered_map<HWND, CWnd*> objects;
    std::unordered_map<HWND, WNDPROC> passedOn;
};

PermanentMap& Permanent() {
    static auto* map = new PermanentMap;
    return *map;
}

ExceptionHandler& CurrentExceptionHandler() {
    static auto* handler = new ExceptionHandler;
    return *handler;
}

void PrintException(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "framework: exception in a message handler: %s\n", e.what());
    } catch (...) {
        std::fprintf(stderr, "framework: exception of unknown kind in a message handler\n");
    }
}

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
    WNDPROC procedure = nullptr;
    {
        PermanentMap& map = Permanent();
        const std::lock_guard lock(map.mutex);
        if (const auto found = map.passedOn.find(window); found != map.passedOn.end()) {
            procedure = found->second;
            if (message == WM_NCDESTROY) map.passedOn.erase(found);
        }
    }
    if (procedure != nullptr) return CallWindowProcW(procedure, window, message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT AnswerAfterException(HWND window, UINT message) {
    if (message == WM_PAINT) ValidateRect(window, nullptr);  // or the message would come again at once
    return message == WM_CREATE ? -1 : 0;                    // a half-made window is given up
}

}  // namespace

ThreadState& ThisThread() {
    // Left to the system at the thread's end: destructors of thread-local objects would run after parts of the process
    // are gone.
    thread_local auto* state = new ThreadState;
    return *state;
}

CWnd* FindPermanent(HWND handle) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    const auto found = map.objects.find(handle);
    return found != map.objects.end() ? found->second : nullptr;
}

void AddPermanent(HWND handle, CWnd* object) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    map.objects[handle] = object;
}

void RemovePermanent(HWND handle, const CWnd* object) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    const auto found = map.objects.find(handle);
    if (found != map.objects.end() && found->second == object) map.objects.erase(found);
}

void AddPassedOn(HWND handle, WNDPROC procedure) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    map.passedOn[handle] = procedure;
}

void ReportException() noexcept {
    const std::exception_ptr exception = std::current_exception();
    const ExceptionHandler& handler = CurrentExceptionHandler();
    if (handler) {
        handler(exception);
    } else {
        PrintException(exception);
    }
}

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
    Forget(object);
    if (object.m_creations != 0) return;
    std::unique_ptr<CWnd> owned(object.BelongsToWindow() ? &object : nullptr);
    try {
        object.PostNcDestroy();
    } catch (...) {
        ReportException();
    }
    if (owned != nullptr) Deferral::Delete(std::move(owned), window, object.m_treeRoot, object.m_madeAt);
}

void WindowAccess::Forget(CWnd& object) {
    RemovePermanent(object.m_hWnd, &object);
    object.m_hWnd = nullptr;
    object.m_superProc = nullptr;
    object.m_routed = false;
    object.m_moduleState = nullptr;
}

}  // namespace qv::detail

ExceptionHandler SetExceptionHandler(ExceptionHandler handler) {
    return std::exchange(qv::detail::CurrentExceptionHandler(), std::move(handler));
}
