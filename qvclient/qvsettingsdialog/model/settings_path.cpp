#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace qv {

std::optional<KeyAndName> SplitPath(std::wstring_view path) {
    constexpr auto kNone = std::wstring_view::npos;
    const auto first = path.find(L'/');
    if (first == kNone) return std::nullopt;
    const std::wstring_view rest = path.substr(first + 1);

    const auto second = rest.find(L'/');
    if (second == kNone) return std::nullopt;
    const std::wstring_view name = rest.substr(second + 1);
    const auto third = name.find(L'/');
    if (third == kNone) {
        if (name.empty()) return std::nullopt;
        return KeyAndName{rest.substr(0, second), name};
    }
    if (third + 1 != name.size()) return std::nullopt;
    return KeyAndName{rest.substr(0, second), name.substr(0, third)};
}

std::optional<KeyAndName> SplitValuePath(std::wstring_view path) {
    auto parts = SplitPath(path);
    if (parts && parts->name.empty()) return std::nullopt;
    return parts;
}

std::wstring MakeItemKey(std::wstring_view definitionName) {
    const auto parts = SplitPath(definitionName);
    // Both parts are views into the name, with just the separator between them.
    return parts ? std::wstring(parts->key.data(), parts->key.size() + 1 + parts->name.size()) : std::wstring();
}

std::optional<KeyAndName> SplitItemKey(std::wstring_view itemKey) {
    const auto separator = itemKey.rfind(L'/');
    if (separator == std::wstring_view::npos || separator + 1 == itemKey.size()) return std::nullopt;
    return KeyAndName{itemKey.substr(0, separator), itemKey.substr(separator + 1)};
}

}  // namespace qv
