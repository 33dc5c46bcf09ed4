#pragma once

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

namespace kivo_3_3 {

// A call that handlers are told from: a parse, or a parser passing on an event. Handlers
// may start parses, and parsers may be handlers, so such calls nest. Each knows those
// that it was made from.
class RunningCall {
 public:
  // A parse into `result`.
  RunningCall(const EventHandler& parser, const IParseResult* result);
  // A parser passing on an event.
  explicit RunningCall(const EventHandler& parser);
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;
  ~RunningCall();

  // Whether this parse was started while the same parser was filling the same result.
  bool isPartOfAParse() const;

  // Whether the event was passed on by the same parser before.
  bool hasComeBack() const;

 private:
  const EventHandler* m_parser;
  const IParseResult* m_result = nullptr;
  bool m_isParse;
  const RunningCall* m_outer;
};

}  // namespace kivo_3_3
