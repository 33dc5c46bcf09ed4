#include <kivo/tool.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>

#include "notebook.h"

// The command line of notebook: five commands, each declared where it works, and the options that
// belong to all of them.

namespace notebook {
namespace {

enum class Style { brief, full };
enum class Order { number, due, priority };

constexpr int exitOutputUnwritable = 1;
constexpr int exitWithoutMemory = 3;

// What the options of all commands give.
struct Shared {
  std::filesystem::path file = "notes.txt";
  Style style = Style::brief;
  bool quiet = false;
};

constexpr auto expectTag = [](const std::string& tag) {
  const bool isTag = !tag.empty() && tag != "-" && tag.find_first_of(", \t\r\n") == tag.npos;
  return isTag ? nullptr : "a word without commas and blanks";
};

constexpr auto expectText = [](const std::string& text) {
  return text.find_first_of("\t\r\n") == text.npos ? nullptr : "a text without tabs and line ends";
};

void print(const Note& note, Style style) {
  std::cout << note.number << ". " << note.text;
  for (const std::string& tag : note.tags)
    std::cout << " #" << tag;
  if (style == Style::full) {
    std::cout << " (" << nameOf(note.priority) << " priority";
    if (note.due)
      std::cout << ", due on " << formatValue(*note.due);
    std::cout << ')';
  }
  std::cout << '\n';
}

// Saves a notebook, and tells what one of its notes is now.
int save(const Notebook& notebook, const Note& note, const Shared& shared) {
  notebook.save();
  if (!shared.quiet)
    print(note, shared.style);
  return 0;
}

int add(kivo::Tool& tool, const Shared& shared) {
  Note note;
  std::vector<std::string> tags, words;
  tool.option("priority,p", note.priority, "How important it is.")
      .choices({{"low", Priority::low}, {"normal", Priority::normal}, {"high", Priority::high}});
  tool.option("due,d", note.due, "When it has to be done.").placeholder("DATE");
  tool.option("tag,t", tags, "What it belongs to.").split(',').check(expectTag);
  tool.rest("word", words, "What to note.").required().check(expectText);
  if (const std::optional<int> exit = tool.parse())
    return *exit;

  for (const std::string& word : words)
    note.text += (note.text.empty() ? "" : " ") + word;
  for (const std::string& tag : tags)
    note.addTag(tag);
  Notebook notebook(shared.file);
  return save(notebook, notebook.add(note), shared);
}

struct Selection {
  std::vector<std::string> tags;
  std::optional<Priority> priority;
  std::optional<Date> dueBy;
  bool undated = false;

