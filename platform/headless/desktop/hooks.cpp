#include "platform/headless/desktop/hooks.h"

#include <algorithm>
#include <utility>

#include "platform/headless/base/error.h"

namespace qv::headless {

HookTable& Hooks() {
    static HookTable& s_table = *new HookTable;
    return s_table;
}

bool HasHook(int kind) noexcept {
    const auto chain = Hooks().chains.find(kind);
    return chain != Hooks().chains.end() && !chain->second.empty();
}

namespace {

// While a hook runs it is the one whose successor CallNextHookEx finds, whatever handle it passes.
LRESULT Call(HHOOK hook, int code, WPARAM wParam, LPARAM lParam) {
    HookTable& table = Hooks();
    const HHOOK outer = std::exchange(table.runningHook, hook);
    const LRESULT result = table.hooks.at(hook).procedure(code, wParam, lParam);
    table.runningHook = outer;
    return result;
}

}  // namespace

LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam) {
    HookTable& table = Hooks();
    const auto chain = table.chains.find(kind);
    if (chain == table.chains.end() || chain->second.empty()) return 0;
    return Call(chain->second.back(), code, wParam, lParam);
}

}  // namespace qv::headless

using namespace qv::headless;

HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE, DWORD) {
    if (!procedure) {
        SetLastError(ERROR_INVALID_FILTER_PROC);
        return nullptr;
    }
    HookTable& table = Hooks();
    const HHOOK hook = reinterpret_cast<HHOOK>(table.nextHook++);
    table.hooks[hook] = {kind, procedure};
    table.chains[kind].push_back(hook);
    return hook;
}

BOOL UnhookWindowsHookEx(HHOOK hook) {
    HookTable& table = Hooks();
    const auto found = table.hooks.find(hook);
    if (found == table.hooks.end()) {
        SetLastError(ERROR_INVALID_HOOK_HANDLE);
        return FALSE;
    }
    std::erase(table.chains[found->second.kind], hook);
    table.hooks.erase(found);
    return TRUE;
}

// Calls the hook that was set before the running one; the handle has not mattered for many versions of the platform.
LRESULT CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam) {
    HookTable& table = Hooks();
    const auto found = table.hooks.find(table.runningHook);
    if (found == table.hooks.end()) return 0;
    const auto& chain = table.chains[found->second.kind];
    const auto self = std::find(chain.begin(), chain.end(), table.runningHook);
    if (self == chain.begin() || self == chain.end()) return 0;
    return Call(*std::prev(self), code, wParam, lParam);
}
