// Declares a tool on kivo/tool.h, right or wrong, runs it twice on a command line, an environment
// and a configuration file, and checks the rules that hold for each tool.
//
// Each line declares, amends what was declared last, or tells what the tool gets. What follows a
// command belongs to it.
//   status NUMBER   columns NUMBER   memory ALLOCATIONS
//   option, operand, rest NAMES|TYPE HOLDER|DEFAULT|HELP|OWN PARSER
//   flag, count, each, config NAMES|DEFAULT FILE OR EXCEPTION||HELP
//   action NAMES|STATUS|EXCEPTION|HELP   command WORDS|STATUS|EXCEPTION|HELP
//   required   hidden   range LOW|HIGH   choice TEXT|VALUE   former TEXT|NOW   check MODE
//   env NAME   placeholder TEXT   split C   only ACTIONS   deprecated TEXT   shown TEXT
//   most NAME|NAME|NAME   exactly NAME|NAME|NAME   section TEXT   footer TEXT
//   set NAME|VALUE   line TEXT   arg TEXT

#include <cstdlib>
#include <cstring>

#ifdef KIVO_FUZZ
#include <sanitizer/lsan_interface.h>
#endif

#include "allocation/allocation_limit.h"
#include "bedrock/assertion.h"
#include "fuzz/fuzz.h"
#include "fuzz/parsing.h"
#include "fuzz/tool_slots.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

// Texts that a run leaves, without an allocation.
class Kept {
 public:
  void add(const char* text) {
    for (; *text != '\0' && m_size + 1 < sizeof m_text; ++text)
      m_text[m_size++] = *text;
    m_text[m_size] = '\0';
  }
  void clear() { m_text[m_size = 0] = '\0'; }
  string text() const { return m_text; }

 private:
  char m_text[200'000] = "";
  std::size_t m_size = 0;
};

// Of the run that is going on.
Kept printed, errors, mistakes;

void reset() {
  for (Kept* kept : {&printed, &errors, &mistakes})
    kept->clear();
}

// The declarations of a tool or of a command.
struct Part {
  const Step* command = nullptr;
  std::vector<std::pair<const Step*, Slot*>> items;
  std::vector<std::unique_ptr<Slot>> slots;
};

bool isVariable(const Step& step) {
  return step.is("option") || step.is("operand") || step.is("rest");
}

bool isOther(const Step& step) {
  return step.is("flag") || step.is("count") || step.is("each") || step.is("config");
}

int columnsIn(const Script& script) { return std::max(numberIn(script, "columns", 80), 1); }

// The variables of the environment that a script sets, for the lifetime of this object.
class Environment {
 public:
  explicit Environment(const Script& script) {
    for (const Step& step : script) {
      if (step.is("set") && step.text(0).compare(0, 2, "F_") == 0 &&
          step.text(0).find('=') == string::npos)
        set(step.text(0), step.text(1));
    }
    set("COLUMNS", std::to_string(columnsIn(script)));
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() {
    for (const string& name : m_names)
      unsetenv(name.c_str());
  }

 private:
  void set(const string& name, const string& text) {
    setenv(name.c_str(), text.c_str(), 1);
    m_names.push_back(name);
  }

  std::vector<string> m_names;
};

// What a run came to.
struct Outcome {
  enum Sort { goesOn, ended, threw };
  Sort sort = goesOn;
  int status = -1;
  bool isDone = false;  // the command line was right: an action or a command did its work
  bool isOutOfMemory = false;
  string command;  // that read the command line
  string before, after, help;
};

// One run of the tool of a script.
class Scene {
 public:
  Scene(const Script& script, const string& path) : m_path(path) {
    m_parts.emplace_back();
    for (const Step& step : script)
      take(step);
  }
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  Outcome run(const std::vector<const char*>& words, long memory) {
    Outcome outcome;
    outcome.before = values();
    {
      std::optional<testing::AllocationLimit> limit;
      if (memory >= 0)
        limit.emplace(memory, testing::Failing::forEver);
      runLimited(outcome, words, memory < 0);
      outcome.isOutOfMemory = limit && limit->reached();
    }
    outcome.isDone = m_isDone || outcome.sort == Outcome::goesOn;
    outcome.command = m_command != nullptr ? m_command->command->text(0) : "";
    outcome.after = values();
    return outcome;
  }

  template <class Visit>
  void eachSlot(Visit visit) const {
    for (const Part& part : m_parts) {
      if (&part == &m_parts.front() || &part == m_command)
        for (const auto& slot : part.slots)
          visit(*slot);
    }
  }
  // Of the tool and of the command that ran.
  template <class Visit>
  void eachItem(Visit visit) const {
    for (const Part& part : m_parts) {
      if (&part == &m_parts.front() || &part == m_command)
        for (const auto& [step, slot] : part.items)
          visit(*step, part);
    }
  }

