// What the machine says of a file, in the platform's terms. For the headless file calls only.
#pragma once

#include <sys/stat.h>
#include <time.h>

#include "platform/headless/base/files.h"

namespace qv::headless {

[[nodiscard]] inline DWORD AttributesOf(const struct stat& status) noexcept {
    const DWORD readOnly = (status.st_mode & S_IWUSR) == 0 ? FILE_ATTRIBUTE_READONLY : 0;
    return readOnly | (S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE);
}

// Steps of 100 ns since 1601.
[[nodiscard]] inline FILETIME FileTimeOf(const timespec& time) noexcept {
    const auto steps = static_cast<ULONGLONG>(time.tv_sec) * 10000000u + static_cast<ULONGLONG>(time.tv_nsec) / 100u +
                       116444736000000000u;
    return {static_cast<DWORD>(steps & 0xFFFFFFFF), static_cast<DWORD>(steps >> 32)};
}

}  // namespace qv::headless