  bool holds(const Note& note) const {
    const auto hasTag = [&](const std::string& tag) { return note.hasTag(tag); };
    return std::all_of(tags.begin(), tags.end(), hasTag) &&
           (!priority || note.priority == *priority) && (!undated || !note.due) &&
           (!dueBy || (note.due && !(*dueBy < *note.due)));
  }
};

// Notes without a date come after all others, and important ones before others.
bool comesBefore(const Note& left, const Note& right, Order order) {
  if (order == Order::priority)
    return left.priority > right.priority;
  return order == Order::due && left.due && (!right.due || *left.due < *right.due);
}

int list(kivo::Tool& tool, const Shared& shared) {
  Selection selection;
  Order order = Order::number;
  std::optional<unsigned int> limit;
  tool.section("Which notes");
  tool.option("tag,t", selection.tags, "Notes with all of these tags.").split(',').check(expectTag);
  tool.option("priority,p", selection.priority, "Notes of one priority.")
      .choices({{"low", Priority::low}, {"normal", Priority::normal}, {"high", Priority::high}});
  tool.option("due-by", selection.dueBy, "Notes due on this day or before.").placeholder("DATE");
  tool.flag("undated", selection.undated, "Notes without a date.");
  tool.atMostOne({"due-by", "undated"});
  tool.section("How to list them");
  tool.option("sort,s", order, "What comes first.")
      .choices({{"number", Order::number}, {"due", Order::due}, {"priority", Order::priority}});
  tool.option("limit,l", limit, "How many notes to list.").range(1, 1000).env("NOTEBOOK_LIMIT");
  if (const std::optional<int> exit = tool.parse())
    return *exit;

  std::vector<Note> notes = Notebook(shared.file).notes();
  notes.erase(std::remove_if(notes.begin(), notes.end(),
                             [&](const Note& note) { return !selection.holds(note); }),
              notes.end());
  std::stable_sort(notes.begin(), notes.end(), [&](const Note& left, const Note& right) {
    return comesBefore(left, right, order);
  });
  notes.resize(std::min<std::size_t>(notes.size(), limit.value_or(Notebook::highestNumber)));
  for (const Note& note : notes)
    print(note, shared.style);
  return 0;
}

int show(kivo::Tool& tool, const Shared& shared) {
  std::vector<unsigned int> numbers;
  tool.rest("number", numbers, "Which notes.").required().range(1, Notebook::highestNumber);
  if (const std::optional<int> exit = tool.parse())
    return *exit;

  Notebook notebook(shared.file);
  for (const unsigned int number : numbers)
    print(notebook.find(number), Style::full);
  return 0;
}

int addTags(kivo::Tool& tool, const Shared& shared) {
  unsigned int number = 0;
  std::vector<std::string> tags;
  tool.operand("number", number, "Which note.").required().range(1, Notebook::highestNumber);
  tool.rest("tag", tags, "What it belongs to.").required().check(expectTag);
  if (const std::optional<int> exit = tool.parse())
    return *exit;

  Notebook notebook(shared.file);
  Note& note = notebook.find(number);
  for (const std::string& tag : tags)
    note.addTag(tag);
  return save(notebook, note, shared);
}

int removeTags(kivo::Tool& tool, const Shared& shared) {
  unsigned int number = 0;
  std::vector<std::string> tags;
  bool all = false;
  tool.operand("number", number, "Which note.").required().range(1, Notebook::highestNumber);
  tool.option("tag,t", tags, "What it no longer belongs to.").split(',').check(expectTag);
  tool.flag("all,a", all, "It belongs to nothing any more.");
  tool.exactlyOne({"tag", "all"});
  if (const std::optional<int> exit = tool.parse())
    return *exit;

  Notebook notebook(shared.file);
  Note& note = notebook.find(number);
  for (const std::string& tag : all ? std::vector<std::string>(note.tags) : tags)
    note.removeTag(tag);
  return save(notebook, note, shared);
}

void declareShared(kivo::Tool& tool, Shared& shared) {
  tool.option("file,f", shared.file, "Where the notes are.").env("NOTEBOOK_FILE");
  tool.option("style", shared.style, "How much of a note to print.")
      .choices({{"brief", Style::brief}, {"full", Style::full}})
      .env("NOTEBOOK_STYLE");
  tool.flag("quiet,q", shared.quiet, "Print no note that was changed.").env("NOTEBOOK_QUIET");
  tool.config("config", "~/.notebookrc", "Where options of all commands are, one a line.")
      .env("NOTEBOOK_CONFIG");
  tool.footer("Dates are given as 2026-05-01, tags as words.");
}

void declareCommands(kivo::Tool& tool, const Shared& shared) {
  const auto declare = [&](const char* words, const char* help, auto run) {
    tool.command(words, help, [run, &shared](kivo::Tool& command) { return run(command, shared); });
  };
  declare("add", "Add a note.", add);
  declare("list", "List notes.", list);
  declare("show", "Show all about some notes.", show);
  declare("tag add", "Add tags to a note.", addTags);
  declare("tag remove", "Remove tags from a note.", removeTags);
}

int run(kivo::Tool& tool, int argc, const char* const* argv) {
  Shared shared;
  declareShared(tool, shared);
  declareCommands(tool, shared);
  const int status = tool.main(argc, argv);
  std::cout.flush();
  if (std::cout)
    return status;
  std::cerr << "notebook: The output cannot be written.\n";
  return exitOutputUnwritable;
}

}  // namespace
}  // namespace notebook

int main(int argc, char** argv) {
  kivo::Tool tool("notebook", "Keeps notes in a text file.", "1.0");
  try {
    return notebook::run(tool, argc, argv);
  } catch (const std::bad_alloc&) {
    std::cerr << "notebook: Out of memory\n";
    return notebook::exitWithoutMemory;
  } catch (const std::exception& problem) {
    return tool.fail(problem.what());
  }
}
