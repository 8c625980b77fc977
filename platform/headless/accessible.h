// Accessibility, as far as a window's standard object goes: its children, name, place and what lies under a point. What
// a window without drawing cannot tell (value, selection, actions) is answered as not supported, as the platform's own
// objects do.
#pragma once

#include "platform/headless/ole_automation.h"
#include "platform/headless/user.h"

inline constexpr LONG OBJID_WINDOW = 0;
inline constexpr LONG OBJID_CLIENT = -4;
inline constexpr LONG CHILDID_SELF = 0;

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

// The object for OBJID_WINDOW or OBJID_CLIENT of a live window, queried for riid. Children are counted from 1, in the
// order of the window tree.
HRESULT CreateStdAccessibleObject(HWND window, LONG object, REFIID riid, void** result);
