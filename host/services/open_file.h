// A file while it is open. Everything answers false when the platform refuses it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"

namespace qv {

class OpenFile {
public:
    OpenFile() = default;
    // As CreateFileW has it. GetLastError tells why a file is not open.
    OpenFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition,
             DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : m_handle(::CreateFileW(path.c_str(), access, share, nullptr, disposition, flags, nullptr)) {}
    ~OpenFile() { Close(); }
    OpenFile(OpenFile&& other) noexcept : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }

    [[nodiscard]] bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    void Close();

    // From where the file stands to its end. bytes is left alone when that fails.
    [[nodiscard]] bool Read(std::string& bytes) const;
    // Where the file stands. After a failure some of it may have been written.
    [[nodiscard]] bool Write(std::string_view bytes) const;
    [[nodiscard]] bool Flush() const { return ::FlushFileBuffers(m_handle) != FALSE; }
    [[nodiscard]] bool MoveTo(std::uint64_t position) const;
    // Ends the file at the position and stands there.
    [[nodiscard]] bool CutAt(std::uint64_t position) const {
        return MoveTo(position) && ::SetEndOfFile(m_handle) != FALSE;
    }

private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
};

}  // namespace qv
