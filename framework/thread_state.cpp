#include "framework/thread_state.h"

namespace qv::detail {

ThreadState& ThisThread() {
    // Left to the system at the thread's end: destructors of thread-local objects would run after parts of the process
    // are gone.
    thread_local auto* state = new ThreadState;
    return *state;
}

}  // namespace qv::detail
