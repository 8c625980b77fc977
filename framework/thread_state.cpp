#include "framework/thread_state.h"

#include <algorithm>

namespace qv::detail {

ThreadState& ThisThread() {
    // Left to the system at the thread's end: destructors of thread-local objects would run after parts of the process
    // are gone.
    thread_local auto* state = new ThreadState;
    return *state;
}

void ForEachHooked(const std::function<void(CWnd&)>& tell) {
    const std::vector<CWnd*> hooked = ThisThread().hooked;
    for (CWnd* each : hooked) {
        const std::vector<CWnd*>& left = ThisThread().hooked;
        if (std::find(left.begin(), left.end(), each) != left.end()) tell(*each);
    }
}

}  // namespace qv::detail
