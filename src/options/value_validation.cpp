// Checks one value against the values that its option allows: converts it, completes an
// abbreviation, refuses the value with a message, or accepts it with a warning.
//
// A refused value raises no exception and prints nothing. Only the use of a deprecated value prints
// a warning, each time the value is used.

#include <kivo/value.h>

#include <new>
#include <ostream>

#include "base/quoted.h"
#include "bedrock/console.h"
#include "options/candidate_index.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

using std::string;

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

bool isCandidate(const OptionDescription& option, const CandidateIndex* index,
                 const variant_t& value) {
  if (index != nullptr)
    return index->has(value);
  return anyCandidate(option, [&](const variant_t& candidate) { return candidate == value; });
}

[[gnu::cold]] Completion completionOf(const OptionDescription& option, const CandidateIndex* index,
                                      std::string_view text) {
  Completion completion = {text};
  if (index != nullptr) {
    index->complete(completion);
    return completion;
  }
  anyCandidate(option, [&](const variant_t& candidate) {
    completion.consider(candidate);
    return false;
  });
  return completion;
}

// Completes the text of a value that is no candidate itself, as validate() does.
[[gnu::cold, gnu::noinline]] bool complete(const OptionDescription& option,
                                           const CandidateIndex* index, std::string_view& text,
                                           variant_t& value, string& error) {
  const Completion completion =
      option.m_type == vtString ? completionOf(option, index, text) : Completion{text};
  if (completion.count == 0) {
    error = doesNotAllow(option, text);
    return false;
  }
  value = variant_t(completion.last.data(), true);
  if (completion.count > 1) {
    error = isAmbiguous(option);
    return false;
  }
  text = completion.last;
  return true;
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

const CandidateIndex* OptionDescription::candidates() const {
  constexpr std::size_t fewestIndexed = 32;
  const std::size_t count = m_allowedValues.size() + m_deprecatedValues.size();
  if (count < fewestIndexed)
    return nullptr;
  const bool isUpToDate = m_candidates != nullptr && m_candidates->size() == count;
  return isUpToDate ? m_candidates.get() : indexedCandidates();
}

// The index is built when it is about to pay: candidates that change between any two values are
// walked most times. Without memory for the index they are walked too.
const CandidateIndex* OptionDescription::indexedCandidates() const {
  constexpr std::uint32_t walksAhead = 8;
  if (++m_walks < walksAhead)
    return nullptr;
  m_walks = 0;
  try {
    m_candidates = std::make_shared<const CandidateIndex>(*this);
    return m_candidates.get();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

bool OptionDescription::validate(std::string_view& text, variant_t& value, bool isClassic,
                                 string& error) const {
  value = m_type == vtString ? variant_t(text.data(), true) : textToValue(m_type, text, isClassic);
  if (value.type() == vtNull) {
    error = doesNotConvert(*this, text);
    return false;
  }
  if (m_allowedValues.empty())
    return true;

  const CandidateIndex* const index = candidates();
  if (!isCandidate(*this, index, value) && !complete(*this, index, text, value, error))
    return false;
  warnIfDeprecated(*this, text);
  return true;
}

}  // namespace kivo_3_3
