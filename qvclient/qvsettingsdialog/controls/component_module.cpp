#include "qvclient/qvsettingsdialog/controls/component_module.h"

ModuleState& GetComponentModuleState() noexcept {
    static ModuleState state;
    return state;
}
