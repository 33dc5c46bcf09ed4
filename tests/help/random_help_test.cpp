// Compares the help of random tools with a naive reference, the functions ...ByTheLetter(). The
// reference walks all declarations for each section and concatenates every line. It wraps lines
// with the paragraphString() of the library, which text_layout_test.cpp tests.

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <utility>
#include <vector>

namespace kivo_3_3::testing {
namespace {

using std::string;

struct Value {
  variant_t value;
  string text;
};

struct Kind {
  variant_type_t type;
  string name;
  std::vector<Value> values;
};

struct Declared {
  std::vector<string> names;
  string description;
  string key;
  Kind kind;
  bool isAction = false;
  std::vector<string> tags;
  bool isPositional = false;
  std::optional<Value> byDefault;
  std::vector<Value> allowed;
};

using Selection = std::vector<Declared>;

struct Tool {
  Selection declared;
  std::vector<std::pair<string, string>> sections;
};

const std::vector<Kind>& kinds() {
  static const std::vector<Kind> all = {
      {vtNull, "", {{"x", "x"}}},
      {vtBool, "", {{true, "1"}, {false, "0"}}},
      {vtS32, "integer", {{-3, "-3"}, {0, "0"}, {true, "1"}}},
      {vtU32, "unsigned integer", {{4000000000u, "4000000000"}}},
      {vtS64, "64 bit integer", {{-5000000000LL, "-5000000000"}, {7, "7"}}},
      {vtU64, "unsigned 64 bit or hex", {{18446744073709551615ULL, "18446744073709551615"}}},
      {vtDouble, "double", {{0.5, "0.5"}, {1234567.0, "1.23457e+06"}, {2, "2"}}},
      {vtString,
       "string",
       {{"", ""}, {"some text", "some text"}, {string(40, 'x').c_str(), string(40, 'x')}}},
      {stratum2::vtS8, "", {{3, ""}}},
  };
  return all;
}

string joined(const std::vector<string>& names, const string& separator) {
  string all = names.front();
  for (std::size_t i = 1; i < names.size(); ++i)
    all += separator + names[i];
  return all;
}

class RandomTools {
 public:
  Tool next() {
    Tool tool;
    const bool hasActions = upTo(1) == 0;
    for (unsigned int i = 0, count = upTo(40); i != count; ++i)
      tool.declared.push_back(declaration(tool, hasActions && upTo(4) == 0));
    return tool;
  }

 private:
  unsigned int upTo(unsigned int most) {
    return static_cast<unsigned int>(m_numbers()) % (most + 1);
  }

  template <class T>
  const T& oneOf(const std::vector<T>& all) {
    return all[upTo(static_cast<unsigned int>(all.size()) - 1)];
  }

  string letters(unsigned int most, const string& from) {
    string text;
    for (unsigned int i = upTo(most); i != 0; --i)
      text += from[upTo(static_cast<unsigned int>(from.size()) - 1)];
    return text;
  }

  // The number at the end makes every name different from all others.
  string name() { return letters(upTo(3) == 0 ? 20 : 4, "aAb-\xe4") + std::to_string(++m_names); }

  std::vector<string> actionNames(const Tool& tool) {
    std::vector<string> names;
    for (const Declared& declared : tool.declared)
      if (declared.isAction && upTo(1) == 0)
        names.push_back(oneOf(declared.names));
    return names;
  }

  // Draws the group of the next declaration. A group that is new to the tool becomes one of its
  // sections.
  string key(Tool& tool) {
    const string found = oneOf<string>({"", "", "Main", "Other", "kivo_hidden", "Kivo_hidden"});
    const auto isFound = [&](const auto& section) { return section.first == found; };
    if (std::none_of(tool.sections.begin(), tool.sections.end(), isFound))
      tool.sections.emplace_back(found, upTo(1) == 0 ? "" : letters(200, "lorem \n:"));
    return found;
  }

  Declared declaration(Tool& tool, bool isAction) {
    Declared declared;
    declared.names = {name()};
    if (upTo(1) == 0)
      declared.names.push_back(name());
    declared.description = letters(upTo(1) == 0 ? 20 : 150, "ipsum \n");
    declared.key = key(tool);
    declared.kind = oneOf(kinds());
    declared.isAction = isAction;
    declared.tags = isAction ? declared.names : actionNames(tool);
    declared.isPositional = upTo(9) == 0;
    if (upTo(1) == 0)
      declared.byDefault = oneOf(declared.kind.values);
    for (unsigned int i = upTo(1) == 0 ? 0 : upTo(4); i != 0; --i)
      declared.allowed.push_back(oneOf(declared.kind.values));
    return declared;
  }

