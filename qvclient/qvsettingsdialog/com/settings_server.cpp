#include "qvclient/qvsettingsdialog/com/settings_server.h"

#include <array>
#include <new>
#include <optional>
#include <string>

#include "framework/text.h"
#include "platform/type_library.h"
#include "qvclient/qvsettingsdialog/com/registrar.h"
#include "qvclient/qvsettingsdialog/com/settings_module.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

namespace {

constexpr WORD kTypeLibraryMajor = 1;
constexpr WORD kTypeLibraryMinor = 0;
constexpr LCID kTypeLibraryLocale = 1033;

template <class Operation>
HRESULT Enter(const Operation& operation) noexcept {
    try {
        const SettingsModuleEntry entry;
        return operation();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

// Nothing when the platform does not know; the thread's last error says why.
std::optional<std::wstring> ModulePath(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::nullopt;
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

HRESULT ApplyModuleScript(qv::RegistryAction action) {
    const HMODULE module = GetComponentModuleState().resources;
    const std::string script = LoadTextResource(module, L"REGISTRY", IDR_REGISTRY);
    if (script.empty()) return HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND);
    const std::optional<std::wstring> path = ModulePath(module);
    if (!path && action == qv::RegistryAction::Register) {
        // A class without a file would hide one that works.
        const DWORD error = GetLastError();
        return error != ERROR_SUCCESS ? HRESULT_FROM_WIN32(error) : E_FAIL;
    }
    // Taking the class out needs no path.
    return qv::ApplyRegistryScript(qv::FromUtf8(script), {{L"MODULE", path.value_or(std::wstring())}}, action);
}

}  // namespace

HRESULT GetSettingsClassObject(REFCLSID classId, REFIID iid, void** factory) noexcept {
    const SettingsModuleEntry entry;
    return qv::GetClassObject(SettingsComModule(), SettingsObjectMap(), classId, iid, factory);
}

HRESULT CanUnloadSettingsModule() noexcept {
    // While one of the module's calls runs on this thread (a modal dialog), its state is the framework's current one.
    const bool inUse = &GetModuleState() == &GetComponentModuleState();
    return !inUse && SettingsComModule().LockCount() == 0 ? S_OK : S_FALSE;
}

HRESULT RegisterSettingsServer() noexcept {
    return Enter([] {
        const HRESULT result = ApplyModuleScript(qv::RegistryAction::Register);
        return FAILED(result) ? result : qv::RegisterModuleTypeLibrary(GetComponentModuleState().resources);
    });
}

HRESULT UnregisterSettingsServer() noexcept {
    return Enter([] {
        const HRESULT result = ApplyModuleScript(qv::RegistryAction::Unregister);
        return FAILED(result) ? result
                              : qv::UnregisterModuleTypeLibrary(LIBID_QVSETTINGSDIALOGLib, kTypeLibraryMajor,
                                                                kTypeLibraryMinor, kTypeLibraryLocale);
    });
}
