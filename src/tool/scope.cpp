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

// Before the name of an operand. Nobody can type it, in full or cut short: the parser splits an
// argument at white space.
constexpr char operandMark = ' ';

constexpr std::string_view negation = "no-";

// The parser rejects them, without a line of its trace.
constexpr const char* tooManyNames = "a,b,c,d";

// A name that only the layer uses, in the memory of the tool.
std::string_view marked(const Declaration& declaration, std::string_view name, char mark) {
  return declaration.tool.keep(name, {&mark, 1});
}

// What the parser would split, or take for the end of the name.
bool canBeTyped(std::string_view name) {
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
  for (const std::string& part : parts) {
    if (&part != &parts.front())
      result += separator;
    result += part;
  }
  return result;
}

void reportMistake(const std::string& mistake) {
  BEDROCK::assertion_failed(mistake.c_str(), __FILE__, __LINE__);
}

std::string called(const Declaration& declaration) {
  constexpr const char* kinds[] = {"option",  "flag", "count",  "each",
                                   "operand", "rest", "config", "action"};
  return std::string(kinds[static_cast<int>(declaration.use)]) + " '" +
         std::string(declaration.names.text()) + "'";
}

void annotateOrThrow(IParser& parser, const char* option, const char* key,
                     const std::string& text) {
  if (!annotate(parser, option, key, text.c_str()))
    throw std::bad_alloc();
}

