// Whole files as bytes. Paths are wide texts in the platform's own form.
#pragma once

#include <optional>
#include <string>

namespace qv {
[[nodiscard]] std::optional<std::string> ReadFileBytes(const std::wstring& file);
[[nodiscard]] bool WriteFileBytes(const std::wstring& file, const std::string& bytes);
}  // namespace qv
