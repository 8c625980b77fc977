// What the rest of the headless file calls must know of the files that are open.
#pragma once

#include <string>

#include "platform/headless/base/files.h"

namespace qv::headless {

// Opens without waiting for anybody: a pipe in the file system whose other end nobody holds would block for good. flags
// and mode are those of open; reading and writing wait as usual. -1, with errno set, on failure.
[[nodiscard]] int OpenAtOnce(const std::string& path, int flags, unsigned mode = 0) noexcept;

// False while somebody has the file open without granting its deletion; renaming asks the same.
[[nodiscard]] bool MayDelete(const std::string& path);

}  // namespace qv::headless
