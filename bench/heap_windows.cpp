#include "bench/heap.h"
#include "platform/platform.h"

// Wants the declarations above.
#include <psapi.h>

double bench::HeapBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
    return static_cast<double>(counters.PrivateUsage);
}
