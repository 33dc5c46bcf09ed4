#include "formats.h"

#include <cstdlib>

#include "bash_completion.h"
#include "build_date.h"
#include "completion.h"
#include "fish_completion.h"
#include "manual_page.h"
#include "markdown.h"
#include "page.h"
#include "zsh_completion.h"

// The command line, its help and the description of this tool follow this list.

namespace kivo_describe {
namespace {

std::string manualPageOf(const Description& description) {
  const char* const date = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe)
  return manualPage(makePage(description), buildDate(date));
}

std::string markdownOf(const Description& description) { return markdown(makePage(description)); }

std::string bashOf(const Description& description) {
  return bashCompletion(makeCompletion(description));
}

std::string zshOf(const Description& description) {
  return zshCompletion(makeCompletion(description));
}

std::string fishOf(const Description& description) {
  return fishCompletion(makeCompletion(description));
}

}  // namespace

const std::vector<Format>& formats() {
  static const std::vector<Format> all = {
      {"bash", "Write a completion script for bash.", bashOf},
      {"zsh", "Write a completion script for zsh.", zshOf},
      {"fish", "Write a completion script for fish.", fishOf},
      {"man", "Write a manual page of section 1.", manualPageOf},
      {"markdown", "Write a page in Markdown.", markdownOf},
  };
  return all;
}

}  // namespace kivo_describe
