#include <kivo/kivo.h>

#include <exception>
#include <iostream>

#include "command_line.h"
#include "messages.h"
#include "search.h"
#include "summary.h"

// textkit counts, searches and hashes text files.
//
// It exits with 0 if all went well, whether or not a search found anything; with the status of the
// parse if the command line cannot be used; and otherwise with one of the codes below, which no
// parse returns.

namespace textkit {
namespace {

constexpr int exitFileUnreadable = 10;
constexpr int exitOutputUnwritable = 11;

int run(const Settings& settings) {
  InputReader reader(settings);
  if (settings.help)
    std::cout << *settings.help;
  else if (settings.dryRun)
    return kivo::status::success;
  else if (settings.actions.front() == Action::search)
    search(settings, reader, std::cout);
  else
    summarize(settings, reader, std::cout);
  std::cout.flush();
  if (!std::cout) {
    say("The output cannot be written.");
    return exitOutputUnwritable;
  }
  return reader.hasFailed() ? exitFileUnreadable : kivo::status::success;
}

int main(int argc, const char* const* argv) {
  Settings settings;
  std::string error;
  const int status = readCommandLine(argc, argv, settings, error);
  if (status != kivo::status::success) {
    say(error);
    return status;
  }
  return settings.exitStatus ? *settings.exitStatus : run(settings);
}

}  // namespace
}  // namespace textkit

int main(int argc, char** argv) {
  try {
    return textkit::main(argc, argv);
  } catch (const std::exception& problem) {
    textkit::say(problem.what());
    return kivo::status::exceptionCaught;
  }
}
