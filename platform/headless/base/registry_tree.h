// The registry's keys and values as a tree in memory, without handles, rights or predefined roots; registry.cpp puts
// those around it. Not synchronised.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/registry.h"

namespace qv::headless {

// Orders names without regard to case; the name that is kept is the one first given.
struct NameLess {
    using is_transparent = void;
    bool operator()(std::wstring_view first, std::wstring_view second) const noexcept {
        return CompareIgnoringCase(first, second) < 0;
    }
};

struct RegistryValue {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
};

struct RegistryNode {
    std::map<std::wstring, std::shared_ptr<RegistryNode>, NameLess> keys;
    std::map<std::wstring, RegistryValue, NameLess> values;
    // Handles to a deleted key stay open and answer that it is gone.
    bool deleted = false;
};
using NodePointer = std::shared_ptr<RegistryNode>;

// The parts of a path; backslashes in front, behind and doubled count for nothing.
[[nodiscard]] std::vector<std::wstring> SplitKeyPath(std::wstring_view path);
// Null when a part is missing.
[[nodiscard]] NodePointer FindNode(NodePointer node, const std::vector<std::wstring>& path);
// Makes what is missing; created says whether the last part was.
[[nodiscard]] NodePointer MakeNode(NodePointer node, const std::vector<std::wstring>& path, bool& created);
void MarkDeleted(RegistryNode& node);
// A line for each key and value below, values before keys, each line with the whole path.
void DumpNode(const RegistryNode& node, const std::wstring& path, std::wstring& text);

}  // namespace qv::headless
