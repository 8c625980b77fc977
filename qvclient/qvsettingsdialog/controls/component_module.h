// The component's module state: the module whose resources its windows come from. com/ fills it in when the library is
// loaded; whatever is entered from outside the component (COM methods, window messages that the host's code reaches)
// puts it in force for its duration with a ModuleStateSwitch.
#pragma once

#include "base/module_state.h"

[[nodiscard]] ModuleState& GetComponentModuleState() noexcept;
