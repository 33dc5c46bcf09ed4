#pragma once

#include <kivo/option.h>

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "options/name_index.h"
#include "options/name_list.h"
#include "storage/garbage.h"

namespace kivo_3_3 {

// One declared option, action or modifier. The registry makes it and keeps it by
// value; the tool amends it through IOption; everybody else reads its fields.
//
// An amendment never fails loudly: when memory runs out, it is not made.
class OptionDescription final : public IOption {
 public:
  // What the status of a description says.
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
  // Keeps its lists in `memory`, which must outlive it.
  explicit OptionDescription(OwnedMemory* memory)
      : m_names(memory), m_tags(memory), m_allowedValues(memory) {}
  OptionDescription(const OptionDescription&) = default;
  OptionDescription(OptionDescription&&) noexcept = default;
  OptionDescription& operator=(const OptionDescription&) = default;
  OptionDescription& operator=(OptionDescription&&) = default;
  ~OptionDescription() override = default;

  // The name that stands for the option in messages and events; out of range for an
  // option without names.
  std::string_view firstName() const { return m_names.at(0).text; }
  bool isAction() const { return m_notAnAction == 0; }

  // What tag() does, for those who must know that it is done: raises std::bad_alloc.
  void addTags(const char* tags);

  // Whether a default other than "no value" was declared.
  bool hasDefault() const { return m_hasDefault && m_defaultValue.type() != stratum2::vtNull; }
  const variant_t& getDefaultValue() const { return m_defaultValue; }
  // Only for an option that has a default.
  std::string getDefaultValueAsText() const;

  // The text of a value of this option's type, kept in `garbage`; null for a type that
  // has no text form. Raises std::bad_alloc when it cannot be kept.
  const char* toString(Garbage* garbage, const variant_t& value) const;
  // The value that `text` stands for in this option's type, `vtNull` if it stands for
  // none.
  variant_t fromString(const char* text, Garbage* garbage) const;
  // How messages and help call this option's type.
  std::string getTypeName() const;

  // Converts one value as the user wrote it, with a zero behind it, and holds it against the
  // allowed values. An abbreviation is completed: `text` is then that of the allowed value.
  // A `value` that is a text refers to `text`. False with the reason in `error`, which is
  // untouched otherwise; `value` is meaningless then.
  bool validate(std::string_view& text, variant_t& value, std::string& error) const;

  // By first name, byte by byte; an option without names stands first.
  bool operator<(const OptionDescription& other) const;

  // All texts are kept in the Garbage, with a zero behind them.
  std::uint32_t m_status = stored;
  Names m_names;
  Texts m_tags;  // in order, each once
  std::string_view m_groupKey;
  std::string_view m_groupTitle;
  std::string_view m_description;
  bool m_positional = false;
  bool m_hasDefault = false;
  std::uint32_t m_notAnAction = 2;  // 0 for an action, 1 for what is none, 2 while undeclared
  char m_tokenizer = ',';           // '\0': values are not split
  variant_type_t m_type = stratum2::vtNull;
  variant_t m_defaultValue;
  std::vector<variant_t, OwnedAllocator<variant_t>> m_allowedValues;
  std::map<variant_t, variant_t> m_deprecatedValues;  // what is still accepted, and for what
  Garbage* m_garbage = nullptr;
  std::uint64_t m_identity = 0;  // in this process; 0 for one that no registry has made
  std::uint32_t m_changes = 0;   // the number of amendments
  // Where the names are found, and the number of the option there; null without a registry.
  NameIndex* m_index = nullptr;
  std::uint32_t m_number = 0;

 private:
  void addName(std::string_view name);
};

// Everything that one parser has declared, in that order. Descriptions stay where they are.
using OptionList = std::deque<OptionDescription, OwnedAllocator<OptionDescription>>;

}  // namespace kivo_3_3
