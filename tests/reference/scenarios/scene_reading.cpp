// Queries of results, error texts, help, and the free functions.

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "reference/scenarios/scene.h"
#include "reference/scenarios/values.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

// More steps than any walk over a result needs; a walk that does not end stops here.
constexpr int longestWalk = 2000;

int asInt(long long number) {
  return static_cast<int>(std::clamp(number, std::numeric_limits<int>::min() + 0LL,
                                     std::numeric_limits<int>::max() + 0LL));
}

bool isNothing(const Value& value) {
  return value.isEmpty == 1 && value.text == nullptr && value.position == lastPosition &&
         value.value.type() == vtNull;
}

}  // namespace

bool ForeignResult::present(const char* name, int, int) {
  m_transcript.line("foreign result: present ", quoted(name));
  return false;
}

Value ForeignResult::get(const char* name, int, int) {
  m_transcript.line("foreign result: get ", quoted(name));
  return {};
}

Value ForeignResult::next(const char* name) {
  m_transcript.line("foreign result: next ", quoted(name));
  return {};
}

int ForeignResult::nextPosition() {
  m_transcript.line("foreign result: nextPosition");
  return lastPosition;
}

int ForeignResult::getFirstArgument(const char**) {
  m_transcript.line("foreign result: getFirstArgument");
  return 1;
}

int ForeignResult::getNextArgument(const char**) {
  m_transcript.line("foreign result: getNextArgument");
  return 1;
}

int Scene::bound(const Command& command, std::size_t field, int fallback) const {
  const string text = command.text(field);
  if (text.empty())
    return fallback;
  if (text == "end")
    return lastPosition;
  const int number = command.number(field);
  return text[0] == '+' ? asInt(m_base + static_cast<long long>(number)) : number;
}

string Scene::shownAt(int position) const {
  if (position == lastPosition)
    return "@end";
  const long long distance = static_cast<long long>(position) - m_base;
  return (distance < 0 ? "@" : "@+") + std::to_string(distance);
}

// Keeps the variant alive, so that no later one reuses its address.
string Scene::shownTyped(const variant_t& value) {
  string shown = shownKind(value);
  if (!value.can_get<const char*>())
    return shown;
  m_kept.push_back(value);
  const char* const text = value.get<const char*>();
  return shown + ":" + quoted(text) + "~" + std::to_string(m_typedTexts.numberOf(text));
}

string Scene::shown(const Value& value, Addresses& texts) {
  if (isNothing(value))
    return "nothing";
  return texts.shown(value.text) + " " + shownTyped(value.value) + " " + shownAt(value.position) +
         (value.isEmpty != 0 ? " empty" + std::to_string(value.isEmpty) : "");
}

void Scene::present(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const string name = command.text(1);
  const bool isPresent =
      slot->result->present(command.isNull(1) ? nullptr : name.c_str(),
                            bound(command, 2, firstPosition), bound(command, 3, lastPosition));
  m_transcript.line(isPresent ? "present" : "absent");
}

void Scene::get(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const string name = command.text(1);
  const Value value =
      slot->result->get(command.isNull(1) ? nullptr : name.c_str(),
                        bound(command, 2, firstPosition), bound(command, 3, lastPosition));
  m_transcript.line(shown(value, slot->texts));
}

void Scene::next(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const string name = command.text(1);
  m_transcript.line(
      shown(slot->result->next(command.isNull(1) ? nullptr : name.c_str()), slot->texts));
}

void Scene::position(const Command& command) {
  if (ResultSlot* const slot = resultOf(command))
    m_transcript.line(shownAt(slot->result->nextPosition()));
}

// getLastValue() also takes a null result.
void Scene::last(const Command& command) {
  const string name = command.text(1);
  const char* const given = command.isNull(1) ? nullptr : name.c_str();
  const int from = bound(command, 2, firstPosition);
  const int to = bound(command, 3, lastPosition);
  if (command.isNull(0)) {
    Addresses unused;
    return m_transcript.line(shown(m_world.getLastValue(nullptr, given, from, to), unused));
  }
  if (ResultSlot* const slot = resultOf(command))
    m_transcript.line(shown(m_world.getLastValue(slot->result, given, from, to), slot->texts));
}

