// Module state: which module's resources the framework uses. The framework's code is shared by several modules in one
// process, and two of them may own a template with the same number; every entry into a module therefore switches to its
// state for its duration. One state a module, kept by the module; the current one is a thread's own.
#pragma once

#include "platform/platform.h"

struct ModuleState {
    HINSTANCE resources = nullptr;  // where templates, icons and strings are loaded from
};

// The state in force on this thread: the innermost switch's, else the process's first.
[[nodiscard]] ModuleState& GetModuleState() noexcept;
// The state that holds outside every switch: set once by the program.
void SetProcessModuleState(ModuleState& state) noexcept;

// In force from construction to destruction.
class ModuleStateSwitch {
public:
    explicit ModuleStateSwitch(ModuleState& state) noexcept;
    ~ModuleStateSwitch();
    ModuleStateSwitch(const ModuleStateSwitch&) = delete;
    ModuleStateSwitch& operator=(const ModuleStateSwitch&) = delete;

private:
    ModuleState* m_previous;
};

// The module whose resources are loaded now.
[[nodiscard]] HINSTANCE GetResourceHandle() noexcept;
