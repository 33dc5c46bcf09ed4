// Implements the assertion handler. It is one atomic pointer, because any thread may install a
// handler while another reports a failed condition.

#include "bedrock/assertion.h"

#include <atomic>
#include <cstdlib>
#include <ostream>

#include "bedrock/console.h"

namespace BEDROCK {

namespace {

[[noreturn]] void reportAndAbort(const char* expression, const char* file, int line) {
  ucerr << "Assertion failed: " << expression << ", file " << file << ", line " << line
        << std::endl;
  std::abort();
}

std::atomic<assertion_handler_t> installedHandler = reportAndAbort;

}  // namespace

assertion_handler_t set_assertion_handler(assertion_handler_t handler) {
  return installedHandler.exchange(handler != nullptr ? handler : reportAndAbort);
}

void assertion_failed(const char* expression, const char* file, int line) {
  installedHandler.load()(expression, file, line);
}

}  // namespace BEDROCK
