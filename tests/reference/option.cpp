#include "reference/option.h"

#include <algorithm>
#include <ostream>

#include "bedrock/console.h"
#include "reference/conversion.h"
#include "reference/registry.h"

namespace kivo_3_3::reference {

namespace {

// The text of a value; empty if the value is not a text.
std::string readAsText(const variant_t& value) {
  return value.can_get<const char*>() ? value.get<const char*>() : "";
}

}  // namespace

IOption* Option::synonym(const char* name) {
  if (name != nullptr)
    names.emplace_back(name);
  return this;
}

IOption* Option::allowValue(const variant_t& value) {
  if (tokenizer == '\0')
    tokenizer = ',';
  allowedValues.push_back(value);
  return this;
}

IOption* Option::allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) {
  // Not emplace(), which looks for the place in another way: of values without an order it would
  // keep others than the library.
  deprecatedValues.insert(std::map<variant_t, variant_t>::value_type(oldValue, newValue));
  return this;
}

IOption* Option::defaultValue(const variant_t& value) {
  defaultsTo = value;
  hasDefault = true;
  return this;
}

IOption* Option::tokenize(char separator) {
  tokenizer = separator;
  return this;
}

IOption* Option::positional() {
  isPositional = true;
  return this;
}

IOption* Option::tag(const char* newTags) {
  if (newTags != nullptr)
    for (const std::string& word : split(newTags))
      tags.insert(word);
  return this;
}

std::string Option::defaultAsText() const { return toText(type, defaultsTo); }

// Deprecated values count only if there are allowed values. Then they are accepted too, and come
// after the allowed values.
bool Option::validate(std::string& text, variant_t& value, std::string& error) const {
  value = fromText(type, text);
  if (value.type() == vtNull) {
    error = "Option '" + firstName() + "' can not parse '" + text + "' value, requires a type '" +
            typeName(type) + "' here.";
    return false;
  }
  if (allowedValues.empty())
    return true;
  std::vector<variant_t> candidates = allowedValues;
  for (const auto& [oldValue, newValue] : deprecatedValues)
    candidates.push_back(oldValue);
  const bool isExact = std::find(candidates.begin(), candidates.end(), value) != candidates.end();
  if (!isExact && type != vtString) {
    error = doesNotAllow(text);
    return false;
  }
  if (!isExact && !completeAbbreviation(candidates, text, value, error))
    return false;
  warnIfDeprecated(text);
  return true;
}

// A candidate passes if it begins with the text. The last one that passes is assigned to `value`,
// even if the text turns out to be ambiguous.
bool Option::completeAbbreviation(const std::vector<variant_t>& candidates, std::string& text,
                                  variant_t& value, std::string& error) const {
  int passed = 0;
  std::string accepted;
  for (const variant_t& candidate : candidates) {
    const std::string candidateText = readAsText(candidate);
    if (candidateText.compare(0, text.size(), text) != 0)
      continue;
    ++passed;
    accepted = candidateText;
    value = variant_t(candidateText.c_str());
  }
  if (passed == 1) {
    text = accepted;
    return true;
  }
  error = passed == 0 ? doesNotAllow(text)
                      : "Ambiguous value for option '" + firstName() +
                            "'. Possible values follows: " + allowedValuesAsText();
  return false;
}

// Lists the allowed values only, never the deprecated ones.
std::string Option::allowedValuesAsText() const {
  std::string list;
  for (const variant_t& value : allowedValues)
    list += (list.empty() ? "'" : ", '") + toText(type, value) + "'";
  return list;
}

std::string Option::doesNotAllow(const std::string& text) const {
  return "Option '" + firstName() + "' does not allow value '" + text +
         "'. Possible values follows: " + allowedValuesAsText();
}

// A deprecated value is stored as it is; the warning names its replacement.
void Option::warnIfDeprecated(const std::string& text) const {
  const auto deprecated = deprecatedValues.find(fromText(type, text));
  if (deprecated != deprecatedValues.end())
    BEDROCK::ucerr << "Warning: '" << text << "' argument is deprecated for the option '-"
                   << firstName() << "'. Use the '" << readAsText(deprecated->second)
                   << "' argument instead." << std::endl;
}

bool operator<(const Option& left, const Option& right) {
  const std::string leftName = left.names.empty() ? "" : left.names[0];
  const std::string rightName = right.names.empty() ? "" : right.names[0];
  return leftName < rightName;
}

}  // namespace kivo_3_3::reference
