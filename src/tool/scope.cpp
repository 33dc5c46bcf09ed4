#include "tool/scope.h"

#include <kivo/describe.h>

#include <algorithm>
#include <new>

#include "bedrock/assertion.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr const char* hiddenSection = "kivo_hidden";

// Before a name that only the layer uses.
constexpr char hiddenMark = '\1';

// Nobody can type it, in full or cut short: the parser splits an argument at white space.
std::string untypable(const std::string& name) { return ' ' + name; }

// What the parser would split, or take for the end of the name.
bool canBeTyped(const std::string& name) {
  const auto isOdd = [](char one) { return static_cast<unsigned char>(one) <= ' ' || one == '='; };
  return !name.empty() && name[0] != '-' && std::none_of(name.begin(), name.end(), isOdd);
}

// Whether a choice sets nothing: it has to stand for an enumerator or a truth.
bool lacksValues(const Declaration& declaration) {
  if (declaration.type == nullptr || declaration.function)
    return false;
  const bool needsValues = declaration.type->kind == Kind::enumeration ||
                           (declaration.type->kind == Kind::boolean && declaration.takesValue());
  const auto& choices = declaration.choices;
  return needsValues && (choices.empty() || std::any_of(choices.begin(), choices.end(),
                                                        [](const DeclaredChoice& choice) {
                                                          return choice.value.empty();
                                                        }));
}

void checkChoices(const Declaration& declaration) {
  if (lacksValues(declaration))
    reportMistake(called(declaration) + " needs choices that stand for values");
}

}  // namespace

std::vector<std::string> splitAt(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (const char character : text) {
    if (character == separator)
      parts.emplace_back();
    else
      parts.back() += character;
  }
  return parts;
}

std::string joined(const std::vector<std::string>& parts, char separator) {
  std::string result;
  for (const std::string& part : parts)
    result += (&part == &parts.front() ? "" : std::string(1, separator)) + part;
  return result;
}

void reportMistake(const std::string& mistake) {
  BEDROCK::assertion_failed(mistake.c_str(), __FILE__, __LINE__);
}

std::string called(const Declaration& declaration) {
  constexpr const char* kinds[] = {"option",  "flag", "count",  "each",
                                   "operand", "rest", "config", "action"};
  return std::string(kinds[static_cast<int>(declaration.use)]) + " '" +
         joined(declaration.names, ',') + "'";
}

void annotateOrThrow(IParser& parser, const char* option, const char* key,
                     const std::string& text) {
  if (!annotate(parser, option, key, text.c_str()))
    throw std::bad_alloc();
}

variant_type_t parserType(const Declaration& declaration) {
  if (declaration.use == Use::flag || declaration.use == Use::count ||
      declaration.use == Use::action)
    return vtNull;
  const VariableType* type = declaration.type;
  if (type == nullptr || declaration.function || !declaration.choices.empty())
    return vtString;
  const bool isWide = type->bytes > sizeof(s32_t);
  switch (type->kind) {
    case Kind::boolean:
      return vtBool;
    case Kind::integer:
      return isWide ? vtS64 : vtS32;
    case Kind::natural:
      return isWide ? vtU64 : vtU32;
    case Kind::real:
      return vtDouble;
    default:
      return vtString;
  }
}

variant_type_t readType(const Declaration& declaration) {
  const variant_type_t type = parserType(declaration);
  const bool isLong = type == vtDouble && declaration.type->bytes > sizeof(double);
  return isLong || declaration.hasDeprecatedChoices() ? vtString : type;
}

Scope::Scope(ToolData& tool, IParser& parser, Purpose purpose)
    : m_parser(parser), m_purpose(purpose), m_isParserGivenAway(tool.isParserGivenAway) {
  addAll(tool);
  if (tool.parent != nullptr && purpose == Purpose::parse)
    addAll(*tool.parent);
  if (tool.parent == nullptr || purpose == Purpose::parse) {
    for (Declaration& declaration : tool.root().builtIn)
      add(declaration);
  }
  for (Declaration* operand : m_operands) {
    if (purpose == Purpose::description || operand == m_operands.front())
      declare(*operand, {untypable(operand->firstName())});
    else  // the first one gets all arguments
      checkChoices(*operand);
  }
}

