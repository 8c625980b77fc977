#include <cstdlib>

#include "platform/headless/base/com.h"

LPVOID CoTaskMemAlloc(SIZE_T bytes) {
    // A block of no bytes is a block all the same.
    return std::malloc(bytes == 0 ? 1 : bytes);
}

void CoTaskMemFree(LPVOID memory) {
    std::free(memory);
}
