// Drawing, as far as a caller can tell without looking at the screen: device contexts with their selected objects,
// fonts with fixed metrics, extents of text, update regions, icons. Nothing is painted.
#pragma once

#include "platform/headless/desktop/user.h"

#define LOGPIXELSY 90
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_WINDOWTEXT 8
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_GRAYTEXT 17
#define COLOR_3DFACE COLOR_BTNFACE
#define WHITE_BRUSH 0
#define BLACK_BRUSH 4
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEFAULT_PALETTE 15
#define DEFAULT_GUI_FONT 17
#define FW_NORMAL 400
#define FW_BOLD 700
#define DEFAULT_CHARSET 1
#define LF_FACESIZE 32
#define TRANSPARENT 1
#define OPAQUE 2
#define PS_SOLID 0
#define PS_NULL 5
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_FONT 6
#define DT_VCENTER 0x00000004
#define DT_BOTTOM 0x00000008
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT 0x00000400
#define DT_NOPREFIX 0x00000800
#define DT_EDITCONTROL 0x00002000
#define DT_END_ELLIPSIS 0x00008000
#define DFC_CAPTION 1
#define DFC_BUTTON 4
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define IMAGE_ICON 1
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define CLR_INVALID 0xFFFFFFFF

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16);
}
constexpr BYTE GetRValue(COLORREF colour) {
    return static_cast<BYTE>(colour & 0xFF);
}
constexpr BYTE GetGValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 8) & 0xFF);
}
constexpr BYTE GetBValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 16) & 0xFF);
}

struct TEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
struct NONCLIENTMETRICSW {
    UINT cbSize;
    int iBorderWidth;
    int iScrollWidth;
    int iScrollHeight;
    int iCaptionWidth;
    int iCaptionHeight;
    LOGFONTW lfCaptionFont;
    int iSmCaptionWidth;
    int iSmCaptionHeight;
    LOGFONTW lfSmCaptionFont;
    int iMenuWidth;
    int iMenuHeight;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    int iPaddedBorderWidth;
};
struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

// Update regions. A region is kept as its bounding rectangle.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL ValidateRect(HWND window, const RECT* rect);
BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// Device contexts.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
int GetDeviceCaps(HDC dc, int index);

// Objects. A stock object is never deleted; a system colour's brush is nobody's to delete either.
HFONT CreateFontIndirectW(const LOGFONTW* font);
HBRUSH CreateSolidBrush(COLORREF colour);
HGDIOBJ GetStockObject(int which);
DWORD GetObjectType(HGDIOBJ object);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ object);
// Of fonts alone: copies as much of the LOGFONTW as there is room for, and answers with the bytes copied.
int GetObjectW(HANDLE object, int size, LPVOID buffer);
COLORREF GetSysColor(int index);
HBRUSH GetSysColorBrush(int index);

// Text. Extents follow a fixed table of widths (text_metrics.h).
BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics);
BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, SIZE* size);
int DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format);
int SetBkMode(HDC dc, int mode);
COLORREF SetTextColor(HDC dc, COLORREF colour);
COLORREF GetTextColor(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF colour);

// Drawing calls: they check their arguments and report success.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);
int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL DrawFrameControl(HDC dc, RECT* rect, UINT type, UINT state);
BOOL DrawFocusRect(HDC dc, const RECT* rect);
// Nothing is drawn here, so there is no colour to tell: CLR_INVALID, as for a point that is covered.
COLORREF GetPixel(HDC dc, int x, int y);
BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before);

// An icon of the module (its icon group must be registered) or of the system; shared, so nobody destroys it.
HICON LoadIconW(HINSTANCE instance, LPCWSTR name);
