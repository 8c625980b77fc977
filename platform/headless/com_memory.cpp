#include <atomic>
#include <cstdlib>

#include "platform/headless/com.h"
#include "platform/headless/countdown.h"
#include "platform/headless/faults.h"

namespace {
std::atomic<std::size_t> g_live{0};
qv::headless::Countdown g_fault;
}  // namespace

namespace qv::headless {
std::size_t LiveTaskAllocations() noexcept {
    return g_live.load();
}
void FailTaskAllocation(unsigned n) noexcept {
    g_fault.Arm(n);
}
}  // namespace qv::headless

LPVOID CoTaskMemAlloc(SIZE_T bytes) {
    if (g_fault.Strikes()) return nullptr;
    // A block of no bytes is a block all the same.
    void* memory = std::malloc(bytes == 0 ? 1 : bytes);
    if (memory != nullptr) ++g_live;
    return memory;
}

LPVOID CoTaskMemRealloc(LPVOID memory, SIZE_T bytes) {
    if (memory == nullptr) return CoTaskMemAlloc(bytes);
    if (bytes == 0) {
        CoTaskMemFree(memory);
        return nullptr;
    }
    return g_fault.Strikes() ? nullptr : std::realloc(memory, bytes);
}

void CoTaskMemFree(LPVOID memory) {
    if (memory == nullptr) return;
    --g_live;
    std::free(memory);
}
