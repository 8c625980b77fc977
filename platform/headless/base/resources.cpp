#include "platform/headless/base/resources.h"

#include <list>
#include <memory>
#include <mutex>
#include <string>

#include "platform/headless/base/encoding.h"
#include "platform/module_address.h"

namespace {

// A number or a text; the other one is empty.
struct Identifier {
    UINT_PTR number = 0;
    std::wstring text;

    explicit Identifier(LPCWSTR source) {
        if (IS_INTRESOURCE(source)) {
            number = reinterpret_cast<UINT_PTR>(source);
        } else if (source[0] == L'#') {
            for (const wchar_t* at = source + 1; *at >= L'0' && *at <= L'9'; ++at) {
                number = (number * 10 + static_cast<UINT_PTR>(*at - L'0')) & 0xFFFF;
            }
        } else {
            text = source;
        }
    }
    bool operator==(const Identifier& other) const {
        return number == other.number && qv::headless::CompareIgnoringCase(text, other.text) == 0;
    }
};

struct Resource {
    HMODULE module;
    Identifier type;
    Identifier name;
    LANGID language;
    std::span<const std::byte> bytes;
};

struct Table {
    std::recursive_mutex mutex;
    // A list: handles are addresses of its entries.
    std::list<Resource> resources;
};

Table& Resources() {
    static Table s_table;
    return s_table;
}

HMODULE OrProgram(HMODULE module) {
    return module == nullptr ? GetModuleHandleW(nullptr) : module;
}

const Resource* FromHandle(HRSRC handle) {
    return reinterpret_cast<const Resource*>(handle);
}

template <typename Handle>
Handle Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return Handle{};
}

}  // namespace

namespace qv::headless {

void RegisterResource(HMODULE module, LPCWSTR type, LPCWSTR name, std::span<const std::byte> bytes, LANGID language) {
    auto& table = Resources();
    const std::lock_guard lock(table.mutex);
    const Identifier wantedType(type);
    const Identifier wantedName(name);
    table.resources.remove_if([&](const Resource& resource) {
        return resource.module == module && resource.language == language && resource.type == wantedType &&
               resource.name == wantedName;
    });
    table.resources.push_back({module, wantedType, wantedName, language, bytes});
}

void UnregisterResources(HMODULE module) noexcept {
    auto& table = Resources();
    const std::lock_guard lock(table.mutex);
    table.resources.remove_if([&](const Resource& resource) { return resource.module == module; });
}

}  // namespace qv::headless

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type) {
    return FindResourceExW(module, type, name, 0);
}

HRSRC FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language) {
    auto& table = Resources();
    const std::lock_guard lock(table.mutex);
    const HMODULE owner = OrProgram(module);
    const Identifier wantedType(type);
    const Identifier wantedName(name);
    bool anyOfModule = false;
    bool anyOfType = false;
    const Resource* found = nullptr;
    for (const Resource& resource : table.resources) {
        if (resource.module != owner) continue;
        anyOfModule = true;
        if (!(resource.type == wantedType)) continue;
        anyOfType = true;
        if (!(resource.name == wantedName)) continue;
        if (found == nullptr || resource.language == language) found = &resource;
        if (resource.language == language) break;
    }
    if (found == nullptr) {
        return Fail<HRSRC>(anyOfType     ? ERROR_RESOURCE_NAME_NOT_FOUND
                           : anyOfModule ? ERROR_RESOURCE_TYPE_NOT_FOUND
                                         : ERROR_RESOURCE_DATA_NOT_FOUND);
    }
    return reinterpret_cast<HRSRC>(const_cast<Resource*>(found));
}

HGLOBAL LoadResource(HMODULE, HRSRC resource) {
    if (resource == nullptr) return Fail<HGLOBAL>(ERROR_INVALID_PARAMETER);
    return const_cast<std::byte*>(FromHandle(resource)->bytes.data());
}
LPVOID LockResource(HGLOBAL data) {
    return data;
}
DWORD SizeofResource(HMODULE, HRSRC resource) {
    if (resource == nullptr) return Fail<DWORD>(ERROR_INVALID_PARAMETER);
    return static_cast<DWORD>(FromHandle(resource)->bytes.size());
}
