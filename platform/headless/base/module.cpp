#include "platform/headless/base/module.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/base/countdown.h"
#include "platform/headless/base/encoding.h"
#include "platform/headless/doors/faults.h"

namespace {

qv::headless::Countdown g_fileNameFault;
std::atomic<LONG> g_fileNameError{0};

using qv::headless::CompareIgnoringCase;
using qv::headless::FromUtf8;
using qv::headless::ToUtf8;

struct LoadedModules {
    std::mutex mutex;
    // The loader's own handles, one for each time a module was loaded here, by address.
    std::map<HMODULE, std::vector<void*>> handles;
};

LoadedModules& Loaded() {
    static LoadedModules s_loaded;
    return s_loaded;
}

std::string ProgramPath() {
    char buffer[PATH_MAX];
    const auto length = ::readlink("/proc/self/exe", buffer, sizeof(buffer));
    return length > 0 ? std::string(buffer, static_cast<std::size_t>(length)) : std::string();
}

// Name without folder and extension, which is how modules are told apart.
std::wstring StemOf(std::wstring_view path) {
    path.remove_prefix(path.find_last_of(L"\\/") + 1);
    return std::wstring(path.substr(0, path.find_last_of(L'.')));
}

struct ModuleEntry {
    HMODULE module;
    std::string path;
};

// Everything that is loaded; the program itself comes first.
std::vector<ModuleEntry> AllModules() {
    std::vector<ModuleEntry> modules;
    const auto add = [](dl_phdr_info* info, std::size_t, void* data) {
        auto& entries = *static_cast<std::vector<ModuleEntry>*>(data);
        ElfW(Addr) lowest = ~ElfW(Addr){0};
        for (int i = 0; i < info->dlpi_phnum; ++i) {
            const auto& segment = info->dlpi_phdr[i];
            if (segment.p_type == PT_LOAD) lowest = std::min(lowest, segment.p_vaddr);
        }
        const auto base = info->dlpi_addr + (lowest == ~ElfW(Addr){0} ? 0 : lowest);
        static const std::string s_program = ProgramPath();
        const std::string path = entries.empty() ? s_program : info->dlpi_name;
        entries.push_back({reinterpret_cast<HMODULE>(base), path});
        return 0;
    };
    dl_iterate_phdr(add, &modules);
    return modules;
}

std::optional<ModuleEntry> FindModule(HMODULE module) {
    auto modules = AllModules();
    if (module == nullptr) return modules.front();
    const auto found =
        std::find_if(modules.begin(), modules.end(), [&](const ModuleEntry& entry) { return entry.module == module; });
    return found == modules.end() ? std::nullopt : std::optional(*found);
}

HMODULE ModuleOfAddress(const void* address) {
    Dl_info info{};
    return ::dladdr(address, &info) != 0 ? reinterpret_cast<HMODULE>(info.dli_fbase) : nullptr;
}

HMODULE BaseOf(void* loaderHandle) {
    link_map* map = nullptr;
    if (::dlinfo(loaderHandle, RTLD_DI_LINKMAP, &map) != 0 || map == nullptr) return nullptr;
    return ModuleOfAddress(map->l_ld);
}

// Where a name may be found, best first.
std::vector<std::string> Candidates(std::wstring name) {
    std::replace(name.begin(), name.end(), L'\\', L'/');
    const bool hasFolder = name.find(L'/') != std::wstring::npos;
    std::vector<std::wstring> names;
    const auto file = name.substr(name.find_last_of(L'/') + 1);
    const auto dot = file.find_last_of(L'.');
    const auto extension = dot == std::wstring::npos ? std::wstring() : file.substr(dot);
    if (extension.empty()) {
        names.push_back(name + L".so");
    } else if (CompareIgnoringCase(extension, L".dll") == 0) {
        names.push_back(name.substr(0, name.size() - 4) + L".so");
    }
    names.push_back(name);
    std::vector<std::string> candidates;
    for (const auto& each : names) {
        const auto bytes = ToUtf8(each);
        if (!hasFolder) {
            const auto program = ProgramPath();
            candidates.push_back(program.substr(0, program.find_last_of('/') + 1) + bytes);
        }
        candidates.push_back(bytes);
    }
    return candidates;
}

template <typename Result>
Result Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return Result{};
}

}  // namespace

HMODULE GetModuleHandleW(LPCWSTR name) {
    static const HMODULE s_program = AllModules().front().module;
    if (name == nullptr) return s_program;
    const auto modules = AllModules();
    const auto wanted = StemOf(name);
    for (const auto& entry : modules) {
        if (CompareIgnoringCase(StemOf(FromUtf8(entry.path)), wanted) == 0) return entry.module;
    }
    return Fail<HMODULE>(ERROR_MOD_NOT_FOUND);
}

