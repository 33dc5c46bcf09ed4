// Holds one value against what its option allows: converts it, completes an
// abbreviation, refuses it with a message, or accepts it with a warning.
//
// Nothing is thrown or printed for a value that is refused; only the use of a
// deprecated value is printed, each time it is used.

#include <kivo/value.h>

#include <ostream>

#include "base/quoted.h"
#include "bedrock/console.h"
#include "options/option_description.h"

namespace kivo_3_3 {

namespace {

using std::string;

// A value that is no text reads as the empty text.
const char* readAsText(const variant_t& value) {
  return value.can_get<const char*>() ? value.get<const char*>() : "";
}

// The values that the option allows; deprecated ones are not advertised.
string possibleValues(const OptionDescription& option) {
  string list;
  for (const variant_t& value : option.m_allowedValues) {
    if (!list.empty())
      list += ", ";
    const char* text = option.toString(option.m_garbage, value);
    list += quoted(text != nullptr ? text : "");
  }
  return ". Possible values follows: " + list;
}

string doesNotConvert(const OptionDescription& option, const string& text) {
  return "Option " + quoted(option.firstName()) + " can not parse " + quoted(text) +
         " value, requires a type " + quoted(option.getTypeName()) + " here.";
}

string doesNotAllow(const OptionDescription& option, const string& text) {
  return "Option " + quoted(option.firstName()) + " does not allow value " + quoted(text) +
         possibleValues(option);
}

string isAmbiguous(const OptionDescription& option) {
  return "Ambiguous value for option " + quoted(option.firstName()) + possibleValues(option);
}

string isDeprecated(const OptionDescription& option, const string& text, const char* instead) {
  return "Warning: " + quoted(text) + " argument is deprecated for the option '-" +
         option.firstName() + "'. Use the " + quoted(instead) + " argument instead.";
}

// Visits what may be given for the option: the allowed values as declared, then the
// deprecated ones in their order. Stops when `visit` returns true.
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

// The number of candidates that begin with `text`. The last of them becomes `value`
// and `completed`.
int complete(const OptionDescription& option, const string& text, variant_t& value,
             string& completed) {
  int passed = 0;
  anyCandidate(option, [&](const variant_t& candidate) {
    const string whole = readAsText(candidate);
    if (whole.compare(0, text.size(), text) == 0) {
      ++passed;
      completed = whole;
      value = whole.c_str();
    }
    return false;
  });
  return passed;
}

void warnIfDeprecated(const OptionDescription& option, const string& text) {
  const auto deprecated =
      option.m_deprecatedValues.find(option.fromString(text.c_str(), option.m_garbage));
  if (deprecated == option.m_deprecatedValues.end())
    return;
  BEDROCK::ucerr << isDeprecated(option, text, readAsText(deprecated->second)) << std::endl;
}

}  // namespace

bool OptionDescription::validate(string& text, variant_t& value, string& error) const {
  value = fromString(text.c_str(), m_garbage);
  if (value.type() == vtNull) {
    error = doesNotConvert(*this, text);
    return false;
  }
  if (m_allowedValues.empty())
    return true;

  string accepted = text;
  if (!anyCandidate(*this, [&](const variant_t& candidate) { return candidate == value; })) {
    const int passed = m_type == vtString ? complete(*this, text, value, accepted) : 0;
    if (passed != 1) {
      error = passed == 0 ? doesNotAllow(*this, text) : isAmbiguous(*this);
      return false;
    }
  }
  warnIfDeprecated(*this, accepted);
  text = accepted;
  return true;
}

}  // namespace kivo_3_3
