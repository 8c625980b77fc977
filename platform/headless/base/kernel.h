// The few calls of the base system that everything else leans on: the calling thread's last error, its identity, ticks.
#pragma once

#include "platform/headless/base/types.h"

// One number a thread, as the call that failed last left it; calls that succeed leave it alone unless they say
// otherwise.
DWORD GetLastError() noexcept;
void SetLastError(DWORD error) noexcept;

DWORD GetCurrentThreadId() noexcept;
DWORD GetCurrentProcessId() noexcept;
// A handle that stands for the calling process; it needs no closing.
HANDLE GetCurrentProcess() noexcept;
// Copies size bytes into buffer and says in *copied, unless null, how many. FALSE when they cannot all be read:
// addresses that lead nowhere are refused. Only the calling process can be read.
BOOL ReadProcessMemory(HANDLE process, LPCVOID address, LPVOID buffer, SIZE_T size, SIZE_T* copied) noexcept;
// Milliseconds since the process started; wraps as documented.
DWORD GetTickCount() noexcept;
