#include "host/services/whole_file.h"

#include "host/services/open_file.h"

namespace qv {

namespace {

bool Exists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool WriteFlushed(const std::wstring& path, std::string_view bytes) {
    const OpenFile file(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file.IsOpen() && file.Write(bytes) && file.Flush();
}

}  // namespace

ReadResult ReadWholeFile(const std::wstring& path, std::string& bytes) {
    const OpenFile file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (!file.IsOpen()) {
        const DWORD error = ::GetLastError();
        const bool isMissing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return isMissing ? ReadResult::Missing : ReadResult::Failed;
    }
    return file.Read(bytes) ? ReadResult::Done : ReadResult::Failed;
}

void MakeFolderOf(const std::wstring& path) {
    const auto separator = path.find_last_of(L"\\/");
    if (separator == std::wstring::npos || separator == 0) return;
    const std::wstring folder = path.substr(0, separator);
    if (!Exists(folder)) ::CreateDirectoryW(folder.c_str(), nullptr);
}

bool ReplaceWholeFile(const std::wstring& path, std::string_view bytes) {
    MakeFolderOf(path);
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
