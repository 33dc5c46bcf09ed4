// Compares the name index with a linear scan of all declarations; options are declared and amended
// between look-ups.
//   option NAMES|TYPE   synonym NAME   positional   default   find NAME   best NAME

#include "fuzz/declarations.h"
#include "fuzz/fuzz.h"
#include "fuzz/script.h"
#include "options/name_list.h"
#include "options/option_registry.h"
#include "support/declaration_scan.h"

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

class Registry {
 public:
  void take(const Step& step) {
    if (step.is("option"))
      declare(step.text(0), typeOf(step.text(1)));
    else if (step.is("synonym") && !options().empty())
      options().back().synonym(step.textOrNull(0));
    else if (step.is("positional") && !options().empty())
      options().back().positional();
    else if (step.is("default") && !options().empty())
      options().back().defaultValue(1);
    else if (step.is("find"))
      expectEqual("a name is found as by a walk", scan().find(step.text(0)),
                  shown(find(step.text(0))));
    else if (step.is("best"))
      expectEqual("a shortened name is found as by a walk", scan().findBest(step.text(0)),
                  shown(findBest(step.text(0))));
    else
      checkFlags();
  }

  void checkEveryName() {
    const DeclarationScan all = scan();
    for (const string& name : all.names()) {
      expectEqual("every name is found", all.find(name), shown(find(name)));
      const string half = name.substr(0, name.size() / 2);
      expectEqual("half of every name is found as by a walk", all.findBest(half),
                  shown(findBest(half)));
    }
    checkFlags();
  }

 private:
  Options& options() { return m_storage.options(); }
  std::optional<unsigned int> find(std::string_view name) { return m_storage.names().find(name); }
  NameIndex::Match findBest(std::string_view typed) { return m_storage.names().findBest(typed); }
  DeclarationScan scan() { return DeclarationScan(options()); }

  static Names namesOf(const std::vector<string>& words) {
    const std::vector<std::string_view> views(words.begin(), words.end());
    return {views.begin(), views.end()};
  }

  void declare(const string& names, variant_type_t type) {
    const std::vector<string> words = wordsOf(names);
    const bool isRefused = validateName(namesOf(words)) != 0 || scan().isTaken(words);
    const std::size_t before = options().size();
    m_storage.option(names.c_str(), nullptr, "", false, type, nullptr);
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
};

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kivo_3_3::fuzzing::Registry registry;
  for (const auto& step : kivo_3_3::fuzzing::scriptOf(data, size))
    registry.take(step);
  registry.checkEveryName();
  return 0;
}
