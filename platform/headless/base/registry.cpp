#include "platform/headless/base/registry.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <iterator>
#include <mutex>

#include "platform/headless/base/countdown.h"
#include "platform/headless/base/registry_tree.h"
#include "platform/headless/doors/faults.h"

namespace {

using qv::headless::NodePointer;
using qv::headless::RegistryNode;
using qv::headless::RegistryValue;
using qv::headless::SplitKeyPath;

constexpr std::size_t kMaxKeyName = 255;
constexpr std::size_t kMaxValueName = 16383;

// What a handle leads to. Under HKEY_CLASSES_ROOT the user's classes lie over the machine's, so there may be two; new
// keys and values go to the first.
struct OpenKey {
    NodePointer node;
    NodePointer below;
    REGSAM access = KEY_ALL_ACCESS;
};

struct Registry {
    std::recursive_mutex mutex;
    NodePointer roots[4] = {std::make_shared<RegistryNode>(), std::make_shared<RegistryNode>(),
                            std::make_shared<RegistryNode>(), std::make_shared<RegistryNode>()};
    NodePointer overrides[4];
    // By handle number. Handles that were closed are not used again, so that a stale one is recognised.
    std::map<ULONG_PTR, OpenKey> handles;
    ULONG_PTR nextHandle = 0x1000;
    qv::headless::Countdown fault;
    LONG faultCode = ERROR_SUCCESS;
    std::atomic<unsigned> calls{0};
};

Registry& State() {
    static Registry s_registry;
    return s_registry;
}

enum Root : std::size_t { kClassesRoot, kCurrentUser, kLocalMachine, kUsers, kRootCount };
constexpr ULONG_PTR kFirstRoot = 0xFFFFFFFF80000000u;
const std::vector<std::wstring> kClassesPath = {L"Software", L"Classes"};

// One call: the lock, and the fault that a test may have ordered.
class Call {
public:
    Call() : m_lock(State().mutex) {
        ++State().calls;
        if (State().fault.Strikes()) m_status = State().faultCode;
    }
    [[nodiscard]] LSTATUS Status() const { return m_status; }

private:
    std::lock_guard<std::recursive_mutex> m_lock;
    LSTATUS m_status = ERROR_SUCCESS;
};

LSTATUS Resolve(HKEY handle, REGSAM needed, OpenKey& key) {
    auto& state = State();
    const auto number = reinterpret_cast<ULONG_PTR>(handle);
    // The roots are known by their low half too.
    const ULONG_PTR root = (number | 0xFFFFFFFF00000000u) - kFirstRoot;
    if ((number & 0x80000000u) != 0 && root < kRootCount) {
        key = {};
        if (state.overrides[root] != nullptr) {
            key.node = state.overrides[root];
        } else if (root == kClassesRoot) {
            bool created = false;
            key.node = MakeNode(state.roots[kLocalMachine], kClassesPath, created);
            key.below = FindNode(state.roots[kCurrentUser], kClassesPath);
            // The user's classes come first where they exist; new ones go to the machine's.
            if (key.below != nullptr) std::swap(key.node, key.below);
        } else {
            key.node = state.roots[root];
        }
        return ERROR_SUCCESS;
    }
    const auto found = state.handles.find(number);
    if (found == state.handles.end()) return ERROR_INVALID_HANDLE;
    key = found->second;
    if (key.node->deleted) {
        if (key.below == nullptr || key.below->deleted) return ERROR_KEY_DELETED;
        key.node = key.below;
    }
    if (key.below != nullptr && key.below->deleted) key.below = nullptr;
    return (key.access & needed) == needed ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

bool HasLongPart(const std::vector<std::wstring>& path) {
    return std::any_of(path.begin(), path.end(), [](const auto& part) { return part.size() > kMaxKeyName; });
}

HKEY AddHandle(OpenKey key) {
    auto& state = State();
    const ULONG_PTR number = state.nextHandle;
    state.nextHandle += 4;
    state.handles.emplace(number, std::move(key));
    return reinterpret_cast<HKEY>(number);
}

// The key below, in both layers; the first one that exists becomes the first.
OpenKey Below(const OpenKey& key, const std::vector<std::wstring>& path) {
    OpenKey result;
    result.node = FindNode(key.node, path);
    result.below = key.below == nullptr ? nullptr : FindNode(key.below, path);
    if (result.node == nullptr) std::swap(result.node, result.below);
    return result;
}

// Names of both layers, each once, in order.
template <typename Map>
std::vector<typename Map::const_iterator> Merge(const Map& first, const Map* second) {
    std::vector<typename Map::const_iterator> entries;
    for (auto at = first.begin(); at != first.end(); ++at)
        entries.push_back(at);
    if (second != nullptr) {
        for (auto at = second->begin(); at != second->end(); ++at) {
            if (!first.contains(at->first)) entries.push_back(at);
        }
        std::sort(entries.begin(), entries.end(),
                  [](const auto& a, const auto& b) { return qv::headless::NameLess()(a->first, b->first); });
    }
    return entries;
}

auto KeysOf(const OpenKey& key) {
    return Merge(key.node->keys, key.below == nullptr ? nullptr : &key.below->keys);
}
auto ValuesOf(const OpenKey& key) {
    return Merge(key.node->values, key.below == nullptr ? nullptr : &key.below->values);
}

LSTATUS CopyData(const RegistryValue& value, DWORD* type, BYTE* data, DWORD* size) {
    if (type != nullptr) *type = value.type;
    if (size == nullptr) return ERROR_SUCCESS;
    const auto needed = static_cast<DWORD>(value.data.size());
    const DWORD room = *size;
    *size = needed;
    if (data == nullptr) return ERROR_SUCCESS;
    if (room < needed) return ERROR_MORE_DATA;
    std::copy(value.data.begin(), value.data.end(), data);
    // A text stored without its terminator gets one where there is room.
    const bool isText = value.type == REG_SZ || value.type == REG_EXPAND_SZ || value.type == REG_MULTI_SZ;
    if (isText && room - needed >= sizeof(wchar_t)) std::memset(data + needed, 0, sizeof(wchar_t));
    return ERROR_SUCCESS;
}

// The buffer's size counts the terminator, the answered one does not.
LSTATUS CopyName(const std::wstring& name, LPWSTR buffer, DWORD* size) {
    if (*size <= name.size()) return ERROR_MORE_DATA;
    std::copy_n(name.c_str(), name.size() + 1, buffer);
    *size = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

std::wstring NameOf(LPCWSTR name) {
    return name == nullptr ? std::wstring() : std::wstring(name);
}

// Takes the key itself out of its parent.
LSTATUS RemoveKey(const OpenKey& parent, const std::vector<std::wstring>& path, bool withSubKeys) {
    auto parentPath = path;
    parentPath.pop_back();
    for (const auto& layer : {parent.node, parent.below}) {
        const auto holder = layer == nullptr ? nullptr : FindNode(layer, parentPath);
        if (holder == nullptr) continue;
        const auto found = holder->keys.find(path.back());
        if (found == holder->keys.end()) continue;
        if (!withSubKeys && !found->second->keys.empty()) return ERROR_ACCESS_DENIED;
        MarkDeleted(*found->second);
        holder->keys.erase(found);
        return ERROR_SUCCESS;
    }
    return ERROR_FILE_NOT_FOUND;
}

}  // namespace

namespace qv::headless {

void FailRegistryCall(unsigned n, LONG code) noexcept {
    State().faultCode = code;
    State().fault.Arm(n);
}
unsigned RegistryCalls() noexcept {
    return State().calls.load();
}
std::size_t OpenRegistryKeys() noexcept {
    const std::lock_guard lock(State().mutex);
    return State().handles.size();
}

std::wstring DumpRegistry() {
    const std::lock_guard lock(State().mutex);
    std::wstring text;
    DumpNode(*State().roots[kCurrentUser], L"HKEY_CURRENT_USER", text);
    DumpNode(*State().roots[kLocalMachine], L"HKEY_LOCAL_MACHINE", text);
    DumpNode(*State().roots[kUsers], L"HKEY_USERS", text);
    return text;
}

void ResetRegistry() {
    auto& state = State();
    const std::lock_guard lock(state.mutex);
    for (auto& root : state.roots) {
        MarkDeleted(*root);
        root = std::make_shared<RegistryNode>();
    }
    for (auto& replacement : state.overrides)
        replacement = nullptr;
    state.fault.Arm(0);
}

}  // namespace qv::headless

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD, LPWSTR, DWORD, REGSAM access, SECURITY_ATTRIBUTES*,
                        PHKEY result, DWORD* disposition) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey parent;
    if (const LSTATUS status = Resolve(key, 0, parent); status != ERROR_SUCCESS) return status;
    if (result == nullptr || subKey == nullptr) return ERROR_BADKEY;
    const auto path = SplitKeyPath(subKey);
    if (HasLongPart(path)) return ERROR_INVALID_PARAMETER;
    OpenKey opened = Below(parent, path);
    const bool created = opened.node == nullptr;
    if (created) {
        if ((parent.access & KEY_CREATE_SUB_KEY) == 0) return ERROR_ACCESS_DENIED;
        // Under the merged root a new class belongs to the machine.
        const bool machineBelow = parent.below != nullptr;
        bool made = false;
        opened.node = MakeNode(machineBelow ? parent.below : parent.node, path, made);
        opened.below = nullptr;
    }
    opened.access = access;
    if (disposition != nullptr) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    *result = AddHandle(std::move(opened));
    return ERROR_SUCCESS;
}

