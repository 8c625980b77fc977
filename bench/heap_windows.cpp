// clang-format off
#include <windows.h>
#include <psapi.h>
// clang-format on

#include "bench/heap.h"

double bench::HeapBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
    return static_cast<double>(counters.PrivateUsage);
}
