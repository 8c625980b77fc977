// The text that edits copy and paste. One in the process, gone with it; nobody outside sees it.
#pragma once

#include <string>
#include <string_view>

namespace qv::headless {

void SetClipboardText(std::wstring_view text);
[[nodiscard]] std::wstring ClipboardText();

}  // namespace qv::headless
