#include "input.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "messages.h"

// This file uses C streams because they keep the reason of a failure: a directory can be opened,
// and only reading it fails.

namespace textkit {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const {
    if (file != stdin)
      static_cast<void>(std::fclose(file));  // only read, so nothing can be lost
  }
};

// Returns 0, or the error number (errno) of the failure.
int readAll(const std::string& name, std::string& text) {
  const std::unique_ptr<std::FILE, CloseFile> file(name == "-" ? stdin
                                                               : std::fopen(name.c_str(), "rb"));
  if (file == nullptr)
    return errno;
  text.clear();
  char block[65536];
  for (;;) {
    const std::size_t length = std::fread(block, 1, sizeof block, file.get());
    text.append(block, length);
    if (std::ferror(file.get()) != 0)
      return errno;
    if (length < sizeof block)
      return 0;
  }
}

}  // namespace

std::string_view afterSkip(std::string_view text, long long skip) {
  // Unsigned, so that the smallest number can be negated.
  const auto count = static_cast<unsigned long long>(skip);
  const auto within = [&](unsigned long long bytes) {
    return bytes < text.size() ? static_cast<std::size_t>(bytes) : text.size();
  };
  if (skip >= 0)
    return text.substr(within(count));
  return text.substr(text.size() - within(0 - count));
}

bool InputReader::read(const std::string& name, std::string& text) {
  const int problem = readAll(name, text);
  if (problem != 0) {
    m_hasFailed = true;
    if (m_settings.verbosity != Verbosity::quiet)
      say("Cannot read '" + shownName(name) + "': " + std::generic_category().message(problem));
    return false;
  }
  if (m_settings.verbosity == Verbosity::verbose)
    say("Read " + std::to_string(text.size()) + " bytes from '" + shownName(name) + "'");
  text.erase(0, text.size() - afterSkip(text, m_settings.skip).size());
  return true;
}

std::string shownName(const std::string& name) { return name == "-" ? "(standard input)" : name; }

}  // namespace textkit
