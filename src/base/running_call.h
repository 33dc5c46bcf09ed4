#pragma once

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

#include <optional>

namespace kivo_3_3 {

// A call that handlers are notified from: a parse, or a parser passing on an event. Handlers
// may start parses, and parsers may be handlers, so such calls nest. Each call knows the calls
// that it was made from.
class RunningCall {
 public:
  // An event as the parser that passes it on tells it from others: by its kind and its text,
  // which that parser keeps.
  struct Event {
    enum Kind { option, value, unknownArgument };
    Kind kind;
    const char* text;
  };

  // A parse into `result`.
  RunningCall(const EventHandler& parser, const IParseResult* result);
  // A parser passing on an event.
  RunningCall(const EventHandler& parser, Event event);
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;
  ~RunningCall();

  // Whether this parse was started while the same parser was filling the same result.
  bool isPartOfAParse() const;

  // Whether this very event is being passed on by the same parser already.
  bool hasComeBack() const;

  // Raises a standard exception once parses have been nested too deep, from here inwards:
  // so all of them end, and not just the innermost.
  void throwIfTooDeep() const;

  // Whether a call that has not returned yet will go on with the parser or the result.
  static bool isInUse(const EventHandler& parser);
  static bool isInUse(const IParseResult& result);

 private:
  void endAllParses();

  const EventHandler* m_parser;
  const IParseResult* m_result = nullptr;
  std::optional<Event> m_event;  // none for a parse
  RunningCall* m_outer;
  int m_depth;  // so many parses, this one among them
  bool m_isTooDeep = false;
};

}  // namespace kivo_3_3
