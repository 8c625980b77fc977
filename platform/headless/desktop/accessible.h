// Accessibility, as far as the standard objects go: of a window and of its client area, answered from the window tree.
// They know children (counted, found by position, not handed out by number), name, role, state, place, value and
// shortcut; navigation and actions are answered as not supported.
#pragma once

#include "platform/headless/base/ole_automation.h"
#include "platform/headless/desktop/user.h"

inline constexpr LONG OBJID_WINDOW = 0;
inline constexpr LONG OBJID_CLIENT = -4;
inline constexpr LONG CHILDID_SELF = 0;

inline constexpr LONG ROLE_SYSTEM_WINDOW = 0x9;
inline constexpr LONG ROLE_SYSTEM_CLIENT = 0xA;
inline constexpr LONG ROLE_SYSTEM_TEXT = 0x2A;
inline constexpr LONG STATE_SYSTEM_UNAVAILABLE = 0x1;
inline constexpr LONG STATE_SYSTEM_FOCUSED = 0x4;
inline constexpr LONG STATE_SYSTEM_INVISIBLE = 0x8000;
inline constexpr LONG STATE_SYSTEM_FOCUSABLE = 0x100000;
inline constexpr LONG STATE_SYSTEM_PROTECTED = 0x20000000;

struct IAccessible : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** dispatch) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) = 0;
    virtual HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) = 0;
    virtual HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) = 0;
    virtual HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) = 0;
    virtual HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) = 0;
    virtual HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) = 0;
};

DEFINE_GUID(IID_IAccessible, 0x618736E0, 0x3C3D, 0x11CF, 0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71);

// The way from an object to its window; the standard objects have it too.
struct IOleWindow : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) = 0;
    virtual HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) = 0;
};
DEFINE_GUID(IID_IOleWindow, 0x00000114, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);

// The object for OBJID_WINDOW or OBJID_CLIENT of a live window, queried for riid. E_FAIL without such a window,
// E_NOTIMPL for other objects.
HRESULT CreateStdAccessibleObject(HWND window, LONG object, REFIID riid, void** result);
// What the window itself answers to WM_GETOBJECT, otherwise the standard object.
HRESULT AccessibleObjectFromWindow(HWND window, DWORD object, REFIID riid, void** result);
HRESULT WindowFromAccessibleObject(IAccessible* object, HWND* window);
// An object as the result of WM_GETOBJECT. The reference that it holds goes to the one call that takes it out.
LRESULT LresultFromObject(REFIID riid, WPARAM wParam, IUnknown* object);
HRESULT ObjectFromLresult(LRESULT result, REFIID riid, WPARAM wParam, void** object);
