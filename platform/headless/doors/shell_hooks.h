// What the shell was asked to open. For tests and scripted runs in the native build.
#pragma once

#include <string>
#include <vector>

#include "platform/headless/base/shell.h"

namespace qv::headless {

struct Execution {
    HWND owner = nullptr;
    std::wstring verb;
    std::wstring file;
    std::wstring parameters;
    std::wstring folder;
    INT show = 0;
};

// In the order of the calls.
[[nodiscard]] std::vector<Execution> Executions();
void ClearExecutions();
// The code that the next calls answer; 33 and above is success, as at the start.
void SetExecutionResult(INT_PTR code);

}  // namespace qv::headless
