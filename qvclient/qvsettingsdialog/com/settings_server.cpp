#include "qvclient/qvsettingsdialog/com/settings_server.h"

#include <array>
#include <optional>
#include <string>

#include "base/module_path.h"
#include "base/text.h"
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

HRESULT ApplyModuleScript(qv::RegistryAction action) {
    const HMODULE module = GetComponentModuleState().resources;
    const std::string script = LoadTextResource(module, L"REGISTRY", IDR_REGISTRY);
    if (script.empty()) return HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND);
    const std::optional<std::wstring> path = qv::ModulePath(module);
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
