#pragma once

// What happens after a programming error that the library detects. Tools install their own handlers
// through this header, so its two functions are part of the binary interface.

#include <bedrock/export.h>

namespace BEDROCK {

/// A function that is called with the text of a condition that is false, and with the file and the
/// line that check the condition. A handler may end the process, throw, or return. If it returns,
/// the operation that failed returns a zero, a null pointer or an empty value.
using assertion_handler_t = void (*)(const char* expression, const char* file, int line);

/// Installs a handler for all threads of the process and returns the handler it replaces. The
/// handler is called on the thread that found the condition false.
/// Null installs the default handler, which writes one line to `ucerr` and aborts.
BEDROCK_API assertion_handler_t set_assertion_handler(assertion_handler_t handler);

/// Calls the installed handler to report a condition that is false.
BEDROCK_API void assertion_failed(const char* expression, const char* file, int line);

}  // namespace BEDROCK
