// A registry in memory, empty at the start of the process. Names compare without case and keep the case they were made
// with. HKEY_CLASSES_ROOT is a view of HKEY_LOCAL_MACHINE\Software\Classes with HKEY_CURRENT_USER's laid over it.
// Faults and the comparison of whole states, for tests, are in platform/headless/faults.h.
#pragma once

#include "platform/headless/base/error.h"
#include "platform/headless/base/files.h"
#include "platform/headless/base/types.h"

using REGSAM = DWORD;
using LSTATUS = LONG;
using PHKEY = HKEY*;

#define QV_HEADLESS_ROOT_KEY(value) (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(value)))
#define HKEY_CLASSES_ROOT QV_HEADLESS_ROOT_KEY(0xFFFFFFFF80000000u)
#define HKEY_CURRENT_USER QV_HEADLESS_ROOT_KEY(0xFFFFFFFF80000001u)
#define HKEY_LOCAL_MACHINE QV_HEADLESS_ROOT_KEY(0xFFFFFFFF80000002u)
#define HKEY_USERS QV_HEADLESS_ROOT_KEY(0xFFFFFFFF80000003u)

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_EXPAND_SZ = 2;
inline constexpr DWORD REG_DWORD = 4;
inline constexpr DWORD REG_MULTI_SZ = 7;
inline constexpr DWORD REG_QWORD = 11;

inline constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
inline constexpr REGSAM KEY_SET_VALUE = 0x0002;
inline constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;
inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                        SECURITY_ATTRIBUTES* security, PHKEY result, DWORD* disposition);
LSTATUS RegCreateKeyW(HKEY key, LPCWSTR subKey, PHKEY result);
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
LSTATUS RegCloseKey(HKEY key);
// Sizes are in bytes; those of a text include its terminator.
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);
// Only a key without sub-keys.
LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey);
LSTATUS RegDeleteKeyExW(HKEY key, LPCWSTR subKey, REGSAM access, DWORD reserved);
// A null sub-key empties the key itself and leaves it standing.
LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey);
// Names' sizes are in units: the buffer's with the terminator going in, the name's without it coming out.
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved, LPWSTR keyClass,
                      DWORD* classSize, FILETIME* written);
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved, DWORD* type, BYTE* data,
                      DWORD* dataSize);
LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, DWORD* classSize, DWORD* reserved, DWORD* subKeys,
                         DWORD* maxSubKeyLength, DWORD* maxClassLength, DWORD* values, DWORD* maxValueNameLength,
                         DWORD* maxValueLength, DWORD* security, FILETIME* written);
// A null replacement ends the redirection.
LSTATUS RegOverridePredefKey(HKEY root, HKEY replacement);
