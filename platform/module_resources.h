// Resources of a module that carries none itself. On Windows a module's file holds its resources, so nothing is to be
// done there; elsewhere the module's start-up code hands their bytes over.
#pragma once

#include <span>

#include "platform/platform.h"

#ifndef _WIN32
#include "platform/headless/base/resources.h"
#endif

namespace qv {

// type: a number through MAKEINTRESOURCEW, or a name. The bytes are not copied: they live until
// UnregisterModuleResources.
inline void RegisterModuleResource([[maybe_unused]] HMODULE module, [[maybe_unused]] LPCWSTR type,
                                   [[maybe_unused]] WORD id, [[maybe_unused]] WORD language,
                                   [[maybe_unused]] std::span<const BYTE> bytes) {
#ifndef _WIN32
    headless::RegisterResource(module, type, MAKEINTRESOURCEW(id), std::as_bytes(bytes), language);
#endif
}

inline void UnregisterModuleResources([[maybe_unused]] HMODULE module) noexcept {
#ifndef _WIN32
    headless::UnregisterResources(module);
#endif
}

}  // namespace qv
