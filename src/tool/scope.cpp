#include "tool/scope.h"

#include <kivo/describe.h>

#include <algorithm>
#include <new>

#include "bedrock/assertion.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr const char* hiddenSection = "kivo_hidden";

std::string joined(const std::vector<std::string>& parts, char separator) {
  std::string result;
  for (const std::string& part : parts)
    result += (&part == &parts.front() ? "" : std::string(1, separator)) + part;
  return result;
}

// Nobody can type it, in full or cut short: the parser splits an argument at white space.
std::string untypable(const std::string& name) { return ' ' + name; }

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

}  // namespace

void reportMistake(const std::string& mistake) {
  BEDROCK::assertion_failed(mistake.c_str(), __FILE__, __LINE__);
}

std::string called(const Declaration& declaration) {
  constexpr const char* kinds[] = {"option",  "flag", "count",  "each",
                                   "operand", "rest", "config", "action"};
  return std::string(kinds[static_cast<int>(declaration.use)]) + " '" +
         joined(declaration.names, ',') + "'";
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
  return isLong ? vtString : type;
}

Scope::Scope(ToolData& tool, IParser& parser, Purpose purpose)
    : m_parser(parser), m_purpose(purpose) {
  addAll(tool);
  if (tool.parent != nullptr && purpose == Purpose::parse)
    addAll(*tool.parent);
  if (tool.parent == nullptr || purpose == Purpose::parse) {
    for (Declaration& declaration : tool.root().builtIn)
      add(declaration);
  }
  for (Declaration* operand : m_operands)
    declare(*operand, {untypable(operand->firstName())});
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
  if (!m_operands.empty() && m_operands.back()->use == Use::rest)
    reportMistake(called(declaration) + " comes after " + called(*m_operands.back()) +
                  ", which takes all operands");
  else
    m_operands.push_back(&declaration);
}

void Scope::add(Declaration& declaration) {
  const std::vector<std::string> names = takeNames(declaration);
  if (names.empty())
    return;
  m_options.push_back(&declaration);
  declare(declaration, names);
}

// The names of a command count where the tool has the same ones, and those of a tool where help and
// version have them. Within the declarations of one of them, a name may be declared once.
std::vector<std::string> Scope::takeNames(Declaration& declaration) {
  std::vector<std::string> names;
  for (const std::string& name : declaration.names) {
    const auto taken = m_taken.find(name);
    if (taken == m_taken.end()) {
      names.push_back(name);
    } else if (&taken->second->tool == &declaration.tool && !declaration.isBuiltIn) {
      reportMistake("the name '" + name + "' is declared twice, by " + called(*taken->second) +
                    " and by " + called(declaration));
    }
  }
  for (const std::string& name : names) {
    m_taken.emplace(name, &declaration);
    if (parserType(declaration) == vtBool)
      m_taken.emplace("no-" + name, &declaration);
  }
  return names;
}

IOption* Scope::declareAs(const Declaration& declaration, const char* names, variant_type_t type) {
  const char* const help = declaration.help.c_str();
  const char* const group = declaration.isHidden          ? hiddenSection
                            : declaration.section.empty() ? nullptr
                                                          : declaration.section.c_str();
  if (declaration.use == Use::action)
    return m_parser.action(names, help, type, group);
  if (!declaration.only.empty())
    return m_parser.modifier(names, declaration.only.c_str(), help, type, group);
  return m_parser.option(names, help, type, group);
}

void Scope::declare(Declaration& declaration, const std::vector<std::string>& names) {
  const std::string list = joined(names, ',');
  // Of several operands, the parser gives all arguments to the first one.
  const bool takesAnything = declaration.isOperand() && m_purpose == Purpose::parse;
  const variant_type_t readAs = takesAnything ? vtString : readType(declaration);
  const variant_type_t type = m_purpose == Purpose::parse ? readAs : parserType(declaration);
  IOption* const option = declareAs(declaration, list.c_str(), type);
  const std::string& first = names.front();
  if (!m_parser.isOptionDeclared(first.c_str(), declaration.use == Use::action, nullptr)) {
    if (names.size() > 3 || (names.size() == 3 && names.back().size() > 2))
      return reportMistake(called(declaration) + " has too many names or a third one that is long");
    throw std::bad_alloc();
  }
  if (lacksValues(declaration))
    reportMistake(called(declaration) + " needs choices that stand for values");
  m_firstNames.emplace(first, &declaration);
  m_nameOf.emplace(&declaration, first);
  if (declaration.isOperand())
    option->positional();
  if (!takesAnything)
    limitValues(*option, declaration);
  if (m_purpose == Purpose::description && shownDefault(declaration).empty())
    setDefault(*option, declaration);
  if (m_purpose == Purpose::description)
    annotateAll(declaration, first);
}

void limitValues(IOption& option, const Declaration& declaration) {
  for (const DeclaredChoice& choice : declaration.choices)
    option.allowValue(choice.text.c_str());
  for (const auto& [former, now] : declaration.deprecatedChoices)
    option.allowDeprecatedValue(former.c_str(), now.c_str());
  option.tokenize(declaration.separator);  // choices have made it split at commas
}

void Scope::annotateAll(const Declaration& declaration, const std::string& name) {
  const auto tell = [&](const char* key, const std::string& text) {
    if (!text.empty())
      annotate(m_parser, name.c_str(), key, text.c_str());
  };
  tell("placeholder", declaration.placeholder);
  tell("range", rangeText(declaration));
  tell("environment", declaration.environment);
  tell("required", declaration.isRequired ? "required" : "");
  tell("shownDefault", shownDefault(declaration));
  tell("deprecated", declaration.deprecated);
}

Declaration* Scope::withFirstName(std::string_view name) const {
  const auto found = m_firstNames.find(name);
  return found != m_firstNames.end() ? found->second : nullptr;
}

Declaration* Scope::resolve(const char* typed) const {
  const char* const first = resolveName(m_parser, typed);
  return first != nullptr ? withFirstName(first) : nullptr;
}

const std::string& Scope::nameOf(const Declaration& declaration) const {
  return m_nameOf.at(&declaration);
}

}  // namespace kivo_3_3::tool_glue
