#include <kivo/kivo.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

#include "command_line.h"
#include "description_reader.h"
#include "exit_codes.h"
#include "text.h"

// kivo-describe makes manual pages and completion scripts of the description of a tool.
//
// A text is written when all of it is known: after a failure there is no output, and one line on
// standard error.

namespace kivo_describe {
namespace {

// Names of files and texts of descriptions may have line ends in them.
int fail(int status, const std::string& reason) {
  std::cerr << "kivo-describe: " << squeezed(reason) << '\n';
  return status;
}

class InputError : public std::runtime_error {
 public:
  explicit InputError(const std::string& name)
      : std::runtime_error("cannot read " + name + ": " + std::generic_category().message(errno)) {}
};

std::string wholeText(std::FILE* input, const std::string& name) {
  std::string text;
  char part[65536];
  for (std::size_t length = 0; (length = std::fread(part, 1, sizeof part, input)) > 0;)
    text.append(part, length);
  if (std::ferror(input) != 0)
    throw InputError(name);
  return text;
}

std::string readInput(const std::optional<std::string>& file) {
  if (!file)
    return wholeText(stdin, "standard input");
  const std::string quoted = '\'' + *file + '\'';
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> input(std::fopen(file->c_str(), "rb"),
                                                              std::fclose);
  if (input == nullptr)
    throw InputError(quoted);
  return wholeText(input.get(), quoted);
}

int write(const std::string& text) {
  std::cout << text << std::flush;
  return std::cout ? kivo::status::success
                   : fail(outputUnwritable.number, outputUnwritable.meaning);
}

int run(int argc, const char* const* argv) {
  Settings settings;
  std::string error;
  const int status = readCommandLine(argc, argv, settings, error);
  if (status != kivo::status::success)
    return fail(status, error);
  if (settings.exitStatus == kivo::status::success)
    return kivo::status::success;
  if (settings.exitStatus)
    return fail(*settings.exitStatus, outputUnwritable.meaning);
  return write(settings.text ? *settings.text
                             : settings.format->write(readDescription(readInput(settings.file))));
}

int statusOf(const std::exception& problem) {
  if (dynamic_cast<const InputError*>(&problem) != nullptr)
    return inputUnreadable.number;
  if (dynamic_cast<const NoDescription*>(&problem) != nullptr)
    return inputInvalid.number;
  const bool isMistake = dynamic_cast<const std::invalid_argument*>(&problem) != nullptr;
  return isMistake ? kivo::status::usageError : kivo::status::exceptionCaught;
}

int main(int argc, const char* const* argv) {
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));  // a closed pipe is unwritable output
  try {
    return run(argc, argv);
  } catch (const std::exception& problem) {
    return fail(statusOf(problem), problem.what());
  }
}

}  // namespace
}  // namespace kivo_describe

int main(int argc, char** argv) { return kivo_describe::main(argc, argv); }