 private:
  void take(const Step& step) {
    Part& part = m_parts.back();
    if (isVariable(step) || isOther(step)) {
      part.slots.push_back(isVariable(step) ? variableSlot(step)
                                            : std::make_unique<OtherSlot>(step, m_path));
      part.items.emplace_back(&step, part.slots.back().get());
    } else if (step.is("command")) {
      m_parts.emplace_back().command = &step;
    } else {
      part.items.emplace_back(&step, nullptr);
      if (!part.slots.empty())
        part.slots.back()->amend(step);
    }
  }

  void runLimited(Outcome& outcome, const std::vector<const char*>& words, bool withHelp) {
    try {
      Tool tool(m_name, m_summary, m_version);
      tool.output([](const char* text, bool isError) { (isError ? errors : printed).add(text); });
      declare(tool, m_parts.front());
      for (std::size_t index = 1; index < m_parts.size(); ++index)
        addCommand(tool, m_parts[index]);
      if (withHelp)
        outcome.help = tool.help();
      const auto exit = tool.parse(static_cast<int>(words.size()), words.data());
      outcome.sort = exit ? Outcome::ended : Outcome::goesOn;
      outcome.status = exit.value_or(-1);
      noteGiven(m_parts.front());
    } catch (...) {
      outcome.sort = Outcome::threw;
    }
  }

  void addCommand(Tool& tool, Part& part) {
    const Step& step = *part.command;
    tool.command(step.textOrNull(0), step.textOrNull(3), [this, &part](Tool& inner) {
      m_command = &part;
      declare(inner, part);
      if (const std::optional<int> exit = inner.parse())
        return *exit;
      m_isDone = true;
      noteGiven(part);
      throwIfAsked(part.command->number(2));
      return part.command->number(1);
    });
  }

  void declare(Tool& tool, const Part& part) {
    for (const auto& [step, slot] : part.items) {
      if (slot != nullptr)
        slot->declare(tool);
      else
        declareOther(tool, *step);
    }
  }

  void declareOther(Tool& tool, const Step& step) {
    if (step.is("action"))
      tool.action(step.textOrNull(0), step.textOrNull(3), [this, &step] {
        m_isDone = true;
        throwIfAsked(step.number(2));
        return step.number(1);
      });
    else if (step.is("most"))
      tool.atMostOne({step.textOrNull(0), step.textOrNull(1), step.textOrNull(2)});
    else if (step.is("exactly"))
      tool.exactlyOne({step.textOrNull(0), step.textOrNull(1), step.textOrNull(2)});
    else if (step.is("section"))
      tool.section(step.textOrNull(0));
    else if (step.is("footer"))
      tool.footer(step.textOrNull(0));
    else if (step.is("status"))
      tool.usageStatus(step.number(0));
  }

  static void noteGiven(const Part& part) {
    for (const auto& slot : part.slots)
      slot->noteGiven();
  }

  string values() const {
    string all;
    for (const Part& part : m_parts) {
      for (const auto& slot : part.slots)
        all += slot->value() + '\n';
    }
    return all;
  }

