// What the sample host tells the person at the terminal: plain lines, UTF-8.
#pragma once

#include <string_view>

namespace qv {
void PrintLine(std::wstring_view text);   // to standard output, flushed
void PrintError(std::wstring_view text);  // to standard error, with the program's name in front
}  // namespace qv
