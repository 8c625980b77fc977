// The program's arguments as wide text, for main functions: natively there is no wmain, and main's narrow arguments
// lose characters on Windows.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace qv {

// The program's own name comes first. Empty only when there is no memory for it.
[[nodiscard]] inline std::vector<std::wstring> CommandLineArguments() {
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (arguments == nullptr) return {};
    std::vector<std::wstring> texts(arguments, arguments + count);
    LocalFree(arguments);
    return texts;
}

}  // namespace qv
