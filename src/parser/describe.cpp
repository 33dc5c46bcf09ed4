// The functions of kivo/describe.h. Each of them finds the parser that createParser() made, and
// none of them lets an exception reach the tool.

#include <kivo/describe.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>
#include <typeinfo>

#include "base/white_space.h"
#include "describe/nearest_name.h"
#include "parser/basic_parser.h"

namespace kivo_3_3 {

using std::string;

namespace {

// Null if createParser() did not make it.
BasicParser* madeHere(IParser* parser) {
  const bool isOurs = parser != nullptr && typeid(*parser) == typeid(BasicParser);
  return isOurs ? static_cast<BasicParser*>(parser) : nullptr;
}

// Calls `answer` with the parser. Returns `otherwise` for a foreign parser and if memory runs out.
template <class Result, class Answer>
Result ask(IParser& parser, Result otherwise, Answer answer) {
  try {
    BasicParser* const own = madeHere(&parser);
    return own != nullptr ? answer(*own) : otherwise;
  } catch (const std::exception&) {
    return otherwise;
  }
}

bool isDescriptionAsked(int argc, const char* const* argv) {
  return argc > 1 && argv != nullptr && argv[1] != nullptr &&
         std::string_view(argv[1]) == "kivooption=kivodescribe=json";
}

// Whether all of the text and a line end were written.
bool writeLine(const char* text) {
  return std::fputs(text, stdout) != EOF && std::fputc('\n', stdout) != EOF &&
         std::fflush(stdout) == 0;
}

}  // namespace

const char* describe(IParser& parser, const ToolInfo& tool, const CommandInfo* commands,
                     unsigned int count) {
  return ask(parser, "", [&](BasicParser& own) -> const char* {
    std::vector<DescribedCommand> described;
    for (const CommandInfo* command = commands; command != nullptr && command != commands + count;
         ++command) {
      BasicParser* const ofCommand = madeHere(command->parser);
      if (ofCommand == nullptr)
        return "";
      described.push_back({command->words, command->summary, ofCommand->declarations()});
    }
    return own.keep(writeDescription(tool, own.declarations(), described));
  });
}

bool describeIfAsked(IParser& parser, const ToolInfo& tool, int argc, const char* const* argv,
                     int* status) {
  if (!isDescriptionAsked(argc, argv))
    return false;
  const char* const description = describe(parser, tool);
  const bool isWritten = *description != '\0' && writeLine(description);
  if (status != nullptr)
    *status = isWritten ? 0 : 1;
  return true;
}

bool annotate(IParser& parser, const char* option, const char* key, const char* text) {
  if (key == nullptr || text == nullptr)
    return false;
  return ask(parser, false, [&](BasicParser& own) { return own.annotate(option, key, text); });
}

const char* resolveName(IParser& parser, const char* typed) {
  if (typed == nullptr)
    return nullptr;
  return ask(parser, static_cast<const char*>(nullptr),
             [&](BasicParser& own) { return own.resolveName(typed); });
}

const char* nearestName(IParser& parser, const char* typed) {
  if (typed == nullptr)
    return nullptr;
  return ask(parser, static_cast<const char*>(nullptr),
             [&](BasicParser& own) { return findNearestName(own.declarations().options, typed); });
}

Declarations BasicParser::declarations() {
  return {m_storage.options(), m_storage.groups(), m_simultaneousActions, m_annotations, m_flags};
}

const char* BasicParser::keep(const string& text) { return m_garbage->keep(text.c_str()); }

bool BasicParser::annotate(const char* option, std::string_view key, std::string_view text) {
  if (option == nullptr) {
    m_annotations.addToTool(key, text);
    return true;
  }
  const HashedName name(option);
  const auto hasName = [&](const OptionDescription& declared) {
    return std::find(declared.m_names.begin(), declared.m_names.end(), name) !=
           declared.m_names.end();
  };
  OptionList& options = m_storage.options();
  auto number = m_storage.names().find(name);
  // find() also answers for the "no-" form of a boolean's name, which is not one of its names. A
  // later option may have that text as a synonym.
  if (number && !hasName(options[*number])) {
    const auto named = std::find_if(options.begin(), options.end(), hasName);
    number = named != options.end() ? std::make_optional(named->m_number) : std::nullopt;
  }
  if (number)
    m_annotations.addToOption(*number, key, text);
  return number.has_value();
}

// A text that no argument can have as its name stands for no option: the name ends at a '=' or at
// white space, and neither an empty name nor one that begins with a hyphen is looked up.
const char* BasicParser::resolveName(std::string_view typed) {
  const WhiteSpace isSpace;
  const auto endsName = [&](char character) { return character == '=' || isSpace(character); };
  if (typed.empty() || typed.front() == '-' || std::any_of(typed.begin(), typed.end(), endsName))
    return nullptr;
  NameIndex::Match match;
  m_storage.names().findBest(typed, match);
  return match.kind == NameIndex::Match::unique
             ? m_storage.options()[match.option].firstName().data()
             : nullptr;
}

}  // namespace kivo_3_3
