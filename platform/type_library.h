// Registration of the type library that a module carries. Type libraries exist on Windows only; elsewhere there is
// nothing to register and the calls succeed.
#pragma once

#include <array>

#include "platform/platform.h"

namespace qv {

// The library in the module's resources (TYPELIB 1). Failures are the platform's status codes.
[[nodiscard]] inline HRESULT RegisterModuleTypeLibrary([[maybe_unused]] HMODULE module) {
#ifdef _WIN32
    std::array<wchar_t, 4096> path{};
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) return HRESULT_FROM_WIN32(GetLastError());
    if (length >= path.size()) return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
    ITypeLib* library = nullptr;
    const HRESULT result = LoadTypeLibEx(path.data(), REGKIND_REGISTER, &library);
    if (result == S_OK && library != nullptr) library->Release();
    return result;
#else
    return S_OK;
#endif
}

// Taking back what is not there succeeds.
[[nodiscard]] inline HRESULT UnregisterModuleTypeLibrary([[maybe_unused]] const GUID& library,
                                                         [[maybe_unused]] WORD major, [[maybe_unused]] WORD minor,
                                                         [[maybe_unused]] LCID locale) {
#ifdef _WIN32
    BSTR path = nullptr;
    const HRESULT known = QueryPathOfRegTypeLib(library, major, minor, locale, &path);
    if (known == S_OK) SysFreeString(path);
    if (known == TYPE_E_LIBNOTREGISTERED) return S_OK;
    return UnRegisterTypeLib(library, major, minor, locale, SYS_WIN64);
#else
    return S_OK;
#endif
}

}  // namespace qv
