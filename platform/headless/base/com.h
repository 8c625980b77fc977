// The component object model as far as an in-process server and its callers use it: identifiers, result codes, the two
// basic interfaces, task memory, and the creation of objects from classes that stand in the (in-memory) registry. A
// class is found through its InprocServer32 key, loaded as a shared object and asked for its factory. Marshalling,
// apartments and proxies do not exist here: objects are used on the thread that made them, and the threading model is
// not looked at.
#pragma once

#include <cstring>

#include "platform/headless/base/error.h"
#include "platform/headless/base/types.h"

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
using IID = GUID;
using CLSID = GUID;
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

#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    inline constexpr GUID name {                                     \
        l, w1, w2, {                                                 \
            b1, b2, b3, b4, b5, b6, b7, b8                           \
        }                                                            \
    }

#define QV_HEADLESS_RESULT(name, value) inline constexpr HRESULT name = static_cast<HRESULT>(value)
QV_HEADLESS_RESULT(S_OK, 0);
QV_HEADLESS_RESULT(S_FALSE, 1);
QV_HEADLESS_RESULT(E_NOTIMPL, 0x80004001u);
QV_HEADLESS_RESULT(E_NOINTERFACE, 0x80004002u);
QV_HEADLESS_RESULT(E_POINTER, 0x80004003u);
QV_HEADLESS_RESULT(E_FAIL, 0x80004005u);
QV_HEADLESS_RESULT(E_ACCESSDENIED, 0x80070005u);
QV_HEADLESS_RESULT(E_OUTOFMEMORY, 0x8007000Eu);
QV_HEADLESS_RESULT(E_INVALIDARG, 0x80070057u);
QV_HEADLESS_RESULT(CO_E_NOTINITIALIZED, 0x800401F0u);
QV_HEADLESS_RESULT(CO_E_ERRORINDLL, 0x800401F9u);
QV_HEADLESS_RESULT(CLASS_E_NOAGGREGATION, 0x80040110u);
QV_HEADLESS_RESULT(CLASS_E_CLASSNOTAVAILABLE, 0x80040111u);
QV_HEADLESS_RESULT(REGDB_E_CLASSNOTREG, 0x80040154u);
QV_HEADLESS_RESULT(DISP_E_MEMBERNOTFOUND, 0x80020003u);
QV_HEADLESS_RESULT(DISP_E_TYPEMISMATCH, 0x80020005u);
QV_HEADLESS_RESULT(DISP_E_BADVARTYPE, 0x80020008u);
QV_HEADLESS_RESULT(DISP_E_EXCEPTION, 0x80020009u);
QV_HEADLESS_RESULT(DISP_E_OVERFLOW, 0x8002000Au);
QV_HEADLESS_RESULT(TYPE_E_LIBNOTREGISTERED, 0x8002801Du);
#undef QV_HEADLESS_RESULT

constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
    return result < 0;
}
// Codes that are a failure already stay as they are, and so does success.
constexpr HRESULT HRESULT_FROM_WIN32(std::uint64_t code) {
    return static_cast<HRESULT>(static_cast<DWORD>(code)) <= 0
               ? static_cast<HRESULT>(static_cast<DWORD>(code))
               : static_cast<HRESULT>((static_cast<DWORD>(code) & 0xFFFF) | 0x80070000u);
}

#define STDAPI extern "C" HRESULT STDAPICALLTYPE

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

struct IClassFactory : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};

DEFINE_GUID(IID_IUnknown, 0x00000000, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
DEFINE_GUID(IID_IClassFactory, 0x00000001, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);

// Counted a thread.
HRESULT CoInitialize(LPVOID reserved);
void CoUninitialize();
HRESULT OleInitialize(LPVOID reserved);
void OleUninitialize();

LPVOID CoTaskMemAlloc(SIZE_T bytes);
void CoTaskMemFree(LPVOID memory);

inline constexpr DWORD CLSCTX_INPROC_SERVER = 0x1;

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID riid, LPVOID* object);
HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID reserved, REFIID riid, LPVOID* object);

// The braces are part of the form; 39 units with the terminator.
int StringFromGUID2(REFGUID guid, LPWSTR buffer, int size);

// What an in-process server exports.
using LPFNGETCLASSOBJECT = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
STDAPI DllGetClassObject(REFCLSID clsid, REFIID riid, LPVOID* object);
STDAPI DllCanUnloadNow();
STDAPI DllRegisterServer();
STDAPI DllUnregisterServer();
