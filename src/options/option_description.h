#pragma once

// What a tool has declared about one option. Parsing, help and results all read these fields; a
// wrong one shows in all three.

#include <kivo/option.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "options/name_index.h"
#include "options/name_list.h"
#include "storage/garbage.h"

namespace kivo_3_3 {

class CandidateIndex;

// The section of the help whose options are shown only if a tool asks for them.
inline constexpr std::string_view hiddenSection = "kivo_hidden";

// One declared option, action or modifier. The registry creates and owns it, the tool amends it
// through IOption, and the rest of the library reads its fields.
//
// An amendment never raises an exception: if memory runs out, the amendment has no effect.
class OptionDescription final : public IOption {
 public:
  // The values of `m_status`, which only tests read.
  static constexpr std::uint32_t stored = 0;
  static constexpr std::uint32_t rejected = 1;
  static constexpr std::uint32_t underDeclaration = 3;

  IOption* synonym(const char* name) override;
  IOption* allowValue(const variant_t& value) override;
  IOption* allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) override;
  IOption* defaultValue(const variant_t& value) override;
  IOption* tokenize(char separator) override;
  IOption* positional() override;
  IOption* tag(const char* tags) override;

  OptionDescription() = default;
  // Allocates the lists in `memory`, which must outlive the description.
  explicit OptionDescription(OwnedMemory* memory)
      : m_names(memory), m_allowedValues(memory), m_deprecatedValues(memory), m_tags(memory) {}
  [[gnu::noinline]] OptionDescription(const OptionDescription& other);  // only few are copied
  OptionDescription(OptionDescription&&) noexcept = default;
  OptionDescription& operator=(const OptionDescription&) = default;
  OptionDescription& operator=(OptionDescription&&) = default;
  ~OptionDescription() override = default;

  // The name of the option in messages and events. Raises std::out_of_range for an option without
  // names.
  std::string_view firstName() const {
    if (m_names.empty())
      throwNameless();
    return m_names.front().text;
  }
  bool isAction() const { return m_notAnAction == 0; }
  bool isHidden() const { return m_groupKey == hiddenSection; }

  // Adds tags as tag() does, but raises std::bad_alloc if memory runs out.
  void addTags(const char* tags);
  // The tags, sorted, each once.
  const Texts& tags() const;

  // Whether a default other than "no value" was declared.
  bool hasDefault() const { return m_hasDefault && m_defaultValue.type() != stratum2::vtNull; }
  const variant_t& getDefaultValue() const { return m_defaultValue; }
  // The text of the default, which must exist. Only tests call this.
  std::string getDefaultValueAsText() const;

  // The text of a value of this option's type, owned by `garbage`; null for a type that has no
  // text form. Raises std::bad_alloc. Only getDefaultValueAsText() and tests call this.
  const char* toString(Garbage* garbage, const variant_t& value) const;
  // Converts `text` to this option's type; `vtNull` if it does not convert. `garbage` is unused.
  variant_t fromString(const char* text, Garbage* garbage) const;
  // The name of this option's type in messages.
  std::string getTypeName() const;

  // Converts one value, zero-terminated and as the user wrote it, and checks it against the allowed
  // values. An abbreviation is completed: `text` then refers to the allowed value. If `value` is a
  // text, it refers to the characters of `text`. If the value is refused, returns false with the
  // reason in `error`, and `value` is meaningless; otherwise `error` is unchanged. `isClassic` says
  // whether the global locale is the classic one; a text does not depend on it.
  bool validate(std::string_view& text, variant_t& value, bool isClassic, std::string& error) const;
  // All candidates for a value, if there are so many that an index pays; otherwise null.
  const CandidateIndex* candidates() const;

  // Compares the first names byte by byte; an option without names has an empty one. Only tests
  // call this.
  bool operator<(const OptionDescription& other) const;

  using Values = std::vector<variant_t, OwnedAllocator<variant_t>>;
  // From deprecated values to those that replace them.
  using Replacements = std::map<variant_t, variant_t, std::less<>,
                                OwnedAllocator<std::pair<const variant_t, variant_t>>>;

  // All texts are in the arena of the Garbage, zero-terminated.
  std::uint32_t m_status = stored;
  Names m_names;
  std::string_view m_groupKey;
  std::string_view m_groupTitle;  // only tests read it
  std::string_view m_description;
  bool m_positional = false;
  bool m_hasDefault = false;
  std::uint32_t m_notAnAction = 2;  // 0 for an action, 1 for any other option, 2 until declared
  char m_tokenizer = ',';           // '\0': values are not split
  variant_type_t m_type = stratum2::vtNull;
  variant_t m_defaultValue;
  Values m_allowedValues;
  Replacements m_deprecatedValues;
  Garbage* m_garbage = nullptr;
  std::uint64_t m_identity = 0;  // unique in this process; 0 without a registry
  std::uint32_t m_changes = 0;   // the number of amendments
  // The index of the names, null without a registry, and the number of the option in it.
  NameIndex* m_index = nullptr;
  std::uint32_t m_number = 0;

 private:
  void addName(std::string_view name);
  [[gnu::cold]] void sortTags() const;
  [[gnu::cold]] const CandidateIndex* indexedCandidates() const;
  [[noreturn, gnu::cold]] static void throwNameless();

  mutable Texts m_tags;
  mutable std::uint32_t m_sortedTags = 0;  // this many tags are sorted, each once
  mutable std::uint32_t m_walks = 0;       // over the candidates, since they were last indexed
  mutable std::shared_ptr<const CandidateIndex> m_candidates;
};

// All options of one parser in declaration order. A description never moves in memory.
using OptionList = std::deque<OptionDescription, OwnedAllocator<OptionDescription>>;

}  // namespace kivo_3_3
