// Locale settings, comparison and case of texts, conversion between wide text and bytes, and debug output, waiting. A
// few locales are known by their number; the user's is English (United States) until a test sets another
// (platform/headless/faults.h) or SetLocaleInfoW changes one of its separators.
#pragma once

#include "platform/headless/base/error.h"
#include "platform/headless/base/types.h"

using LCTYPE = DWORD;

inline constexpr WORD LANG_NEUTRAL = 0x00;
inline constexpr WORD LANG_GERMAN = 0x07;
inline constexpr WORD SUBLANG_DEFAULT = 0x01;
constexpr LANGID MAKELANGID(WORD primary, WORD sub) {
    return static_cast<LANGID>((sub << 10) | primary);
}
constexpr WORD PRIMARYLANGID(WORD language) {
    return static_cast<WORD>(language & 0x3FF);
}
constexpr LANGID LANGIDFROMLCID(LCID locale) {
    return static_cast<LANGID>(locale & 0xFFFF);
}

inline constexpr LCID LOCALE_NEUTRAL = 0x0000;
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;

inline constexpr LCTYPE LOCALE_SDECIMAL = 0x000E;
inline constexpr LCTYPE LOCALE_STHOUSAND = 0x000F;
inline constexpr LCTYPE LOCALE_SCURRENCY = 0x0014;
inline constexpr LCTYPE LOCALE_NOUSEROVERRIDE = 0x80000000;

LCID GetUserDefaultLCID();
LCID GetSystemDefaultLCID();
// Lengths include the terminator; size 0 asks for it.
int GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR buffer, int size);

inline constexpr DWORD NORM_IGNORECASE = 0x00001;
inline constexpr DWORD LINGUISTIC_IGNORECASE = 0x00010;
inline constexpr DWORD SORT_STRINGSORT = 0x01000;
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;

// Lengths of -1 mean terminated texts.
int CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second, int secondLength);
int lstrcmpiW(LPCWSTR first, LPCWSTR second);

// In place; a value below 65536 instead of a text is one character, answered the same way.
LPWSTR CharLowerW(LPWSTR text);
DWORD CharLowerBuffW(LPWSTR text, DWORD length);
DWORD CharUpperBuffW(LPWSTR text, DWORD length);

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;
inline constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400;

// Lengths of -1 mean terminated texts, whose terminator is converted and counted. CP_ACP is Western European (1252).
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR bytes, int size, LPCSTR replacement,
                        BOOL* replaced);
