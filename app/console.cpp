#include "app/console.h"

#include <cstdio>

#include "base/text.h"

namespace qv {

namespace {
void Write(std::FILE* stream, std::wstring_view text) {
    const std::string bytes = ToUtf8(text) + "\n";
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
}
}  // namespace

void PrintLine(std::wstring_view text) {
    Write(stdout, text);
}
void PrintError(std::wstring_view text) {
    Write(stderr, L"qvhost: " + std::wstring(text));
}

}  // namespace qv
