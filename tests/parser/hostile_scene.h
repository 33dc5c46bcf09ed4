#pragma once

// One parse in which every kind of event comes up: options by name and by position,
// values one by one out of a list, an unknown argument, an argument behind "--". A
// handler hears of it all, and can be made to do something at any one of the events.

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

  // Has `deed` done at one of the events, counted from 1, and only once.
  void at(int event, std::function<void()> deed);

  // Parses into a fresh result, with the handler's deed and without it:
  //   "0: level=1,2 files=a,b x2 | b [option level; value level=1; ...]"
  std::string parse();
  std::string parseUndisturbed();

  // What parse() is to answer when everything up to an event was told.
  static std::string expected(int status, const std::string& stored, int lastEvent);
  static std::string undisturbed() { return expected(0, everything, events); }

  // What is stored when all is through, and when an event comes up.
  static constexpr const char* everything = "level=1,2 files=a,b x2 | b";
  static std::string storedAt(int event);

  // Everything in the result, by every query that there is.
  std::string stored() { return contentsOf(result()); }
  static std::string contentsOf(IParseResult& result);

  // The events that a handler was told of, those that only name the option file aside.
  std::string told(const RecordingHandler& listener) const;
  int countTold(const RecordingHandler& listener) const;

  IParser& parser() { return command.parser(); }
  IParseResult& result() { return command.result(); }

  Command command;
  // In the order of their addresses. Only the middle one is registered from the start,
  // and it is the one that does something.
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

// A scene of its own for each event, on one of the roads.
class HostileHandler : public ::testing::TestWithParam<Road> {
 protected:
  void atEveryEvent(const std::function<void(HostileScene& scene, int event)>& test) {
    for (int event = 1; event <= HostileScene::events; ++event) {
      SCOPED_TRACE(event);
      HostileScene scene(GetParam());
      test(scene, event);
    }
  }

  // The same where what the handler does makes no difference to the parse.
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
