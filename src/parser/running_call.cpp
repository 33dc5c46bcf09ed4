#include "parser/running_call.h"

namespace kivo_3_3 {

namespace {

// Reached without the dynamic linker's help, which the library otherwise has no need of.
[[gnu::tls_model("initial-exec")]] thread_local const RunningCall* innermost = nullptr;

}  // namespace

RunningCall::RunningCall(const EventHandler& parser, const IParseResult* result)
    : m_parser(&parser), m_result(result), m_isParse(true), m_outer(innermost) {
  innermost = this;
}

RunningCall::RunningCall(const EventHandler& parser)
    : m_parser(&parser), m_isParse(false), m_outer(innermost) {
  innermost = this;
}

RunningCall::~RunningCall() { innermost = m_outer; }

bool RunningCall::isPartOfAParse() const {
  for (const RunningCall* call = m_outer; call != nullptr; call = call->m_outer)
    if (call->m_isParse && call->m_parser == m_parser && call->m_result == m_result)
      return true;
  return false;
}

// The events of a parse are its own: what led to the parse is another event.
bool RunningCall::hasComeBack() const {
  for (const RunningCall* call = m_outer; call != nullptr && !call->m_isParse; call = call->m_outer)
    if (call->m_parser == m_parser)
      return true;
  return false;
}

}  // namespace kivo_3_3
