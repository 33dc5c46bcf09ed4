// What a parser says about its declarations: the functions of kivo/describe.h.

#include <algorithm>

#include "reference/argument_syntax.h"
#include "reference/nearest_name.h"
#include "reference/parser.h"
#include "reference/recognizers.h"
#include "reference/registry.h"

namespace kivo_3_3::reference {

namespace {

Parser* ownParser(IParser* parser) { return dynamic_cast<Parser*>(parser); }

}  // namespace

const char* describe(IParser& parser, const ToolInfo& tool, const CommandInfo* commands,
                     unsigned int count) {
  Parser* const own = ownParser(&parser);
  const std::vector<CommandInfo> all(commands, commands != nullptr ? commands + count : nullptr);
  const bool areOwn = std::all_of(all.begin(), all.end(), [](const CommandInfo& command) {
    return ownParser(command.parser) != nullptr;
  });
  return own != nullptr && areOwn ? own->describe(tool, all) : "";
}

bool annotate(IParser& parser, const char* option, const char* key, const char* text) {
  Parser* const own = ownParser(&parser);
  return own != nullptr && key != nullptr && text != nullptr && own->annotate(option, key, text);
}

const char* resolveName(IParser& parser, const char* typed) {
  Parser* const own = ownParser(&parser);
  return own != nullptr && typed != nullptr ? own->resolveName(typed) : nullptr;
}

const char* nearestName(IParser& parser, const char* typed) {
  Parser* const own = ownParser(&parser);
  return own != nullptr && typed != nullptr ? own->nearestName(typed) : nullptr;
}

Declarations Parser::declarations() const {
  return {m_registry.options(), m_registry.groups(), m_simultaneousActions, m_annotations, m_flags};
}

const char* Parser::describe(const ToolInfo& tool, const std::vector<CommandInfo>& commands) {
  std::vector<std::string> described;
  for (const CommandInfo& command : commands)
    described.push_back(
        commandAsJson(command, fieldsAsJson(ownParser(command.parser)->declarations())));
  return m_garbage.init(descriptionAsJson(tool, fieldsAsJson(declarations()), described));
}

// The "no-" forms are no names here.
std::optional<std::size_t> Parser::findDeclared(const std::string& name) const {
  for (std::size_t index = 0; index < m_registry.options().size(); ++index)
    for (const std::string& declared : m_registry.options()[index].names)
      if (name == declared)
        return index;
  return std::nullopt;
}

bool Parser::annotate(const char* option, const std::string& key, const std::string& text) {
  const auto index = option != nullptr ? findDeclared(option) : std::nullopt;
  if (option != nullptr && !index)
    return false;
  m_annotations.push_back({index, key, text});
  return true;
}

const char* Parser::resolveName(const std::string& typed) {
  std::string name;
  const bool hasValue = splitOptionValue("--" + typed, &name, nullptr);
  if (hasValue || name.empty() || name.front() == '-')
    return nullptr;
  const std::vector<std::string> meant = namesMeant(m_registry.options(), name);
  if (meant.size() != 1)
    return nullptr;
  const std::size_t option = findOption(meant.front(), m_registry.options()).value();
  return m_garbage.init(m_registry.options()[option].names.front());
}

const char* Parser::nearestName(const std::string& typed) {
  const auto nearest = reference::nearestName(m_registry.options(), typed);
  return nearest ? m_garbage.init(*nearest) : nullptr;
}

}  // namespace kivo_3_3::reference
