#pragma once

namespace BEDROCK {

/// Called with the text of a condition that should have held and the place that
/// stated it. A handler may end the process, throw, or return; after a return the
/// operation that failed answers with a zero, a null pointer or an empty value.
using assertion_handler_t = void (*)(const char* expression, const char* file, int line);

/// Installs a handler for all threads of the process and returns the one it replaces. It is
/// called on the thread on which the condition did not hold.
/// Null brings back the default, which writes one line to `ucerr` and aborts.
__attribute__((visibility("default"))) assertion_handler_t set_assertion_handler(
    assertion_handler_t handler);

/// Reports a condition that did not hold to the installed handler.
__attribute__((visibility("default"))) void assertion_failed(const char* expression,
                                                             const char* file, int line);

}  // namespace BEDROCK
