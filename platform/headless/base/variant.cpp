#include <optional>
#include <string_view>

#include "platform/headless/base/ole_automation.h"

namespace {

// Types that a variant may hold here. Arrays, decimals, currency and records are known and not kept.
bool IsKept(VARTYPE type) {
    const VARTYPE base = type & VT_TYPEMASK;
    if ((type & ~(VT_TYPEMASK | VT_BYREF)) != 0) return false;
    // A variant in a variant is always one by reference.
    if (base == VT_VARIANT) return (type & VT_BYREF) != 0;
    if (base <= VT_NULL) return (type & VT_BYREF) == 0;
    return base <= VT_UINT && base != VT_CY && base != VT_DECIMAL && base != 15;
}

}  // namespace

void VariantInit(VARIANTARG* variant) {
    variant->vt = VT_EMPTY;
}

HRESULT VariantClear(VARIANTARG* variant) {
    if (variant == nullptr) return E_INVALIDARG;
    if (!IsKept(variant->vt)) return DISP_E_BADVARTYPE;
    // What is held by reference belongs to somebody else.
    if (variant->vt == VT_BSTR) {
        SysFreeString(variant->bstrVal);
    } else if ((variant->vt == VT_UNKNOWN || variant->vt == VT_DISPATCH) && variant->punkVal != nullptr) {
        variant->punkVal->Release();
    }
    variant->vt = VT_EMPTY;
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* destination, VARIANTARG* source) {
    if (destination == nullptr || source == nullptr) return E_INVALIDARG;
    if (destination == source) return S_OK;
    if (!IsKept(source->vt)) return DISP_E_BADVARTYPE;
    if (const HRESULT cleared = VariantClear(destination); FAILED(cleared)) return cleared;
    VARIANT copy = *source;
    if (copy.vt == VT_BSTR) {
        copy.bstrVal =
            SysAllocStringByteLen(reinterpret_cast<LPCSTR>(source->bstrVal), SysStringByteLen(source->bstrVal));
        if (copy.bstrVal == nullptr) return E_OUTOFMEMORY;
    } else if ((copy.vt == VT_UNKNOWN || copy.vt == VT_DISPATCH) && copy.punkVal != nullptr) {
        copy.punkVal->AddRef();
    }
    *destination = copy;
    return S_OK;
}

HRESULT VariantCopyInd(VARIANTARG* destination, VARIANTARG* source) {
    if (destination == nullptr || source == nullptr) return E_INVALIDARG;
    if ((source->vt & VT_BYREF) == 0) return VariantCopy(destination, source);
    if (!IsKept(source->vt)) return DISP_E_BADVARTYPE;
    if (source->byref == nullptr) return E_INVALIDARG;
    VARIANT value;
    value.vt = source->vt & VT_TYPEMASK;
    value.llVal = 0;
    switch (value.vt) {
        case VT_VARIANT:
            // One step only: a reference inside would lead on without end.
            if (source->pvarVal->vt == (VT_VARIANT | VT_BYREF)) return E_INVALIDARG;
            return VariantCopyInd(destination, source->pvarVal);
        case VT_I1:
        case VT_UI1:
            value.bVal = *source->pbVal;
            break;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            value.iVal = *source->piVal;
            break;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_ERROR:
        case VT_R4:
            value.lVal = *source->plVal;
            break;
        default:
            value.llVal = *source->pllVal;
            break;
    }
    if (destination != source) return VariantCopy(destination, &value);
    VARIANT copy;
    VariantInit(&copy);
    const HRESULT result = VariantCopy(&copy, &value);
    if (SUCCEEDED(result)) *destination = copy;
    return result;
}
