// The data of one scope as it lies in memory: keys, each with named texts, in the order in which they came. Keys are
// paths with "/" between their segments; keys and names compare without case. Session data managers are made of these;
// it knows neither COM nor files.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qv {

class ScopeData {
public:
    struct Value {
        std::wstring name;
        std::wstring text;
    };

    struct Key {
        std::wstring path;
        std::wstring lowerPath;
        std::vector<Value> values;
        std::unordered_map<std::wstring, std::size_t> byName;  // lower case to index in values

        // Null when there is no such value.
        [[nodiscard]] const std::wstring* Find(std::wstring_view name) const;
    };

    // Null when there is no such key or value. Valid until the next change.
    [[nodiscard]] const Key* FindKey(std::wstring_view key) const;
    [[nodiscard]] const std::wstring* Find(std::wstring_view key, std::wstring_view name) const;
    // A value that is there keeps its place and the spelling of its name.
    void Set(std::wstring_view key, std::wstring_view name, std::wstring_view text);
    // Makes the key known, also without values.
    void AddKey(std::wstring_view key);
    [[nodiscard]] bool IsEmpty() const noexcept { return m_keys.empty(); }

    enum class Depth { Children, Everything };
    // Paths below key, spelled as they were first given. Children: the next segment of every key below; Everything:
    // keys at any depth that hold values. An empty key is the root.
    [[nodiscard]] std::vector<std::wstring> KeysBelow(std::wstring_view key, Depth depth) const;
    // Whether KeysBelow lists this path, asked for something above it.
    [[nodiscard]] bool Lists(std::wstring_view path, Depth depth) const;

    [[nodiscard]] const std::vector<Key>& Keys() const noexcept { return m_keys; }

private:
    Key& KeyFor(std::wstring_view key);
    void EnterPath(std::wstring_view path, const std::wstring& lowerPath);

    std::vector<Key> m_keys;
    std::unordered_map<std::wstring, std::size_t> m_byPath;  // lower case to index in m_keys
    // Every key and every path above one, in lower case, to its children as they are spelled.
    std::unordered_map<std::wstring, std::vector<std::wstring>> m_children;
};

// A key without separators at its ends.
[[nodiscard]] std::wstring_view NormalKey(std::wstring_view key);

}  // namespace qv
