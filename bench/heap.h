#pragma once

namespace bench {

// Bytes that this process has allocated from its heap now; under Windows what the heap has taken from the system.
[[nodiscard]] double HeapBytes();

}  // namespace bench