Scope::Scope(ToolData& tool, IParser& parser, Purpose purpose)
    : m_parser(parser), m_purpose(purpose), m_isParserGivenAway(tool.isParserGivenAway) {
  const std::size_t most = tool.declarations.size() + tool.root().declarations.size();
  m_options.reserve(most);
  m_names.reserve(2 * most);
  addAll(tool);
  if (tool.parent != nullptr && purpose == Purpose::parse)
    addAll(*tool.parent);
  if (tool.parent == nullptr || purpose == Purpose::parse) {
    for (Declaration& declaration : tool.root().builtIn)
      add(declaration);
  }
  for (Declaration* operand : m_operands) {
    if (purpose == Purpose::description || operand == m_operands.front())
      declare(*operand, marked(*operand, operand->firstName(), operandMark).data());
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
  if (declaration.names.text().find(',') != std::string_view::npos ||
      declaration.names.text().empty())
    reportMistake(called(declaration) + " needs one name");
  const auto [taken, isNew] =
      m_names.emplace(marked(declaration, declaration.firstName(), operandMark), &declaration);
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
  std::size_t count = 0;
  std::size_t taken = 0;
  std::string_view last;
  for (const std::string_view name : declaration.names) {
    ++count;
    if (!take(name, declaration))
      continue;
    last = name;
    ++taken;
  }
  if (taken == 0)
    return addHidden(declaration);
  if (taken > 3 || (taken == 3 && last.size() > 2))
    return reportMistake(called(declaration) + " has too many names or a third one that is long");
  m_options.push_back(&declaration);
  if (taken == count)
    return declare(declaration, declaration.names.text().data());
  declare(declaration, joined(typedNames(declaration), ',').c_str());
}

// An option of which a command uses the names can be given before the words of the command, and by
// its environment variable.
void Scope::addHidden(Declaration& declaration) {
  const std::string_view hidden = nameHiddenByCommand(declaration);
  if (hidden.empty())
    return;
  const std::string_view name = marked(declaration, hidden, hiddenMark);
  if (!m_names.emplace(name, &declaration).second)
    return;
  m_options.push_back(&declaration);
  declare(declaration, name.data());
}

// Whether the author of the tool has an option of this name on parser().
bool Scope::isDeclaredByAuthor(std::string_view name) const {
  if (!m_isParserGivenAway || m_names.find(name) != m_names.end())
    return false;
  const std::string text(name);
  return m_parser.isOptionDeclared(text.c_str(), false, nullptr) ||
         m_parser.isOptionDeclared(text.c_str(), true, nullptr);
}

// A name of an option of the tool that a command uses for an option of its own; empty if there is
// none.
std::string_view Scope::nameHiddenByCommand(const Declaration& declaration) const {
  for (const std::string_view name : declaration.names) {
    const Declaration* const other = owner(name);
    if (other != nullptr && &other->tool != &declaration.tool && !declaration.isBuiltIn)
      return name;
  }
  return {};
}

// Gives the option a name, unless another one has it: the names of a command count where the tool
// has the same ones, and those of a tool where help and version have them. Within the declarations
// of one of them, a name may be declared once.
bool Scope::take(std::string_view name, Declaration& declaration) {
  if (!canBeTyped(name)) {
    reportMistake(called(declaration) + " has a name that cannot be typed: '" + std::string(name) +
                  "'");
    return false;
  }
  if (isDeclaredByAuthor(name)) {
    if (!declaration.isBuiltIn)
      reportMistake("the name '" + std::string(name) + "' is declared twice, by " +
                    called(declaration) + " and on parser()");
    return false;
  }
  const auto [place, isNew] = m_names.emplace(name, &declaration);
  const Declaration* const other = isNew ? opposite(name, declaration) : place->second;
  if (other == nullptr)
    return true;
  if (isNew)
    m_names.erase(place);
  if (&other->tool == &declaration.tool && !declaration.isBuiltIn)
    reportMistake("the name '" + std::string(name) + "' is declared twice, by " + called(*other) +
                  " and by " + called(declaration));
  return false;
}

IOption& Scope::declareOnParser(const Declaration& declaration, const char* names,
                                variant_type_t type) {
  const char* const help = declaration.help;
  const char* const group = declaration.isHidden           ? hiddenSection
                            : *declaration.section == '\0' ? nullptr
                                                           : declaration.section;
  if (m_rejected == nullptr)
    m_rejected = m_parser.option(tooManyNames, help, type, group);
  IOption* option = nullptr;
  if (declaration.use == Use::action)
    option = m_parser.action(names, help, type, group);
  else if (!declaration.only.empty() &&
           !(declaration.isOperand() && m_purpose == Purpose::parse))  // checked after the parse
    option = m_parser.modifier(names, declaration.only.data(), help, type, group);
  else
    option = m_parser.option(names, help, type, group);
  if (option == m_rejected)
    throw std::bad_alloc();
  return *option;
}

void Scope::declare(Declaration& declaration, const char* names) {
  const bool takesAnything = declaration.isOperand() && m_purpose == Purpose::parse;
  const variant_type_t readAs = takesAnything ? vtString : readType(declaration);
  IOption& option = declareOnParser(declaration, names,
                                    m_purpose == Purpose::parse ? readAs : parserType(declaration));
  checkChoices(declaration);
  if (declaration.isOperand())
    option.positional();
  if (!takesAnything)
    limitValues(option, declaration, m_purpose);
  if (m_purpose != Purpose::description)
    return;
  if (shownDefault(declaration).empty())
    setDefault(option, declaration);
  annotateAll(declaration, std::string(*NameList(names).begin()));
}

void limitValues(IOption& option, const Declaration& declaration, Purpose purpose) {
  if (purpose == Purpose::description || !declaration.hasDeprecatedChoices()) {
    for (const DeclaredChoice& choice : declaration.choices)
      option.allowValue(choice.text.data());
    for (const auto& [former, now] : declaration.deprecatedChoices)
      option.allowDeprecatedValue(former.data(), now.data());
  }
  if (declaration.separator != '\0' || !declaration.choices.empty())
    option.tokenize(declaration.separator);  // choices have made it split at commas
}

void Scope::annotateAll(const Declaration& declaration, const std::string& name) {
  const auto addFact = [&](const char* key, std::string_view text) {
    if (!text.empty())
      annotateOrThrow(m_parser, name.c_str(), key, std::string(text));
  };
  addFact("placeholder", declaration.placeholder);
  addFact("range", rangeText(declaration));
  addFact("environment", declaration.environment);
  addFact("required", declaration.isRequired ? "required" : "");
  if (declaration.isOperand())
    addFact("takes", declaration.use == Use::rest ? "many" : "one");
  addFact("shownDefault", shownDefault(declaration));
  addFact("deprecated", declaration.deprecated);
}

Declaration* Scope::withFirstName(std::string_view name) const {
  const auto found = m_names.find(name);
  return found != m_names.end() ? found->second : nullptr;
}

Declaration* Scope::owner(std::string_view name) const {
  Declaration* const found = withFirstName(name);
  return found != nullptr ? found : negated(name);
}

Declaration* Scope::negated(std::string_view name) const {
  if (name.compare(0, negation.size(), negation) != 0)
    return nullptr;
  Declaration* const found = withFirstName(name.substr(negation.size()));
  return found != nullptr && parserType(*found) == vtBool ? found : nullptr;
}

Declaration* Scope::opposite(std::string_view name, const Declaration& declaration) const {
  Declaration* const boolean = negated(name);
  if (boolean != nullptr || parserType(declaration) != vtBool)
    return boolean;
  Declaration* const other = withFirstName(std::string(negation).append(name));
  return other != nullptr && &other->tool == &declaration.tool ? other : nullptr;
}

Declaration* Scope::resolve(const std::string& typed) const {
  if (Declaration* const found = withFirstName(typed); found != nullptr)
    return found;
  const char* const first = resolveName(m_parser, typed.c_str());
  return first != nullptr ? withFirstName(first) : nullptr;
}

const Declaration* Scope::declared(const ToolData& tool, const std::string& name) const {
  const Declaration* const found = owner(name);
  return found != nullptr && (&found->tool == &tool || &found->tool == tool.parent) ? found
                                                                                    : nullptr;
}

std::string Scope::nameOf(const Declaration& declaration) const {
  for (const std::string_view name : declaration.names) {
    if (withFirstName(name) == &declaration)
      return std::string(name);
  }
  return hiddenMark + std::string(nameHiddenByCommand(declaration));
}

std::vector<std::string> Scope::typedNames(const Declaration& declaration) const {
  std::vector<std::string> names;
  for (const std::string_view name : declaration.names) {
    if (withFirstName(name) == &declaration)
      names.emplace_back(name);
  }
  return names;
}

}  // namespace kivo_3_3::tool_glue
