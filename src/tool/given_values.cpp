#include "tool/given_values.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include <kivo/status.h>

#include "tool/messages.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

bool isNumber(Kind kind) {
  return kind == Kind::integer || kind == Kind::natural || kind == Kind::real;
}

std::string readCharacter(const char* text, void* value) {
  if (std::strlen(text) != 1)
    return "one character";
  std::memcpy(value, text, 1);
  return "";
}

// The numbers that are accepted.
std::string numbersOf(const Declaration& declaration) {
  const std::string range = rangeText(declaration);
  return range.empty() ? limitsText(*declaration.type) : range;
}

std::string readNumber(const Declaration& declaration, const char* text, const variant_t& typed,
                       void* value) {
  const bool isFine =
      putNumber(*declaration.type, text, typed, value) && isInRange(declaration, value);
  return isFine ? "" : numbersOf(declaration);
}

// The value of the choice with this text, if it has one.
bool readChoice(const Declaration& declaration, const char* text, void* value) {
  for (const DeclaredChoice& choice : declaration.choices) {
    if (choice.text == text && !choice.value.empty()) {
      std::memcpy(value, choice.value.data(), choice.value.size());
      return true;
    }
  }
  return false;
}

std::string readObject(const Declaration& declaration, const char* text, void* value) {
  Text expected;
  const char* kept = declaration.tool.keep(text).data();
  if (declaration.function)
    declaration.function(&kept, value, expected);
  else
    declaration.type->read(kept, value, expected);
  return expected.characters;
}

// Reads a text into a value. Returns what was expected, or the empty text.
std::string readValue(const Declaration& declaration, const char* text, const variant_t& typed,
                      void* value) {
  const Kind kind = declaration.type->kind;
  if (readChoice(declaration, text, value))
    return "";
  if (declaration.function || kind == Kind::object) {
    std::string expected = readObject(declaration, text, value);
    return expected.empty() && !isInRange(declaration, value) ? rangeText(declaration) : expected;
  }
  if (kind == Kind::character)
    return readCharacter(text, value);
  if (isNumber(kind))
    return readNumber(declaration, text, typed, value);
  if (kind != Kind::boolean || typed.type() != vtBool)
    return "a choice that stands for a value";
  *static_cast<bool*>(value) = typed.get<bool>();
  return "";
}

// A choice that a text means, and what the variable gets for it.
struct Meant {
  std::string_view choice;
  std::string_view value;
};

// The choices that a text means, in full or cut short, as the parser would find them.
std::vector<Meant> meantBy(const Declaration& declaration, std::string_view text) {
  std::vector<Meant> all;
  for (const DeclaredChoice& choice : declaration.choices)
    all.push_back({choice.text, choice.text});
  for (const auto& [former, now] : declaration.deprecatedChoices)
    all.push_back({former, now});
  std::vector<Meant> begun;
  for (const Meant& one : all) {
    if (one.choice == text)
      return {one};
    if (!declaration.choices.empty() && one.choice.compare(0, text.size(), text) == 0)
      begun.push_back(one);
  }
  return begun;
}

// What is expected of an operand, and of an option with deprecated choices.
std::string expectedOf(const Declaration& declaration) {
  if (declaration.type != nullptr && isNumber(declaration.type->kind) &&
      declaration.choices.empty())
    return numbersOf(declaration);
  std::string list;
  for (const DeclaredChoice& choice : declaration.choices) {
    list += list.empty() ? "" : ", ";
    list += choice.text;
  }
  return declaration.choices.empty() ? "1 or 0" : list;
}

std::string check(const Declaration& declaration, void* value) {
  for (const OwnedCallable& one : declaration.checks) {
    Text expected;
    bool unused = false;
    one(value, &unused, expected);
    if (!expected.characters.empty())
      return expected.characters;
  }
  return "";
}

// A variable for values that nobody gets.
class Discarded {
 public:
  explicit Discarded(const VariableType& type) : m_type(type), variable(type.make()) {}
  Discarded(const Discarded&) = delete;
  Discarded& operator=(const Discarded&) = delete;
  ~Discarded() { m_type.destroy(variable); }

 private:
  const VariableType& m_type;

 public:
  void* const variable;
};

}  // namespace

std::string refusedUse(const Declaration& declaration, unsigned int given) {
  int count = static_cast<int>(given);
  bool isGiven = true;
  std::string expected;
  if (given == 0)
    return "";
  if (declaration.use == Use::count && !isInRange(declaration, &count))
    expected = rangeText(declaration);
  else if (declaration.use == Use::count)
    expected = check(declaration, &count);
  else if (declaration.use == Use::flag)
    expected = check(declaration, &isGiven);
  if (expected.empty())
    return "";
  return doesNotTake(declaration, std::to_string(count), expected);
}

void GivenValues::startSource(Source source) {
  m_source = source;
  m_operands = 0;
}

void GivenValues::replaceMarks(std::string mark, std::list<std::string> texts) {
  m_mark = std::move(mark);
  m_marked = std::move(texts);
}

