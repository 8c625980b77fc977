// The host framework's plug-in interfaces: its own object (ITPFHost), the plug-in object (ITPFObject) and a plug-in
// that answers menu commands (ITPFMenuCommand). The component implements the last two and calls the first.
#pragma once

#include "platform/platform.h"

struct ITPFHost : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Reserved1() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved2() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved3() = 0;
    // Looks a service up or creates an object: the same operation for both. number is 1. The caller owns the reference.
    virtual HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) = 0;
};

struct ITPFObject : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE ConnectServices(DWORD reserved, void* context) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReleaseHost() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHost(ITPFHost* host, IUnknown* companion) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved4(void* argument) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved5(void* argument) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved6(void* argument, DWORD number) = 0;
};

struct ITPFMenuCommand : IUnknown {
    // S_OK when the command was this object's, S_FALSE otherwise.
    virtual HRESULT STDMETHODCALLTYPE ExecuteCommand(LPCWSTR command) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryCommandState(LPCWSTR command, DWORD* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved3(void* first, void* second, void* third) = 0;
};

extern const IID IID_ITPFHost;
extern const IID IID_ITPFObject;
extern const IID IID_ITPFMenuCommand;
