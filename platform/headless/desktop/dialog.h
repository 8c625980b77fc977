// The dialog manager: windows made from binary dialog templates, dialog units, keyboard navigation and the default
// button. Templates have the documented layout with 16-bit text units, whatever the width of wchar_t. Modal loops are
// the caller's own.
#pragma once

#include "platform/headless/desktop/user.h"

using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
};
#pragma pack(pop)

HWND CreateDialogIndirectParamW(HINSTANCE instance, const DLGTEMPLATE* dialogTemplate, HWND parent, DLGPROC procedure,
                                LPARAM param);
LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL IsDialogMessageW(HWND dialog, MSG* message);
// Dialog units of the dialog's font to pixels; fails for a window that is no dialog.
BOOL MapDialogRect(HWND dialog, RECT* rect);
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND control);
UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int room);
LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
UINT IsDlgButtonChecked(HWND dialog, int id);

// A box that nobody can answer here: the answer comes from qv::Desktop, and without one the process ends with a word on
// the standard error stream.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