LSTATUS RegCreateKeyW(HKEY key, LPCWSTR subKey, PHKEY result) {
    return RegCreateKeyExW(key, subKey == nullptr ? L"" : subKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, result,
                           nullptr);
}

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM access, PHKEY result) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    if (result == nullptr) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    OpenKey parent;
    if (const LSTATUS status = Resolve(key, 0, parent); status != ERROR_SUCCESS) return status;
    const auto path = SplitKeyPath(NameOf(subKey));
    OpenKey opened = Below(parent, path);
    if (opened.node == nullptr) return ERROR_FILE_NOT_FOUND;
    opened.access = access;
    *result = AddHandle(std::move(opened));
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key) {
    auto& state = State();
    const std::lock_guard lock(state.mutex);
    if (state.handles.erase(reinterpret_cast<ULONG_PTR>(key)) != 0) return ERROR_SUCCESS;
    OpenKey root;
    return Resolve(key, 0, root);
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_SET_VALUE, opened); status != ERROR_SUCCESS) return status;
    const auto valueName = NameOf(name);
    if (valueName.size() > kMaxValueName || (data == nullptr && size != 0)) return ERROR_INVALID_PARAMETER;
    RegistryValue value{type, {}};
    if (size != 0) value.data.assign(data, data + size);
    // A text given without its terminator, which stands right behind it, is stored with it.
    if ((type == REG_SZ || type == REG_EXPAND_SZ) && size >= sizeof(wchar_t) && size % sizeof(wchar_t) == 0) {
        const auto* units = reinterpret_cast<const wchar_t*>(data);
        const auto count = size / sizeof(wchar_t);
        if (units[count - 1] != 0 && units[count] == 0) value.data.insert(value.data.end(), sizeof(wchar_t), 0);
    }
    opened.node->values[valueName] = std::move(value);
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    if (reserved != nullptr || (data != nullptr && size == nullptr)) return ERROR_INVALID_PARAMETER;
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_QUERY_VALUE, opened); status != ERROR_SUCCESS) return status;
    for (const auto& layer : {opened.node, opened.below}) {
        if (layer == nullptr) continue;
        const auto found = layer->values.find(NameOf(name));
        if (found != layer->values.end()) return CopyData(found->second, type, data, size);
    }
    return ERROR_FILE_NOT_FOUND;
}

LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_SET_VALUE, opened); status != ERROR_SUCCESS) return status;
    const auto found = opened.node->values.find(NameOf(name));
    if (found == opened.node->values.end()) return ERROR_FILE_NOT_FOUND;
    opened.node->values.erase(found);
    return ERROR_SUCCESS;
}

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey parent;
    if (const LSTATUS status = Resolve(key, 0, parent); status != ERROR_SUCCESS) return status;
    if (subKey == nullptr) return ERROR_INVALID_PARAMETER;
    const auto path = SplitKeyPath(subKey);
    return path.empty() ? ERROR_ACCESS_DENIED : RemoveKey(parent, path, false);
}

LSTATUS RegDeleteKeyExW(HKEY key, LPCWSTR subKey, REGSAM, DWORD) {
    return RegDeleteKeyW(key, subKey);
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey parent;
    if (const LSTATUS status = Resolve(key, 0, parent); status != ERROR_SUCCESS) return status;
    const auto path = SplitKeyPath(NameOf(subKey));
    if (!path.empty()) return RemoveKey(parent, path, true);
    for (const auto& [name, child] : parent.node->keys)
        qv::headless::MarkDeleted(*child);
    parent.node->keys.clear();
    parent.node->values.clear();
    return ERROR_SUCCESS;
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved, LPWSTR keyClass,
                      DWORD* classSize, FILETIME* written) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    if (name == nullptr || nameSize == nullptr || reserved != nullptr) return ERROR_INVALID_PARAMETER;
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_ENUMERATE_SUB_KEYS, opened); status != ERROR_SUCCESS) return status;
    const auto keys = KeysOf(opened);
    if (index >= keys.size()) return ERROR_NO_MORE_ITEMS;
    // Classes of keys and times of writing are not kept.
    if (keyClass != nullptr && classSize != nullptr && *classSize != 0) *keyClass = 0;
    if (classSize != nullptr) *classSize = 0;
    if (written != nullptr) *written = {};
    return CopyName(keys[index]->first, name, nameSize);
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved, DWORD* type, BYTE* data,
                      DWORD* dataSize) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    if (name == nullptr || nameSize == nullptr || reserved != nullptr || (data != nullptr && dataSize == nullptr)) {
        return ERROR_INVALID_PARAMETER;
    }
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_QUERY_VALUE, opened); status != ERROR_SUCCESS) return status;
    const auto values = ValuesOf(opened);
    if (index >= values.size()) return ERROR_NO_MORE_ITEMS;
    if (const LSTATUS status = CopyName(values[index]->first, name, nameSize); status != ERROR_SUCCESS) return status;
    return CopyData(values[index]->second, type, data, dataSize);
}

LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, DWORD* classSize, DWORD*, DWORD* subKeys, DWORD* maxSubKeyLength,
                         DWORD* maxClassLength, DWORD* values, DWORD* maxValueNameLength, DWORD* maxValueLength,
                         DWORD* security, FILETIME* written) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    OpenKey opened;
    if (const LSTATUS status = Resolve(key, KEY_QUERY_VALUE, opened); status != ERROR_SUCCESS) return status;
    const auto put = [](DWORD* out, std::size_t number) {
        if (out != nullptr) *out = static_cast<DWORD>(number);
    };
    const auto allKeys = KeysOf(opened);
    const auto allValues = ValuesOf(opened);
    std::size_t longestKey = 0;
    std::size_t longestName = 0;
    std::size_t longestData = 0;
    for (const auto& entry : allKeys)
        longestKey = std::max(longestKey, entry->first.size());
    for (const auto& entry : allValues) {
        longestName = std::max(longestName, entry->first.size());
        longestData = std::max(longestData, entry->second.data.size());
    }
    if (keyClass != nullptr && classSize != nullptr && *classSize != 0) *keyClass = 0;
    put(classSize, 0);
    put(subKeys, allKeys.size());
    put(maxSubKeyLength, longestKey);
    put(maxClassLength, 0);
    put(values, allValues.size());
    put(maxValueNameLength, longestName);
    put(maxValueLength, longestData);
    put(security, 0);
    if (written != nullptr) *written = {};
    return ERROR_SUCCESS;
}

LSTATUS RegOverridePredefKey(HKEY root, HKEY replacement) {
    const Call call;
    if (call.Status() != ERROR_SUCCESS) return call.Status();
    const ULONG_PTR index = (reinterpret_cast<ULONG_PTR>(root) | 0xFFFFFFFF00000000u) - kFirstRoot;
    if (index >= kRootCount) return ERROR_INVALID_HANDLE;
    if (replacement == nullptr) {
        State().overrides[index] = nullptr;
        return ERROR_SUCCESS;
    }
    OpenKey opened;
    if (const LSTATUS status = Resolve(replacement, 0, opened); status != ERROR_SUCCESS) return status;
    State().overrides[index] = opened.node;
    return ERROR_SUCCESS;
}
