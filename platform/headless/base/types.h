// The platform's basic types, with the sizes that it documents: LONG, DWORD and HRESULT have 32 bits, the message
// parameters are as wide as a pointer. wchar_t is the compiler's own, so a text unit is wider here than on Windows.
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT = int;
using UINT = unsigned int;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using BOOL = int;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using FLOAT = float;
using DOUBLE = double;
using DATE = double;
using WCHAR = wchar_t;
using CHAR = char;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPVOID = void*;
using LPCVOID = const void*;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using HRESULT = std::int32_t;
using ATOM = std::uint16_t;
using COLORREF = std::uint32_t;
using LCID = std::uint32_t;
using LANGID = std::uint16_t;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

// Handles are distinct pointer types, so that one kind cannot be passed for another.
#define QV_HEADLESS_HANDLE(name) \
    struct name##__;             \
    using name = name##__*
QV_HEADLESS_HANDLE(HWND);
QV_HEADLESS_HANDLE(HINSTANCE);
QV_HEADLESS_HANDLE(HDC);
QV_HEADLESS_HANDLE(HFONT);
QV_HEADLESS_HANDLE(HICON);
QV_HEADLESS_HANDLE(HBRUSH);
QV_HEADLESS_HANDLE(HMENU);
QV_HEADLESS_HANDLE(HKEY);
QV_HEADLESS_HANDLE(HRSRC);
QV_HEADLESS_HANDLE(HMONITOR);
QV_HEADLESS_HANDLE(HDWP);
QV_HEADLESS_HANDLE(HHOOK);
QV_HEADLESS_HANDLE(HRGN);
#undef QV_HEADLESS_HANDLE
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using HANDLE = void*;
using HGDIOBJ = void*;
using HGLOBAL = void*;
using HLOCAL = void*;

#define CALLBACK
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE

struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
// Left and top lie inside, right and bottom outside.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPCRECT = const RECT*;

constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}
constexpr LONG MAKELONG(std::uintptr_t low, std::uintptr_t high) {
    return static_cast<LONG>((low & 0xFFFF) | ((high & 0xFFFF) << 16));
}
constexpr WPARAM MAKEWPARAM(std::uintptr_t low, std::uintptr_t high) {
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr LPARAM MAKELPARAM(std::uintptr_t low, std::uintptr_t high) {
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr int GET_X_LPARAM(LPARAM value) {
    return static_cast<SHORT>(LOWORD(static_cast<std::uintptr_t>(value)));
}
constexpr int GET_Y_LPARAM(LPARAM value) {
    return static_cast<SHORT>(HIWORD(static_cast<std::uintptr_t>(value)));
}

inline LPWSTR MAKEINTRESOURCEW(UINT_PTR id) {
    return reinterpret_cast<LPWSTR>(id & 0xFFFF);
}
inline bool IS_INTRESOURCE(LPCWSTR name) {
    return reinterpret_cast<UINT_PTR>(name) >> 16 == 0;
}
