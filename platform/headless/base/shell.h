// The shell and the common pickers. Nothing is started or shown: what would have been opened is recorded, and folder,
// file and colour pickers are answered by a hook that a test sets (platform/headless/shell_hooks.h); without one they
// are cancelled. Also the process's command line and environment.
#pragma once

#include "platform/headless/base/error.h"
#include "platform/headless/base/types.h"

// Answers a value above 32, as for a started program, unless the hook gives an error code.
HINSTANCE ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show);

using BFFCALLBACK = int(CALLBACK*)(HWND window, UINT message, LPARAM parameter, LPARAM data);
struct ITEMIDLIST;
using PIDLIST_ABSOLUTE = ITEMIDLIST*;
using PCIDLIST_ABSOLUTE = const ITEMIDLIST*;
struct BROWSEINFOW {
    HWND hwndOwner;
    PCIDLIST_ABSOLUTE pidlRoot;
    LPWSTR pszDisplayName;
    LPCWSTR lpszTitle;
    UINT ulFlags;
    BFFCALLBACK lpfn;
    LPARAM lParam;
    int iImage;
};
inline constexpr UINT BIF_RETURNONLYFSDIRS = 0x0001;
inline constexpr UINT BIF_NEWDIALOGSTYLE = 0x0040;
inline constexpr UINT BFFM_INITIALIZED = 1;
inline constexpr UINT BFFM_SETSELECTIONW = 0x0400 + 103;
inline constexpr UINT BFFM_SETOKTEXT = 0x0400 + 105;

// The chosen folder is freed with CoTaskMemFree; null when cancelled.
PIDLIST_ABSOLUTE SHBrowseForFolderW(BROWSEINFOW* info);
// The buffer holds MAX_PATH units.
BOOL SHGetPathFromIDListW(PCIDLIST_ABSOLUTE item, LPWSTR path);

using LPOFNHOOKPROC = UINT_PTR(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPWSTR lpstrFile;
    DWORD nMaxFile;
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
inline constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
inline constexpr DWORD OFN_ENABLEHOOK = 0x00000020;
inline constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
inline constexpr DWORD OFN_EXPLORER = 0x00080000;
inline constexpr DWORD OFN_ENABLESIZING = 0x00800000;
inline constexpr UINT CDN_INITDONE = 0U - 601U;
inline constexpr UINT CDM_SETCONTROLTEXT = 0x0400 + 100 + 4;

BOOL GetOpenFileNameW(OPENFILENAMEW* info);
// 0 after a cancelled picker.
DWORD CommDlgExtendedError();

using LPCCHOOKPROC = UINT_PTR(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
struct CHOOSECOLORW {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors;
    DWORD Flags;
    LPARAM lCustData;
    LPCCHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
};
inline constexpr DWORD CC_RGBINIT = 0x00000001;
inline constexpr DWORD CC_FULLOPEN = 0x00000002;
inline constexpr DWORD CC_ANYCOLOR = 0x00000100;

BOOL ChooseColorW(CHOOSECOLORW* info);

LPWSTR GetCommandLineW();
// One block, freed with LocalFree.
LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count);