void Scope::addAll(ToolData& tool) {
  for (Declaration& declaration : tool.declarations) {
    if (declaration.isOperand())
      addOperand(declaration);
    else
      add(declaration);
  }
}

void Scope::addOperand(Declaration& declaration) {
  if (declaration.names.size() != 1 || declaration.firstName().empty())
    reportMistake(called(declaration) + " needs one name");
  const std::string name = untypable(declaration.firstName());
  const auto [taken, isNew] = m_taken.emplace(name, &declaration);
  if (!m_operands.empty() && m_operands.back()->use == Use::rest)
    reportMistake(called(declaration) + " comes after " + called(*m_operands.back()) +
                  ", which takes all operands");
  else if (!isNew)
    reportMistake("the name '" + declaration.firstName() + "' is declared twice, by " +
                  called(*taken->second) + " and by " + called(declaration));
  else
    m_operands.push_back(&declaration);
}

void Scope::add(Declaration& declaration) {
  std::vector<std::string> names = takeNames(declaration);
  if (names.empty()) {  // can be given before the words of the command, and by its environment
    const std::string* const hidden = nameHiddenByCommand(declaration);
    if (hidden == nullptr || m_firstNames.count(hiddenMark + *hidden) != 0)
      return;
    names.push_back(hiddenMark + *hidden);
  }
  if (names.size() > 3 || (names.size() == 3 && names.back().size() > 2))
    return reportMistake(called(declaration) + " has too many names or a third one that is long");
  m_options.push_back(&declaration);
  declare(declaration, names);
}

// Whether the author of the tool has an option of this name on parser().
bool Scope::isDeclaredByAuthor(const std::string& name) const {
  return m_isParserGivenAway && m_taken.find(name) == m_taken.end() &&
         (m_parser.isOptionDeclared(name.c_str(), false, nullptr) ||
          m_parser.isOptionDeclared(name.c_str(), true, nullptr));
}

// A name of an option of the tool that a command uses for an option of its own; null if there is
// none.
const std::string* Scope::nameHiddenByCommand(const Declaration& declaration) const {
  const auto hidden = std::find_if(
      declaration.names.begin(), declaration.names.end(), [&](const std::string& name) {
        const auto taken = m_taken.find(name);
        return taken != m_taken.end() && &taken->second->tool != &declaration.tool;
      });
  return hidden != declaration.names.end() && !declaration.isBuiltIn ? &*hidden : nullptr;
}

// The names of a command count where the tool has the same ones, and those of a tool where help and
// version have them. Within the declarations of one of them, a name may be declared once.
std::vector<std::string> Scope::takeNames(Declaration& declaration) {
  std::vector<std::string> names;
  for (const std::string& name : declaration.names) {
    if (!canBeTyped(name)) {
      reportMistake(called(declaration) + " has a name that cannot be typed: '" + name + "'");
      continue;
    }
    if (isDeclaredByAuthor(name)) {
      if (!declaration.isBuiltIn)
        reportMistake("the name '" + name + "' is declared twice, by " + called(declaration) +
                      " and on parser()");
      continue;
    }
    const auto [taken, isNew] = m_taken.emplace(name, &declaration);
    if (isNew) {
      names.push_back(name);
    } else if (&taken->second->tool == &declaration.tool && !declaration.isBuiltIn) {
      reportMistake("the name '" + name + "' is declared twice, by " + called(*taken->second) +
                    " and by " + called(declaration));
    }
  }
  if (parserType(declaration) == vtBool) {
    for (const std::string& name : names)
      m_taken.emplace("no-" + name, &declaration);
  }
  return names;
}

