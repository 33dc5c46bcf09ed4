#include "tool/console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string_view>
#include <system_error>

namespace kivo_3_3::tool_glue {

bool print(const ToolData& tool, const std::string& text, bool isError) {
  const OwnedCallable& output = tool.root().output;
  if (output) {
    Text unused;
    const char* characters = text.c_str();
    try {
      output(&characters, &isError, unused);
    } catch (const std::bad_alloc&) {
      throw;
    } catch (...) {
      return false;
    }
    return true;
  }
  std::FILE* const stream = isError ? stderr : stdout;
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

unsigned int terminalWidth() {
  constexpr unsigned int least = 60;
  constexpr unsigned int most = 100;
  constexpr unsigned int usual = 80;
  // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here changes the environment
  const char* const variable = std::getenv("COLUMNS");
  const std::string_view columns = variable != nullptr ? variable : "";
  unsigned long width = 0;
  const auto [end, problem] =
      std::from_chars(columns.data(), columns.data() + columns.size(), width);
  if (end != columns.data() + columns.size())
    width = 0;
  else if (problem == std::errc::result_out_of_range)
    width = most;
  winsize size{};
  if (width == 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0)
    width = size.ws_col;
  return static_cast<unsigned int>(
      std::clamp<unsigned long>(width != 0 ? width : usual, least, most));
}

}  // namespace kivo_3_3::tool_glue