  const string& m_path;
  const char *m_name = "tool", *m_summary = "A tool.", *m_version = "1.0";
  std::deque<Part> m_parts;
  const Part* m_command = nullptr;
  bool m_isDone = false;
};

const char* const outOfMemory = "tool: Memory has run out.\n";

bool throwsWhileReading(const Script& script) {
  return std::any_of(script.begin(), script.end(), [](const Step& step) {
    const int what = step.is("each") ? step.number(1) : step.is("check") ? step.number(0) : 0;
    return (what >= 1 && what <= 3) || (isVariable(step) && step.text(2) == "throw");
  });
}

bool contains(const Script& script, const char* verb) {
  return std::any_of(script.begin(), script.end(), [&](const Step& step) { return step.is(verb); });
}

bool endsWith(const string& text, const string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Checks the rules for one run.
class Rules {
 public:
  Rules(const Script& script, const Scene& scene, const Outcome& outcome)
      : m_script(script), m_scene(scene), m_outcome(outcome) {}

  void check() const {
    if (m_outcome.sort == Outcome::threw)
      return checkThrown();
    if (!m_outcome.isDone && !contains(m_script, "each"))
      expectEqual("without success, no variable changes", m_outcome.before, m_outcome.after);
    if (m_outcome.isOutOfMemory)
      return checkOutOfMemory();
    if (m_outcome.isDone)
      checkDone();
    else if (!printed.text().empty())
      checkPrinted();
    else
      checkRefused();
    checkLines(m_outcome.help);
  }

 private:
  void checkThrown() const {
    const bool mayThrow = throwsWhileReading(m_script) ||
                          std::any_of(m_script.begin(), m_script.end(), [](const Step& step) {
                            return (step.is("action") || step.is("command")) && step.number(2) != 0;
                          });
    expect(mayThrow, "nothing is thrown", all());
  }

  void checkOutOfMemory() const {
    if (m_outcome.isDone)
      return;
    expectEqual("without memory, the status is 3", "3", std::to_string(m_outcome.status));
    constexpr int forOutput = 10;  // allocations until the tool has its output
    expect(endsWith(errors.text(), outOfMemory) ||
               std::abs(numberIn(m_script, "memory", 0)) < forOutput,
           "lack of memory is told", all());
  }

  void checkDone() const {
    expectEqual("a success prints nothing", "", printed.text());
    if (!contains(m_script, "deprecated") && !contains(m_script, "former"))
      expectEqual("a success without deprecated options tells nothing", "", errors.text());
    if (!mistakes.text().empty())
      return;
    m_scene.eachSlot([&](const Slot& slot) { checkSlot(slot); });
    m_scene.eachItem([&](const Step& step, const Part& part) { checkGroup(step, part); });
  }

  void checkSlot(const Slot& slot) const {
    if (slot.has("only"))
      return;
    const string name = slot.step().text(0);
    if (slot.has("required"))
      expect(slot.given() != 0, "what is required was given", name + '\n' + all());
    if (slot.given() != 0)
      expectEqual("a variable holds what it may", "", slot.objection());
    if (slot.isOperand() && !slot.step().is("rest"))
      expect(slot.given() <= 1, "an operand is given once", name + '\n' + all());
  }

  // Only where each name is an option's own, so that the members can be counted.
  void checkGroup(const Step& step, const Part& part) const {
    if (!step.is("most") && !step.is("exactly"))
      return;
    std::set<const Slot*> members;
    for (std::size_t field = 0; field < 3; ++field) {
      for (const auto& slot : part.slots) {
        if (slot->step().text(0) == step.text(field) && !slot->isOperand())
          members.insert(slot->has("only") ? nullptr : slot.get());
      }
    }
    if (members.size() != 3 || members.count(nullptr) != 0)
      return;
    const auto given = std::count_if(members.begin(), members.end(),
                                     [](const Slot* slot) { return slot->given() != 0; });
    expect(given <= (1) && (given == 1 || step.is("most")), "a group has as many as it takes",
           step.text(0) + '\n' + all());
  }

  // Help, the version, or a list of commands.
  void checkPrinted() const {
    expectEqual("what is printed is no error", "0", std::to_string(m_outcome.status));
    expectEqual("nothing is told beside what is printed", "", errors.text());
    if (printed.text().compare(0, 6, "Usage:") == 0)
      checkLines(printed.text());
    else
      expect(printed.text() == "tool 1.0\n" || contains(m_script, "command"),
             "what is printed was asked for", all());
  }

  void checkRefused() const {
    const bool hasWords = m_outcome.command.find_first_not_of(' ') != string::npos;
    const bool isOdd = !hasWords && std::any_of(m_script.begin(), m_script.end(), [](auto& step) {
      return step.is("command") && step.text(0).find_first_not_of(' ') == string::npos;
    });
    const string called = hasWords ? "tool " + m_outcome.command : isOdd ? "" : "tool";
    const string told = errors.text();
    if (endsWith(told, outOfMemory)) {
      return expect(m_outcome.status == 3 && throwsWhileReading(m_script),
                    "only a lack of memory is told as one, with status 3", all());
    }
    expect(told.compare(0, 6, "tool: ") == 0 &&
               endsWith(told, (isOdd ? "" : "\nTry '" + called) + " --help'.\n"),
           "an error names the tool and the way to the help", all());
    const bool isUsage = m_outcome.status == 2 || contains(m_script, "status");
    expect(isUsage || (m_outcome.status == 4 && throwsWhileReading(m_script)),
           "a status is a documented one", all());
  }

  // Only the names of options and headings may be wider than the page.
  void checkLines(const string& page) const {
    if (hasOddNames())
      return;
    const int columns = std::clamp(columnsIn(m_script), 60, 100);
    for (const string& line : linesOf(page)) {
      const auto width = std::count_if(line.begin(), line.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
      });
      const std::size_t begin = line.find_first_not_of(' ');
      const bool isName = begin == 2 || (begin == 6 && line[6] == '-');
      expect(width <= columns || isName || endsWith(line, ":"), "lines are as wide as the page",
             line + '\n' + all());
    }
  }

  // Names that begin with a blank or have several lines stand in the help as they are.
  bool hasOddNames() const {
    return std::any_of(m_script.begin(), m_script.end(), [](const Step& step) {
      const string text = step.text(0);
      return (isVariable(step) || isOther(step) || step.is("command") || step.is("action") ||
              step.is("placeholder") || step.is("section")) &&
             (text[0] == ' ' || text.find('\n') != string::npos);
    });
  }

  string all() const {
    return "status " + std::to_string(m_outcome.status) + "\nprinted: " + printed.text() +
           "\nerrors: " + errors.text() + "\nmistakes: " + mistakes.text() +
           "\nvalues: " + m_outcome.after;
  }

  const Script& m_script;
  const Scene& m_scene;
  const Outcome& m_outcome;
};

// The words of the command line; FILE at the end of one is the path of the configuration file.
std::deque<string> commandLineOf(const Script& script, const string& path) {
  std::deque<string> words = {"tool"};
  for (const Step& step : script) {
    if (!step.is("arg"))
      continue;
    const string word = step.text(0);
    words.push_back(endsWith(word, "=FILE") ? word.substr(0, word.size() - 4) + path : word);
  }
  return words;
}

void writeFile(const Script& script, const string& path) {
  std::ofstream file(path, std::ios::binary);
  for (const Step& step : script) {
    if (step.is("line"))
      file << step.text(0) << '\n';
  }
}

bool declaresHelp(const Script& script) {
  return std::any_of(script.begin(), script.end(), [](const Step& step) {
    const std::vector<string> names = wordsOf(step.text(0));
    return (isVariable(step) || isOther(step) || step.is("action")) &&
           std::find(names.begin(), names.end(), "help") != names.end();
  });
}

// Help that is asked for before "--" wins over everything.
void checkHelp(const Script& script, const std::deque<string>& words, const Outcome& outcome) {
  const auto end = std::find(words.begin(), words.end(), "--");
  const bool isAsked = std::find(words.begin(), end, "--help") != end;
  if (isAsked && mistakes.text().empty() && !declaresHelp(script) && !throwsWhileReading(script))
    expect(outcome.status == 0 && !printed.text().empty(), "help wins",
           printed.text() + errors.text());
}

string shown(const Outcome& outcome) {
  return std::to_string(outcome.sort) + ' ' + std::to_string(outcome.status) + '\n' +
         outcome.after + outcome.help + printed.text() + '\n' + errors.text() + mistakes.text();
}

string run(const Script& script, const std::deque<string>& words, const string& path, long memory) {
  startAfresh();
  reset();
  Scene scene(script, path);
  std::vector<const char*> argv;
  for (const string& word : words)
    argv.push_back(word.c_str());
  const Outcome outcome = scene.run(argv, memory);
  Rules(script, scene, outcome).check();
  if (!outcome.isOutOfMemory)
    checkHelp(script, words, outcome);
  return shown(outcome);
}

void runWithoutMemory(const Script& script, const std::deque<string>& words, const string& path) {
#ifdef KIVO_FUZZ
  // libFuzzer is compiled without exceptions, and the linker takes its functions of std::vector:
  // what is thrown in one of them leaves a block.
  const __lsan::ScopedDisabler withoutLeaks;
#endif
  run(script, words, path, std::abs(numberIn(script, "memory", 0)));
}

// Nothing but the description is written, and no variable changes.
void describeAll(const Script& script, const string& path) {
  startAfresh();
  reset();
  Scene scene(script, path);
  const Outcome outcome = scene.run({"tool", "kivooption=kivodescribe=json"}, -1);
  if (outcome.sort == Outcome::threw || throwsWhileReading(script))
    return;
  expectEqual("a description is a success", "0", std::to_string(outcome.status));
  expect(printed.text().compare(0, 11, "{\"schema\":\"") == 0 && endsWith(printed.text(), "}\n"),
         "a description is an object", printed.text());
  expectEqual("a description changes nothing", outcome.before, outcome.after);
}

void noteMistake(const char* mistake, const char*, int) {
  mistakes.add(mistake);
  mistakes.add("; ");
}

}  // namespace

void runScript(const Script& script) {
  static const testing::TemporaryFolder folder;
  static const string path = folder.path("rc");
  BEDROCK::set_assertion_handler(noteMistake);
  const Environment environment(script);
  writeFile(script, path);
  const std::deque<string> words = commandLineOf(script, path);
  if (words.size() > 1 && words[1].compare(0, 11, "kivooption=") == 0)
    return;
  expectEqual("a second run does the same", run(script, words, path, -1),
              run(script, words, path, -1));
  describeAll(script, path);
  if (contains(script, "memory"))
    runWithoutMemory(script, words, path);
}

}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kivo_3_3::fuzzing::runScript(kivo_3_3::fuzzing::scriptOf(data, size));
  return 0;
}
