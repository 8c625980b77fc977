#include "platform/headless/base/registry_tree.h"

#include <cstring>

namespace qv::headless {

std::vector<std::wstring> SplitKeyPath(std::wstring_view path) {
    std::vector<std::wstring> parts;
    while (!path.empty()) {
        const auto end = path.find(L'\\');
        if (end != 0) parts.emplace_back(path.substr(0, end));
        path.remove_prefix(end == std::wstring_view::npos ? path.size() : end + 1);
    }
    return parts;
}

NodePointer FindNode(NodePointer node, const std::vector<std::wstring>& path) {
    for (const auto& part : path) {
        if (node == nullptr) return nullptr;
        const auto found = node->keys.find(part);
        node = found == node->keys.end() ? nullptr : found->second;
    }
    return node;
}

NodePointer MakeNode(NodePointer node, const std::vector<std::wstring>& path, bool& created) {
    created = false;
    for (const auto& part : path) {
        auto& child = node->keys[part];
        created = child == nullptr;
        if (created) child = std::make_shared<RegistryNode>();
        node = child;
    }
    return node;
}

void MarkDeleted(RegistryNode& node) {
    node.deleted = true;
    for (const auto& [name, child] : node.keys)
        MarkDeleted(*child);
}

void DumpNode(const RegistryNode& node, const std::wstring& path, std::wstring& text) {
    text += path + L'\n';
    for (const auto& [name, value] : node.values) {
        text += path + L" \"" + name + L"\" " + std::to_wstring(value.type) + L':';
        if (value.type == REG_SZ || value.type == REG_EXPAND_SZ) {
            std::wstring content(value.data.size() / sizeof(wchar_t), L'\0');
            std::memcpy(content.data(), value.data.data(), content.size() * sizeof(wchar_t));
            while (!content.empty() && content.back() == L'\0')
                content.pop_back();
            text += content;
        } else {
            for (const BYTE byte : value.data) {
                text.push_back(L"0123456789abcdef"[byte >> 4]);
                text.push_back(L"0123456789abcdef"[byte & 15]);
            }
        }
        text += L'\n';
    }
    for (const auto& [name, child] : node.keys)
        DumpNode(*child, path + L'\\' + name, text);
}

}  // namespace qv::headless
