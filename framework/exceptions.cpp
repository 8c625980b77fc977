#include "framework/exceptions.h"

#include <cstdio>
#include <utility>

namespace {

ExceptionHandler& CurrentExceptionHandler() {
    static auto* handler = new ExceptionHandler;
    return *handler;
}

void PrintException(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "framework: exception in a message handler: %s\n", e.what());
    } catch (...) {
        std::fprintf(stderr, "framework: exception of unknown kind in a message handler\n");
    }
}

}  // namespace

ExceptionHandler SetExceptionHandler(ExceptionHandler handler) {
    return std::exchange(CurrentExceptionHandler(), std::move(handler));
}

void qv::detail::ReportException() noexcept {
    const std::exception_ptr exception = std::current_exception();
    const ExceptionHandler& handler = CurrentExceptionHandler();
    if (handler) {
        handler(exception);
    } else {
        PrintException(exception);
    }
}
