// Locale settings, comparison and case of texts, conversion between wide text and bytes, and debug output, waiting. A
// few locales are known by their number; the user's is English (United States) until a test sets another
// (platform/headless/faults.h) or SetLocaleInfoW changes one of its separators.
#pragma once

#include "platform/headless/error.h"
#include "platform/headless/types.h"

using LCTYPE = DWORD;

inline constexpr WORD LANG_NEUTRAL = 0x00;
inline constexpr WORD LANG_GERMAN = 0x07;
inline constexpr WORD LANG_ENGLISH = 0x09;
inline constexpr WORD LANG_FRENCH = 0x0C;
inline constexpr WORD SUBLANG_NEUTRAL = 0x00;
inline constexpr WORD SUBLANG_DEFAULT = 0x01;
inline constexpr WORD SUBLANG_GERMAN = 0x01;
inline constexpr WORD SUBLANG_ENGLISH_US = 0x01;
inline constexpr WORD SORT_DEFAULT = 0;
constexpr LANGID MAKELANGID(WORD primary, WORD sub) {
    return static_cast<LANGID>((sub << 10) | primary);
}
constexpr WORD PRIMARYLANGID(WORD language) {
    return static_cast<WORD>(language & 0x3FF);
}
constexpr WORD SUBLANGID(WORD language) {
    return static_cast<WORD>(language >> 10);
}
constexpr LCID MAKELCID(WORD language, WORD sort) {
    return static_cast<LCID>((static_cast<DWORD>(sort) << 16) | language);
}
constexpr LANGID LANGIDFROMLCID(LCID locale) {
    return static_cast<LANGID>(locale & 0xFFFF);
}

inline constexpr LCID LOCALE_NEUTRAL = 0x0000;
inline constexpr LCID LOCALE_INVARIANT = 0x007F;
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;

inline constexpr LCTYPE LOCALE_SLIST = 0x000C;
inline constexpr LCTYPE LOCALE_SDECIMAL = 0x000E;
inline constexpr LCTYPE LOCALE_STHOUSAND = 0x000F;
inline constexpr LCTYPE LOCALE_SCURRENCY = 0x0014;
inline constexpr LCTYPE LOCALE_SNEGATIVESIGN = 0x0051;
inline constexpr LCTYPE LOCALE_SPOSITIVESIGN = 0x0050;
inline constexpr LCTYPE LOCALE_SISO639LANGNAME = 0x0059;
inline constexpr LCTYPE LOCALE_SISO3166CTRYNAME = 0x005A;
inline constexpr LCTYPE LOCALE_NOUSEROVERRIDE = 0x80000000;

LCID GetUserDefaultLCID();
LCID GetSystemDefaultLCID();
LCID GetThreadLocale();
LANGID GetUserDefaultLangID();
LANGID GetUserDefaultUILanguage();
// Lengths include the terminator; size 0 asks for it.
int GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR buffer, int size);
// The separators of the user's locale only.
BOOL SetLocaleInfoW(LCID locale, LCTYPE type, LPCWSTR text);

inline constexpr DWORD NORM_IGNORECASE = 0x00001;
inline constexpr DWORD LINGUISTIC_IGNORECASE = 0x00010;
inline constexpr DWORD SORT_STRINGSORT = 0x01000;
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;
inline constexpr DWORD LCMAP_LOWERCASE = 0x00000100;
inline constexpr DWORD LCMAP_UPPERCASE = 0x00000200;

// Lengths of -1 mean terminated texts.
int CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second, int secondLength);
int CompareStringOrdinal(LPCWSTR first, int firstLength, LPCWSTR second, int secondLength, BOOL ignoreCase);
int lstrcmpW(LPCWSTR first, LPCWSTR second);
int lstrcmpiW(LPCWSTR first, LPCWSTR second);
int lstrlenW(LPCWSTR text);
LPWSTR lstrcpynW(LPWSTR destination, LPCWSTR source, int size);
int LCMapStringW(LCID locale, DWORD flags, LPCWSTR source, int sourceLength, LPWSTR destination, int size);

// In place; a value below 65536 instead of a text is one character, answered the same way.
LPWSTR CharLowerW(LPWSTR text);
LPWSTR CharUpperW(LPWSTR text);
DWORD CharLowerBuffW(LPWSTR text, DWORD length);
DWORD CharUpperBuffW(LPWSTR text, DWORD length);
BOOL IsCharAlphaW(WCHAR unit);
BOOL IsCharAlphaNumericW(WCHAR unit);

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD MB_PRECOMPOSED = 0x1;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 0x8;
inline constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;
inline constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400;

// Lengths of -1 mean terminated texts, whose terminator is converted and counted. CP_ACP is Western European (1252).
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int length, LPWSTR text, int size);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR bytes, int size, LPCSTR replacement,
                        BOOL* replaced);
UINT GetACP();

ULONGLONG GetTickCount64();
// To the standard error stream, when the environment variable QV_DEBUG_OUTPUT is set.
void OutputDebugStringW(LPCWSTR text);
void Sleep(DWORD milliseconds);
