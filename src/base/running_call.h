#pragma once

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

namespace kivo_3_3 {

class RunningParse;
class RunningEvent;

// The innermost of the calls of a thread that have not returned.
struct RunningCalls {
  RunningParse* parse = nullptr;
  RunningEvent* event = nullptr;  // only one that was sent during `parse`
};

// A call that handlers are notified from: a parse, or a parser passing on an event. Handlers
// may start parses, and parsers may be handlers, so calls nest. Each call knows the calls that
// it was made from.
class RunningCall {
 public:
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;

  // Raises a standard exception once parses have been nested too deep during this call. Each
  // enclosing call raises it too, so all parses end, and not just the innermost.
  void throwIfTooDeep() const;

  // Whether a call that has not returned yet will go on with the parser or the result.
  static bool isInUse(const EventHandler& parser);
  static bool isInUse(const IParseResult& result);

 protected:
  explicit RunningCall(const EventHandler& parser);
  ~RunningCall();

  static void endAllParses();

  const EventHandler* const m_parser;
  const RunningCalls m_outer;

 private:
  static const RunningCall* innermostOf(const RunningCalls& calls);

  bool m_isTooDeep = false;
};

// A parse into a result.
class RunningParse final : public RunningCall {
 public:
  RunningParse(const EventHandler& parser, const IParseResult* result);

  // Whether this parse was started while the same parser was filling the same result.
  bool isPartOfAParse() const;

  bool fills(const IParseResult& result) const { return m_result == &result; }

 private:
  const IParseResult* const m_result;
  const int m_depth;  // the number of nested parses, this one included
};

// A parser passing on an event to its handlers.
class RunningEvent final : public RunningCall {
 public:
  enum Kind { option, value, unknownArgument };

  // `parser` tells an event from others by its kind and its text, and keeps the text.
  RunningEvent(const EventHandler& parser, Kind kind, const char* text);

  // Whether this very event is being passed on by the same parser already.
  bool hasComeBack() const;

 private:
  const Kind m_kind;
  const char* const m_text;
};

}  // namespace kivo_3_3
