// The component object model as far as an in-process server and its callers use it: identifiers, result codes, the two
// basic interfaces, task memory, and the creation of objects from classes that stand in the (in-memory) registry. A
// class is found through its InprocServer32 key, loaded as a shared object and asked for its factory. Marshalling,
// apartments and proxies do not exist here: objects are used on the thread that made them, and the threading model is
// not looked at.
#pragma once

#include <cstring>

#include "platform/headless/error.h"
#include "platform/headless/types.h"

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using LPGUID = GUID*;
using LPIID = IID*;
using LPCLSID = CLSID*;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool IsEqualGUID(REFGUID first, REFGUID second) {
    return std::memcmp(&first, &second, sizeof(GUID)) == 0;
}
inline bool IsEqualIID(REFIID first, REFIID second) {
    return IsEqualGUID(first, second);
}
inline bool IsEqualCLSID(REFCLSID first, REFCLSID second) {
    return IsEqualGUID(first, second);
}
inline bool operator==(REFGUID first, REFGUID second) {
    return IsEqualGUID(first, second);
}
inline bool operator!=(REFGUID first, REFGUID second) {
    return !IsEqualGUID(first, second);
}

inline constexpr GUID GUID_NULL{};
#define IID_NULL GUID_NULL
#define CLSID_NULL GUID_NULL

#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    inline constexpr GUID name {                                     \
        l, w1, w2, {                                                 \
            b1, b2, b3, b4, b5, b6, b7, b8                           \
        }                                                            \
    }

#define QV_HEADLESS_RESULT(name, value) inline constexpr HRESULT name = static_cast<HRESULT>(value)
QV_HEADLESS_RESULT(S_OK, 0);
QV_HEADLESS_RESULT(S_FALSE, 1);
QV_HEADLESS_RESULT(NOERROR, 0);
QV_HEADLESS_RESULT(E_NOTIMPL, 0x80004001u);
QV_HEADLESS_RESULT(E_NOINTERFACE, 0x80004002u);
QV_HEADLESS_RESULT(E_POINTER, 0x80004003u);
QV_HEADLESS_RESULT(E_ABORT, 0x80004004u);
QV_HEADLESS_RESULT(E_FAIL, 0x80004005u);
QV_HEADLESS_RESULT(E_UNEXPECTED, 0x8000FFFFu);
QV_HEADLESS_RESULT(E_PENDING, 0x8000000Au);
QV_HEADLESS_RESULT(E_BOUNDS, 0x8000000Bu);
QV_HEADLESS_RESULT(E_ACCESSDENIED, 0x80070005u);
QV_HEADLESS_RESULT(E_HANDLE, 0x80070006u);
QV_HEADLESS_RESULT(E_OUTOFMEMORY, 0x8007000Eu);
QV_HEADLESS_RESULT(E_INVALIDARG, 0x80070057u);
QV_HEADLESS_RESULT(RPC_E_CHANGED_MODE, 0x80010106u);
QV_HEADLESS_RESULT(CO_E_NOTINITIALIZED, 0x800401F0u);
QV_HEADLESS_RESULT(CO_E_CLASSSTRING, 0x800401F3u);
QV_HEADLESS_RESULT(CO_E_IIDSTRING, 0x800401F4u);
QV_HEADLESS_RESULT(CO_E_DLLNOTFOUND, 0x800401F8u);
QV_HEADLESS_RESULT(CO_E_ERRORINDLL, 0x800401F9u);
QV_HEADLESS_RESULT(CLASS_E_NOAGGREGATION, 0x80040110u);
QV_HEADLESS_RESULT(CLASS_E_CLASSNOTAVAILABLE, 0x80040111u);
QV_HEADLESS_RESULT(REGDB_E_READREGDB, 0x80040150u);
QV_HEADLESS_RESULT(REGDB_E_WRITEREGDB, 0x80040151u);
QV_HEADLESS_RESULT(REGDB_E_CLASSNOTREG, 0x80040154u);
QV_HEADLESS_RESULT(SELFREG_E_TYPELIB, 0x80040200u);
QV_HEADLESS_RESULT(SELFREG_E_CLASS, 0x80040201u);
QV_HEADLESS_RESULT(DISP_E_UNKNOWNINTERFACE, 0x80020001u);
QV_HEADLESS_RESULT(DISP_E_MEMBERNOTFOUND, 0x80020003u);
QV_HEADLESS_RESULT(DISP_E_PARAMNOTFOUND, 0x80020004u);
QV_HEADLESS_RESULT(DISP_E_TYPEMISMATCH, 0x80020005u);
QV_HEADLESS_RESULT(DISP_E_UNKNOWNNAME, 0x80020006u);
QV_HEADLESS_RESULT(DISP_E_BADVARTYPE, 0x80020008u);
QV_HEADLESS_RESULT(DISP_E_EXCEPTION, 0x80020009u);
QV_HEADLESS_RESULT(DISP_E_OVERFLOW, 0x8002000Au);
QV_HEADLESS_RESULT(DISP_E_BADINDEX, 0x8002000Bu);
QV_HEADLESS_RESULT(DISP_E_BADPARAMCOUNT, 0x8002000Eu);
QV_HEADLESS_RESULT(TYPE_E_CANTLOADLIBRARY, 0x80029C4Au);
QV_HEADLESS_RESULT(TYPE_E_LIBNOTREGISTERED, 0x8002801Du);
#undef QV_HEADLESS_RESULT

constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
    return result < 0;
}
inline constexpr DWORD SEVERITY_SUCCESS = 0;
inline constexpr DWORD SEVERITY_ERROR = 1;
inline constexpr DWORD FACILITY_NULL = 0;
inline constexpr DWORD FACILITY_DISPATCH = 2;
inline constexpr DWORD FACILITY_ITF = 4;
inline constexpr DWORD FACILITY_WIN32 = 7;
constexpr HRESULT MAKE_HRESULT(DWORD severity, DWORD facility, DWORD code) {
    return static_cast<HRESULT>((severity << 31) | (facility << 16) | code);
}
constexpr DWORD HRESULT_CODE(HRESULT result) {
    return static_cast<DWORD>(result) & 0xFFFF;
}
constexpr DWORD HRESULT_FACILITY(HRESULT result) {
    return (static_cast<DWORD>(result) >> 16) & 0x1FFF;
}
// Codes that are a failure already stay as they are, and so does success.
constexpr HRESULT HRESULT_FROM_WIN32(std::uint64_t code) {
    return static_cast<HRESULT>(static_cast<DWORD>(code)) <= 0
               ? static_cast<HRESULT>(static_cast<DWORD>(code))
               : static_cast<HRESULT>((static_cast<DWORD>(code) & 0xFFFF) | 0x80070000u);
}

#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define STDAPI extern "C" HRESULT STDAPICALLTYPE
#define STDAPI_(type) extern "C" type STDAPICALLTYPE
#define PURE = 0
#define THIS_
#define THIS void
#define DECLARE_INTERFACE(name) struct name
#define DECLARE_INTERFACE_(name, base) struct name : public base

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
using LPUNKNOWN = IUnknown*;

struct IClassFactory : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
using LPCLASSFACTORY = IClassFactory*;

DEFINE_GUID(IID_IUnknown, 0x00000000, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
DEFINE_GUID(IID_IClassFactory, 0x00000001, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);

inline constexpr DWORD COINIT_MULTITHREADED = 0x0;
inline constexpr DWORD COINIT_APARTMENTTHREADED = 0x2;
inline constexpr DWORD COINIT_DISABLE_OLE1DDE = 0x4;

// Counted a thread. A second call with another threading model fails with RPC_E_CHANGED_MODE and is not counted.
HRESULT CoInitialize(LPVOID reserved);
HRESULT CoInitializeEx(LPVOID reserved, DWORD model);
void CoUninitialize();
HRESULT OleInitialize(LPVOID reserved);
void OleUninitialize();

LPVOID CoTaskMemAlloc(SIZE_T bytes);
LPVOID CoTaskMemRealloc(LPVOID memory, SIZE_T bytes);
void CoTaskMemFree(LPVOID memory);

inline constexpr DWORD CLSCTX_INPROC_SERVER = 0x1;
inline constexpr DWORD CLSCTX_INPROC_HANDLER = 0x2;
inline constexpr DWORD CLSCTX_LOCAL_SERVER = 0x4;
inline constexpr DWORD CLSCTX_INPROC = CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER;
inline constexpr DWORD CLSCTX_SERVER = 0x15;
inline constexpr DWORD CLSCTX_ALL = 0x17;

inline constexpr DWORD REGCLS_SINGLEUSE = 0;
inline constexpr DWORD REGCLS_MULTIPLEUSE = 1;

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID riid, LPVOID* object);
HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID reserved, REFIID riid, LPVOID* object);
HRESULT CoRegisterClassObject(REFCLSID clsid, IUnknown* factory, DWORD context, DWORD flags, DWORD* cookie);
HRESULT CoRevokeClassObject(DWORD cookie);
// Unloads the servers that say they can be; the platform's grace period for them does not exist here.
void CoFreeUnusedLibraries();

// The braces are part of the form; 39 units with the terminator.
int StringFromGUID2(REFGUID guid, LPWSTR buffer, int size);
HRESULT StringFromCLSID(REFCLSID clsid, LPWSTR* text);
HRESULT StringFromIID(REFIID iid, LPWSTR* text);
// CLSIDFromString also takes the name of a registered class.
HRESULT CLSIDFromString(LPCWSTR text, LPCLSID clsid);
HRESULT IIDFromString(LPCWSTR text, LPIID iid);
HRESULT CLSIDFromProgID(LPCWSTR name, LPCLSID clsid);
HRESULT ProgIDFromCLSID(REFCLSID clsid, LPWSTR* name);

// What an in-process server exports.
using LPFNGETCLASSOBJECT = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
using LPFNCANUNLOADNOW = HRESULT(STDAPICALLTYPE*)();
STDAPI DllGetClassObject(REFCLSID clsid, REFIID riid, LPVOID* object);
STDAPI DllCanUnloadNow();
STDAPI DllRegisterServer();
STDAPI DllUnregisterServer();
