// The streams are those of the standard library, declared here by their linker's names: the
// header that declares them would make them ready in every process that loads the library,
// and the locale with them, which takes longer than a short command line.

#include "bedrock/console.h"

#include <ios>

namespace BEDROCK {

extern std::ostream standardOutput __asm__("_ZSt4cout");
extern std::ostream standardError __asm__("_ZSt4cerr");

namespace {

void makeReady() { [[maybe_unused]] static const std::ios_base::Init ready; }

std::ostream& output() noexcept {
  makeReady();
  return standardOutput;
}

std::ostream& error() noexcept {
  makeReady();
  return standardError;
}

}  // namespace

thread_local std::ostream& ucout = output();
thread_local std::ostream& ucerr = error();

}  // namespace BEDROCK
