// The module's resources as bytes, in the documented layouts of a resource file: dialog templates, the icon, the string
// table and the registry script. The DLL carries the same bytes through the resource compiler; where there is none they
// are built here, from the same sources, and registered for the module. The version record, the manifest and the type
// library exist in the DLL only.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

struct ModuleResource {
    WORD type;              // 0 when typeName says it
    std::wstring typeName;  // in capitals, as the platform compares it
    WORD id;
    WORD language;
    std::vector<BYTE> bytes;
};

// Everything listed above. Bytes of templates and tables have 16-bit text units whatever the width of wchar_t.
[[nodiscard]] std::vector<ModuleResource> BuildSettingsResources();

// Makes the resources known to the platform for this module until they are taken back: the module's start and end.
// Nothing happens where the module carries them itself.
void RegisterSettingsResources(HMODULE module);
void UnregisterSettingsResources(HMODULE module) noexcept;

// The text of a resource of 8-bit text in the module (the registry script); empty when it is not there.
[[nodiscard]] std::string LoadTextResource(HMODULE module, const wchar_t* type, WORD id);

namespace qv {
// Files that are resources as they stand, embedded by the build.
[[nodiscard]] std::span<const unsigned char> IconFile();
[[nodiscard]] std::span<const unsigned char> RegistryScriptFile();
}  // namespace qv