template <class Work>
bool GivenValues::guarded(Work work) {
  if (m_failureStatus != 0)
    return false;
  try {
    try {
      work();
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& problem) {
      m_failureStatus = status::unidentifiedProblem;
      m_failure = problem.what();
    }
  } catch (const std::bad_alloc&) {
    m_failureStatus = status::exceptionCaught;
  } catch (...) {
    m_failureStatus = status::unidentifiedProblem;
  }
  return m_failureStatus == 0;
}

bool GivenValues::isNotifiedBy(IParser& parser) {
  m_isNotified = false;
  parser.onOptionParse("");
  return m_isNotified;
}

bool GivenValues::onOptionParse(const char* name) {
  m_isNotified = true;
  return guarded([&] {
    Declaration* const declaration = m_scope.withFirstName(name);
    if (declaration == nullptr || declaration->isOperand())
      return;
    if (declaration->use == Use::action && m_source != Source::commandLine)
      return refuse("An action is given on the command line alone: " +
                    shownName(declaration->firstName()));
    if (declaration->use == Use::action && declaration->given == 0)
      m_actions.push_back(declaration);
    give(*declaration);
  });
}

bool GivenValues::onValueParse(const char* name, const Value& value) {
  return guarded([&] {
    Declaration* const declaration = m_scope.withFirstName(name);
    if (declaration == nullptr)
      return;
    const bool isMark = !m_mark.empty() && m_mark == value.text && !m_marked.empty();
    std::string original;
    if (isMark) {
      original = std::move(m_marked.front());
      m_marked.pop_front();
    }
    const char* const text = isMark ? original.c_str() : value.text;
    if (declaration->isOperand())
      takeOperand(text);
    else
      choose(*declaration, text, value.value);
  });
}

bool GivenValues::isOutranked(const Declaration& declaration) const {
  return m_source < declaration.source;
}

void GivenValues::give(Declaration& declaration) {
  if (isOutranked(declaration))
    return;
  declaration.source = m_source;
  ++declaration.given;
}

bool GivenValues::giveTruth(Declaration& declaration, bool truth) {
  return guarded([&] {
    give(declaration);
    take(declaration, truth ? "true" : "false", truth);
  });
}

void GivenValues::takeOperand(const char* text) {
  const std::vector<Declaration*>& operands = m_scope.operands();
  if (m_operands >= operands.size() && operands.back()->use != Use::rest)
    return refuse(isUnexpected(text));
  readOperand(*operands[std::min(m_operands++, operands.size() - 1)], text);
}

bool GivenValues::giveOperand(Declaration& declaration, const char* text) {
  return guarded([&] { readOperand(declaration, text); });
}

void GivenValues::readOperand(Declaration& declaration, const char* text) {
  give(declaration);
  if (readType(declaration) == vtString && declaration.choices.empty() &&
      (declaration.separator == '\0' || *text == '\0'))
    return choose(declaration, text, variant_t());
  const std::vector<OperandValue> items = m_reader.read(declaration, text);
  if (items.empty())
    return refuse(doesNotTake(declaration, text, expectedOf(declaration)));
  for (const auto& [item, typed] : items)
    choose(declaration, item.c_str(), typed);
}

void GivenValues::choose(Declaration& declaration, const char* given, const variant_t& typed) {
  if (!declaration.hasDeprecatedChoices())
    return take(declaration, given, typed);
  const std::vector<Meant> meant = meantBy(declaration, given);
  if (meant.empty() && declaration.choices.empty())  // then there are only deprecated ones
    return take(declaration, given, typed);
  if (meant.size() != 1)
    return refuse(doesNotTake(declaration, given, expectedOf(declaration)));
  const Meant& one = meant.front();
  const std::string warning =
      isDeprecatedChoice(declaration, std::string(one.choice), std::string(one.value));
  const bool isNew = std::find(m_warnings.begin(), m_warnings.end(), warning) == m_warnings.end();
  if (one.choice != one.value && isNew && m_source == Source::commandLine)
    m_warnings.push_back(warning);
  take(declaration, one.value.data(), typed);
}

void GivenValues::take(Declaration& declaration, const char* text, const variant_t& typed) {
  if (declaration.type == nullptr) {
    const std::string expected = check(declaration, &text);
    if (!expected.empty())
      return refuse(doesNotTake(declaration, text, expected));
    if (!isOutranked(declaration))
      declaration.texts.push_back({m_place++, text});
    return;
  }
  if (isOutranked(declaration)) {
    const Discarded discarded(*declaration.type);
    return read(declaration, text, typed, discarded.variable);
  }
  if (declaration.staged == nullptr)
    declaration.staged = declaration.type->make();
  read(declaration, text, typed, declaration.staged);
}

void GivenValues::read(Declaration& declaration, const char* text, const variant_t& typed,
                       void* variable) {
  void* const value = declaration.type->add(variable);
  std::string expected = readValue(declaration, text, typed, value);
  if (expected.empty())
    expected = check(declaration, value);
  if (!expected.empty())
    refuse(doesNotTake(declaration, text, expected));
}

void GivenValues::refuse(std::string reason) {
  m_failure = std::move(reason);
  m_failureStatus = status::usageError;
}

}  // namespace kivo_3_3::tool_glue
