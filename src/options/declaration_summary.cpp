// Only the option declared last is checked at each question: the tool can still amend it.

#include "options/declaration_summary.h"

#include <utility>

namespace kivo_3_3 {

std::optional<unsigned int> DeclarationSummary::findPositional() {
  catchUp();
  const OptionDescription* const unsummed = last();
  const bool isLast = !m_positional && unsummed != nullptr && unsummed->m_positional;
  return isLast ? std::make_optional(m_summedUp) : m_positional;
}

bool DeclarationSummary::hasActions() {
  catchUp();
  const OptionDescription* const unsummed = last();
  return m_hasActions || (unsummed != nullptr && unsummed->isAction());
}

std::shared_ptr<const DeclaredDefaults> DeclarationSummary::timelessDefaults() {
  const OptionDescription* const latest = last();
  if (latest == nullptr ||
      (m_defaultsOf == m_options.size() && m_defaultsOfChanges == latest->m_changes))
    return m_defaults;

  std::shared_ptr<DeclaredDefaults> defaults;
  bool areTimeless = true;
  forEachDefault([&](const OptionDescription& option) {
    areTimeless = areTimeless && DeclaredDefaults::isTimeless(option);
    if (!areTimeless)
      return;
    if (defaults == nullptr)
      defaults = std::make_shared<DeclaredDefaults>();
    defaults->add(option);
  });
  m_defaults = areTimeless ? std::move(defaults) : nullptr;
  m_defaultsOf = m_options.size();
  m_defaultsOfChanges = latest->m_changes;
  return m_defaults;
}

// The only step that may raise std::bad_alloc comes first: if it fails, nothing has changed.
void DeclarationSummary::sumUpNext() {
  const OptionDescription& option = m_options[m_summedUp];
  if (option.hasDefault())
    m_withDefault.push_back(m_summedUp);
  if (!m_positional && option.m_positional)
    m_positional = m_summedUp;
  m_hasActions = m_hasActions || option.isAction();
  ++m_summedUp;
}

}  // namespace kivo_3_3
