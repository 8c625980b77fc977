// Error codes of the platform and the texts that belong to them. Every part of the headless layer reports with these;
// the texts are the platform's English ones, whatever the language in use.
#pragma once

#include <cstdarg>

#include "platform/headless/base/kernel.h"
#include "platform/headless/base/types.h"

inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG ERROR_INVALID_FUNCTION = 1;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_PATH_NOT_FOUND = 3;
inline constexpr LONG ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr LONG ERROR_ACCESS_DENIED = 5;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline constexpr LONG ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr LONG ERROR_INVALID_DATA = 13;
inline constexpr LONG ERROR_OUTOFMEMORY = 14;
inline constexpr LONG ERROR_INVALID_DRIVE = 15;
inline constexpr LONG ERROR_NOT_SAME_DEVICE = 17;
inline constexpr LONG ERROR_NO_MORE_FILES = 18;
inline constexpr LONG ERROR_WRITE_PROTECT = 19;
inline constexpr LONG ERROR_WRITE_FAULT = 29;
inline constexpr LONG ERROR_READ_FAULT = 30;
inline constexpr LONG ERROR_GEN_FAILURE = 31;
inline constexpr LONG ERROR_SHARING_VIOLATION = 32;
inline constexpr LONG ERROR_LOCK_VIOLATION = 33;
inline constexpr LONG ERROR_HANDLE_EOF = 38;
inline constexpr LONG ERROR_HANDLE_DISK_FULL = 39;
inline constexpr LONG ERROR_NOT_SUPPORTED = 50;
inline constexpr LONG ERROR_FILE_EXISTS = 80;
inline constexpr LONG ERROR_INVALID_PARAMETER = 87;
inline constexpr LONG ERROR_BUFFER_OVERFLOW = 111;
inline constexpr LONG ERROR_DISK_FULL = 112;
inline constexpr LONG ERROR_CALL_NOT_IMPLEMENTED = 120;
inline constexpr LONG ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr LONG ERROR_INVALID_NAME = 123;
inline constexpr LONG ERROR_MOD_NOT_FOUND = 126;
inline constexpr LONG ERROR_PROC_NOT_FOUND = 127;
inline constexpr LONG ERROR_DIR_NOT_EMPTY = 145;
inline constexpr LONG ERROR_BAD_PATHNAME = 161;
inline constexpr LONG ERROR_BUSY = 170;
inline constexpr LONG ERROR_ALREADY_EXISTS = 183;
inline constexpr LONG ERROR_BAD_EXE_FORMAT = 193;
inline constexpr LONG ERROR_ENVVAR_NOT_FOUND = 203;
inline constexpr LONG ERROR_FILENAME_EXCED_RANGE = 206;
inline constexpr LONG ERROR_MORE_DATA = 234;
inline constexpr LONG ERROR_NO_MORE_ITEMS = 259;
inline constexpr LONG ERROR_DIRECTORY = 267;
inline constexpr LONG ERROR_PARTIAL_COPY = 299;
inline constexpr LONG ERROR_MR_MID_NOT_FOUND = 317;
inline constexpr LONG ERROR_INVALID_FLAGS = 1004;
inline constexpr LONG ERROR_BADKEY = 1010;
inline constexpr LONG ERROR_CANTOPEN = 1011;
inline constexpr LONG ERROR_KEY_DELETED = 1018;
inline constexpr LONG ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr LONG ERROR_NO_MORE_USER_HANDLES = 1158;
inline constexpr LONG ERROR_CANCELLED = 1223;
inline constexpr LONG ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr LONG ERROR_INVALID_MENU_HANDLE = 1401;
inline constexpr LONG ERROR_INVALID_HOOK_HANDLE = 1404;
inline constexpr LONG ERROR_TLW_WITH_WSCHILD = 1406;
inline constexpr LONG ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr LONG ERROR_CLASS_ALREADY_EXISTS = 1410;
inline constexpr LONG ERROR_INVALID_INDEX = 1413;
inline constexpr LONG ERROR_CONTROL_ID_NOT_FOUND = 1421;
inline constexpr LONG ERROR_INVALID_FILTER_PROC = 1427;
inline constexpr LONG ERROR_NO_SCROLLBARS = 1447;
inline constexpr LONG ERROR_INVALID_SHOWWIN_COMMAND = 1449;
inline constexpr LONG ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
inline constexpr LONG ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr LONG ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

inline constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x0100;
inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x0200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
inline constexpr DWORD FORMAT_MESSAGE_MAX_WIDTH_MASK = 0x00FF;

// System messages only, without inserts: FORMAT_MESSAGE_FROM_SYSTEM is required. A code without a text fails with
// ERROR_MR_MID_NOT_FOUND. Allocated buffers go back through LocalFree.
DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer, DWORD size,
                     va_list* arguments);

inline constexpr UINT LMEM_FIXED = 0x0000;
inline constexpr UINT LMEM_ZEROINIT = 0x0040;
inline constexpr UINT LPTR = LMEM_FIXED | LMEM_ZEROINIT;

// Fixed memory only: the handle is the address.
HLOCAL LocalAlloc(UINT flags, SIZE_T bytes);
HLOCAL LocalFree(HLOCAL memory);
