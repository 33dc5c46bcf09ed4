// The running calls of a thread form a linked list on its stack: a constructor adds its call, and
// the destructor removes it. A call left in the list would be a dangling pointer.

#include "base/running_call.h"

#include <cstring>
#include <stdexcept>

namespace kivo_3_3 {

namespace {

constexpr int deepestNesting = 100;  // parses; documented in kivo/event_handler.h

thread_local RunningCalls running;

}  // namespace

RunningCall::RunningCall(const EventHandler& parser) : m_parser(&parser), m_outer(running) {}

RunningCall::~RunningCall() { running = m_outer; }

// Marks every running parse, and every event that was sent during one. An event that was sent
// outside of any parse is not marked, so the remaining handlers are still notified of it.
void RunningCall::endAllParses() {
  for (RunningCalls calls = running; calls.parse != nullptr; calls = calls.parse->m_outer) {
    for (RunningEvent* event = calls.event; event != nullptr; event = event->m_outer.event)
      event->m_isTooDeep = true;
    calls.parse->m_isTooDeep = true;
  }
}

void RunningCall::throwIfTooDeep() const {
  if (m_isTooDeep)
    throw std::runtime_error("Parses are nested too deep.");
}

const RunningCall* RunningCall::innermostOf(const RunningCalls& calls) {
  return calls.event != nullptr ? static_cast<const RunningCall*>(calls.event) : calls.parse;
}

bool RunningCall::isInUse(const EventHandler& parser) {
  const RunningCall* call = innermostOf(running);
  while (call != nullptr && call->m_parser != &parser)
    call = innermostOf(call->m_outer);
  return call != nullptr;
}

bool RunningCall::isInUse(const IParseResult& result) {
  const RunningParse* parse = running.parse;
  while (parse != nullptr && !parse->fills(result))
    parse = parse->m_outer.parse;
  return parse != nullptr;
}

RunningParse::RunningParse(const EventHandler& parser, const IParseResult* result)
    : RunningCall(parser),
      m_result(result),
      m_depth(m_outer.parse != nullptr ? m_outer.parse->m_depth + 1 : 1) {
  running = {this, nullptr};
  if (m_depth > deepestNesting)
    endAllParses();
}

bool RunningParse::isPartOfAParse() const {
  for (const RunningParse* parse = m_outer.parse; parse != nullptr; parse = parse->m_outer.parse)
    if (parse->m_parser == m_parser && parse->m_result == m_result)
      return true;
  return false;
}

RunningEvent::RunningEvent(const EventHandler& parser, Kind kind, const char* text)
    : RunningCall(parser), m_kind(kind), m_text(text) {
  running.event = this;
}

// The list has only the events that were sent during the same parse: an equal event of a nested
// parse is another event.
bool RunningEvent::hasComeBack() const {
  for (const RunningEvent* event = m_outer.event; event != nullptr; event = event->m_outer.event)
    if (event->m_parser == m_parser && event->m_kind == m_kind &&
        std::strcmp(event->m_text, m_text) == 0)
      return true;
  return false;
}

}  // namespace kivo_3_3
