// What the framework keeps for each thread that has windows. For the framework's own files.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/platform.h"

class CWnd;

namespace qv {
class CallScope;
}

namespace qv::detail {

struct HandledMessage {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// The push buttons of a top-level dialog, as they were found last.
struct FoundButtons {
    HWND dialog = nullptr;
    std::uint64_t attachments = 0;  // ThreadState's at that time
    std::vector<HWND> buttons;
};

struct ThreadState {
    HandledMessage current;  // what the innermost window procedure is handling
    CallScope* innermostCall = nullptr;
    std::uint64_t moment = 0;      // counts on with every call
    CWnd* toAttach = nullptr;      // waits for its window's first message
    CWnd* beingCreated = nullptr;  // attached, its creation not yet finished
    HHOOK creationHook = nullptr;  // tells of the window that toAttach waits for; null once it is there
    HHOOK focusHook = nullptr;     // while there are dialogs that follow the focus with their frame
    int focusFollowers = 0;
    std::uint64_t attachments = 0;  // counts the windows that got an object
    FoundButtons foundButtons;
    CWnd* mainWindow = nullptr;
    std::vector<CWnd*> hooked;   // the windows that have a hook
    HWND focusToTell = nullptr;  // came to the focus by a mouse button that is still down
    // Shared with the calls that are running: a handler may run a loop of its own or put another in its place.
    std::shared_ptr<std::function<bool(int)>> idleHandler = std::make_shared<std::function<bool(int)>>();
};
[[nodiscard]] ThreadState& ThisThread();
// One after the other, the windows that have a hook; those that lose it on the way are passed over.
void ForEachHooked(const std::function<void(CWnd&)>& tell);

}  // namespace qv::detail
