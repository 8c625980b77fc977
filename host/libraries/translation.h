// The host's translation service: texts are looked up in the current language's dictionary; a text that is not there
// stays as it is.
#pragma once

#include <map>
#include <string>
#include <string_view>

// The text in the process's current language. Upper and lower case differ.
[[nodiscard]] std::wstring CoTranslateText(std::wstring_view text);

namespace qv {
using Dictionary = std::map<std::wstring, std::wstring, std::less<>>;
// Replaces the process's dictionary; an empty one translates nothing. Returns the one before.
Dictionary SetDictionary(Dictionary dictionary);
}  // namespace qv
