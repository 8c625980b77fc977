#include <algorithm>
#include <utility>

#include "platform/headless/desktop/desktop_state.h"

namespace qv::desk {

bool HasHook(int kind) noexcept {
    const auto chain = Desk().hookChains.find(kind);
    return chain != Desk().hookChains.end() && !chain->second.empty();
}

namespace {

// While a hook runs it is the one whose successor CallNextHookEx finds, whatever handle it passes.
LRESULT Call(HHOOK hook, int code, WPARAM wParam, LPARAM lParam) {
    State& state = Desk();
    const HHOOK outer = std::exchange(state.runningHook, hook);
    const LRESULT result = state.hooks.at(hook).procedure(code, wParam, lParam);
    state.runningHook = outer;
    return result;
}

}  // namespace

LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam) {
    State& state = Desk();
    const auto chain = state.hookChains.find(kind);
    if (chain == state.hookChains.end() || chain->second.empty()) return 0;
    return Call(chain->second.back(), code, wParam, lParam);
}

}  // namespace qv::desk

using namespace qv::desk;

HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE, DWORD) {
    if (!procedure) {
        SetLastError(ERROR_INVALID_FILTER_PROC);
        return nullptr;
    }
    State& state = Desk();
    const HHOOK hook = reinterpret_cast<HHOOK>(state.nextHook++);
    state.hooks[hook] = {kind, procedure};
    state.hookChains[kind].push_back(hook);
    return hook;
}

BOOL UnhookWindowsHookEx(HHOOK hook) {
    State& state = Desk();
    const auto found = state.hooks.find(hook);
    if (found == state.hooks.end()) {
        SetLastError(ERROR_INVALID_HOOK_HANDLE);
        return FALSE;
    }
    std::erase(state.hookChains[found->second.kind], hook);
    state.hooks.erase(found);
    return TRUE;
}

// Calls the hook that was set before the running one; the handle has not mattered for many versions of the platform.
LRESULT CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam) {
    State& state = Desk();
    const auto found = state.hooks.find(state.runningHook);
    if (found == state.hooks.end()) return 0;
    const auto& chain = state.hookChains[found->second.kind];
    const auto self = std::find(chain.begin(), chain.end(), state.runningHook);
    if (self == chain.begin() || self == chain.end()) return 0;
    return Call(*std::prev(self), code, wParam, lParam);
}
