#include "platform/headless/kernel.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>

namespace {
thread_local DWORD t_lastError = 0;
const auto g_start = std::chrono::steady_clock::now();
}  // namespace

DWORD GetLastError() noexcept {
    return t_lastError;
}
void SetLastError(DWORD error) noexcept {
    t_lastError = error;
}
DWORD GetCurrentThreadId() noexcept {
    // Every window asks; the kernel need not be.
    thread_local const DWORD t_id = static_cast<DWORD>(::syscall(SYS_gettid));
    return t_id;
}
DWORD GetCurrentProcessId() noexcept {
    return static_cast<DWORD>(::getpid());
}

DWORD GetTickCount() noexcept {
    const auto elapsed = std::chrono::steady_clock::now() - g_start;
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
}
