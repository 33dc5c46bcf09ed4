#include "formats.h"

#include <cstdlib>

#include "build_date.h"
#include "manual_page.h"
#include "markdown.h"
#include "page.h"

// The command line, its help and the description of this tool follow this list.

namespace kivo_describe {
namespace {

std::string manualPageOf(const Description& description) {
  const char* const date = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe)
  return manualPage(makePage(description), buildDate(date));
}

std::string markdownOf(const Description& description) { return markdown(makePage(description)); }

}  // namespace

const std::vector<Format>& formats() {
  static const std::vector<Format> all = {
      {"man", "Write a manual page of section 1.", manualPageOf},
      {"markdown", "Write a page in Markdown.", markdownOf},
  };
  return all;
}

}  // namespace kivo_describe
