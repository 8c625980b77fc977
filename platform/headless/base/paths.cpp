#include "platform/headless/base/paths.h"

#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/files.h"

namespace qv::headless {
namespace {

constexpr std::size_t kMaxPart = 255;

bool MayStandInName(wchar_t unit, bool wildcards) {
    if (unit < L' ') return false;
    if (unit == L'*' || unit == L'?') return wildcards;
    // These three are wildcards too, of an old kind that finds nothing here.
    if (unit == L'<' || unit == L'>' || unit == L'"') return wildcards;
    return unit != L'|' && unit != L':';
}

}  // namespace

std::optional<std::string> NativePath(LPCWSTR path, bool wildcards) {
    if (path == nullptr || *path == 0) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return std::nullopt;
    }
    std::wstring_view left(path);
    std::wstring native;
    while (!left.empty()) {
        const auto end = std::min(left.find_first_of(L"\\/"), left.size());
        std::wstring part(left.substr(0, end));
        const bool separator = end < left.size();
        left.remove_prefix(separator ? end + 1 : end);
        const bool last = left.empty() && !separator;
        if (!std::all_of(part.begin(), part.end(),
                         [&](wchar_t unit) { return MayStandInName(unit, wildcards && last); })) {
            SetLastError(ERROR_INVALID_NAME);
            return std::nullopt;
        }
        if (part != L"." && part != L".." && !(wildcards && last)) {
            part.erase(part.find_last_not_of(L". ") + 1);
        }
        if (ToUtf8(part).size() > kMaxPart) {
            SetLastError(ERROR_INVALID_NAME);
            return std::nullopt;
        }
        native += part;
        if (separator && !native.ends_with(L'/')) native += L'/';
    }
    if (native.empty()) native = L".";
    return ToUtf8(native);
}

std::string FolderOf(const std::string& path) {
    const auto end = path.find_last_of('/', path.find_last_not_of('/'));
    if (end == std::string::npos) return ".";
    return end == 0 ? "/" : path.substr(0, end);
}

LONG ErrorFromErrno(int error, const std::string& path) {
    switch (error) {
        case 0:
            return ERROR_SUCCESS;
        case ENOENT: {
            struct stat folder {};
            const bool there = ::stat(FolderOf(path).c_str(), &folder) == 0 && S_ISDIR(folder.st_mode);
            return there ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
        }
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EISDIR:
            return ERROR_ACCESS_DENIED;
        case EROFS:
            return ERROR_WRITE_PROTECT;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        case ENOTEMPTY:
            return ERROR_DIR_NOT_EMPTY;
        case ENOSPC:
        case EDQUOT:
            return ERROR_DISK_FULL;
        case EMFILE:
        case ENFILE:
            return ERROR_TOO_MANY_OPEN_FILES;
        case ENAMETOOLONG:
            return ERROR_FILENAME_EXCED_RANGE;
        case EXDEV:
            return ERROR_NOT_SAME_DEVICE;
        case EBADF:
            return ERROR_INVALID_HANDLE;
        case EINVAL:
            return ERROR_INVALID_PARAMETER;
        case EWOULDBLOCK:
        case ETXTBSY:
            return ERROR_SHARING_VIOLATION;
        case ENOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        default:
            return ERROR_GEN_FAILURE;
    }
}

int FailWithErrno(const std::string& path) {
    SetLastError(static_cast<DWORD>(ErrorFromErrno(errno, path)));
    return FALSE;
}

DWORD CopyPath(const std::wstring& path, LPWSTR buffer, DWORD size) {
    if (buffer == nullptr || size <= path.size()) return static_cast<DWORD>(path.size() + 1);
    std::copy_n(path.c_str(), path.size() + 1, buffer);
    return static_cast<DWORD>(path.size());
}

}  // namespace qv::headless

using qv::headless::CopyPath;
using qv::headless::FailWithErrno;
using qv::headless::FromUtf8;
using qv::headless::NativePath;

DWORD GetTempPathW(DWORD size, LPWSTR buffer) {
    const char* folder = ::getenv("TMPDIR");
    std::wstring path = FromUtf8(folder == nullptr || *folder == 0 ? "/tmp" : folder);
    if (!path.ends_with(L'/')) path += L'/';
    return CopyPath(path, buffer, size);
}

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer) {
    char folder[PATH_MAX];
    if (::getcwd(folder, sizeof(folder)) == nullptr) return static_cast<DWORD>(FailWithErrno("."));
    return CopyPath(FromUtf8(folder), buffer, size);
}

BOOL SetCurrentDirectoryW(LPCWSTR path) {
    const auto native = NativePath(path);
    if (!native) return FALSE;
    if (::chdir(native->c_str()) == 0) return TRUE;
    if (errno != ENOTDIR) return FailWithErrno(*native);
    SetLastError(ERROR_DIRECTORY);
    return FALSE;
}

DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart) {
    if (path == nullptr || *path == 0) {
        SetLastError(ERROR_INVALID_NAME);
        return 0;
    }
    std::wstring full(path);
    std::replace(full.begin(), full.end(), L'\\', L'/');
    if (full.front() != L'/') {
        char folder[PATH_MAX];
        if (::getcwd(folder, sizeof(folder)) == nullptr) return static_cast<DWORD>(FailWithErrno("."));
        full = FromUtf8(folder) + L'/' + full;
    }
    // The file itself is not looked at: dots are resolved in the text.
    std::vector<std::wstring> parts;
    std::wstring_view left(full);
    while (!left.empty()) {
        const auto end = std::min(left.find(L'/'), left.size());
        const std::wstring part(left.substr(0, end));
        left.remove_prefix(std::min(end + 1, left.size()));
        if (part == L"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != L".") {
            parts.push_back(part);
        }
    }
    std::wstring result;
    for (const auto& part : parts)
        result += L'/' + part;
    if (result.empty() || full.back() == L'/') result += L'/';
    const DWORD length = CopyPath(result, buffer, size);
    if (filePart != nullptr) {
        const auto last = result.find_last_of(L'/') + 1;
        *filePart = length < size && last < result.size() ? buffer + last : nullptr;
    }
    return length;
}
