// Automation's strings and variants, with the conversions that the platform documents for them. A string carries its
// length in front of its text, so that it may hold zeros; a null string is an empty one everywhere. Arrays, decimals,
// currency and records are not kept: they answer DISP_E_BADVARTYPE. A date is a number here and becomes no text.
#pragma once

#include "platform/headless/base/com.h"

using OLECHAR = wchar_t;
using LPOLESTR = OLECHAR*;
using BSTR = OLECHAR*;
using VARTYPE = WORD;
using VARIANT_BOOL = SHORT;
using SCODE = LONG;
using DISPID = LONG;
using MEMBERID = DISPID;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

enum {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_DECIMAL = 14,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_HRESULT = 25,
    VT_RECORD = 36,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0xFFF
};

struct IDispatch;
struct ITypeInfo;

struct VARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        BYTE* pbVal;
        SHORT* piVal;
        LONG* plVal;
        LONGLONG* pllVal;
        FLOAT* pfltVal;
        DOUBLE* pdblVal;
        VARIANT_BOOL* pboolVal;
        SCODE* pscode;
        DATE* pdate;
        BSTR* pbstrVal;
        IUnknown** ppunkVal;
        IDispatch** ppdispVal;
        VARIANT* pvarVal;
        void* byref;
        CHAR cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
    };
};
using VARIANTARG = VARIANT;

// Null stands for failure only; the length of SysAllocStringLen counts units without the terminator, and a null text
// there leaves them uninitialised, as the platform does (here: zeros).
BSTR SysAllocString(const OLECHAR* text);
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length);
void SysFreeString(BSTR string);
UINT SysStringLen(BSTR string);
UINT SysStringByteLen(BSTR string);

inline constexpr USHORT VARIANT_ALPHABOOL = 0x02;
inline constexpr USHORT VARIANT_NOUSEROVERRIDE = 0x04;
inline constexpr USHORT VARIANT_LOCALBOOL = 0x10;

void VariantInit(VARIANTARG* variant);
HRESULT VariantClear(VARIANTARG* variant);
// The destination is cleared first; source and destination may be the same.
HRESULT VariantCopy(VARIANTARG* destination, VARIANTARG* source);
HRESULT VariantCopyInd(VARIANTARG* destination, VARIANTARG* source);
HRESULT VariantChangeType(VARIANTARG* destination, VARIANTARG* source, USHORT flags, VARTYPE type);
HRESULT VariantChangeTypeEx(VARIANTARG* destination, VARIANTARG* source, LCID locale, USHORT flags, VARTYPE type);

#define V_VT(variant) ((variant)->vt)
#define V_I4(variant) ((variant)->lVal)

struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};
struct EXCEPINFO;

struct IDispatch : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale,
                                                    DISPID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID riid, LCID locale, WORD flags,
                                             DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                             UINT* badArgument) = 0;
};

DEFINE_GUID(IID_IDispatch, 0x00020400, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
