// Which module some code or data belongs to, and a module's procedures with their types. For whoever needs the handle
// of the module that they are part of (resources, registration) or calls a library by name; both builds.
#pragma once

#include "platform/platform.h"

namespace qv {

// The module that the address lies in; null when it is in none. The module's use count stays as it is.
[[nodiscard]] inline HMODULE ModuleFromAddress(const void* address) noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &module);
    return module;
}

// Null when the module exports no such name. Function is a pointer type; that it is the right one is the caller's word.
template <typename Function>
[[nodiscard]] Function ProcedureOf(HMODULE module, const char* name) noexcept {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

}  // namespace qv
