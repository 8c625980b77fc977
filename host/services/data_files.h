// The reference host's read-only data files: definitions, users, units and translations, each a JSON document. A loader
// returns an empty text when all went well; otherwise one message that names the file, the place and what is wrong,
// and its result is left alone. A file that does not exist is a problem too.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/libraries/translation.h"
#include "host/libraries/units.h"
#include "host/services/multi_user_manager.h"
#include "host/services/scope_data.h"

namespace qv {

// { OPTION_KEY: { "pages": { NUMBER: TITLE }, KEY: { NAME: { ATTRIBUTE: TEXT } } } } becomes keys OPTION_KEY/pages and
// OPTION_KEY/KEY/NAME with their values.
[[nodiscard]] std::wstring LoadDefinitions(const std::wstring& path, ScopeData& definitions);
// { "users": { NAME: { "rights": [ RIGHT ] } } }
[[nodiscard]] std::wstring LoadUsers(const std::wstring& path, MultiUserManager::UserRights& users);
// { LANGUAGE: { TEXT: TRANSLATION } }. A language that the file does not have gives an empty dictionary.
[[nodiscard]] std::wstring LoadTranslations(const std::wstring& path, std::wstring_view language,
                                            Dictionary& dictionary);
// { "categories": { NAME: [ UNIT ] }, "names": { LANGUAGE: { UNIT: TEXT } } }; null in a list keeps an empty place. A
// language without names gives no dictionary (null).
[[nodiscard]] std::wstring LoadUnits(const std::wstring& path, std::wstring_view language,
                                     std::unique_ptr<XUAAdmin>& database, std::unique_ptr<XLMTranslDict>& names);

}  // namespace qv
