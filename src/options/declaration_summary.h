#pragma once

// Answers what a parse asks about the declarations as a whole, without walking them. If the summary
// missed an amendment, positional arguments would go to no option, or a default would be stored as
// it was declared before.

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "options/declared_defaults.h"
#include "options/option_description.h"

namespace kivo_3_3 {

// A summary of all options but the one declared last. Only that one can still be amended, so each
// question checks it directly.
class DeclarationSummary {
 public:
  // Sums up `options`. Options may be added to it; only the last one may be removed. `options` and
  // `memory` must outlive the summary.
  DeclarationSummary(const OptionList& options, OwnedMemory* memory)
      : m_options(options), m_withDefault(memory) {}

  // The number of the first positional option.
  std::optional<unsigned int> findPositional();

  bool hasActions();

  // Calls `visit` with each option that has a default other than "no value", in declaration order.
  // Options that `visit` declares are not visited.
  template <class Visit>
  void forEachDefault(Visit visit);

  // The current defaults of all options, for parses in the classic locale; null if there are none
  // or if one of them has to be converted at each parse. Raises std::bad_alloc.
  std::shared_ptr<const DeclaredDefaults> timelessDefaults();

 private:
  void catchUp() {
    while (m_summedUp + 1 < m_options.size())
      sumUpNext();
  }
  void sumUpNext();
  const OptionDescription* last() const { return m_options.empty() ? nullptr : &m_options.back(); }

  const OptionList& m_options;

  // Of the first `m_summedUp` options:
  std::uint32_t m_summedUp = 0;
  std::optional<std::uint32_t> m_positional;
  bool m_hasActions = false;
  std::vector<std::uint32_t, OwnedAllocator<std::uint32_t>> m_withDefault;

  // The timeless defaults, and the state of the declarations that they were made from: the number
  // of options and the number of amendments of the last option.
  std::shared_ptr<const DeclaredDefaults> m_defaults;
  std::size_t m_defaultsOf = 0;
  std::uint32_t m_defaultsOfChanges = 0;
};

template <class Visit>
void DeclarationSummary::forEachDefault(Visit visit) {
  catchUp();
  const OptionDescription* const unsummed = last();
  const std::size_t count = m_withDefault.size();
  for (std::size_t i = 0; i < count; ++i)
    visit(m_options[m_withDefault[i]]);
  if (unsummed != nullptr && unsummed->hasDefault())
    visit(*unsummed);
}

}  // namespace kivo_3_3
