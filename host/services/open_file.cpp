#include "host/services/open_file.h"

#include <algorithm>

namespace qv {

namespace {
constexpr std::size_t kPiece = 1 << 20;
}  // namespace

void OpenFile::Close() {
    if (IsOpen()) ::CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE));
}

bool OpenFile::Read(std::string& bytes) const {
    std::string result;
    for (;;) {
        const std::size_t size = result.size();
        result.resize(size + kPiece);
        DWORD read = 0;
        if (::ReadFile(m_handle, result.data() + size, static_cast<DWORD>(kPiece), &read, nullptr) == FALSE) {
            return false;
        }
        result.resize(size + read);
        if (read == 0) break;
    }
    bytes = std::move(result);
    return true;
}

bool OpenFile::Write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD written = 0;
        if (::WriteFile(m_handle, bytes.data(), size, &written, nullptr) == FALSE || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool OpenFile::MoveTo(std::uint64_t position) const {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(position);
    return ::SetFilePointerEx(m_handle, distance, nullptr, FILE_BEGIN) != FALSE;
}

}  // namespace qv
