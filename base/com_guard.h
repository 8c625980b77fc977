// The border that nothing thrown may cross: what a COM method or an exported function runs inside.
#pragma once

#include <new>

#include "platform/platform.h"

namespace qv {

// Runs the operation. Memory that ran out becomes its status code, anything else thrown E_FAIL.
template <class Operation>
HRESULT Guarded(const Operation& operation) noexcept {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace qv
