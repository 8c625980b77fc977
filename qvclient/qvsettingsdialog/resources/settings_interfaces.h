// The component's own COM interfaces, as the type library describes them: what a caller of the dialog uses and what it
// may hand in. The interface description (qvsettingsdialog.idl) says the same for other languages; a test holds the two
// together.
#pragma once

#include "host/interfaces/session_data.h"
#include "platform/platform.h"

// The caller's own value store. S_OK is success, anything else failure.
struct IQVSettingsDialogDataIO : IUnknown {
    // varType: the variant type wanted, 8 (text) always. pVariantValue: cleared by the caller.
    virtual HRESULT STDMETHODCALLTYPE GetData(BSTR bstrKeyName, BSTR bstrValueName, USHORT varType,
                                              VARIANT* pVariantValue, SESSIONDATATYPE dataType) = 0;
    virtual HRESULT STDMETHODCALLTYPE WriteData(BSTR bstrKeyName, BSTR bstrValueName, VARIANT VariantValue,
                                                SESSIONDATATYPE dataType) = 0;
    virtual HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE dataType, BSTR bstrKeyName, BSTR bstrValueName) = 0;
};

struct IQVSettingsDialogManager : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateModalDialog(BSTR bstrCaption) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateModalDialogEx(BSTR bstrCaption,
                                                          IQVSettingsDialogDataIO* piSettingsDialogDataIO,
                                                          LONG* pRetVal) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_m_CtrlPath(LONG* pVal) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_m_CtrlPath(LONG newValue) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOptionKey(BSTR* pbstrOptionKey) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOptionKey(BSTR bstrOptionKey) = 0;
};

extern const IID IID_IQVSettingsDialogDataIO;
extern const IID IID_IQVSettingsDialogManager;
extern const CLSID CLSID_QVSettingsDialogManager;
extern const GUID LIBID_QVSETTINGSDIALOGLib;
