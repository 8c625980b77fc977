// Open files: their handles and who shares what with whom.
#include "platform/headless/base/open_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <list>
#include <memory>
#include <mutex>

#include "platform/headless/base/countdown.h"
#include "platform/headless/base/paths.h"
#include "platform/headless/doors/faults.h"

namespace qv::headless {
namespace {

struct OpenFile {
    int descriptor = -1;
    DWORD access = 0;
    DWORD share = 0;
    dev_t device = 0;
    ino_t number = 0;
    std::string path;
    bool deleteOnClose = false;
};

struct OpenFiles {
    std::mutex mutex;
    std::list<OpenFile> files;
};

std::optional<std::size_t> g_diskLimit;
Countdown g_cutFault;
LONG g_cutError = 0;

OpenFiles& Table() {
    static OpenFiles s_files;
    return s_files;
}

std::list<OpenFile>::iterator Find(HANDLE handle) {
    auto& files = Table().files;
    return std::find_if(files.begin(), files.end(), [&](const OpenFile& file) { return &file == handle; });
}

// What an access needs the others to have granted.
DWORD NeededShare(DWORD access) {
    return ((access & GENERIC_READ) != 0 ? FILE_SHARE_READ : 0) |
           ((access & GENERIC_WRITE) != 0 ? FILE_SHARE_WRITE : 0);
}

bool Conflicts(const OpenFile& first, const OpenFile& second) {
    return (NeededShare(first.access) & ~second.share) != 0 || (NeededShare(second.access) & ~first.share) != 0;
}

template <typename Result>
Result Fail(LONG code, Result result) {
    SetLastError(static_cast<DWORD>(code));
    return result;
}

}  // namespace

void LimitDisk(std::optional<std::size_t> bytes) noexcept {
    g_diskLimit = bytes;
}

void FailSetEndOfFile(unsigned n, LONG code) noexcept {
    g_cutError = code;
    g_cutFault.Arm(n);
}

int OpenAtOnce(const std::string& path, int flags, unsigned mode) noexcept {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
    if (descriptor >= 0) ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

bool MayDelete(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return true;
    const std::lock_guard lock(Table().mutex);
    bool openHere = false;
    for (const OpenFile& file : Table().files) {
        if (file.device != status.st_dev || file.number != status.st_ino) continue;
        openHere = true;
        if ((file.share & FILE_SHARE_DELETE) == 0) return false;
    }
    if (openHere || !S_ISREG(status.st_mode)) return true;
    // Other processes hold a lock for as long as they have the file open.
    const int descriptor = OpenAtOnce(path, O_RDONLY);
    if (descriptor < 0) return true;
    const bool free = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    ::close(descriptor);
    return free;
}

}  // namespace qv::headless

using qv::headless::Fail;
using qv::headless::FailWithErrno;
using qv::headless::Find;
using qv::headless::g_cutError;
using qv::headless::g_cutFault;
using qv::headless::g_diskLimit;
using qv::headless::OpenFile;
using qv::headless::Table;

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD flags,
                   HANDLE) {
    const auto native = qv::headless::NativePath(path);
    if (!native) return INVALID_HANDLE_VALUE;
    const bool writes = (access & GENERIC_WRITE) != 0;
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING || (disposition == TRUNCATE_EXISTING && !writes)) {
        return Fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    }
    struct stat status {};
    const bool existed = ::stat(native->c_str(), &status) == 0;
    if (existed) {
        if (disposition == CREATE_NEW) return Fail(ERROR_FILE_EXISTS, INVALID_HANDLE_VALUE);
        if (S_ISDIR(status.st_mode) && (flags & FILE_FLAG_BACKUP_SEMANTICS) == 0) {
            return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
        }
        // A read-only file is one for everybody, also for a user whom the machine lets do everything.
        if (S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) == 0 && (writes || disposition == CREATE_ALWAYS)) {
            return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
        }
    }
    const bool creates = disposition == CREATE_NEW || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    const int mode = writes ? ((access & GENERIC_READ) != 0 ? O_RDWR : O_WRONLY) : O_RDONLY;
    const std::lock_guard lock(Table().mutex);
    OpenFile file{-1, access, share, 0, 0, *native, (flags & FILE_FLAG_DELETE_ON_CLOSE) != 0};
    const auto conflicts = [&] {
        return std::any_of(Table().files.begin(), Table().files.end(), [&](const OpenFile& other) {
            return other.device == file.device && other.number == file.number && qv::headless::Conflicts(file, other);
        });
    };
    // Never truncated on opening: others may not share it.
    const int making = (creates ? O_CREAT : 0) | (disposition == CREATE_NEW ? O_EXCL : 0);
    file.descriptor = qv::headless::OpenAtOnce(*native, mode | making, 0666);
    if (file.descriptor < 0 && errno == EEXIST) return Fail(ERROR_FILE_EXISTS, INVALID_HANDLE_VALUE);
    if (file.descriptor < 0 || ::fstat(file.descriptor, &status) != 0) {
        FailWithErrno(*native);
        return INVALID_HANDLE_VALUE;
    }
    file.device = status.st_dev;
    file.number = status.st_ino;
    const int lockKind = share == 0 ? LOCK_EX : LOCK_SH;
    if (conflicts() ||
        (S_ISREG(status.st_mode) && ::flock(file.descriptor, lockKind | LOCK_NB) != 0 && errno == EWOULDBLOCK)) {
        ::close(file.descriptor);
        return Fail(ERROR_SHARING_VIOLATION, INVALID_HANDLE_VALUE);
    }
    // Another process has deleted it between the opening and the lock.
    if (::fstat(file.descriptor, &status) == 0 && status.st_nlink == 0) {
        ::close(file.descriptor);
        return Fail(ERROR_SHARING_VIOLATION, INVALID_HANDLE_VALUE);
    }
    if (existed && (disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING) && S_ISREG(status.st_mode) &&
        ::truncate(native->c_str(), 0) != 0) {
        FailWithErrno(*native);
        ::close(file.descriptor);
        return INVALID_HANDLE_VALUE;
    }
    const bool told = existed && (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS);
    SetLastError(told ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    Table().files.push_back(std::move(file));
    return &Table().files.back();
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD size, DWORD* read, OVERLAPPED*) {
    if (read != nullptr) *read = 0;
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if ((file->access & GENERIC_READ) == 0) return Fail(ERROR_ACCESS_DENIED, FALSE);
    DWORD total = 0;
    while (total < size) {
        const auto count = ::read(file->descriptor, static_cast<std::byte*>(buffer) + total, size - total);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return FailWithErrno(file->path);
        if (count == 0) break;
        total += static_cast<DWORD>(count);
    }
    if (read != nullptr) *read = total;
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD size, DWORD* written, OVERLAPPED*) {
    if (written != nullptr) *written = 0;
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if ((file->access & GENERIC_WRITE) == 0) return Fail(ERROR_ACCESS_DENIED, FALSE);
    DWORD total = 0;
    while (total < size) {
        const std::size_t fits = std::min<std::size_t>(size - total, g_diskLimit.value_or(size));
        if (fits == 0) return Fail(ERROR_DISK_FULL, FALSE);
        const auto count = ::write(file->descriptor, static_cast<const std::byte*>(buffer) + total, fits);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return FailWithErrno(file->path);
        total += static_cast<DWORD>(count);
        if (g_diskLimit) *g_diskLimit -= static_cast<std::size_t>(count);
        if (written != nullptr) *written = total;
    }
    return TRUE;
}

