// Drawing, as far as a caller can tell without looking at the screen: device contexts with their selected objects,
// fonts with fixed metrics, extents of text, update regions, icons. Nothing is painted.
#pragma once

#include "platform/headless/user.h"

#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define BITSPIXEL 12
#define HORZRES 8
#define VERTRES 10
#define TECHNOLOGY 2
#define COLOR_SCROLLBAR 0
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_BTNSHADOW 16
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_3DSHADOW COLOR_BTNSHADOW
#define COLOR_3DHIGHLIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DLIGHT 22
#define COLOR_3DDKSHADOW 21
#define COLOR_MENU 4
#define COLOR_INFOTEXT 23
#define COLOR_INFOBK 24
#define COLOR_APPWORKSPACE 12
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define FW_DONTCARE 0
#define FW_NORMAL 400
#define FW_BOLD 700
#define DEFAULT_CHARSET 1
#define ANSI_CHARSET 0
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define DEFAULT_PITCH 0
#define FF_DONTCARE (0 << 4)
#define FF_SWISS (2 << 4)
#define VARIABLE_PITCH 2
#define LF_FACESIZE 32
#define TMPF_FIXED_PITCH 0x01
#define TMPF_TRUETYPE 0x04
#define TRANSPARENT 1
#define OPAQUE 2
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_NULL 5
#define R2_COPYPEN 13
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define DT_TOP 0x00000000
#define DT_LEFT 0x00000000
#define DT_CENTER 0x00000001
#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004
#define DT_BOTTOM 0x00000008
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXPANDTABS 0x00000040
#define DT_NOCLIP 0x00000100
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT 0x00000400
#define DT_NOPREFIX 0x00000800
#define DT_EDITCONTROL 0x00002000
#define DT_END_ELLIPSIS 0x00008000
#define DT_PATH_ELLIPSIS 0x00004000
#define DT_HIDEPREFIX 0x00100000
#define DFC_CAPTION 1
#define DFC_MENU 2
#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTONRADIO 0x0004
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define DFCS_HOT 0x1000
#define DFCS_FLAT 0x4000
#define DFCS_ADJUSTRECT 0x2000
#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP (BDR_RAISEDOUTER | BDR_SUNKENINNER)
#define BF_LEFT 0x0001
#define BF_TOP 0x0002
#define BF_RIGHT 0x0004
#define BF_BOTTOM 0x0008
#define BF_RECT (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_ADJUST 0x2000
#define IMAGE_BITMAP 0
#define IMAGE_ICON 1
#define IMAGE_CURSOR 2
#define LR_DEFAULTCOLOR 0x0000
#define LR_LOADFROMFILE 0x0010
#define LR_DEFAULTSIZE 0x0040
#define LR_SHARED 0x8000
#define DI_MASK 0x0001
#define DI_IMAGE 0x0002
#define DI_NORMAL 0x0003
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_ERROR MAKEINTRESOURCEW(32513)
#define IDI_QUESTION MAKEINTRESOURCEW(32514)
#define IDI_WARNING MAKEINTRESOURCEW(32515)
#define IDI_INFORMATION MAKEINTRESOURCEW(32516)
#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_IBEAM MAKEINTRESOURCEW(32513)
#define IDC_WAIT MAKEINTRESOURCEW(32514)
#define IDC_HAND MAKEINTRESOURCEW(32649)
#define CLR_INVALID 0xFFFFFFFF
#define CLR_DEFAULT 0xFF000000

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
struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
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
HDC GetWindowDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
HDC CreateCompatibleDC(HDC dc);
BOOL DeleteDC(HDC dc);
int SaveDC(HDC dc);
BOOL RestoreDC(HDC dc, int saved);
HWND WindowFromDC(HDC dc);
int GetDeviceCaps(HDC dc, int index);

// Objects. A stock object is never deleted; a system colour's brush is nobody's to delete either.
HFONT CreateFontIndirectW(const LOGFONTW* font);
HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitch,
                  LPCWSTR face);
HBRUSH CreateSolidBrush(COLORREF colour);
HPEN CreatePen(int style, int width, COLORREF colour);
HGDIOBJ GetStockObject(int which);
int GetObjectW(HANDLE object, int size, LPVOID data);
DWORD GetObjectType(HGDIOBJ object);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
HGDIOBJ GetCurrentObject(HDC dc, UINT type);
BOOL DeleteObject(HGDIOBJ object);
COLORREF GetSysColor(int index);
HBRUSH GetSysColorBrush(int index);

// Text. Extents follow a fixed table of widths (text_metrics.h).
BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics);
BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, SIZE* size);
int DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format);
BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length, const INT* spacing);
int SetBkMode(HDC dc, int mode);
int GetBkMode(HDC dc);
COLORREF SetTextColor(HDC dc, COLORREF colour);
COLORREF GetTextColor(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF colour);
COLORREF GetBkColor(HDC dc);
UINT SetTextAlign(HDC dc, UINT align);

// Drawing calls: they check their arguments and report success.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);
int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL InvertRect(HDC dc, const RECT* rect);
BOOL DrawFrameControl(HDC dc, RECT* rect, UINT type, UINT state);
BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags);
BOOL DrawFocusRect(HDC dc, const RECT* rect);
BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
BOOL MoveToEx(HDC dc, int x, int y, POINT* previous);
BOOL LineTo(HDC dc, int x, int y);
BOOL Polygon(HDC dc, const POINT* points, int count);
COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);
// Nothing is drawn here, so there is no colour to tell: CLR_INVALID, as for a point that is covered.
COLORREF GetPixel(HDC dc, int x, int y);
BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before);
BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);

// Icons, found among the module's resources: an icon group picks the image nearest to the wanted size.
HICON LoadIconW(HINSTANCE instance, LPCWSTR name);
HANDLE LoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height, UINT flags);
HICON CopyIcon(HICON icon);
BOOL DestroyIcon(HICON icon);
BOOL DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH brush, UINT flags);
BOOL DrawIcon(HDC dc, int x, int y, HICON icon);