  unsigned int m_names = 0;
  std::mt19937 m_numbers{20240229};
};

void declare(IParser& parser, const Tool& tool, const Declared& declared) {
  const string names = joined(declared.names, ",");
  const string tags = declared.tags.empty() ? "" : joined(declared.tags, ",");
  string group = declared.key;
  for (const auto& [key, introduction] : tool.sections)
    if (key == declared.key && !introduction.empty())
      group += ":" + introduction;
  const char* text = declared.description.c_str();
  const variant_type_t type = declared.kind.type;
  IOption* option = declared.isAction
                        ? parser.action(names.c_str(), text, type, group.c_str())
                        : parser.modifier(names.c_str(), tags.c_str(), text, type, group.c_str());
  if (declared.isPositional)
    option->positional();
  if (declared.byDefault)
    option->defaultValue(declared.byDefault->value);
  for (const Value& allowed : declared.allowed)
    option->allowValue(allowed.value);
}

string headByTheLetter(const Declared& declared) {
  const string names = "-" + joined(declared.names, ", -");
  if (declared.kind.type == vtNull)
    return names;
  const string defaultText = declared.byDefault ? declared.byDefault->text : "";
  if (declared.kind.type == vtBool)
    return names + (defaultText == "1" ? " (default)" : "") + " | -no-" + declared.names[0] +
           (defaultText == "0" ? " (default)" : "");
  string values;
  for (std::size_t i = 0; i < declared.allowed.size(); ++i)
    values += (i == 0 ? "=" : " | ") + declared.allowed[i].text;
  if (declared.allowed.empty())
    values = "=<" + declared.kind.name + ">";
  return names + values + (defaultText.empty() ? "" : " (" + defaultText + ")");
}

string entryByTheLetter(const Declared& declared) {
  const string head = headByTheLetter(declared);
  if (declared.description.empty())
    return head.size() < 30 ? "" : head + "\n";
  if (head.size() >= 30)
    return head + "\n" + paragraphString(declared.description, "", 30, 50);
  return paragraphString(declared.description, head, 30, 50);
}

string helpByTheLetter(const Tool& tool, Selection selection, bool hidden) {
  std::sort(selection.begin(), selection.end(), [](const Declared& left, const Declared& right) {
    return left.names[0] < right.names[0];
  });
  string help;
  for (const auto& [key, introduction] : tool.sections) {
    if (hidden != (key == "kivo_hidden"))
      continue;
    if (!key.empty())
      help += key + "\n";
    if (!introduction.empty())
      help += paragraphString(introduction, "", 1, 80) + "\n";
    for (const Declared& declared : selection)
      if (!declared.isPositional && declared.key == key)
        help += entryByTheLetter(declared);
  }
  return help;
}

string wholeHelpByTheLetter(const Tool& tool, bool hidden) {
  std::map<string, string> topics;
  std::size_t longest = 0;
  for (const Declared& declared : tool.declared)
    if (declared.isAction && hidden == (declared.key == "kivo_hidden")) {
      topics[declared.names[0]] = declared.description;
      longest = std::max(longest, declared.names[0].size());
    }
  if (topics.empty())
    return helpByTheLetter(tool, tool.declared, hidden);
  string help;
  for (const auto& [name, description] : topics)
    help += "    " + name + string(longest + 3 - name.size(), ' ') + description + "\n";
  return help;
}

template <class Condition>
Selection modifiersOf(const Tool& tool, Condition isMeant) {
  Selection modifiers;
  for (const Declared& declared : tool.declared)
    if (!declared.isAction && isMeant(declared))
      modifiers.push_back(declared);
  return modifiers;
}

bool shareATag(const Declared& one, const Declared& other) {
  return std::any_of(one.tags.begin(), one.tags.end(), [&](const string& tag) {
    return std::find(other.tags.begin(), other.tags.end(), tag) != other.tags.end();
  });
}

// Runs `check` for 500 random tools, each with a parser that has its declarations: once for
// ordinary help and once for hidden help.
template <class Check>
void checkRandomTools(Check check) {
  RandomTools tools;
  for (int i = 0; i != 500 && !::testing::Test::HasFatalFailure(); ++i) {
    const Tool tool = tools.next();
    const ParserHandle parser = makeParser();
    for (const Declared& declared : tool.declared)
      declare(*parser, tool, declared);
    for (const bool hidden : {false, true})
      check(tool, *parser, hidden);
  }
}

TEST(RandomHelp, OfTheToolMatchesTheNaiveReference) {
  checkRandomTools([](const Tool& tool, IParser& parser, bool hidden) {
    ASSERT_EQ(wholeHelpByTheLetter(tool, hidden), parser.getDescription(hidden));
  });
}

TEST(RandomHelp, OfEveryOptionMatchesTheNaiveReference) {
  checkRandomTools([](const Tool& tool, IParser& parser, bool hidden) {
    for (const Declared& declared : tool.declared)
      ASSERT_EQ(helpByTheLetter(tool, {declared}, hidden),
                parser.getDescription(declared.names.back().c_str(), hidden));
  });
}

TEST(RandomHelp, OfModifiersMatchesTheNaiveReference) {
  checkRandomTools([](const Tool& tool, IParser& parser, bool hidden) {
    const auto isGlobal = [](const Declared& modifier) { return modifier.tags.empty(); };
    ASSERT_EQ(helpByTheLetter(tool, modifiersOf(tool, isGlobal), hidden),
              parser.getGlobalModifiersDescription(hidden));
    for (const Declared& action : tool.declared) {
      if (!action.isAction)
        continue;
      const auto isOfAction = [&](const Declared& modifier) { return shareATag(action, modifier); };
      ASSERT_EQ(helpByTheLetter(tool, modifiersOf(tool, isOfAction), hidden),
                parser.getActionModifiersDescription(action.names[0].c_str(), hidden));
    }
  });
}

}  // namespace
}  // namespace kivo_3_3::testing
