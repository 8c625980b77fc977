// A call into the object of a window, marked for as long as it is on the stack. Whatever such a call leads to, a
// message box, the host, a window that is sent a message, may destroy windows, and with its window goes an object that
// belongs to it (CWnd::BelongsToWindow): a view, and with the view all that it owns. It is deleted when the outermost
// call that may still be inside it is left. Window procedures and the message loop mark their calls themselves; a
// method that does the like and may be called directly marks its own.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/platform.h"

class CWnd;

namespace qv {

namespace detail {
struct ThreadState;
struct Deferral;
}  // namespace detail

class CallScope {
public:
    // window: whose object is called. A null one marks a call all the same, but keeps nothing alive.
    explicit CallScope(HWND window);
    // Deletes what waited for this call to end.
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

private:
    friend struct detail::Deferral;
    struct Waiting {
        std::unique_ptr<CWnd> object;
        std::uint64_t madeAt;
    };

    detail::ThreadState& m_thread;
    CallScope* m_outer;
    HWND m_window;
    std::uint64_t m_began;
    std::vector<Waiting> m_waiting;
};

namespace detail {

// The framework's own side of it.
struct Deferral {
    // The present moment, as it is counted to tell what was there first: calls that begin from now on began later.
    [[nodiscard]] static std::uint64_t Now();
    // Takes over an object whose window is being destroyed and deletes it when no call can be inside it any more: no
    // call into a window of the tree that it stood in, and none into a window that is gone by now and may have been
    // inside it, unless that call is older than the object. Only within a call.
    static void Delete(std::unique_ptr<CWnd> object, HWND window, HWND root, std::uint64_t madeAt);
    // Deletes at once what waits and was made at that moment or later.
    static void DeleteMadeSince(std::uint64_t moment);
};

}  // namespace detail
}  // namespace qv
