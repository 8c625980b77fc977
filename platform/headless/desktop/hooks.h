// Hooks by kind.
#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "platform/headless/desktop/user.h"

namespace qv::headless {

struct Hook {
    int kind = 0;
    HOOKPROC procedure = nullptr;
};

struct HookTable {
    std::map<int, std::vector<HHOOK>> chains;  // the hook set last is called first
    std::unordered_map<HHOOK, Hook> hooks;
    HHOOK runningHook = nullptr;
    std::uintptr_t nextHook = 0x10001;
};

[[nodiscard]] HookTable& Hooks();

[[nodiscard]] bool HasHook(int kind) noexcept;
// 0 when there is no hook of that kind.
LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam);

}  // namespace qv::headless
