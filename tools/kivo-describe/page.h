#pragma once

#include <string>
#include <variant>
#include <vector>

#include "description.h"
#include "lines.h"

namespace kivo_describe {

struct Heading {
  int level = 1;  // 1: a chapter, 2: a part of it, 3: a part of that
  std::string text;
};

struct Paragraph {
  std::vector<Line> lines;
};

// Something that is listed, and what there is to say about it.
struct Item {
  Line label;
  std::vector<Line> lines;
};

using Block = std::variant<Heading, Paragraph, Item>;

// What the page of a tool says, before it is written in a markup language. No text has white space
// but single blanks inside, and none has control characters.
struct Page {
  std::string name;
  std::string summary;  // may be empty
  std::vector<Block> blocks;
};

Page makePage(const Description& description);

}  // namespace kivo_describe
