#include "parser/hostile_scene.h"

#include <algorithm>
#include <utility>

namespace kivo_3_3::testing {

namespace {

using std::string;

constexpr int flags =
    parserFlags::leftoverArgumentsArePositional | parserFlags::dashArgumentsAreNeverPositional;

const char* const allEvents[HostileScene::events] = {
    "option level", "value level=1", "value level=2", "unknown -x",
    "option files", "value files=a", "option files",  "value files=b"};

// Renders one option: "level=1,2 x2", with the number of occurrences if there are several.
string optionIn(IParseResult& result, const char* name) {
  if (!result.present(name))
    return "";
  int occurrences = 0;
  while (result.nextPosition() != lastPosition)
    ++occurrences;
  string text = name;
  string last;
  for (Value value = result.get(name); value.isEmpty == 0; value = result.next(name)) {
    last = value.text;
    text += (text == name ? "=" : ",") + last;
  }
  EXPECT_EQ(last, getLastValue(&result, name).text);
  return occurrences > 1 ? text + " x" + std::to_string(occurrences) : text;
}

}  // namespace

HostileScene::HostileScene(Road road) : command(flags), m_road(road) {
  parser().addOptionFileOption("", nullptr);
  command.option("level", vtS32);
  lastDeclared = command.option("files", vtString)->positional();
  parser().addHandler(&handler);
  handler.alsoDo = [this] {
    if (countTold(handler) == m_deedAt && m_deed != nullptr)
      std::exchange(m_deed, nullptr)();
  };
}

void HostileScene::at(int event, std::function<void()> deed) {
  m_deedAt = event;
  m_deed = std::move(deed);
}

string HostileScene::parse() {
  for (RecordingHandler& listener : handlers)
    listener.events.clear();
  const int status = run();
  EXPECT_FALSE(m_deed) << "was never done";
  return std::to_string(status) + ": " + stored() + " [" + told(handler) + "]";
}

string HostileScene::parseUndisturbed() {
  m_deed = nullptr;
  parser().addHandler(&handler);
  return parse();
}

int HostileScene::run() {
  const std::vector<string> args = {"--level=1,2", "-x", "a", "--", "b"};
  if (m_road == Road::commandLine)
    return command.parse(args);
  string lines;
  for (const string& argument : args)
    lines += argument + "\n";
  if (m_road == Road::stream)
    return command.parseStream(lines.c_str());
  return command.parse({"--option-file=" + m_folder.write("arguments", lines)});
}

string HostileScene::storedAt(int event) {
  if (event <= 3)
    return "";
  return event <= 6 ? "level=1,2" : "level=1,2 files=a | b";
}

string HostileScene::expected(int status, const string& stored, int lastEvent) {
  string text = std::to_string(status) + ": " + stored + " [";
  for (int i = 0; i < lastEvent; ++i)
    text += string(i == 0 ? "" : "; ") + allEvents[i];
  return text + "]";
}

string HostileScene::contentsOf(IParseResult& result) {
  string text;
  const auto append = [&](const string& part) {
    if (!part.empty())
      text += (text.empty() ? "" : " ") + part;
  };
  for (const char* name : {"level", "files"})
    append(optionIn(result, name));
  EXPECT_FALSE(result.present("unknown"));
  EXPECT_EQ(1, result.next("unknown").isEmpty);
  const char* argument = nullptr;
  int status = result.getFirstArgument(&argument);
  for (append(status == 0 ? "|" : ""); status == 0; status = result.getNextArgument(&argument))
    append(argument);
  return text;
}

string HostileScene::told(const RecordingHandler& listener) const {
  const string namesTheFile = "option option-file; value option-file=" + m_folder.path("arguments");
  if (listener.events.compare(0, namesTheFile.size(), namesTheFile) != 0)
    return listener.events;
  return listener.events.substr(std::min(namesTheFile.size() + 2, listener.events.size()));
}

int HostileScene::countTold(const RecordingHandler& listener) const {
  const string all = told(listener);
  const bool none = all.empty() || all == "option option-file";
  return none ? 0 : static_cast<int>(std::count(all.begin(), all.end(), ';')) + 1;
}

}  // namespace kivo_3_3::testing
