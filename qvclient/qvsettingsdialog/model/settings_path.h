// The path rules of the definition tree: how an item definition's name leads to its key and value name, and how an item
// key splits into its storage location. Pure text; the model and its loaders call them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

// A storage location: the key and, below it, the value's name.
struct KeyAndName {
    std::wstring_view key;
    std::wstring_view name;
};

// The two segments that must remain of a "/"-separated path once its first segment is dropped; nothing for any other
// number of segments. Either segment may be empty, except that nothing after the last "/" is no segment. A path without
// "/" is one segment. The parts are views into path.
[[nodiscard]] std::optional<KeyAndName> SplitPath(std::wstring_view path);
// The same for a path that addresses a value: its name may not be empty (its key may).
[[nodiscard]] std::optional<KeyAndName> SplitValuePath(std::wstring_view path);
// The item key of a definition: key "/" value name; empty for a definition name of any other shape.
[[nodiscard]] std::wstring MakeItemKey(std::wstring_view definitionName);
// Splits an item key at its last "/". Nothing without a "/" or with nothing after it.
[[nodiscard]] std::optional<KeyAndName> SplitItemKey(std::wstring_view itemKey);

}  // namespace qv
