#include "platform/headless/base/files.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <string>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/file_times.h"
#include "platform/headless/base/open_files.h"
#include "platform/headless/base/paths.h"

namespace {

using qv::headless::FailWithErrno;
using qv::headless::NativePath;

BOOL Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return FALSE;
}

BOOL CopyFile(const std::string& from, const std::string& to, bool failIfExists) {
    struct stat source {};
    struct stat target {};
    if (::stat(from.c_str(), &source) != 0) return FailWithErrno(from);
    if (S_ISDIR(source.st_mode)) return Fail(ERROR_ACCESS_DENIED);
    const bool exists = ::stat(to.c_str(), &target) == 0;
    if (exists && failIfExists) return Fail(ERROR_FILE_EXISTS);
    if (exists && (S_ISDIR(target.st_mode) || (target.st_mode & S_IWUSR) == 0)) return Fail(ERROR_ACCESS_DENIED);
    const int in = qv::headless::OpenAtOnce(from, O_RDONLY);
    if (in < 0) return FailWithErrno(from);
    const int out = qv::headless::OpenAtOnce(to, O_WRONLY | O_CREAT | O_TRUNC, source.st_mode & 0777);
    if (out < 0) {
        FailWithErrno(to);
        ::close(in);
        return FALSE;
    }
    char buffer[65536];
    ssize_t count = 0;
    bool good = true;
    while (good && (count = ::read(in, buffer, sizeof(buffer))) > 0) {
        for (ssize_t done = 0; good && done < count;) {
            const auto written = ::write(out, buffer + done, static_cast<std::size_t>(count - done));
            good = written > 0;
            done += written;
        }
    }
    good = good && count == 0;
    if (!good) FailWithErrno(to);
    ::close(in);
    ::close(out);
    return good;
}

}  // namespace

DWORD GetFileAttributesW(LPCWSTR path) {
    const auto native = NativePath(path);
    struct stat status {};
    if (!native) return INVALID_FILE_ATTRIBUTES;
    if (::stat(native->c_str(), &status) == 0) return qv::headless::AttributesOf(status);
    FailWithErrno(*native);
    return INVALID_FILE_ATTRIBUTES;
}

BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes) {
    const auto native = NativePath(path);
    struct stat status {};
    if (!native) return FALSE;
    if (::stat(native->c_str(), &status) != 0) return FailWithErrno(*native);
    const mode_t kept = status.st_mode & 07555;
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return ::chmod(native->c_str(), readOnly ? kept : kept | S_IWUSR) == 0 ? TRUE : FailWithErrno(*native);
}

BOOL CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES*) {
    const auto native = NativePath(path);
    if (!native) return FALSE;
    if (::mkdir(native->c_str(), 0777) == 0) return TRUE;
    // Only the folders on the way can be missing.
    return errno == ENOENT ? Fail(ERROR_PATH_NOT_FOUND) : FailWithErrno(*native);
}

BOOL RemoveDirectoryW(LPCWSTR path) {
    const auto native = NativePath(path);
    if (!native) return FALSE;
    if (::rmdir(native->c_str()) == 0) return TRUE;
    return errno == ENOTDIR ? Fail(ERROR_DIRECTORY) : FailWithErrno(*native);
}

BOOL DeleteFileW(LPCWSTR path) {
    const auto native = NativePath(path);
    struct stat status {};
    if (!native) return FALSE;
    if (::lstat(native->c_str(), &status) != 0) return FailWithErrno(*native);
    if (S_ISDIR(status.st_mode)) return Fail(ERROR_ACCESS_DENIED);
    if (S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) == 0) return Fail(ERROR_ACCESS_DENIED);
    if (!qv::headless::MayDelete(*native)) return Fail(ERROR_SHARING_VIOLATION);
    return ::unlink(native->c_str()) == 0 ? TRUE : FailWithErrno(*native);
}

BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags) {
    const auto source = NativePath(from);
    if (!source) return FALSE;
    const auto target = NativePath(to);
    if (!target) return FALSE;
    struct stat status {};
    if (::lstat(source->c_str(), &status) != 0) return FailWithErrno(*source);
    if (!qv::headless::MayDelete(*source)) return Fail(ERROR_SHARING_VIOLATION);
    const bool replaces = (flags & MOVEFILE_REPLACE_EXISTING) != 0;
    if (replaces && ::lstat(target->c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode) || (status.st_mode & S_IWUSR) == 0) return Fail(ERROR_ACCESS_DENIED);
        // Replacing a file that somebody has open is refused as a matter of access.
        if (!qv::headless::MayDelete(*target)) return Fail(ERROR_ACCESS_DENIED);
    }
    const unsigned how = replaces ? 0 : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, source->c_str(), AT_FDCWD, target->c_str(), how) == 0) return TRUE;
    if (errno == EXDEV && (flags & MOVEFILE_COPY_ALLOWED) != 0) {
        return CopyFile(*source, *target, !replaces) && ::unlink(source->c_str()) == 0;
    }
    return errno == ENOENT ? Fail(ERROR_PATH_NOT_FOUND) : FailWithErrno(*target);
}

UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR path) {
    static std::atomic<UINT> s_next{static_cast<UINT>(::getpid())};
    if (folder == nullptr || path == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const DWORD attributes = GetFileAttributesW(folder);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        SetLastError(ERROR_DIRECTORY);
        return 0;
    }
    std::wstring start(folder);
    if (start.back() != L'\\' && start.back() != L'/') start += L'/';
    start += std::wstring(prefix == nullptr ? L"" : prefix).substr(0, 3);
    for (int attempt = 0; attempt < 0x10000; ++attempt) {
        const UINT number = unique != 0 ? unique & 0xFFFF : s_next++ & 0xFFFF;
        if (number == 0) continue;
        std::wstring name = start;
        bool leading = true;
        for (int shift = 12; shift >= 0; shift -= 4) {
            const UINT digit = (number >> shift) & 15;
            leading = leading && digit == 0;
            if (!leading) name.push_back(L"0123456789ABCDEF"[digit]);
        }
        name += L".tmp";
        if (name.size() >= MAX_PATH) {
            SetLastError(ERROR_BUFFER_OVERFLOW);
            return 0;
        }
        if (unique == 0) {
            const HANDLE file = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
            if (file == INVALID_HANDLE_VALUE) {
                if (GetLastError() == static_cast<DWORD>(ERROR_FILE_EXISTS)) continue;
                return 0;
            }
            CloseHandle(file);
        }
        std::copy_n(name.c_str(), name.size() + 1, path);
        return number;
    }
    SetLastError(ERROR_FILE_EXISTS);
    return 0;
}
