#pragma once

// Makes random steps. It remembers roughly what has been declared, so that most arguments name an
// option and most values suit its type.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "reference/scenarios/random.h"

namespace kivo_3_3::scenarios {

class StepMaker {
 public:
  explicit StepMaker(std::uint64_t seed);

  Random& random() { return m_random; }
  int parserCount() const { return m_parserCount; }
  int resultCount() const { return m_resultCount; }
  int anyParser() { return m_random.below(m_parserCount); }
  int anyResult() { return m_random.below(m_resultCount); }
  // Makes option files part of the scenario.
  void haveFiles() { m_hasFiles = true; }
  bool hasFiles() const { return m_hasFiles; }
  // Whether actions are frequent in this scenario.
  bool hasActions() const { return m_hasActions; }

  // Steps for one parser.
  std::string newParser(int parser);
  std::string declaration(int parser);
  std::string amendment(int parser);
  // Two steps: allowed texts with a common prefix, so that an abbreviation is ambiguous.
  std::string similarValues(int parser);
  std::string optionFile(int parser);
  std::string simultaneousActions(int parser);
  std::string registration(int parser);
  std::string annotation(int parser);
  std::string parse(int parser);
  std::string send(int parser);
  std::string file(int parser);
  std::string any(int parser);

  std::string newResult(int result);
  std::string readAll(int result);
  // A `react` step.
  std::string reaction();
  // A `console` step.
  std::string interruption();

 private:
  struct Declared {
    std::vector<std::string> names;
    std::string type;
    std::vector<std::string> allowed;
    bool isAction = false;
    bool isPositional = false;
  };
  using Model = std::vector<Declared>;
  // A kind of step with its relative frequency.
  struct Choice {
    int weight;
    std::string (StepMaker::*make)(int parser);
  };
  template <class Choices>
  std::string choose(const Choices& choices, int parser);

  Model& modelOf(int parser) { return m_models[static_cast<std::size_t>(parser)]; }
  std::string orAtHand(int index);
  std::string resultOrOther();
  std::string name();
  std::string declaredName(int parser);
  std::vector<std::string> nameList();
  std::string type();
  std::string actions(int parser);
  std::string valueText(const std::string& kind);
  std::vector<std::string> value(const std::string& type);
  std::string typeOfLast(int parser);

  std::string allowedValue(int parser);
  std::string deprecatedValue(int parser);
  std::string defaultValue(int parser);
  std::string synonym(int parser);
  std::string positional(int parser);
  std::string tag(int parser);
  std::string tokenizer(int parser);

  std::string typed(const std::string& name, bool isBoolean);
  std::string beginningOf(const std::string& text);
  std::string valueFor(const Declared& option);
  const Declared& anyOption(const Model& model);
  void addOption(int parser, std::vector<std::string>& arguments);
  std::string freeArgument(int parser);
  std::vector<std::string> arguments(int parser);
  std::string lines(int parser);

  std::string stream(int parser);
  std::string argumentVector(int parser);
  std::string declarationOrAmendment(int parser);
  std::string bound();
  std::string query(int parser);
  std::string error(int parser);
  std::string declared(int parser);
  std::string resolve(int parser);
  std::string misspelt(std::string text);
  std::string nearest(int parser);
  std::string description(int parser);
  std::string help(int parser);
  std::string helpOfTopic(int parser);
  std::string nowhere(int parser);
  std::string paragraph(int parser);
  std::string argumentSyntax(int parser);
  std::string locale(int parser);
  std::string buffer(int parser);
  std::string assertions(int parser);
  std::string ending(int parser);
  std::string readAny(int parser);
  std::string answer(int parser);
  std::string throwing(int parser);
  std::string spoiling(int parser);
  std::string resending(int parser);

  Random m_random;
  int m_parserCount;
  int m_resultCount;
  std::vector<std::string> m_names;  // the names that this scenario uses
  std::array<Model, 4> m_models;
  bool m_hasFiles = false;
  bool m_hasActions;
  bool m_isReaction = false;
};

template <class Choices>
std::string StepMaker::choose(const Choices& choices, int parser) {
  int all = 0;
  for (const Choice& choice : choices)
    all += choice.weight;
  int chosen = m_random.below(all);
  for (const Choice& choice : choices) {
    if (chosen < choice.weight)
      return (this->*choice.make)(parser);
    chosen -= choice.weight;
  }
  return "";
}

}  // namespace kivo_3_3::scenarios
