// Between wide text and the bytes of the machine underneath (file names, environment, symbols), which are UTF-8. For
// the headless layer's own use; what cannot be represented is replaced, never refused.
#pragma once

#include <string>
#include <string_view>

namespace qv::headless {

// Surrogate pairs are joined; what is no character becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
// Malformed bytes become U+FFFD, one for each.
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);

// Simple one-to-one case mapping, as the platform's: only pairs that lead back to where they started, in no language.
[[nodiscard]] wchar_t LowerOf(wchar_t unit) noexcept;
[[nodiscard]] wchar_t UpperOf(wchar_t unit) noexcept;
// As names of keys, modules and resources compare: each unit in upper case, by number.
[[nodiscard]] int CompareIgnoringCase(std::wstring_view first, std::wstring_view second) noexcept;

}  // namespace qv::headless
