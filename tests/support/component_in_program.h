// The component linked into a test program: its module state is in force and its resources are the program's.
#pragma once

#include "base/module_state.h"

class ComponentInProgram {
public:
    ComponentInProgram();
    ~ComponentInProgram();
    ComponentInProgram(const ComponentInProgram&) = delete;
    ComponentInProgram& operator=(const ComponentInProgram&) = delete;

private:
    ModuleStateSwitch m_state;
};
