// Between the platform's paths and error codes and those of the machine underneath. For the headless file calls only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/headless/base/error.h"

namespace qv::headless {

// The machine's path: one kind of separator, doubled ones joined, dots and blanks at the end of a part dropped, UTF-8.
// Nothing, with the last error set, for an empty path, for characters that no name may hold and for parts that are too
// long.
[[nodiscard]] std::optional<std::string> NativePath(LPCWSTR path, bool wildcards = false);
// The documented code for errno after a call on that path: a missing file and a missing folder on the way differ.
[[nodiscard]] LONG ErrorFromErrno(int error, const std::string& path);
// Sets the last error from errno; always FALSE.
int FailWithErrno(const std::string& path);
// Folder of a native path: "." where there is none.
[[nodiscard]] std::string FolderOf(const std::string& path);
// With the terminator going in, without it coming out; a buffer too small answers the needed size.
[[nodiscard]] DWORD CopyPath(const std::wstring& path, LPWSTR buffer, DWORD size);

}  // namespace qv::headless
