#pragma once

#include <cstdint>
#include <string_view>

#include "settings.h"

namespace textkit {

struct Counts {
  std::uint64_t lines = 0;  // line feeds
  std::uint64_t words = 0;  // runs of characters that are not white space
  std::uint64_t bytes = 0;
  std::uint64_t chars = 0;        // of UTF-8, counted by their first bytes
  std::uint64_t textLines = 0;    // lines, including a last one without a line feed
  std::uint64_t filledLines = 0;  // lines with a word
};

Counts countText(std::string_view text);

void add(Counts& sum, const Counts& counts);

std::uint64_t measured(const Counts& counts, Measure measure);

/// The share of lines that are not blank, 0 for a text without lines.
double filledRatio(const Counts& counts);

const char* measureName(Measure measure);

}  // namespace textkit
