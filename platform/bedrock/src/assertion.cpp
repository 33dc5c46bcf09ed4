#include "bedrock/assertion.h"

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

assertion_handler_t installedHandler = reportAndAbort;

}  // namespace

assertion_handler_t set_assertion_handler(assertion_handler_t handler) {
  const assertion_handler_t previous = installedHandler;
  installedHandler = handler != nullptr ? handler : reportAndAbort;
  return previous;
}

void assertion_failed(const char* expression, const char* file, int line) {
  installedHandler(expression, file, line);
}

}  // namespace BEDROCK