void Scene::first(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const char* text = "untouched";
  const int status = slot->result->getFirstArgument(&text);
  m_transcript.line(status, " ", status == 0 ? slot->texts.shown(text) : quoted(text));
}

void Scene::nextargument(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const char* text = "untouched";
  const int status = slot->result->getNextArgument(&text);
  m_transcript.line(status, " ", status == 0 ? slot->texts.shown(text) : quoted(text));
}

void Scene::read(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  for (const string& name : m_scenario.names())
    readName(*slot, name);
  readArguments(*slot);
}

void Scene::readName(ResultSlot& slot, const string& name) {
  IParseResult& result = *slot.result;
  if (!result.present(name.c_str(), firstPosition, lastPosition))
    return;
  string all = name + ":";
  for (int walked = 0; walked < longestWalk; ++walked) {
    const int position = result.nextPosition();
    if (position == lastPosition)
      break;
    all += " " + shownAt(position);
  }
  Value value = result.get(name.c_str(), firstPosition, lastPosition);
  for (int walked = 0; walked < longestWalk && value.isEmpty == 0; ++walked) {
    all += "; " + shown(value, slot.texts);
    value = result.next(name.c_str());
  }
  const Value last = m_world.getLastValue(slot.result, name.c_str(), firstPosition, lastPosition);
  m_transcript.line(all, "; last ", shown(last, slot.texts));
}

void Scene::readArguments(ResultSlot& slot) {
  const char* text = nullptr;
  int status = slot.result->getFirstArgument(&text);
  for (int walked = 0; walked < longestWalk && status == 0; ++walked) {
    m_transcript.line("| ", slot.texts.shown(text));
    status = slot.result->getNextArgument(&text);
  }
}

void Scene::error(const Command& command) {
  if (ParserSlot* const slot = parserOf(command))
    m_transcript.line(slot->texts.shown(slot->parser->getErrorDesc()));
}

void Scene::help(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  const bool isHidden = command.number(2) != 0;
  const string name = command.text(3);
  const char* const given = command.isNull(3) ? nullptr : name.c_str();
  const char* text = nullptr;
  if (command.is(1, "topic"))
    text = slot->parser->getDescription(given, isHidden);
  else if (command.is(1, "modifiers"))
    text = slot->parser->getActionModifiersDescription(given, isHidden);
  else if (command.is(1, "global"))
    text = slot->parser->getGlobalModifiersDescription(isHidden);
  else
    text = slot->parser->getDescription(isHidden);
  m_transcript.line("#", slot->texts.numberOf(text));
  m_transcript.lines(text != nullptr ? text : "null");
}

// The indent is limited to save memory. Tools can rely on the text of this exception.
void Scene::paragraph(const Command& command) {
  constexpr int widestIndent = 200;
  const auto indent = static_cast<unsigned int>(wrapped(command.number(2), widestIndent));
  const auto width = static_cast<unsigned int>(command.number(3));
  try {
    m_transcript.lines(m_world.paragraphString(command.text(0), command.text(1), indent, width));
  } catch (const std::out_of_range& exception) {
    m_transcript.line("out of range: ", string(exception.what()));
  }
}

void Scene::dash(const Command& command) {
  m_transcript.line(
      m_world.getDashLength(command.text(0), static_cast<unsigned int>(command.number(1))));
}

// Fields 1 and 2 are 0 for null out-parameters.
void Scene::split(const Command& command) {
  string name = "untouched";
  string value = "untouched";
  const bool isSplit =
      m_world.splitOptionValue(command.text(0), command.number(1, 1) != 0 ? &name : nullptr,
                               command.number(2, 1) != 0 ? &value : nullptr);
  m_transcript.line("answers ", isSplit, " ", quoted(name.c_str()), " ", quoted(value.c_str()));
}

}  // namespace kivo_3_3::scenarios
