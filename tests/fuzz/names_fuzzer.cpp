// Compares the name index with a linear scan of all declarations; options are declared and amended
// between look-ups. Compares what resolveName() answers with the option that a parse finds.
//   option NAMES|TYPE   synonym NAME   positional   default   find NAME   best NAME

#include <optional>

#include "fuzz/declarations.h"
#include "fuzz/fuzz.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/name_list.h"
#include "options/option_registry.h"
#include "support/declaration_scan.h"
#include "support/recording_handler.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;
using testing::DeclarationScan;
using testing::shown;
using Options = OptionList;

string positionalByScan(const Options& options) {
  for (std::size_t i = 0; i < options.size(); ++i)
    if (options[i].m_positional)
      return std::to_string(i);
  return "none";
}

// The names that have a default, each with the place of its last default. An option with a default
// and without names ends the list.
string defaultsByScan(const Options& options) {
  std::map<string, unsigned int> places;
  unsigned int count = 0;
  for (const OptionDescription& option : options) {
    if (option.m_hasDefault && option.m_names.empty())
      break;
    for (const std::string_view name : option.m_names)
      if (option.m_hasDefault)
        places[string(name)] = count++;
  }
  string all;
  for (const auto& [name, place] : places)
    all += name + "@" + std::to_string(place) + " ";
  return all;
}

string defaultsOf(DeclarationSummary& summary) {
  std::map<string, unsigned int> places;
  if (const auto defaults = summary.timelessDefaults())
    for (const DeclaredDefaults::Default& one : defaults->all())
      places[string(one.name)] = one.place;
  string all;
  for (const auto& [name, place] : places)
    all += name + "@" + std::to_string(place) + " ";
  return all;
}

// Keeps the first name of the option that a parse announced last.
class Announced final : public testing::TestHandler {
 public:
  bool onOptionParse(const char* name) override {
    m_name = name;
    return true;
  }

  const std::optional<string>& name() const { return m_name; }

 private:
  std::optional<string> m_name;
};

// A parser with the declarations of the registry. No argument that begins with "-" is positional.
class Parser {
 public:
  IOption* option(const string& names, variant_type_t type) {
    return m_parser->option(names.c_str(), "", type);
  }

  void checkMeaning(const string& typed) {
    const bool canBeTyped =
        !typed.empty() && typed[0] != '-' && typed.find_first_of("= \t\n\v\f\r") == string::npos;
    const char* const name = resolveName(*m_parser, typed.c_str());
    const std::optional<string> found = canBeTyped ? foundByParse(typed) : std::nullopt;
    expectEqual("a typed name means what a parse finds", found.value_or("(nothing)"),
                name != nullptr ? name : "(nothing)");
  }

 private:
  // One of the two forms suits the type of the option; the other one is refused before the event.
  std::optional<string> foundByParse(const string& typed) {
    Announced announced;
    m_parser->addHandler(&announced);
    parse(*m_parser, {"--" + typed}, nullptr);
    parse(*m_parser, {"--" + typed + "=1"}, nullptr);
    m_parser->removeHandler(&announced);
    return announced.name();
  }

  ParserHandle m_parser = makeParser(parserFlags::dashArgumentsAreNeverPositional);
};

class Registry {
 public:
  void take(const Step& step) {
    if (step.is("option"))
      declare(step.text(0), typeOf(step.text(1)));
    else if (step.is("synonym") && !options().empty())
      amend([&](IOption& option) { option.synonym(step.textOrNull(0)); });
    else if (step.is("positional") && !options().empty())
      amend([](IOption& option) { option.positional(); });
    else if (step.is("default") && !options().empty())
      amend([](IOption& option) { option.defaultValue(1); });
    else if (step.is("find"))
      expectEqual("a name is found as by a walk", scan().find(step.text(0)),
                  shown(find(step.text(0))));
    else if (step.is("best"))
      checkShortened(scan(), step.text(0));
    else
      checkFlags();
  }

  void checkEveryName() {
    const DeclarationScan all = scan();
    for (const string& name : all.names()) {
      expectEqual("every name is found", all.find(name), shown(find(name)));
      checkShortened(all, name);
      checkShortened(all, name.substr(0, name.size() / 2));
    }
    checkFlags();
  }

 private:
  Options& options() { return m_storage.options(); }
  std::optional<unsigned int> find(std::string_view name) { return m_storage.names().find(name); }
  NameIndex::Match findBest(std::string_view typed) {
    NameIndex::Match match;
    m_storage.names().findBest(typed, match);
    return match;
  }
  DeclarationScan scan() { return DeclarationScan(options()); }

  void checkShortened(const DeclarationScan& all, const string& typed) {
    expectEqual("a shortened name is found as by a walk", all.findBest(typed),
                shown(findBest(typed)));
    m_parser.checkMeaning(typed);
  }

  template <class Change>
  void amend(Change change) {
    change(options().back());
    change(*m_lastOfParser);
  }

  static Names namesOf(const std::vector<string>& words) {
    const std::vector<std::string_view> views(words.begin(), words.end());
    return {views.begin(), views.end()};
  }

  void declare(const string& names, variant_type_t type) {
    const std::vector<string> words = wordsOf(names);
    const bool isRefused = validateName(namesOf(words)) != 0 || scan().isTaken(words);
    const std::size_t before = options().size();
    m_storage.option(names.c_str(), nullptr, "", false, type, nullptr);
    IOption* const builder = m_parser.option(names, type);
    if (options().size() != before)
      m_lastOfParser = builder;
    expectEqual("a taken name rejects the declaration", isRefused ? "refused" : "declared",
                options().size() == before ? "refused" : "declared");
  }

  void checkFlags() {
    expectEqual("the first positional option is found", positionalByScan(options()),
                shown(m_storage.summary().findPositional()));
    expectEqual("every default has its place", defaultsByScan(options()),
                defaultsOf(m_storage.summary()));
  }

  Garbage m_garbage;
  RegisteredOptionStorage m_storage{&m_garbage};
  Parser m_parser;
  IOption* m_lastOfParser = nullptr;
};

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kivo_3_3::fuzzing::startAfresh();
  kivo_3_3::fuzzing::Registry registry;
  for (const auto& step : kivo_3_3::fuzzing::scriptOf(data, size))
    registry.take(step);
  registry.checkEveryName();
  return 0;
}
