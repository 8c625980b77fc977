// The host's multi-user manager as this component calls it: one question, whether the current user holds a right.
#pragma once

#include "platform/platform.h"

struct IMultiUserManager : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Reserved1() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved2() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved3() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved4() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved5() = 0;
    // S_OK: granted; anything else: refused.
    virtual HRESULT STDMETHODCALLTYPE CheckRight(BSTR rightName) = 0;
};

extern const IID IID_IMultiUserManager;
extern const GUID SID_MultiUser;
