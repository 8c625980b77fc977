#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/paths.h"
#include "platform/headless/base/shell.h"

namespace {

std::string ReadArguments() {
    std::string bytes;
    const int file = ::open("/proc/self/cmdline", O_RDONLY | O_CLOEXEC);
    if (file < 0) return bytes;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(file, buffer, sizeof(buffer))) > 0;) {
        bytes.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(file);
    return bytes;
}

// So that CommandLineToArgvW reads the argument back as it is: a backslash counts only in front of a quote.
std::wstring Quote(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos) return argument;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
        quoted.push_back(unit);
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

std::wstring BuildCommandLine() {
    const std::string bytes = ReadArguments();
    std::wstring line;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::string argument(bytes.c_str() + at);
        at += argument.size() + 1;
        if (!line.empty()) line += L' ';
        line += Quote(qv::headless::FromUtf8(argument));
    }
    return line;
}

std::vector<std::wstring> Split(std::wstring_view line) {
    std::vector<std::wstring> arguments;
    const auto isBlank = [](wchar_t unit) { return unit == L' ' || unit == L'\t'; };
    // The program's name knows quotes only, no backslashes.
    std::wstring program;
    bool inQuotes = false;
    std::size_t at = 0;
    for (; at < line.size() && (inQuotes || !isBlank(line[at])); ++at) {
        if (line[at] == L'"') {
            inQuotes = !inQuotes;
        } else {
            program.push_back(line[at]);
        }
    }
    arguments.push_back(program);
    while (true) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at >= line.size()) return arguments;
        std::wstring argument;
        inQuotes = false;
        for (; at < line.size() && (inQuotes || !isBlank(line[at])); ++at) {
            std::size_t backslashes = 0;
            while (at < line.size() && line[at] == L'\\') {
                ++backslashes;
                ++at;
            }
            if (at < line.size() && line[at] == L'"') {
                argument.append(backslashes / 2, L'\\');
                if (backslashes % 2 == 1) {
                    argument.push_back(L'"');
                } else if (inQuotes && at + 1 < line.size() && line[at + 1] == L'"') {
                    // Doubled inside quotes, it stands for itself.
                    argument.push_back(L'"');
                    ++at;
                } else {
                    inQuotes = !inQuotes;
                }
            } else {
                argument.append(backslashes, L'\\');
                if (at >= line.size() || (!inQuotes && isBlank(line[at]))) break;
                argument.push_back(line[at]);
            }
        }
        arguments.push_back(argument);
    }
}

}  // namespace

LPWSTR GetCommandLineW() {
    static std::wstring s_line = BuildCommandLine();
    return s_line.data();
}

LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count) {
    if (commandLine == nullptr || count == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::vector<std::wstring> arguments = Split(commandLine);
    if (*commandLine == 0) arguments = Split(GetCommandLineW());
    std::size_t units = 0;
    for (const auto& argument : arguments)
        units += argument.size() + 1;
    const std::size_t pointers = (arguments.size() + 1) * sizeof(LPWSTR);
    auto* block = static_cast<LPWSTR*>(LocalAlloc(LPTR, pointers + units * sizeof(wchar_t)));
    if (block == nullptr) return nullptr;
    auto* text = reinterpret_cast<wchar_t*>(reinterpret_cast<std::byte*>(block) + pointers);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        block[i] = text;
        text = std::copy_n(arguments[i].c_str(), arguments[i].size() + 1, text);
    }
    *count = static_cast<int>(arguments.size());
    return block;
}
