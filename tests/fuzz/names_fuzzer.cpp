// The name index against a walk over all declarations, whatever is declared between two
// look-ups.
//   option NAMES|TYPE   synonym NAME   positional   default   find NAME   best NAME

#include <kivo/option_lookup.h>

#include "fuzz/declarations.h"
#include "fuzz/fuzz.h"
#include "fuzz/script.h"
#include "options/name_list.h"
#include "options/option_registry.h"
#include "recognizers/abbreviation_parser.h"
#include "stratum2/find_best_match.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;
using Options = std::vector<OptionDescription>;

string shown(std::optional<unsigned int> index) { return index ? std::to_string(*index) : "none"; }

string shown(const DeclarationIndex::Match& match) {
  if (match.kind == DeclarationIndex::Match::unique)
    return match.name + "@" + std::to_string(match.option);
  return match.kind == DeclarationIndex::Match::none ? "none" : "ambiguous";
}

string foundByScan(const string& name, const Options& options) {
  unsigned int index = 0;
  return findOption(name, index, options) == found ? std::to_string(index) : "none";
}

string bestByScan(const string& typed, const Options& options) {
  std::vector<string> names;
  AbbreviationParser::makeOptionNamesList(options, names);
  stratum2::generic_iterator_t<string> best;
  const unsigned int count = stratum2::find_best_match({names.begin(), names.end()}, typed, best);
  if (count != 1)
    return count == 0 ? "none" : "ambiguous";
  return *best + "@" + foundByScan(*best, options);
}

string positionalByScan(const Options& options) {
  for (std::size_t i = 0; i < options.size(); ++i)
    if (options[i].m_positional)
      return std::to_string(i);
  return "none";
}

string defaultsByScan(const Options& options) {
  string all;
  for (std::size_t i = 0; i < options.size(); ++i)
    if (options[i].m_hasDefault)
      all += std::to_string(i) + " ";
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
      expectEqual("a name is found as by a walk", foundByScan(step.text(0), options()),
                  shown(m_storage.index().find(step.text(0), options())));
    else if (step.is("best"))
      expectEqual("a shortened name is found as by a walk", bestByScan(step.text(0), options()),
                  shown(m_storage.index().findBest(step.text(0), options())));
    else
      checkFlags();
  }

  void checkEveryName() {
    std::vector<string> names;
    AbbreviationParser::makeOptionNamesList(options(), names);
    for (const string& name : names) {
      expectEqual("every name is found", foundByScan(name, options()),
                  shown(m_storage.index().find(name, options())));
      const string half = name.substr(0, name.size() / 2);
      expectEqual("half of every name is found as by a walk", bestByScan(half, options()),
                  shown(m_storage.index().findBest(half, options())));
    }
    checkFlags();
  }

 private:
  Options& options() { return m_storage.options(); }

  void declare(const string& names, variant_type_t type) {
    const std::vector<string> words = wordsOf(names);
    unsigned int index = 0;
    const bool isRefused = validateName(words) != 0 || findOption(words, index, options()) == found;
    const std::size_t before = options().size();
    m_storage.option(names.c_str(), nullptr, "", false, type, nullptr);
    expectEqual("a taken name rejects the declaration", isRefused ? "refused" : "declared",
                options().size() == before ? "refused" : "declared");
  }

  void checkFlags() {
    expectEqual("the first positional option is found", positionalByScan(options()),
                shown(m_storage.index().findPositional(options())));
    string all;
    m_storage.index().forEachDefault(options(), [&](const OptionDescription& option) {
      all += std::to_string(&option - options().data()) + " ";
    });
    expectEqual("every default is visited in its turn", defaultsByScan(options()), all);
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
