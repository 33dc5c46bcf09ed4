#include "support/command.h"

#include <map>

#include "base/quoted.h"
#include "parser/basic_parser.h"
#include "recognizers/argument_parser.h"
#include "support/arguments.h"
#include "support/stored.h"

namespace kivo_3_3::testing {

namespace {

std::string valuesOf(const GivenOption& data, int from, int to) {
  std::string text;
  for (const GivenValue& value : data.values)
    if (value.position > from && value.position < to)
      text.append(text.empty() ? "=" : ",").append(value.text);
  return text;
}

}  // namespace

Command::Command(int flags) : m_parser(makeParser(flags)) { startFresh(); }

IOption* Command::option(const char* names, variant_type_t type, const char* group) {
  return remember(names, m_parser->option(names, "", type, group));
}

IOption* Command::action(const char* names, variant_type_t type) {
  return remember(names, m_parser->action(names, "", type, nullptr));
}

IOption* Command::modifier(const char* names, const char* actions, variant_type_t type) {
  return remember(names, m_parser->modifier(names, actions, "", type, nullptr));
}

void Command::optionFiles() {
  m_parser->addOptionFileOption("", nullptr);
  m_names.emplace_back("option-file");
}

IOption* Command::remember(const char* names, IOption* declared) {
  const std::string all(names);
  m_names.push_back(all.substr(0, all.find(',')));
  return declared;
}

void Command::startFresh() {
  m_result = makeResult(*m_parser);
  m_lastPosition = IArgumentParser::m_idx - 1;
}

int Command::parse(const std::vector<std::string>& args) {
  startFresh();
  return parseMore(args);
}

int Command::parseStream(const char* text) {
  startFresh();
  return m_parser->parseStream(text, m_result.get());
}

int Command::parseVector(std::vector<std::string>& args) {
  startFresh();
  WindowOn window(args);
  const int status = static_cast<BasicParser&>(*m_parser).parseVector(window, m_result.get());
  args = leftOf(window);
  return status;
}

int Command::parseMore(const std::vector<std::string>& args) {
  std::vector<const char*> argv = {"tool"};
  for (const std::string& argument : args)
    argv.push_back(argument.c_str());
  return m_parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), m_result.get());
}

std::string Command::parsed(const std::vector<std::string>& args) {
  const int status = parse(args);
  return status == 0 ? render() : std::to_string(status) + ": " + error();
}

int Command::positionsDrawn() const { return IArgumentParser::m_idx - 1 - m_lastPosition; }

std::string Command::render() {
  std::map<int, std::string> places;
  for (const std::string_view name : m_names) {
    if (const auto standby = result().options().findDefault(name))
      places[standby->position] = joined(name, "(", standby->text, ")");
    if (!result().options().find(name))
      continue;
    const GivenOption& data = givenTo(result(), name);
    for (std::size_t i = 0; i < data.positions.size(); ++i) {
      const int next = i + 1 < data.positions.size() ? data.positions[i + 1] : lastPosition;
      places[data.positions[i]] = joined(name, valuesOf(data, data.positions[i], next));
    }
  }
  std::string text;
  const auto append = [&](const std::string& what, int position) {
    text += (text.empty() ? "" : " ") + what + "@+" + std::to_string(position - m_lastPosition);
  };
  for (const auto& place : places)
    append(place.second, place.first);
  if (!result().arguments().empty())
    text += text.empty() ? "|" : " |";
  for (const auto& argument : result().arguments())
    append(argument.text, argument.position);
  return text;
}

}  // namespace kivo_3_3::testing
