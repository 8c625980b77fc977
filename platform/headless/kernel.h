// The few calls of the base system that everything else leans on: the calling thread's last error, its identity, ticks.
#pragma once

#include "platform/headless/types.h"

// One number a thread, as the call that failed last left it; calls that succeed leave it alone unless they say
// otherwise.
DWORD GetLastError() noexcept;
void SetLastError(DWORD error) noexcept;

DWORD GetCurrentThreadId() noexcept;
DWORD GetCurrentProcessId() noexcept;
// Milliseconds since the process started; wraps as documented.
DWORD GetTickCount() noexcept;
