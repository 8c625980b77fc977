#include "app/files.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "framework/text.h"

namespace qv {

namespace {
std::filesystem::path PathOf(const std::wstring& file) {
    const std::string utf8 = ToUtf8(file);
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}
}  // namespace

std::optional<std::string> ReadFileBytes(const std::wstring& file) {
    std::ifstream stream(PathOf(file), std::ios::binary);
    if (!stream) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

bool WriteFileBytes(const std::wstring& file, const std::string& bytes) {
    std::ofstream stream(PathOf(file), std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    return !stream.fail();
}

}  // namespace qv
