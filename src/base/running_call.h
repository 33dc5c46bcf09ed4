#pragma once

// Knows the parses and events that are running on a thread. Without this knowledge a handler could
// destroy a parser that is parsing, and parsers that are each other's handlers would pass one event
// on without end.

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

namespace kivo_3_3 {

class RunningParse;
class RunningEvent;

// The innermost parse and the innermost event of a thread that have not returned yet.
struct RunningCalls {
  RunningParse* parse = nullptr;
  RunningEvent* event = nullptr;  // null if none was sent during `parse`
};

// A call during which handlers are notified: a parse, or a parser passing on an event. Handlers may
// start parses, and parsers may be handlers, so calls nest. Each call refers to the calls around
// it.
class RunningCall {
 public:
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;

  // Raises std::runtime_error if more than a hundred parses have been nested during this call. The
  // enclosing calls raise the exception too, so all parses end, and not only the innermost one.
  void throwIfTooDeep() const;

  // Whether a running call of this thread still uses the parser, or fills the result.
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

// A parse into a result, or without one.
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

  // Two events of `parser` are the same if their kinds and their texts are equal. `text` must
  // outlive this object.
  RunningEvent(const EventHandler& parser, Kind kind, const char* text);

  // Whether the same parser is already passing on the same event, during the same parse.
  bool hasComeBack() const;

 private:
  const Kind m_kind;
  const char* const m_text;
};

}  // namespace kivo_3_3
