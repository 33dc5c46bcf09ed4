#pragma once

#include <kivo/event_handler.h>

#include <functional>
#include <set>
#include <string>

namespace kivo_3_3::testing {

// The base class of the handlers in tests. The interface has no virtual destructor, and some
// compilers warn about each class that derives from it directly.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class TestHandler : public EventHandler {
 public:
  virtual ~TestHandler() = default;
};
#pragma GCC diagnostic pop

// Records every event, and answers as its fields say.
class RecordingHandler final : public TestHandler {
 public:
  bool onOptionParse(const char* name) override {
    record(std::string("option ") + name);
    return acceptsOptions;
  }
  bool onValueParse(const char* name, const Value& value) override {
    record(std::string("value ") + name + "=" + value.text);
    return refusedValues.count(value.text) == 0;
  }
  bool onUknownArgument(const char* argument) override {
    record(std::string("unknown ") + argument);
    return acceptsUnknown;
  }

  std::string events;  // "option level; value level=3; unknown x"
  std::set<std::string> refusedValues;
  bool acceptsOptions = true;
  bool acceptsUnknown = true;
  std::function<void()> alsoDo = [] {};  // at every event, after it is recorded

 private:
  void record(const std::string& event) {
    events += (events.empty() ? "" : "; ") + event;
    alsoDo();
  }
};

}  // namespace kivo_3_3::testing
