// Where a module's file is.
#pragma once

#include <optional>
#include <string>

#include "platform/platform.h"

namespace qv {

// The whole path, however long; module: null for the program. Nothing when the platform does not know; the thread's
// last error says why.
[[nodiscard]] std::optional<std::wstring> ModulePath(HMODULE module);

}  // namespace qv
