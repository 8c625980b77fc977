// What becomes of exceptions that reach the framework's border with the platform.
#pragma once

#include <exception>
#include <functional>

// Told of every exception that a window procedure or the message loop stopped; by default a line on the standard error
// stream. Returns the one before. Must not throw.
using ExceptionHandler = std::function<void(std::exception_ptr)>;
ExceptionHandler SetExceptionHandler(ExceptionHandler handler);

namespace qv::detail {

// Tells the exception handler of the exception that is being handled.
void ReportException() noexcept;

}  // namespace qv::detail
