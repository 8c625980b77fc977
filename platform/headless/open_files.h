// What the rest of the headless file calls must know of the files that are open.
#pragma once

#include <string>

#include "platform/headless/files.h"

namespace qv::headless {

// False while somebody has the file open without granting its deletion; renaming asks the same.
[[nodiscard]] bool MayDelete(const std::string& path);

}  // namespace qv::headless
