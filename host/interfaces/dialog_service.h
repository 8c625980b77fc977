// The host's dialog service: the dialogs behind the settings dialog's buttons. An object of class
// CLSID_HostDialogService is created through ITPFHost::CreateObject and asked for HostDialogService.
#pragma once

#include "platform/platform.h"

// Statuses are negative on failure. In-out texts belong to the caller; a callee that replaces one frees the old one
// first.
struct HostDialogService : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Reserved1() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved2() = 0;
    virtual HRESULT STDMETHODCALLTYPE EditText(BSTR argument, BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE ChooseText(BSTR argument, BSTR* value, LONG number) = 0;
    virtual HRESULT STDMETHODCALLTYPE ViewText(BSTR argument, BSTR* value) = 0;
    // frame: the settings frame's window handle in 32 bits, or 0.
    virtual HRESULT STDMETHODCALLTYPE PlaceBeside(BSTR argument, LONG frame) = 0;
};

extern const IID IID_HostDialogService;
extern const CLSID CLSID_HostDialogService;