BOOL FlushFileBuffers(HANDLE handle) {
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if ((file->access & GENERIC_WRITE) == 0) return Fail(ERROR_ACCESS_DENIED, FALSE);
    // Devices that keep nothing have nothing to flush.
    return ::fsync(file->descriptor) == 0 || errno == EINVAL ? TRUE : FailWithErrno(file->path);
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    struct stat status {};
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if (size == nullptr) return Fail(ERROR_INVALID_PARAMETER, FALSE);
    if (::fstat(file->descriptor, &status) != 0) return FailWithErrno(file->path);
    size->QuadPart = status.st_size;
    return TRUE;
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD method) {
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    const int whence = method == FILE_BEGIN ? SEEK_SET : method == FILE_CURRENT ? SEEK_CUR : SEEK_END;
    const auto moved = ::lseek(file->descriptor, distance.QuadPart, whence);
    if (moved < 0) return FailWithErrno(file->path);
    if (position != nullptr) position->QuadPart = moved;
    return TRUE;
}

BOOL SetEndOfFile(HANDLE handle) {
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if ((file->access & GENERIC_WRITE) == 0) return Fail(ERROR_ACCESS_DENIED, FALSE);
    if (g_cutFault.Strikes()) return Fail(g_cutError, FALSE);
    const auto at = ::lseek(file->descriptor, 0, SEEK_CUR);
    return at >= 0 && ::ftruncate(file->descriptor, at) == 0 ? TRUE : FailWithErrno(file->path);
}

BOOL CloseHandle(HANDLE handle) {
    const std::lock_guard lock(Table().mutex);
    const auto file = Find(handle);
    if (file == Table().files.end()) return Fail(ERROR_INVALID_HANDLE, FALSE);
    // In this order: whoever opens it in between must not get a file that is deleted then.
    if (file->deleteOnClose) ::unlink(file->path.c_str());
    ::close(file->descriptor);
    Table().files.erase(file);
    return TRUE;
}
