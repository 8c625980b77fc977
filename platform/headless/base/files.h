// Files and folders of the machine under the platform's names and error codes. Backslash and slash both separate,
// doubled separators count as one, and a drive letter is not known. Letter case is the file system's own. Sharing modes
// are kept among the handles of this process exactly, and against other processes through advisory locks.
#pragma once

#include "platform/headless/base/error.h"
#include "platform/headless/base/types.h"

inline constexpr DWORD MAX_PATH = 260;
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x0001;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x0010;
inline constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x0020;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x0080;
inline constexpr DWORD FILE_FLAG_DELETE_ON_CLOSE = 0x04000000;
inline constexpr DWORD FILE_FLAG_BACKUP_SEMANTICS = 0x02000000;

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD FILE_SHARE_READ = 0x1;
inline constexpr DWORD FILE_SHARE_WRITE = 0x2;
inline constexpr DWORD FILE_SHARE_DELETE = 0x4;
inline constexpr DWORD CREATE_NEW = 1;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD TRUNCATE_EXISTING = 5;
inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;
inline constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x1;
inline constexpr DWORD MOVEFILE_COPY_ALLOWED = 0x2;
inline constexpr DWORD MOVEFILE_WRITE_THROUGH = 0x8;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
struct OVERLAPPED;
union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
};

// The last part may hold * and ?; "*.*" finds names without a dot too. "." and ".." are found where they exist.
HANDLE FindFirstFileW(LPCWSTR pattern, WIN32_FIND_DATAW* data);
BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* data);
BOOL FindClose(HANDLE search);

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                   DWORD flags, HANDLE templateFile);
BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, OVERLAPPED* overlapped);
BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, DWORD* written, OVERLAPPED* overlapped);
BOOL FlushFileBuffers(HANDLE file);
BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD method);
BOOL SetEndOfFile(HANDLE file);
BOOL CloseHandle(HANDLE object);

DWORD GetFileAttributesW(LPCWSTR path);
// Only the read-only attribute has an effect.
BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes);
BOOL CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES* security);
BOOL RemoveDirectoryW(LPCWSTR path);
BOOL DeleteFileW(LPCWSTR path);
// Replacing is atomic.
BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);

// Lengths come back without the terminator; a buffer that is too small answers the needed size with it.
DWORD GetTempPathW(DWORD size, LPWSTR buffer);
UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR path);
DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer);
BOOL SetCurrentDirectoryW(LPCWSTR path);
DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart);
