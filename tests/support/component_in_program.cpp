#include "tests/support/component_in_program.h"

#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/controls/component_module.h"
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

namespace {

const int kInsideProgram = 0;

ModuleState& ProgramAsComponent() {
    ModuleState& state = GetComponentModuleState();
    state.resources = qv::ModuleFromAddress(&kInsideProgram);
    return state;
}

}  // namespace

ComponentInProgram::ComponentInProgram() : m_state(ProgramAsComponent()) {
    RegisterSettingsResources(GetComponentModuleState().resources);
}

ComponentInProgram::~ComponentInProgram() {
    UnregisterSettingsResources(GetComponentModuleState().resources);
}
