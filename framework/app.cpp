#include "framework/app.h"

#include <utility>

#include "framework/call_scope.h"
#include "framework/exceptions.h"
#include "framework/thread_state.h"
#include "framework/window_procedure.h"

using qv::detail::ThisThread;
using qv::detail::ThreadState;

QV_RUNTIME_CLASS(CWinApp, CCmdTarget)

CWinApp::~CWinApp() = default;

bool CWinApp::InitInstance() {
    return true;
}

int CWinApp::ExitInstance() {
    return 0;
}

namespace {

bool HasMessage() {
    MSG message;
    return ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
}

// Temporary objects are freed only when no call is on the stack that might hold one.
bool RunIdle(int count) {
    ThreadState& thread = ThisThread();
    if (thread.innermostCall == nullptr) DeleteTemporaryObjects();
    const std::shared_ptr<IdleHandler> handler = thread.idleHandler;
    if (!*handler) return false;
    try {
        return (*handler)(count);
    } catch (...) {
        qv::detail::ReportException();
        return false;
    }
}

bool PreTranslate(MSG& message) {
    // From the message's window up to the top-level one, not to its owner.
    for (HWND window = message.hwnd; window != nullptr;) {
        if (CWnd* object = CWnd::FromHandlePermanent(window)) {
            const qv::CallScope call(window);
            if (object->PreTranslateMessage(message)) return true;
            if (::IsWindow(window) == FALSE) return false;
        }
        const bool isChild = (::GetWindowLongW(window, GWL_STYLE) & WS_CHILD) != 0;
        window = isChild ? ::GetParent(window) : nullptr;
    }
    return false;
}

}  // namespace

bool RunMessageLoop(const std::function<bool()>& goOn) {
    while (goOn()) {
        for (int count = 0; !HasMessage(); ++count) {
            if (!RunIdle(count)) break;
            if (!goOn()) return true;
        }
        if (!goOn()) return true;
        MSG message{};
        const auto got = ::GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (got == -1) return false;
        PumpMessage(message);
    }
    return true;
}

namespace {

void TranslateAndDispatch(MSG& message) {
    try {
        if (PreTranslate(message)) return;
    } catch (...) {
        qv::detail::ReportException();
        return;
    }
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

}  // namespace

void PumpMessage(MSG& message) {
    HWND focusBefore = ::GetFocus();
    TranslateAndDispatch(message);
    // What has no object, a dialog template's button, tells nobody itself. What a person did counts, and not where a
    // dialog puts its first focus: it opens with its beginning in view.
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool isMouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
    if (!isKey && !isMouse) return;
    HWND focus = ::GetFocus();
    const auto hasObject = [](HWND window) { return CWnd::FromHandlePermanent(window) != nullptr; };
    try {
        if (focus != nullptr && focus != focusBefore && !hasObject(focus))
            qv::detail::AnnounceFocus(focus, WM_SETFOCUS);
        if (message.message == WM_LBUTTONUP && !hasObject(message.hwnd)) {
            qv::detail::AnnounceFocus(message.hwnd, WM_LBUTTONUP);
        }
    } catch (...) {
        qv::detail::ReportException();
    }
}

void PumpPending() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        PumpMessage(message);
    }
}

IdleHandler SetIdleHandler(IdleHandler handler) {
    auto previous = std::exchange(ThisThread().idleHandler, std::make_shared<IdleHandler>(std::move(handler)));
    // The state of one that is running stays with it.
    return previous.use_count() == 1 ? std::move(*previous) : *previous;
}

CWnd* GetMainWnd() {
    return ThisThread().mainWindow;
}

void SetMainWnd(CWnd* window) {
    ThisThread().mainWindow = window;
}
