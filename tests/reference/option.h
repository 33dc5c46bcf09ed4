#pragma once

// One declared option, action or modifier: what was declared, the builder operations that
// amend it, and the validation of one value.

#include <kivo/option.h>

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kivo_3_3::reference {

class Option final : public IOption {
 public:
  // Appends one name, unchanged: commas do not split it. Null changes nothing.
  IOption* synonym(const char* name) override;
  // Keeps duplicates. Sets the tokenizer to ',' again if there is none.
  IOption* allowValue(const variant_t& value) override;
  // A value that has a replacement already keeps it.
  IOption* allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) override;
  IOption* defaultValue(const variant_t& value) override;
  IOption* tokenize(char separator) override;
  IOption* positional() override;
  // Adds tags, separated by commas. Null changes nothing.
  IOption* tag(const char* newTags) override;

  // The name used in every message. Raises std::out_of_range for an option without names.
  const std::string& firstName() const { return names.at(0); }
  std::string defaultAsText() const;

  // Converts the text of one value and checks it against the allowed values. On success an
  // abbreviated text is replaced by the full value; on failure `error` has the message.
  bool validate(std::string& text, variant_t& value, std::string& error) const;

  std::vector<std::string> names;
  std::set<std::string> tags;
  std::string groupKey;
  std::string groupTitle;
  std::string description;
  bool isPositional = false;
  bool hasDefault = false;
  bool isAction = false;
  char tokenizer = ',';  // the zero character for none
  variant_type_t type = vtNull;
  variant_t defaultsTo;
  std::vector<variant_t> allowedValues;
  std::map<variant_t, variant_t> deprecatedValues;  // deprecated value to its replacement

 private:
  bool completeAbbreviation(const std::vector<variant_t>& candidates, std::string& text,
                            variant_t& value, std::string& error) const;
  std::string allowedValuesAsText() const;
  std::string doesNotAllow(const std::string& text) const;
  void warnIfDeprecated(const std::string& text) const;
};

// A deque, because its elements never move: a builder that a tool keeps too long refers to an old
// option, never to freed memory.
using Options = std::deque<Option>;

// Orders by first name. An option without names counts as having the empty name.
bool operator<(const Option& left, const Option& right);

}  // namespace kivo_3_3::reference
