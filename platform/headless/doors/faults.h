// Doors for tests into the headless layer: faults on demand, counts of what is alive, whole states to compare, settings
// that a user would make outside the program. Native build only; a test that includes this stands outside the set that
// runs in both builds.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/headless/base/types.h"

namespace qv::headless {

// The n-th registry call from now (1 = the next; closing does not count) fails with the code, once. 0 takes it back.
void FailRegistryCall(unsigned n, LONG code) noexcept;
// Registry calls so far, closing not counted.
[[nodiscard]] unsigned RegistryCalls() noexcept;
// Every key and value, sorted, a line each; two states are equal when their texts are.
[[nodiscard]] std::wstring DumpRegistry();
// Keys that are open at the moment.
[[nodiscard]] std::size_t OpenRegistryKeys() noexcept;
// Empties the registry, ends redirections; open keys count as deleted.
void ResetRegistry();

// The n-th question from now (1 = the next) for the file name of a module fails with the code, once. 0 takes it back.
void FailModuleFileName(unsigned n, LONG code) noexcept;

// The disk takes so many bytes from now on, over all files: a write that goes beyond writes what still fits and fails
// as on a full disk. Nothing: as much as it really takes.
void LimitDisk(std::optional<std::size_t> bytes) noexcept;
// The n-th SetEndOfFile from now (1 = the next) fails with the code, once. 0 takes it back.
void FailSetEndOfFile(unsigned n, LONG code) noexcept;

}  // namespace qv::headless