IOption& Scope::declareOnParser(const Declaration& declaration,
                                const std::vector<std::string>& names, variant_type_t type) {
  const std::string list = joined(names, ',');
  const char* const help = declaration.help.c_str();
  const char* const group = declaration.isHidden          ? hiddenSection
                            : declaration.section.empty() ? nullptr
                                                          : declaration.section.c_str();
  IOption* option = nullptr;
  if (declaration.use == Use::action)
    option = m_parser.action(list.c_str(), help, type, group);
  else if (!declaration.only.empty())
    option = m_parser.modifier(list.c_str(), declaration.only.c_str(), help, type, group);
  else
    option = m_parser.option(list.c_str(), help, type, group);
  if (!isDeclared(names.front(), declaration.use == Use::action))
    throw std::bad_alloc();
  return *option;
}

void Scope::declare(Declaration& declaration, const std::vector<std::string>& names) {
  const bool takesAnything = declaration.isOperand() && m_purpose == Purpose::parse;
  const variant_type_t readAs = takesAnything ? vtString : readType(declaration);
  IOption& option = declareOnParser(declaration, names,
                                    m_purpose == Purpose::parse ? readAs : parserType(declaration));
  checkChoices(declaration);
  const std::string& first = names.front();
  m_firstNames.emplace(first, &declaration);
  m_nameOf.emplace(&declaration, first);
  if (declaration.isOperand())
    option.positional();
  if (!takesAnything)
    limitValues(option, declaration, m_purpose);
  if (m_purpose == Purpose::description && shownDefault(declaration).empty())
    setDefault(option, declaration);
  if (m_purpose == Purpose::description)
    annotateAll(declaration, first);
}

// The parser looks at all its options for a name that nobody can type.
bool Scope::isDeclared(const std::string& name, bool amongActions) const {
  const char* const found = resolveName(m_parser, name.c_str());
  return (found != nullptr && name == found) ||
         m_parser.isOptionDeclared(name.c_str(), amongActions, nullptr);
}

void limitValues(IOption& option, const Declaration& declaration, Purpose purpose) {
  if (purpose == Purpose::description || !declaration.hasDeprecatedChoices()) {
    for (const DeclaredChoice& choice : declaration.choices)
      option.allowValue(choice.text.c_str());
    for (const auto& [former, now] : declaration.deprecatedChoices)
      option.allowDeprecatedValue(former.c_str(), now.c_str());
  }
  option.tokenize(declaration.separator);  // choices have made it split at commas
}

void Scope::annotateAll(const Declaration& declaration, const std::string& name) {
  const auto addFact = [&](const char* key, const std::string& text) {
    if (!text.empty())
      annotateOrThrow(m_parser, name.c_str(), key, text);
  };
  addFact("placeholder", declaration.placeholder);
  addFact("range", rangeText(declaration));
  addFact("environment", declaration.environment);
  addFact("required", declaration.isRequired ? "required" : "");
  addFact("shownDefault", shownDefault(declaration));
  addFact("deprecated", declaration.deprecated);
}

Declaration* Scope::withFirstName(std::string_view name) const {
  const auto found = m_firstNames.find(name);
  return found != m_firstNames.end() ? found->second : nullptr;
}

Declaration* Scope::resolve(const char* typed) const {
  const char* const first = resolveName(m_parser, typed);
  return first != nullptr ? withFirstName(first) : nullptr;
}

const Declaration* Scope::declared(const ToolData& tool, const std::string& name) const {
  const auto found = m_taken.find(name);
  if (found == m_taken.end())
    return nullptr;
  const ToolData& owner = found->second->tool;
  return &owner == &tool || &owner == tool.parent ? found->second : nullptr;
}

const std::string& Scope::nameOf(const Declaration& declaration) const {
  return m_nameOf.at(&declaration);
}

std::vector<std::string> Scope::typedNames(const Declaration& declaration) const {
  std::vector<std::string> names;
  for (const std::string& name : declaration.names) {
    const auto taken = m_taken.find(name);
    if (taken != m_taken.end() && taken->second == &declaration)
      names.push_back(name);
  }
  return names;
}

}  // namespace kivo_3_3::tool_glue
