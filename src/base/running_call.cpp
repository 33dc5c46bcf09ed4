#include "base/running_call.h"

#include <cstring>
#include <stdexcept>

namespace kivo_3_3 {

namespace {

constexpr int deepestNesting = 100;

thread_local RunningCall* innermost = nullptr;

}  // namespace

RunningCall::RunningCall(const EventHandler& parser, const IParseResult* result)
    : m_parser(&parser),
      m_result(result),
      m_outer(innermost),
      m_depth(innermost != nullptr ? innermost->m_depth + 1 : 1) {
  innermost = this;
  if (m_depth > deepestNesting)
    endAllParses();
}

// An event that was sent from outside of all parses is none of their calls.
void RunningCall::endAllParses() {
  const RunningCall* outermost = this;
  for (const RunningCall* call = this; call != nullptr; call = call->m_outer)
    if (!call->m_event)
      outermost = call;
  for (RunningCall* call = this; call != outermost->m_outer; call = call->m_outer)
    call->m_isTooDeep = true;
}

RunningCall::RunningCall(const EventHandler& parser, Event event)
    : m_parser(&parser),
      m_event(event),
      m_outer(innermost),
      m_depth(innermost != nullptr ? innermost->m_depth : 0) {
  innermost = this;
}

RunningCall::~RunningCall() { innermost = m_outer; }

bool RunningCall::isPartOfAParse() const {
  for (const RunningCall* call = m_outer; call != nullptr; call = call->m_outer)
    if (!call->m_event && call->m_parser == m_parser && call->m_result == m_result)
      return true;
  return false;
}

// The events of a parse are its own: an event that led to the parse is another one.
bool RunningCall::hasComeBack() const {
  for (const RunningCall* call = m_outer; call != nullptr && call->m_event; call = call->m_outer)
    if (call->m_parser == m_parser && call->m_event->kind == m_event->kind &&
        std::strcmp(call->m_event->text, m_event->text) == 0)
      return true;
  return false;
}

void RunningCall::throwIfTooDeep() const {
  if (m_isTooDeep)
    throw std::runtime_error("Parses are nested too deep.");
}

bool RunningCall::isInUse(const EventHandler& parser) {
  for (const RunningCall* call = innermost; call != nullptr; call = call->m_outer)
    if (call->m_parser == &parser)
      return true;
  return false;
}

bool RunningCall::isInUse(const IParseResult& result) {
  for (const RunningCall* call = innermost; call != nullptr; call = call->m_outer)
    if (call->m_result == &result)
      return true;
  return false;
}

}  // namespace kivo_3_3
