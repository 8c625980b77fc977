// The sample host's command line.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qv {

struct Options {
    std::wstring definitions;  // file; required
    std::wstring data;         // folder of the stored values; required
    std::wstring users;        // file; empty: everybody may change everything
    std::wstring user;         // name in that file
    std::wstring language;     // code in the translations file; empty: the texts as they are
    std::wstring script;       // file of user actions; empty: a person works
    bool open = false;         // open the dialog at once and end with it
    bool help = false;
};

// What the program prints for --help and after a wrong command line.
[[nodiscard]] std::wstring_view UsageText();

// Fills options from the arguments (without the program's name). False with one line that says what is wrong.
[[nodiscard]] bool ParseOptions(std::span<const std::wstring> arguments, Options& options, std::wstring& problem);

}  // namespace qv
