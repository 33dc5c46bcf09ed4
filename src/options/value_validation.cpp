// Checks one value against the values that its option allows: converts it, completes an
// abbreviation, refuses the value with a message, or accepts it with a warning.
//
// A refused value raises no exception and prints nothing. Only the use of a deprecated value prints
// a warning, each time the value is used.

#include <kivo/value.h>

#include <ostream>

#include "base/begins_with.h"
#include "base/quoted.h"
#include "bedrock/console.h"
#include "options/option_description.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

using std::string;

// The text of `value`; the empty text for a value that is not a text.
const char* readAsText(const variant_t& value) {
  return value.can_get<const char*>() ? value.get<const char*>() : "";
}

// The list of the allowed values in a message; deprecated values are left out.
[[gnu::cold]] string possibleValues(const OptionDescription& option) {
  // Spelled like this since 3.0; tools depend on it.
  string list = ". Possible values follows: ";
  const char* ahead = "'";
  for (const variant_t& value : option.m_allowedValues) {
    list += ahead;
    appendValue(option.m_type, value, list);
    list += '\'';
    ahead = ", '";
  }
  return list;
}

[[gnu::cold]] string doesNotConvert(const OptionDescription& option, std::string_view text) {
  return joined("Option '", option.firstName(), "' can not parse '", text,
                "' value, requires a type '", option.getTypeName(), "' here.");
}

[[gnu::cold]] string doesNotAllow(const OptionDescription& option, std::string_view text) {
  return joined("Option '", option.firstName(), "' does not allow value '", text, "'",
                possibleValues(option));
}

[[gnu::cold]] string isAmbiguous(const OptionDescription& option) {
  return joined("Ambiguous value for option '", option.firstName(), "'", possibleValues(option));
}

[[gnu::cold]] string isDeprecated(const OptionDescription& option, std::string_view text,
                                  const char* instead) {
  return joined("Warning: '", text, "' argument is deprecated for the option '-",
                option.firstName(), "'. Use the '", instead, "' argument instead.\n");
}

// Visits the values that the option accepts: the allowed ones in declaration order, then the
// deprecated ones in the order of their map. Stops when `visit` returns true.
template <class Visit>
bool anyCandidate(const OptionDescription& option, Visit visit) {
  for (const variant_t& value : option.m_allowedValues)
    if (visit(value))
      return true;
  for (const auto& deprecated : option.m_deprecatedValues)
    if (visit(deprecated.first))
      return true;
  return false;
}

// Returns the number of candidates that begin with `text`. Sets `completed` to the last of them
// and lets `value` refer to it.
int complete(const OptionDescription& option, std::string_view text, variant_t& value,
             std::string_view& completed) {
  int passed = 0;
  anyCandidate(option, [&](const variant_t& candidate) {
    const std::string_view whole = readAsText(candidate);
    if (beginsWith(whole, text)) {
      ++passed;
      completed = whole;
      value = variant_t(whole.data(), true);
    }
    return false;
  });
  return passed;
}

void warnIfDeprecated(const OptionDescription& option, std::string_view text) {
  if (option.m_deprecatedValues.empty())
    return;
  const auto deprecated =
      option.m_deprecatedValues.find(option.fromString(text.data(), option.m_garbage));
  if (deprecated == option.m_deprecatedValues.end())
    return;
  BEDROCK::ucerr << isDeprecated(option, text, readAsText(deprecated->second)) << std::flush;
}

}  // namespace

bool OptionDescription::validate(std::string_view& text, variant_t& value, string& error) const {
  value = m_type == vtString ? variant_t(text.data(), true) : textToValue(m_type, text);
  if (value.type() == vtNull) {
    error = doesNotConvert(*this, text);
    return false;
  }
  if (m_allowedValues.empty())
    return true;

  if (!anyCandidate(*this, [&](const variant_t& candidate) { return candidate == value; })) {
    std::string_view completed;
    const int passed = m_type == vtString ? complete(*this, text, value, completed) : 0;
    if (passed != 1) {
      error = passed == 0 ? doesNotAllow(*this, text) : isAmbiguous(*this);
      return false;
    }
    text = completed;
  }
  warnIfDeprecated(*this, text);
  return true;
}

}  // namespace kivo_3_3
