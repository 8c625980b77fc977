#include "base/module_state.h"

#include <utility>

namespace {

// What holds in a process that has set nothing: the program's own resources.
ModuleState g_default;
ModuleState* g_process = nullptr;
thread_local ModuleState* t_current = nullptr;

}  // namespace

ModuleState& GetModuleState() noexcept {
    if (t_current != nullptr) return *t_current;
    return g_process != nullptr ? *g_process : g_default;
}

void SetProcessModuleState(ModuleState& state) noexcept {
    g_process = &state;
}

ModuleStateSwitch::ModuleStateSwitch(ModuleState& state) noexcept : m_previous(std::exchange(t_current, &state)) {}

ModuleStateSwitch::~ModuleStateSwitch() {
    t_current = m_previous;
}

HINSTANCE GetResourceHandle() noexcept {
    HINSTANCE resources = GetModuleState().resources;
    return resources != nullptr ? resources : GetModuleHandleW(nullptr);
}
