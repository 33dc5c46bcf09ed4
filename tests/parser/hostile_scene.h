#pragma once

// One parse with every kind of event: options by name and by position, the values of a list, an
// unknown argument, and an argument after "--". A handler is notified of all events, and a test can
// make it do something at one of them.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/command.h"
#include "support/recording_handler.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

// How the arguments reach the parser.
enum class Road { commandLine, stream, optionFile };

class HostileScene {
 public:
  static constexpr int events = 8;

  explicit HostileScene(Road road);

  // Makes the handler do `deed` once, at this event. Events are counted from 1.
  void at(int event, std::function<void()> deed);

  // Parses into a new result, with and without the handler's deed. Returns status, contents and
  // events:
  //   "0: level=1,2 files=a,b x2 | b [option level; value level=1; ...]"
  std::string parse();
  std::string parseUndisturbed();

  // What parse() must return if the handler was notified of the events up to `lastEvent`.
  static std::string expected(int status, const std::string& stored, int lastEvent);
  static std::string undisturbed() { return expected(0, everything, events); }

  // What is stored at the end of the parse, and at the time of an event.
  static constexpr const char* everything = "level=1,2 files=a,b x2 | b";
  static std::string storedAt(int event);

  // Everything in the result, read with every query.
  std::string stored() { return contentsOf(result()); }
  static std::string contentsOf(IParseResult& result);

  // The events that a handler was notified of, without those that only name the option file.
  std::string told(const RecordingHandler& listener) const;
  int countTold(const RecordingHandler& listener) const;

  IParser& parser() { return command.parser(); }
  IParseResult& result() { return command.result(); }

  Command command;
  // In the order of their addresses. Only the middle one is registered from the start; it does the
  // deed.
  RecordingHandler handlers[3];
  RecordingHandler& handler = handlers[1];
  IOption* lastDeclared;

 private:
  int run();

  Road m_road;
  TemporaryFolder m_folder;
  int m_deedAt = 0;
  std::function<void()> m_deed;
};

// Tests with a new scene for each event. The parameter says how the arguments reach the parser.
class HostileHandler : public ::testing::TestWithParam<Road> {
 protected:
  void atEveryEvent(const std::function<void(HostileScene& scene, int event)>& test) {
    for (int event = 1; event <= HostileScene::events; ++event) {
      SCOPED_TRACE(event);
      HostileScene scene(GetParam());
      test(scene, event);
    }
  }

  // Does `deed` at every event, and expects that it makes no difference to the parse.
  void makesNoDifference(const std::function<void(HostileScene& scene)>& deed) {
    atEveryEvent([&](HostileScene& scene, int event) {
      scene.at(event, [&] { deed(scene); });
      EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
      EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
    });
  }
};

inline std::string roadName(const ::testing::TestParamInfo<Road>& road) {
  const char* const names[] = {"CommandLine", "Stream", "OptionFile"};
  return names[static_cast<int>(road.param)];
}

}  // namespace kivo_3_3::testing
