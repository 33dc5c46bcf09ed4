// Writes the coverage counts when the process aborts. The process of a death test runs lines too,
// but never reaches the exit at which the counts are written otherwise.

#include <csignal>

extern "C" void __gcov_dump();

namespace {

void writeCounts(int signal) {
  __gcov_dump();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

[[maybe_unused]] const auto handlerBefore = std::signal(SIGABRT, writeCounts);

}  // namespace
