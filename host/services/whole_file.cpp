#include "host/services/whole_file.h"

#include <algorithm>

#include "platform/platform.h"

namespace qv {

namespace {

// A file handle that is closed with the object.
class File {
public:
    explicit File(HANDLE handle) : m_handle(handle) {}
    ~File() {
        if (IsOpen()) ::CloseHandle(m_handle);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    [[nodiscard]] bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle;
};

constexpr std::size_t kPiece = 1 << 20;

bool Exists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool WriteFlushed(const std::wstring& path, std::string_view bytes) {
    const File file(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return false;
    while (!bytes.empty()) {
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD written = 0;
        if (::WriteFile(file.Get(), bytes.data(), size, &written, nullptr) == FALSE || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return ::FlushFileBuffers(file.Get()) != FALSE;
}

}  // namespace

ReadResult ReadWholeFile(const std::wstring& path, std::string& bytes) {
    const File file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) {
        const DWORD error = ::GetLastError();
        const bool isMissing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return isMissing ? ReadResult::Missing : ReadResult::Failed;
    }
    std::string result;
    for (;;) {
        const std::size_t size = result.size();
        result.resize(size + kPiece);
        DWORD read = 0;
        if (::ReadFile(file.Get(), result.data() + size, static_cast<DWORD>(kPiece), &read, nullptr) == FALSE) {
            return ReadResult::Failed;
        }
        result.resize(size + read);
        if (read == 0) break;
    }
    bytes = std::move(result);
    return ReadResult::Done;
}

bool ReplaceWholeFile(const std::wstring& path, std::string_view bytes) {
    if (const auto separator = path.find_last_of(L"\\/"); separator != std::wstring::npos && separator > 0) {
        const std::wstring folder = path.substr(0, separator);
        if (!Exists(folder)) ::CreateDirectoryW(folder.c_str(), nullptr);
    }
    const std::wstring fresh = path + L".new";
    if (WriteFlushed(fresh, bytes) &&
        ::MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE) {
        return true;
    }
    ::DeleteFileW(fresh.c_str());
    return false;
}

std::wstring SetFileAside(const std::wstring& path) {
    constexpr int kMostKept = 1000;
    std::wstring aside = path + L".damaged";
    for (int n = 2; Exists(aside) && n <= kMostKept; ++n)
        aside = path + L".damaged." + std::to_wstring(n);
    return ::MoveFileExW(path.c_str(), aside.c_str(), MOVEFILE_WRITE_THROUGH) != FALSE ? aside : std::wstring();
}

std::wstring FileNameOf(const std::wstring& path) {
    const auto separator = path.find_last_of(L"\\/");
    return separator == std::wstring::npos ? path : path.substr(separator + 1);
}

}  // namespace qv
