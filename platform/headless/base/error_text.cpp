#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/headless/base/error.h"

namespace {

struct ErrorText {
    LONG code;
    const wchar_t* text;
};

// Without the line end that every one of them is given.
constexpr ErrorText kTexts[] = {
    {ERROR_SUCCESS, L"The operation completed successfully."},
    {ERROR_INVALID_FUNCTION, L"Incorrect function."},
    {ERROR_FILE_NOT_FOUND, L"The system cannot find the file specified."},
    {ERROR_PATH_NOT_FOUND, L"The system cannot find the path specified."},
    {ERROR_TOO_MANY_OPEN_FILES, L"The system cannot open the file."},
    {ERROR_ACCESS_DENIED, L"Access is denied."},
    {ERROR_INVALID_HANDLE, L"The handle is invalid."},
    {ERROR_NOT_ENOUGH_MEMORY, L"Not enough memory resources are available to process this command."},
    {ERROR_INVALID_DATA, L"The data is invalid."},
    {ERROR_OUTOFMEMORY, L"Not enough memory resources are available to complete this operation."},
    {ERROR_INVALID_DRIVE, L"The system cannot find the drive specified."},
    {ERROR_NOT_SAME_DEVICE, L"The system cannot move the file to a different disk drive."},
    {ERROR_NO_MORE_FILES, L"There are no more files."},
    {ERROR_WRITE_PROTECT, L"The media is write protected."},
    {ERROR_WRITE_FAULT, L"The system cannot write to the specified device."},
    {ERROR_READ_FAULT, L"The system cannot read from the specified device."},
    {ERROR_GEN_FAILURE, L"A device attached to the system is not functioning."},
    {ERROR_SHARING_VIOLATION, L"The process cannot access the file because it is being used by another process."},
    {ERROR_LOCK_VIOLATION,
     L"The process cannot access the file because another process has locked a portion of the file."},
    {ERROR_HANDLE_EOF, L"Reached the end of the file."},
    {ERROR_HANDLE_DISK_FULL, L"The disk is full."},
    {ERROR_NOT_SUPPORTED, L"The request is not supported."},
    {ERROR_FILE_EXISTS, L"The file exists."},
    {ERROR_INVALID_PARAMETER, L"The parameter is incorrect."},
    {ERROR_DISK_FULL, L"There is not enough space on the disk."},
    {ERROR_CALL_NOT_IMPLEMENTED, L"This function is not supported on this system."},
    {ERROR_INSUFFICIENT_BUFFER, L"The data area passed to a system call is too small."},
    {ERROR_INVALID_NAME, L"The filename, directory name, or volume label syntax is incorrect."},
    {ERROR_MOD_NOT_FOUND, L"The specified module could not be found."},
    {ERROR_PROC_NOT_FOUND, L"The specified procedure could not be found."},
    {ERROR_DIR_NOT_EMPTY, L"The directory is not empty."},
    {ERROR_BAD_PATHNAME, L"The specified path is invalid."},
    {ERROR_BUSY, L"The requested resource is in use."},
    {ERROR_ALREADY_EXISTS, L"Cannot create a file when that file already exists."},
    {ERROR_ENVVAR_NOT_FOUND, L"The system could not find the environment option that was entered."},
    {ERROR_FILENAME_EXCED_RANGE, L"The filename or extension is too long."},
    {ERROR_MORE_DATA, L"More data is available."},
    {ERROR_NO_MORE_ITEMS, L"No more data is available."},
    {ERROR_DIRECTORY, L"The directory name is invalid."},
    {ERROR_BADKEY, L"The configuration registry key is invalid."},
    {ERROR_CANTOPEN, L"The configuration registry key could not be opened."},
    {ERROR_KEY_DELETED, L"Illegal operation attempted on a registry key that has been marked for deletion."},
    {ERROR_CANCELLED, L"The operation was canceled by the user."},
    {ERROR_INVALID_WINDOW_HANDLE, L"Invalid window handle."},
    {ERROR_CANNOT_FIND_WND_CLASS, L"Cannot find window class."},
    {ERROR_RESOURCE_DATA_NOT_FOUND, L"The specified image file did not contain a resource section."},
    {ERROR_RESOURCE_TYPE_NOT_FOUND, L"The specified resource type cannot be found in the image file."},
    {ERROR_RESOURCE_NAME_NOT_FOUND, L"The specified resource name cannot be found in the image file."},
    {static_cast<LONG>(0x80004001), L"Not implemented"},
    {static_cast<LONG>(0x80004002), L"No such interface supported"},
    {static_cast<LONG>(0x80004003), L"Invalid pointer"},
    {static_cast<LONG>(0x80004005), L"Unspecified error"},
    {static_cast<LONG>(0x8000FFFF), L"Catastrophic failure"},
    {static_cast<LONG>(0x80020005), L"Type mismatch."},
    {static_cast<LONG>(0x8002000A), L"Out of present range."},
    {static_cast<LONG>(0x80040154), L"Class not registered"},
    {static_cast<LONG>(0x80040110), L"Class does not support aggregation (or class object is remote)"},
};

const wchar_t* TextOf(DWORD messageId) {
    // A wrapped code has the text of the code inside.
    const DWORD code = (messageId & 0xFFFF0000) == 0x80070000 ? messageId & 0xFFFF : messageId;
    const auto* found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                     [&](const ErrorText& entry) { return static_cast<DWORD>(entry.code) == code; });
    return found == std::end(kTexts) ? nullptr : found->text;
}

DWORD Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return 0;
}

}  // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID, DWORD messageId, DWORD, LPWSTR buffer, DWORD size, va_list*) {
    if (buffer == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    const bool allocate = (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0;
    if (allocate) *reinterpret_cast<LPWSTR*>(buffer) = nullptr;
    if ((flags & FORMAT_MESSAGE_FROM_SYSTEM) == 0) return Fail(ERROR_INVALID_PARAMETER);
    const wchar_t* known = TextOf(messageId);
    if (known == nullptr) return Fail(ERROR_MR_MID_NOT_FOUND);
    // A width mask of 255 asks for no line ends; they become a space each.
    const bool oneLine = (flags & FORMAT_MESSAGE_MAX_WIDTH_MASK) == FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const std::wstring text = std::wstring(known) + (oneLine ? L" " : L"\r\n");
    const auto length = static_cast<DWORD>(text.size());
    if (allocate) {
        const DWORD units = std::max(size, length + 1);
        auto* memory = static_cast<LPWSTR>(LocalAlloc(LPTR, units * sizeof(wchar_t)));
        if (memory == nullptr) return Fail(ERROR_NOT_ENOUGH_MEMORY);
        std::copy_n(text.c_str(), length + 1, memory);
        *reinterpret_cast<LPWSTR*>(buffer) = memory;
        return length;
    }
    if (size < length + 1) return Fail(ERROR_INSUFFICIENT_BUFFER);
    std::copy_n(text.c_str(), length + 1, buffer);
    return length;
}

HLOCAL LocalAlloc(UINT flags, SIZE_T bytes) {
    const SIZE_T size = std::max<SIZE_T>(bytes, 1);
    return (flags & LMEM_ZEROINIT) != 0 ? std::calloc(1, size) : std::malloc(size);
}

HLOCAL LocalFree(HLOCAL memory) {
    std::free(memory);
    return nullptr;
}
