// Doors for tests into the headless layer: faults on demand, counts of what is alive, whole states to compare, settings
// that a user would make outside the program. Native build only; a test that includes this stands outside the set that
// runs in both builds.
#pragma once

#include <cstddef>
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

}  // namespace qv::headless
