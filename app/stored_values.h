// What lies in the data folder's files, to tell a person what a dialog changed. Looks only; the session data manager
// writes.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/services/scope_data.h"

namespace qv {

// "scope key/name" to text, over all four files; a file that cannot be read counts as empty.
using StoredValues = std::map<std::wstring, std::wstring>;
[[nodiscard]] StoredValues ReadStoredValues(const std::wstring& folder);

// One line for each value that became another one. A value that was not stored before counts only when it differs from
// the item's default in the definitions under optionKey, since storing the default changes nothing that a person sees.
[[nodiscard]] std::vector<std::wstring> DescribeChanges(const StoredValues& before, const StoredValues& after,
                                                        const ScopeData& definitions, const std::wstring& optionKey);

}  // namespace qv