BOOL GetModuleHandleExW(DWORD flags, LPCWSTR nameOrAddress, HMODULE* module) {
    if (module == nullptr) return Fail<BOOL>(ERROR_INVALID_PARAMETER);
    const bool fromAddress = (flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) != 0;
    *module = fromAddress ? ModuleOfAddress(nameOrAddress) : GetModuleHandleW(nameOrAddress);
    if (*module == nullptr) return Fail<BOOL>(ERROR_MOD_NOT_FOUND);
    if ((flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) == 0) {
        // Counted as one more load, which FreeLibrary takes back.
        const auto entry = FindModule(*module);
        const bool isProgram = *module == GetModuleHandleW(nullptr);
        void* handle = entry ? ::dlopen(isProgram ? nullptr : entry->path.c_str(), RTLD_NOW | RTLD_NOLOAD) : nullptr;
        if (handle != nullptr && (flags & GET_MODULE_HANDLE_EX_FLAG_PIN) == 0) {
            const std::lock_guard lock(Loaded().mutex);
            Loaded().handles[*module].push_back(handle);
        }
    }
    return TRUE;
}

void qv::headless::FailModuleFileName(unsigned n, LONG code) noexcept {
    g_fileNameError = code;
    g_fileNameFault.Arm(n);
}

DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size) {
    if (g_fileNameFault.Strikes()) return Fail<DWORD>(g_fileNameError);
    const auto entry = FindModule(module);
    if (!entry) return Fail<DWORD>(ERROR_MOD_NOT_FOUND);
    if (buffer == nullptr || size == 0) return Fail<DWORD>(ERROR_INSUFFICIENT_BUFFER);
    char resolved[PATH_MAX];
    const std::wstring path = FromUtf8(::realpath(entry->path.c_str(), resolved) != nullptr ? resolved : entry->path);
    const auto length = std::min<std::size_t>(path.size(), size - 1);
    *std::copy_n(path.data(), length, buffer) = 0;
    // A path that was cut fills the buffer.
    SetLastError(length < path.size() ? ERROR_INSUFFICIENT_BUFFER : ERROR_SUCCESS);
    return length < path.size() ? size : static_cast<DWORD>(length);
}

HMODULE LoadLibraryW(LPCWSTR name) {
    if (name == nullptr) return Fail<HMODULE>(ERROR_INVALID_PARAMETER);
    if (*name == 0) return Fail<HMODULE>(ERROR_MOD_NOT_FOUND);
    LONG code = ERROR_MOD_NOT_FOUND;
    for (const auto& candidate : Candidates(name)) {
        void* handle = ::dlopen(candidate.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle != nullptr) {
            const HMODULE module = BaseOf(handle);
            const std::lock_guard lock(Loaded().mutex);
            Loaded().handles[module].push_back(handle);
            return module;
        }
        // What is there and cannot be loaded is no module.
        if (candidate.find('/') != std::string::npos && ::access(candidate.c_str(), F_OK) == 0) {
            code = ERROR_BAD_EXE_FORMAT;
        }
    }
    return Fail<HMODULE>(code);
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
    if (reinterpret_cast<UINT_PTR>(name) >> 16 == 0) return Fail<FARPROC>(ERROR_PROC_NOT_FOUND);
    const auto entry = FindModule(module);
    if (!entry) return Fail<FARPROC>(ERROR_MOD_NOT_FOUND);
    const bool isProgram = entry->module == GetModuleHandleW(nullptr);
    void* handle = ::dlopen(isProgram ? nullptr : entry->path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    void* symbol = handle == nullptr ? nullptr : ::dlsym(handle, name);
    if (handle != nullptr) ::dlclose(handle);
    // The loader also looks in what the module needs; only the module's own count.
    if (symbol == nullptr || ModuleOfAddress(symbol) != entry->module) return Fail<FARPROC>(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(symbol);
}

BOOL FreeLibrary(HMODULE module) {
    void* handle = nullptr;
    {
        // Closed outside the lock: that runs the module's own code.
        const std::lock_guard lock(Loaded().mutex);
        const auto found = Loaded().handles.find(module);
        if (found != Loaded().handles.end() && !found->second.empty()) {
            handle = found->second.back();
            found->second.pop_back();
            if (found->second.empty()) Loaded().handles.erase(found);
        }
    }
    if (handle != nullptr) return ::dlclose(handle) == 0;
    // Null would find the program.
    if (module == nullptr || !FindModule(module)) return Fail<BOOL>(ERROR_MOD_NOT_FOUND);
    return TRUE;  // the program and what it was linked with are never let go, and that counts as done
}
