#include "reference/running_calls.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace kivo_3_3::reference {

namespace {

constexpr long deepestNesting = 100;

struct Call {
  const EventHandler* parser;
  const IParseResult* result;  // of a parse
  Event event;                 // `none` for a parse
  const char* text;            // of an event
  bool isTooDeep;
};

std::vector<Call>& calls() {
  static std::vector<Call> all;
  return all;
}

bool isParse(const Call& call) { return call.event == Event::none; }

}  // namespace

RunningParse::RunningParse(const EventHandler& parser, const IParseResult* result) {
  calls().push_back({&parser, result, Event::none, nullptr, false});
  if (std::count_if(calls().begin(), calls().end(), isParse) <= deepestNesting)
    return;
  // Events before the outermost parse were sent by a tool outside of all parses: they do not fail.
  const auto outermost = std::find_if(calls().begin(), calls().end(), isParse);
  std::for_each(outermost, calls().end(), [](Call& call) { call.isTooDeep = true; });
}

RunningParse::~RunningParse() { calls().pop_back(); }

bool RunningParse::isPartOfOuterParse() const {
  const Call& own = calls().back();
  return std::any_of(calls().begin(), calls().end() - 1, [&](const Call& outer) {
    return isParse(outer) && outer.parser == own.parser && outer.result == own.result;
  });
}

RunningEvent::RunningEvent(const EventHandler& parser, Event event, const char* text) {
  calls().push_back({&parser, nullptr, event, text, false});
}

RunningEvent::~RunningEvent() { calls().pop_back(); }

bool isPassingOn(const EventHandler& parser, Event event, const char* text) {
  for (auto call = calls().rbegin(); call != calls().rend() && !isParse(*call); ++call)
    if (call->parser == &parser && call->event == event && std::strcmp(call->text, text) == 0)
      return true;
  return false;
}

void throwIfTooDeep() {
  if (calls().back().isTooDeep)
    throw std::runtime_error("Parses are nested too deep.");
}

bool isInUse(const EventHandler& parser) {
  return std::any_of(calls().begin(), calls().end(),
                     [&](const Call& call) { return call.parser == &parser; });
}

bool isInUse(const IParseResult& result) {
  return std::any_of(calls().begin(), calls().end(),
                     [&](const Call& call) { return call.result == &result; });
}

}  // namespace kivo_3_3::reference
