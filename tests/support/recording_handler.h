#pragma once

#include <kivo/event_handler.h>

#include <functional>
#include <set>
#include <string>

namespace kivo_3_3::testing {

// What the handlers of tests derive from: the interface has no virtual destructor, and
// some compilers warn of that wherever a class derives from it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class TestHandler : public EventHandler {
 public:
  virtual ~TestHandler() = default;
};
#pragma GCC diagnostic pop

// Writes down every event as it comes, and answers as it was told to.
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
  std::function<void()> alsoDo = [] {};  // at every event, when it has been written down

 private:
  void record(const std::string& event) {
    events += (events.empty() ? "" : "; ") + event;
    alsoDo();
  }
};

}  // namespace kivo_3_3::testing
