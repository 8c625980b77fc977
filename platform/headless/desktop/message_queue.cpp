// Sending, posting and retrieving messages; timers.
#include "platform/headless/desktop/message_queue.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

MessageQueue& Queue() {
    static MessageQueue& s_queue = *new MessageQueue;
    return s_queue;
}

void DropMessages(HWND handle) {
    std::erase_if(Queue().timers, [&](const Timer& timer) { return timer.window == handle; });
    std::erase_if(Queue().posted, [&](const MSG& message) { return message.hwnd == handle; });
}

namespace {

LRESULT Deliver(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* window = Find(handle);
    return window ? window->procedure(handle, message, wParam, lParam) : 0;
}

// A filter of zero to zero takes everything; a window stands for itself and its children; -1 for messages of no window.
struct Filter {
    HWND window;
    UINT first;
    UINT last;

    [[nodiscard]] bool TakesMessage(UINT message) const {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    [[nodiscard]] bool TakesWindow(HWND candidate) const {
        if (!window) return true;
        if (window == reinterpret_cast<HWND>(INT_PTR{-1})) return !candidate;
        return candidate == window || IsChild(window, candidate);
    }
};

MSG Stamp(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return {window, message, wParam, lParam, GetTickCount(), {}};
}

bool TakePosted(const Filter& filter, bool remove, MSG& message) {
    std::deque<MSG>& queue = Queue().posted;
    const auto found = std::find_if(queue.begin(), queue.end(), [&](const MSG& candidate) {
        return filter.TakesMessage(candidate.message) && filter.TakesWindow(candidate.hwnd);
    });
    if (found == queue.end()) return false;
    message = *found;
    if (remove) queue.erase(found);
    return true;
}

bool TakeQuit(bool remove, MSG& message) {
    MessageQueue& queue = Queue();
    if (!queue.quitPosted) return false;
    message = Stamp(nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0);
    if (remove) queue.quitPosted = false;
    return true;
}

// Paint messages are made when there is nothing else to do, and stay until the window validates itself.
bool TakePaint(const Filter& filter, MSG& message) {
    if (!filter.TakesMessage(WM_PAINT)) return false;
    std::deque<HWND>& dirty = DirtyWindows();
    for (auto it = dirty.begin(); it != dirty.end();) {
        const Window* window = Peek(*it);
        if (!window || !window->dirty) {
            it = dirty.erase(it);
            continue;
        }
        if (IsShown(window) && filter.TakesWindow(*it)) {
            message = Stamp(*it, WM_PAINT, 0, 0);
            return true;
        }
        ++it;
    }
    return false;
}

// Timers run on a clock that jumps: a caller that would wait for one gets it at once.
bool TakeTimer(const Filter& filter, bool wait, bool remove, MSG& message) {
    if (!filter.TakesMessage(WM_TIMER)) return false;
    MessageQueue& queue = Queue();
    Timer* next = nullptr;
    for (Timer& timer : queue.timers) {
        if (filter.TakesWindow(timer.window) && (!next || timer.due < next->due)) next = &timer;
    }
    if (!next) return false;
    const DWORD now = GetTickCount() + queue.clock;
    if (next->due > now) {
        if (!wait) return false;
        queue.clock += next->due - now;
    }
    message = Stamp(next->window, WM_TIMER, next->id, reinterpret_cast<LPARAM>(next->callback));
    if (remove) next->due += std::max(next->period, 1u);
    return true;
}

bool Retrieve(MSG& message, const Filter& filter, bool remove, bool wait) {
    if (!TakePosted(filter, remove, message) && !TakeQuit(remove, message) && !TakePaint(filter, message) &&
        !TakeTimer(filter, wait, remove, message)) {
        return false;
    }
    if (HasHook(WH_GETMESSAGE)) {
        CallHooks(WH_GETMESSAGE, HC_ACTION, remove ? PM_REMOVE : PM_NOREMOVE, reinterpret_cast<LPARAM>(&message));
    }
    return true;
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == HWND_BROADCAST) {
        for (const HWND top : ChildrenOf(*Windows().root)) {
            if (Peek(top)) Deliver(top, message, wParam, lParam);
        }
        return 1;
    }
    return Deliver(window, message, wParam, lParam);
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == HWND_BROADCAST) {
        for (const HWND top : ChildrenOf(*Windows().root))
            Queue().posted.push_back(Stamp(top, message, wParam, lParam));
        return TRUE;
    }
    if (window && !Find(window)) return FALSE;
    Queue().posted.push_back(Stamp(window, message, wParam, lParam));
    return TRUE;
}

void PostQuitMessage(int exitCode) {
    Queue().quitPosted = true;
    Queue().exitCode = exitCode;
}

BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    return message && Retrieve(*message, {window, first, last}, (remove & PM_REMOVE) != 0, false);
}

BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last) {
    if (!message) return -1;
    if (window && window != reinterpret_cast<HWND>(INT_PTR{-1}) && !Find(window)) return -1;
    if (Retrieve(*message, {window, first, last}, true, true)) return message->message != WM_QUIT;
    std::fprintf(
        stderr,
        "headless desktop: GetMessageW with an empty queue: no message, paint or timer is left that could wake "
        "the caller. A modal loop is waiting for a button that nobody will press.\n");
    std::abort();
}

LRESULT DispatchMessageW(const MSG* message) {
    if (!message) return 0;
    if (message->message == WM_TIMER && message->lParam) {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    if (!message->hwnd) return 0;
    return Deliver(message->hwnd, message->message, message->wParam, message->lParam);
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback) {
    MessageQueue& queue = Queue();
    if (window && !Find(window)) return 0;
    constexpr UINT kShortest = 10;
    const UINT period = std::max(milliseconds, kShortest);
    const DWORD due = GetTickCount() + queue.clock + period;
    const auto known = std::find_if(queue.timers.begin(), queue.timers.end(),
                                    [&](const Timer& timer) { return timer.window == window && timer.id == id; });
    if (known != queue.timers.end()) {
        *known = {window, id, period, callback, due};
        return window ? TRUE : id;
    }
    const UINT_PTR given = window ? id : queue.nextTimer++;
    queue.timers.push_back({window, given, period, callback, due});
    return window && !id ? TRUE : given;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    const auto removed =
        std::erase_if(Queue().timers, [&](const Timer& timer) { return timer.window == window && timer.id == id; });
    std::erase_if(Queue().posted, [&](const MSG& message) {
        return message.message == WM_TIMER && message.hwnd == window && message.wParam == id;
    });
    return removed != 0;
}

BOOL CallMsgFilterW(MSG* message, int code) {
    return HasHook(WH_MSGFILTER) && CallHooks(WH_MSGFILTER, code, 0, reinterpret_cast<LPARAM>(message)) != 0;
}
