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

  // Raises a standard exception once parses have been nested too deep, from here inwards:
  // so all of them end, and not just the innermost.
  void throwIfTooDeep() const;

  // Whether a call that has not returned yet will go on with the parser or the result.
  static bool isInUse(const EventHandler& parser);
  static bool isInUse(const IParseResult& result);

 private:
  const EventHandler* m_parser;
  const IParseResult* m_result = nullptr;
  bool m_isParse;
  RunningCall* m_outer;
  int m_depth;  // so many parses, this one among them
  bool m_isTooDeep = false;
};

}  // namespace kivo_3_3
