// What the framework's own files share and nobody else sees: the maps from handles to objects, a thread's state, the
// attaching of an object to the window that is being created, and the window procedure.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "framework/app.h"
#include "framework/call_scope.h"
#include "framework/wnd.h"

namespace qv::detail {

struct HandledMessage {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

struct ThreadState {
    std::unordered_map<HWND, std::unique_ptr<CWnd>> temporary;
    HandledMessage current;  // what the innermost window procedure is handling
    CallScope* innermostCall = nullptr;
    std::uint64_t moment = 0;      // counts on with every call
    CWnd* toAttach = nullptr;      // waits for its window's first message
    CWnd* beingCreated = nullptr;  // attached, its creation not yet finished
    HHOOK creationHook = nullptr;  // tells of the window that toAttach waits for; null once it is there
    HHOOK focusHook = nullptr;     // while there are dialogs that follow the focus with their frame
    int focusFollowers = 0;
    CWnd* mainWindow = nullptr;
    HWND focusToTell = nullptr;  // came to the focus by a mouse button that is still down
    // Shared with the calls that are running: a handler may run a loop of its own or put another in its place.
    std::shared_ptr<IdleHandler> idleHandler = std::make_shared<IdleHandler>();
};
[[nodiscard]] ThreadState& ThisThread();

// The permanent objects, process-wide.
[[nodiscard]] CWnd* FindPermanent(HWND handle);
void AddPermanent(HWND handle, CWnd* object);
void RemovePermanent(HWND handle, const CWnd* object);

// Windows that an object has given up while somebody else's procedure lay above ours: ours stays and passes everything
// on to this one.
void AddPassedOn(HWND handle, WNDPROC procedure);

// Tells the exception handler of the exception that is being handled.
void ReportException() noexcept;

// While it exists, the object is being created: whatever becomes of its window, it stays its creator's.
class CreationHold {
public:
    explicit CreationHold(CWnd& object);
    ~CreationHold();
    CreationHold(const CreationHold&) = delete;
    CreationHold& operator=(const CreationHold&) = delete;

private:
    CWnd& m_object;
};

// While it exists, the next window that this thread creates gets the object. The framework's own class finds the object
// by itself; for every other class a hook attaches it.
class CreationScope {
public:
    CreationScope(CWnd& object, bool ownClass);
    ~CreationScope();
    CreationScope(const CreationScope&) = delete;
    CreationScope& operator=(const CreationScope&) = delete;

private:
    CWnd& m_object;
    CreationHold m_hold;
    CWnd* m_previousToAttach;
    CWnd* m_previousBeingCreated;
    HHOOK m_previousHook;
};

// The name of the framework's own window class, registered on first use.
[[nodiscard]] const wchar_t* PlainClassName();

// Tells the windows around a control that the focus came to it (WM_SETFOCUS), once no mouse button is down any more
// (WM_LBUTTONUP). Called with the messages of windows that have an object, and by the loop for those that have none.
void AnnounceFocus(HWND window, UINT message);

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// The way into CWnd's private parts.
struct WindowAccess {
    static void AttachRouted(CWnd& object, HWND window);
    static LRESULT Dispatch(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam);
    static void Forget(CWnd& object);
    // Before and after the window's destruction.
    static void BeginEnd(CWnd& object);
    static void FinishEnd(CWnd& object);
    static int& Creations(CWnd& object) { return object.m_creations; }
    static std::uint64_t MadeAt(const CWnd& object) { return object.m_madeAt; }
};

}  // namespace qv::detail
