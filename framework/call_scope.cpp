#include "framework/call_scope.h"

#include <utility>

#include "framework/thread_state.h"
#include "framework/wnd.h"

namespace qv {

CallScope::CallScope(HWND window)
    : m_thread(detail::ThisThread()),
      m_outer(std::exchange(m_thread.innermostCall, this)),
      m_window(window),
      m_began(++m_thread.moment) {}

CallScope::~CallScope() {
    // The call is over by the time its objects go: their ends are calls of their own.
    m_thread.innermostCall = m_outer;
}

namespace detail {

std::uint64_t Deferral::Now() {
    return ++ThisThread().moment;
}

void Deferral::Delete(std::unique_ptr<CWnd> object, HWND window, HWND root, std::uint64_t madeAt) {
    const auto mayBeInside = [&](const CallScope& call) {
        if (call.m_window == window) return true;
        if (::IsWindow(call.m_window) == FALSE) return call.m_window != nullptr && call.m_began > madeAt;
        return ::GetAncestor(call.m_window, GA_ROOT) == root;
    };
    CallScope* keeper = ThisThread().innermostCall;
    for (CallScope* call = keeper; call != nullptr; call = call->m_outer) {
        if (mayBeInside(*call)) keeper = call;
    }
    if (keeper != nullptr) keeper->m_waiting.push_back({std::move(object), madeAt});
}

void Deferral::DeleteMadeSince(std::uint64_t moment) {
    std::vector<std::unique_ptr<CWnd>> gone;  // taken out first: their ends are calls of their own
    for (CallScope* call = ThisThread().innermostCall; call != nullptr; call = call->m_outer) {
        for (CallScope::Waiting& waiting : call->m_waiting) {
            if (waiting.madeAt >= moment) gone.push_back(std::move(waiting.object));
        }
        std::erase_if(call->m_waiting, [](const CallScope::Waiting& waiting) { return waiting.object == nullptr; });
    }
}

}  // namespace detail
}  // namespace qv
