// Modules and what they carry. A module is a shared object or the program itself; its handle is the address at which it
// is loaded. Resources are registered by the module's own start-up code (platform/headless/resources.h), and text
// inside them has 16-bit units as in a resource file. Icons are handles without a picture.
#pragma once

#include "platform/headless/base/error.h"
#include "platform/headless/base/types.h"

inline constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_PIN = 0x1;
inline constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT = 0x2;
inline constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS = 0x4;

using FARPROC = INT_PTR (*)();

// Names are compared without case, folder and extension: "platform.dll" finds platform.so.
HMODULE GetModuleHandleW(LPCWSTR name);
BOOL GetModuleHandleExW(DWORD flags, LPCWSTR nameOrAddress, HMODULE* module);
DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
// ".dll" (or no extension) stands for ".so". A plain name is looked for beside the program first.
HMODULE LoadLibraryW(LPCWSTR name);
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
BOOL FreeLibrary(HMODULE module);

#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)

// A null module is the program. Names compare without case; a name "#12" is the number 12.
HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
// Where the wanted language is missing, the first one registered is answered.
HRSRC FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
LPVOID LockResource(HGLOBAL data);
DWORD SizeofResource(HMODULE module, HRSRC resource);
// Length without the terminator, 0 when there is no such text; a text too long for the buffer is cut. The form that
// answers a pointer into the resource (size 0) does not exist here: units in resources are narrower than wchar_t.
