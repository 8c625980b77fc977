#include "host/services/scope_data.h"

#include <unordered_set>

#include "base/text.h"

namespace qv {

std::wstring_view NormalKey(std::wstring_view key) {
    while (key.starts_with(L'/'))
        key.remove_prefix(1);
    while (key.ends_with(L'/'))
        key.remove_suffix(1);
    return key;
}

const ScopeData::Key* ScopeData::FindKey(std::wstring_view key) const {
    const auto found = m_byPath.find(ToLower(NormalKey(key)));
    return found != m_byPath.end() ? &m_keys[found->second] : nullptr;
}

ScopeData::Key& ScopeData::KeyFor(std::wstring_view key) {
    const std::wstring_view path = NormalKey(key);
    const auto [place, isNew] = m_byPath.try_emplace(ToLower(path), m_keys.size());
    if (isNew) m_keys.push_back({std::wstring(path), {}, {}});
    return m_keys[place->second];
}

const std::wstring* ScopeData::Find(std::wstring_view key, std::wstring_view name) const {
    const Key* const found = FindKey(key);
    if (found == nullptr) return nullptr;
    const auto value = found->byName.find(ToLower(name));
    return value != found->byName.end() ? &found->values[value->second].text : nullptr;
}

const std::vector<ScopeData::Value>* ScopeData::FindValues(std::wstring_view key) const {
    const Key* const found = FindKey(key);
    return found != nullptr ? &found->values : nullptr;
}

void ScopeData::Set(std::wstring_view key, std::wstring_view name, std::wstring_view text) {
    Key& entry = KeyFor(key);
    const auto [place, isNew] = entry.byName.try_emplace(ToLower(name), entry.values.size());
    if (isNew) {
        entry.values.push_back({std::wstring(name), std::wstring(text)});
    } else {
        entry.values[place->second].text = text;
    }
}

void ScopeData::AddKey(std::wstring_view key) {
    KeyFor(key);
}

std::vector<std::wstring> ScopeData::KeysBelow(std::wstring_view key, Depth depth) const {
    const std::wstring_view root = NormalKey(key);
    const std::wstring prefix = root.empty() ? L"" : ToLower(root) + L"/";
    std::vector<std::wstring> result;
    std::unordered_set<std::wstring> seen;
    for (const Key& entry : m_keys) {
        const std::wstring lower = ToLower(entry.path);
        if (lower.size() <= prefix.size() || !lower.starts_with(prefix)) continue;
        if (depth == Depth::Everything) {
            if (!entry.values.empty()) result.push_back(entry.path);
            continue;
        }
        const std::size_t end = lower.find(L'/', prefix.size());
        if (seen.insert(lower.substr(0, end)).second) result.push_back(entry.path.substr(0, end));
    }
    return result;
}

}  // namespace qv
