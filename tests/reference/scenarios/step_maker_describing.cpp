// Descriptions, annotations, and names as users type and misspell them.

#include <algorithm>
#include <utility>

#include "reference/scenarios/step_maker.h"
#include "reference/scenarios/step_text.h"
#include "reference/scenarios/vocabulary.h"

namespace kivo_3_3::scenarios {

using std::string;

string StepMaker::resolve(int parser) {
  string typed = declaredName(parser);
  if (m_random.chance(60))
    typed = typed.substr(0, static_cast<std::size_t>(m_random.below(4)));
  if (m_random.chance(20))
    typed = "no-" + typed;
  return (StepText("resolve") << orAtHand(parser) << typed).line();
}

// Inserts, deletes, replaces or swaps bytes, or inserts one between two that it swaps. This may cut
// a character in two.
string StepMaker::misspelt(string text) {
  for (int mistakes = m_random.below(4); mistakes > 0 && !text.empty(); --mistakes) {
    const auto any = [&] {
      return static_cast<std::size_t>(m_random.below(static_cast<int>(text.size())));
    };
    const std::size_t at = any();
    const char other = m_random.chance(50) ? text[any()] : *m_random.oneOf(vocabulary::shortNames);
    switch (m_random.below(5)) {
      case 0:
        text.insert(at, 1, other);
        break;
      case 1:
        text.erase(at, 1);
        break;
      case 2:
        text[at] = other;
        break;
      case 3:
        std::swap(text[at], text[std::min(at + 1, text.size() - 1)]);
        text.insert(at + 1, 1, other);
        break;
      default:
        std::swap(text[at], text[std::min(at + 1, text.size() - 1)]);
    }
  }
  return text;
}

string StepMaker::nearest(int parser) {
  return (StepText("nearest") << orAtHand(parser) << misspelt(declaredName(parser))).line();
}

string StepMaker::annotation(int parser) {
  string option = m_random.chance(25) ? "<null>" : declaredName(parser);
  if (m_random.chance(10))
    option.insert(0, "no-");
  return (StepText("annotate") << orAtHand(parser) << option
                               << string(m_random.oneOf(vocabulary::keys))
                               << string(m_random.oneOf(vocabulary::descriptions)))
      .line();
}

// Mostly without commands.
string StepMaker::description(int parser) {
  StepText step("describe");
  step << orAtHand(parser);
  for (int text = 0; text < 3; ++text)
    step << string(m_random.oneOf(vocabulary::descriptions));
  for (int command = m_random.chance(70) ? 0 : m_random.below(4); command > 0; --command)
    step << string(m_random.oneOf(vocabulary::words))
         << string(m_random.oneOf(vocabulary::descriptions)) << orAtHand(anyParser());
  return step.line();
}

}  // namespace kivo_3_3::scenarios
