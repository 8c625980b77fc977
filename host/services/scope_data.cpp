#include "host/services/scope_data.h"

#include "base/text.h"

namespace qv {

std::wstring_view NormalKey(std::wstring_view key) {
    while (key.starts_with(L'/'))
        key.remove_prefix(1);
    while (key.ends_with(L'/'))
        key.remove_suffix(1);
    return key;
}

const std::wstring* ScopeData::Key::Find(std::wstring_view name) const {
    const auto value = byName.find(ToLower(name));
    return value != byName.end() ? &values[value->second].text : nullptr;
}

const ScopeData::Key* ScopeData::FindKey(std::wstring_view key) const {
    const auto found = m_byPath.find(ToLower(NormalKey(key)));
    return found != m_byPath.end() ? &m_keys[found->second] : nullptr;
}

ScopeData::Key& ScopeData::KeyFor(std::wstring_view key) {
    const std::wstring_view path = NormalKey(key);
    std::wstring lowerPath = ToLower(path);
    const auto [place, isNew] = m_byPath.try_emplace(lowerPath, m_keys.size());
    if (isNew) {
        EnterPath(path, lowerPath);
        m_keys.push_back({std::wstring(path), std::move(lowerPath), {}, {}});
    }
    return m_keys[place->second];
}

// From the key upwards, each path becomes a child of the one above it, up to one that is known already.
void ScopeData::EnterPath(std::wstring_view path, const std::wstring& lowerPath) {
    std::size_t child = 0;
    for (std::size_t end = path.size();;) {
        const auto [place, isNew] = m_children.try_emplace(lowerPath.substr(0, end));
        if (child != 0) place->second.emplace_back(path.substr(0, child));
        if (!isNew || end == 0) return;
        child = end;
        const std::size_t separator = path.rfind(L'/', end - 1);
        end = separator != std::wstring_view::npos ? separator : 0;
    }
}

const std::wstring* ScopeData::Find(std::wstring_view key, std::wstring_view name) const {
    const Key* const found = FindKey(key);
    return found != nullptr ? found->Find(name) : nullptr;
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
    const std::wstring root = ToLower(NormalKey(key));
    const auto children = m_children.find(root);
    if (children == m_children.end()) return {};
    if (depth == Depth::Children) return children->second;
    const std::wstring prefix = root.empty() ? L"" : root + L"/";
    std::vector<std::wstring> result;
    for (const Key& entry : m_keys) {
        const bool isBelow = entry.lowerPath.size() > prefix.size() && entry.lowerPath.starts_with(prefix);
        if (isBelow && !entry.values.empty()) result.push_back(entry.path);
    }
    return result;
}

bool ScopeData::Lists(std::wstring_view path, Depth depth) const {
    const std::wstring lowerPath = ToLower(path);
    if (depth == Depth::Children) return m_children.contains(lowerPath);
    const auto found = m_byPath.find(lowerPath);
    return found != m_byPath.end() && !m_keys[found->second].values.empty();
}

}  // namespace qv
