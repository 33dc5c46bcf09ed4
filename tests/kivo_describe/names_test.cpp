#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <set>
#include <sstream>
#include <string>

#include "description_reader.h"
#include "manual_page.h"
#include "page.h"

// Help, description and pages show the same names.

namespace kivo_describe {
namespace {

using Names = std::set<std::string>;

void declareAll(kivo::IParser& parser) {
  parser.action("pack,p", "Packs.", kivo::vtNull)->synonym("wrap");
  parser.action("list", "Lists.", kivo::vtNull);
  parser.action("secret-action", "Secret.", kivo::vtNull, "kivo_hidden");
  parser.modifier("level,l", "pack", "How hard to try.", kivo::vtS32)->allowValue(1)->allowValue(2);
  parser.modifier("all", "list,pack", "All of them.", kivo::vtBool)->defaultValue(true);
  parser.modifier("secret-modifier", "pack", "Secret.", kivo::vtNull, "kivo_hidden");
  parser.option("color,colour", "In color.", kivo::vtBool, "Looks:How it looks.")->synonym("c");
  parser.option("name.with-all_signs", "Odd.", kivo::vtString);
  parser.option("secret-option", "Secret.", kivo::vtNull, "kivo_hidden");
  parser.addOptionFileOption("Read arguments from a file.", nullptr);
  parser.option("file", "What to pack.", kivo::vtString)->positional();
}

// The names that begin each entry of a help: "-a, -b=<string>", "-a | -no-a (default)".
void addNames(Names& names, const std::string& help) {
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind('-', 0) != 0)
      continue;
    std::istringstream words(line.substr(0, line.find("  ")));
    for (std::string word; words >> word;) {
      const std::string name = word.substr(0, word.find_first_of(",="));
      if (name.rfind('-', 0) == 0)
        names.insert(name);
    }
  }
}

Names namesOfHelp(kivo::IParser& parser) {
  Names names;
  addNames(names, parser.getGlobalModifiersDescription(false));
  for (const char* const action : {"pack", "list"}) {
    addNames(names, parser.getDescription(action, false));
    addNames(names, parser.getActionModifiersDescription(action, false));
  }
  return names;
}

Names namesOfDescription(const Description& description) {
  Names names;
  for (const Option& option : description.declarations.options) {
    if (option.hidden || option.positional)
      continue;
    for (const std::string& name : option.names)
      names.insert('-' + name);
    if (option.type == "boolean")
      names.insert("-no-" + option.names.front());
  }
  return names;
}

// The literal texts of the entries that are not those of exit statuses.
Names namesOfPage(const Page& page) {
  Names names;
  for (const Block& block : page.blocks) {
    if (const auto* const item = std::get_if<Item>(&block)) {
      for (const Span& span : item->label) {
        if (span.style == Span::Style::literal && span.text.front() == '-')
          names.insert(span.text);
      }
    }
  }
  return names;
}

TEST(Names, AreTheSameInHelpDescriptionAndPage) {
  const kivo::ParserHandle parser = kivo::makeParser();
  declareAll(*parser);
  const Description description =
      readDescription(kivo::describe(*parser, {"archive", "1.0", "Packs files."}));
  const Names expected = {"-pack",
                          "-p",
                          "-wrap",
                          "-list",
                          "-level",
                          "-l",
                          "-all",
                          "-no-all",
                          "-color",
                          "-colour",
                          "-c",
                          "-no-color",
                          "-name.with-all_signs",
                          "-option-file"};
  EXPECT_EQ(expected, namesOfHelp(*parser));
  EXPECT_EQ(expected, namesOfDescription(description));
  EXPECT_EQ(expected, namesOfPage(makePage(description)));
}

}  // namespace
}  // namespace kivo_describe
