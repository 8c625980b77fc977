// Windows, messages, focus, keyboard and mouse state, hooks, placement and scroll bars: the part of the platform's user
// interface that this project calls, with the same names and the same meaning. Every window lives in memory and belongs
// to the one user-interface thread; nothing is drawn. Dialogs are in dialog.h, menus in menu.h, drawing in gdi.h.
#pragma once

#include "platform/headless/base/kernel.h"
#include "platform/headless/base/types.h"
#include "platform/headless/desktop/messages.h"
#include "platform/headless/desktop/window_constants.h"

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using WNDENUMPROC = BOOL (*)(HWND, LPARAM);
using HOOKPROC = LRESULT (*)(int, WPARAM, LPARAM);
using TIMERPROC = void (*)(HWND, UINT, UINT_PTR, DWORD);

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};
struct WNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};
struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
struct CBT_CREATEWNDW {
    CREATESTRUCTW* lpcs;
    HWND hwndInsertAfter;
};
struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};
struct NCCALCSIZE_PARAMS {
    RECT rgrc[3];
    WINDOWPOS* lppos;
};
struct WINDOWPLACEMENT {
    UINT length;
    UINT flags;
    UINT showCmd;
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition;
};
struct MINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
struct STYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
};
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
// What WM_HELP points to: which control or menu help is asked for.
struct HELPINFO {
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
};
#define HELPINFO_WINDOW 0x0001

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};
struct DELETEITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
};
struct COMPAREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    HWND hwndItem;
    UINT itemID1;
    ULONG_PTR itemData1;
    UINT itemID2;
    ULONG_PTR itemData2;
    DWORD dwLocaleId;
};
struct SCROLLINFO {
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};
struct MONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
};

// Classes. A name is compared without case; a class is found by name or by the atom that registering it returned.
ATOM RegisterClassExW(const WNDCLASSEXW* windowClass);
ATOM RegisterClassW(const WNDCLASSW* windowClass);
// Characters copied, without the terminator; room counts it.
int GetClassNameW(HWND window, LPWSTR buffer, int room);
ULONG_PTR GetClassLongPtrW(HWND window, int index);

// The tree.
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
BOOL IsChild(HWND parent, HWND window);
HWND GetParent(HWND window);
HWND SetParent(HWND window, HWND parent);
HWND GetAncestor(HWND window, UINT which);
HWND GetWindow(HWND window, UINT relation);
HWND GetDesktopWindow();
HWND FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR text);
BOOL EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM param);
BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM param);
HWND WindowFromPoint(POINT point);

// What a window carries.
LONG_PTR GetWindowLongPtrW(HWND window, int index);
LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG GetWindowLongW(HWND window, int index);
LONG SetWindowLongW(HWND window, int index, LONG value);
BOOL SetWindowTextW(HWND window, LPCWSTR text);
int GetWindowTextW(HWND window, LPWSTR buffer, int room);
int GetWindowTextLengthW(HWND window);

// State.
BOOL ShowWindow(HWND window, int show);
BOOL IsWindowVisible(HWND window);
BOOL IsIconic(HWND window);
BOOL IsZoomed(HWND window);
BOOL EnableWindow(HWND window, BOOL enable);
BOOL IsWindowEnabled(HWND window);

// Rectangles: screen coordinates for window rectangles, the parent's client coordinates for places of children.
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
HDWP BeginDeferWindowPos(int count);
HDWP DeferWindowPos(HDWP info, HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL EndDeferWindowPos(HDWP info);
BOOL GetWindowRect(HWND window, RECT* rect);
BOOL GetClientRect(HWND window, RECT* rect);
BOOL ClientToScreen(HWND window, POINT* point);
BOOL ScreenToClient(HWND window, POINT* point);
int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);
// Rectangles of placements are in workspace coordinates: the origin is the work area's corner, not the screen's.
BOOL GetWindowPlacement(HWND window, WINDOWPLACEMENT* placement);
BOOL SetWindowPlacement(HWND window, const WINDOWPLACEMENT* placement);
int GetSystemMetrics(int index);
BOOL SystemParametersInfoW(UINT action, UINT size, LPVOID data, UINT update);
HMONITOR MonitorFromWindow(HWND window, DWORD flags);
HMONITOR MonitorFromRect(LPCRECT rect, DWORD flags);
BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO* info);
UINT GetDpiForWindow(HWND window);

// Rectangle arithmetic.
BOOL IsRectEmpty(const RECT* rect);
BOOL EqualRect(const RECT* a, const RECT* b);
BOOL InflateRect(RECT* rect, int dx, int dy);
BOOL OffsetRect(RECT* rect, int dx, int dy);
BOOL IntersectRect(RECT* target, const RECT* a, const RECT* b);
BOOL UnionRect(RECT* target, const RECT* a, const RECT* b);
BOOL PtInRect(const RECT* rect, POINT point);
int MulDiv(int number, int numerator, int denominator);

// Focus and activation.
HWND SetFocus(HWND window);
HWND GetFocus();
HWND SetActiveWindow(HWND window);
HWND GetActiveWindow();
BOOL SetForegroundWindow(HWND window);
HWND GetForegroundWindow();
HWND SetCapture(HWND window);
BOOL ReleaseCapture();
HWND GetCapture();

// Keyboard and mouse state.
SHORT GetKeyState(int virtualKey);
BOOL GetKeyboardState(BYTE* state);
BOOL SetKeyboardState(BYTE* state);
UINT MapVirtualKeyW(UINT code, UINT type);
HCURSOR LoadCursorW(HINSTANCE instance, LPCWSTR name);
BOOL MessageBeep(UINT type);
BOOL HideCaret(HWND window);

// Messages.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
// An empty queue ends the process with a word on the standard error stream: nothing could ever wake the caller.
BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageW(const MSG* message);
BOOL CallMsgFilterW(MSG* message, int code);
LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
BOOL KillTimer(HWND window, UINT_PTR id);

// Hooks of the calling thread.
HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE instance, DWORD thread);
BOOL UnhookWindowsHookEx(HHOOK hook);
LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);

// Scroll bars of windows (SB_HORZ, SB_VERT); there is no scroll bar control.
int SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);
BOOL GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
int SetScrollPos(HWND window, int bar, int position, BOOL redraw);
int GetScrollPos(HWND window, int bar);
BOOL ShowScrollBar(HWND window, int bar, BOOL show);
BOOL ScrollWindow(HWND window, int dx, int dy, const RECT* area, const RECT* clip);
int ScrollWindowEx(HWND window, int dx, int dy, const RECT* area, const RECT* clip, HRGN updateRegion, RECT* updateRect,
                   UINT flags);
