// How a native module carries resources: a static object in the module registers each of them when the module is loaded
// and takes them back when it goes. Text inside the bytes has 16-bit units, as in a resource file.
#pragma once

#include <cstddef>
#include <span>

#include "platform/headless/base/module.h"

namespace qv::headless {

// type and name are numbers (MAKEINTRESOURCEW) or texts. The bytes are not copied: they live as long as the module. A
// resource registered twice with the same language is the later one.
void RegisterResource(HMODULE module, LPCWSTR type, LPCWSTR name, std::span<const std::byte> bytes,
                      LANGID language = 0);
void UnregisterResources(HMODULE module) noexcept;

}  // namespace qv::headless
