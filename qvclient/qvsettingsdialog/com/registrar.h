// Applies registry scripts: a small language in which a module says what it enters into the registry, and takes out
// again. The module's registration functions call it with the script from their resources.
//
//     HKCR                              a root key: HKCR, HKCU, HKLM, HKU or the long name
//     {
//         NoRemove CLSID                a key that stays when the script is taken back
//         {
//             ForceRemove {id} = s 'A class'     a key that is removed, then written anew; the text is its default
//             value
//             {
//                 val ThreadingModel = s 'Apartment'       a named value
//                 Delete Old                               a key that registering only removes
//             }
//         }
//     }
//
// Texts stand in quotes ('' is one quote inside them) and are of type s (text), e (text with variables) or d (number).
// %NAME% is replaced from the caller's table, %% is one percent sign.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace qv {

using ScriptReplacements = std::map<std::wstring, std::wstring, std::less<>>;

enum class RegistryAction { Register, Unregister };

// Applies the script. A script that cannot be read changes nothing and answers DISP_E_EXCEPTION; a registry that
// refuses answers its error as a status code, and what was written before stays. Taking back what is not there
// succeeds. A key that is taken back goes only when nothing that the script does not know is left in it, unless it is
// marked ForceRemove.
[[nodiscard]] HRESULT ApplyRegistryScript(std::wstring_view script, const ScriptReplacements& replacements,
                                          RegistryAction action);

}  // namespace qv
