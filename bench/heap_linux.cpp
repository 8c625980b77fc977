#include <malloc.h>

#include "bench/heap.h"

double bench::HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}
