#include "platform/headless/base/kernel.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "platform/headless/base/error.h"

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
HANDLE GetCurrentProcess() noexcept {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
}

BOOL ReadProcessMemory(HANDLE process, LPCVOID address, LPVOID buffer, SIZE_T size, SIZE_T* copied) noexcept {
    if (copied != nullptr) *copied = 0;
    if (process != GetCurrentProcess()) {
        SetLastError(static_cast<DWORD>(ERROR_INVALID_HANDLE));
        return FALSE;
    }
    // The kernel does the reading and answers an address that leads nowhere with an error.
    const int memory = ::open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    SIZE_T done = 0;
    while (memory >= 0 && done < size) {
        const auto from = static_cast<off_t>(reinterpret_cast<std::uintptr_t>(address) + done);
        const auto count = ::pread(memory, static_cast<std::byte*>(buffer) + done, size - done, from);
        if (count <= 0) break;
        done += static_cast<SIZE_T>(count);
    }
    if (memory >= 0) ::close(memory);
    if (copied != nullptr) *copied = done;
    if (done == size) return TRUE;
    SetLastError(static_cast<DWORD>(ERROR_PARTIAL_COPY));
    return FALSE;
}

DWORD GetTickCount() noexcept {
    const auto elapsed = std::chrono::steady_clock::now() - g_start;
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
}
