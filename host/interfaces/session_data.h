// The host's session-data manager as this component calls it: definitions and values by key and value name, in data
// scopes. Slots between the used ones belong to the host; a caller never calls them.
#pragma once

#include "platform/platform.h"

// Data scopes; 32 bits wide.
enum SESSIONDATATYPE : int {
    SDT_allData = 0,
    SDT_globalData = 1,
    SDT_userDataDB = 2,
    SDT_machineData = 3,
    SDT_userData = 4,
    SDT_volatileData = 5,
    SDT_UserSpec1 = 1000,
    SDT_UserSpec2 = 1001,
    SDT_UserSpec3 = 1002,
};

// Every operation answers S_OK for success and anything else for failure. Blocks of strings that are handed out, and
// the strings in them, are allocated by the callee (the block by CoTaskMemAlloc, strings as BSTR) and freed by the
// caller.
struct ISessionDataManager : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Reserved1() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved2() = 0;
    // Names of sub-keys, as paths whose first segment is the first one of key. flag 0: direct children; 1: definitions
    // at any depth, only keys that hold values.
    virtual HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                                  SESSIONDATATYPE scope) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved4() = 0;
    // Makes a written value permanent.
    virtual HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR valueName) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved6() = 0;
    // The value as a variant of the wanted type (8: text). The caller clears it.
    virtual HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR valueName, USHORT wantedType, VARIANT* value,
                                               SESSIONDATATYPE scope) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved8() = 0;
    virtual HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR valueName, VARIANT value, SESSIONDATATYPE scope) = 0;
    // count pairs as 2 * count strings: name, text, name, text ...
    virtual HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts,
                                                 SESSIONDATATYPE scope) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved11() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved12() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved13() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved14() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reserved15() = 0;
    // Makes the scope's data available; what a host keeps in files or a database is read here.
    virtual HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) = 0;
};

extern const IID IID_ISessionDataManager;
// The service that ITPFHost hands out; asked for ISessionDataManager.
extern const GUID SID_SessionData;
