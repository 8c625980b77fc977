// What a test puts in force for a while: each takes the place of what was there, and gives it back when it goes.
#pragma once

#include <utility>

#include "framework/app.h"
#include "framework/exceptions.h"

namespace qvtest {

// Set puts a value in force and answers with the one before.
template <auto Set>
class Scoped;
template <class Value, Value (*Set)(Value)>
class Scoped<Set> {
public:
    explicit Scoped(Value value) : m_before(Set(std::move(value))) {}
    ~Scoped() { Set(std::move(m_before)); }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    Value m_before;
};

using ScopedExceptionHandler = Scoped<&SetExceptionHandler>;
using ScopedIdleHandler = Scoped<&SetIdleHandler>;

}  // namespace qvtest
