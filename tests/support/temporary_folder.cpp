#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <stdexcept>

#include "platform/platform.h"

namespace qvtest {

TemporaryFolder::TemporaryFolder() {
    std::wstring root(MAX_PATH + 1, L'\0');
    root.resize(::GetTempPathW(static_cast<DWORD>(root.size()), root.data()));
    // Free names are found by trying: tests run in several processes at once.
    for (int n = 0; n < 100000; ++n) {
        m_path = root + L"qv-test-" + std::to_wstring(n);
        if (::CreateDirectoryW(m_path.c_str(), nullptr) != FALSE) return;
    }
    throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
    for (const std::wstring& name : Files()) {
        ::SetFileAttributesW(At(name).c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(At(name).c_str());
    }
    ::RemoveDirectoryW(m_path.c_str());
}

void TemporaryFolder::Write(const std::wstring& name, std::string_view bytes) const {
    const HANDLE file = ::CreateFileW(At(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    const bool isWritten =
        file != INVALID_HANDLE_VALUE &&
        ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE;
    if (file != INVALID_HANDLE_VALUE) ::CloseHandle(file);
    if (!isWritten) throw std::runtime_error("cannot write a test file");
}

std::string TemporaryFolder::Read(const std::wstring& name) const {
    const HANDLE file =
        ::CreateFileW(At(name).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string bytes(1 << 16, '\0');
    DWORD read = 0;
    ::ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    ::CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

std::vector<std::wstring> TemporaryFolder::Files() const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((m_path + L"/*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
    } while (::FindNextFileW(search, &found) != FALSE);
    ::FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace qvtest
