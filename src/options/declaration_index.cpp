#include "options/declaration_index.h"

#include <algorithm>
#include <iterator>

#include "options/negation.h"

namespace kivo_3_3 {

struct DeclarationIndex::Matches {
  int count = 0;
  std::uint32_t first = 0;
  std::string_view ahead;
};

const DeclarationIndex::Name* DeclarationIndex::findName(const HashedName& name,
                                                         const OptionList& options) {
  catchUp(options);
  const Name* const named = m_names.find(name);
  if (!isNegated(name.text))
    return named;
  const Name* const negated =
      m_names.find(withoutNegation(name.text), [](const Name& found) { return found.isBoolean; });
  const bool isFirst = negated != nullptr && (named == nullptr || negated->option < named->option);
  return isFirst ? negated : named;
}

std::optional<unsigned int> DeclarationIndex::find(const HashedName& name,
                                                   const OptionList& options) {
  const Name* const found = findName(name, options);
  return found != nullptr ? std::make_optional(found->option) : std::nullopt;
}

DeclarationIndex::Match DeclarationIndex::findBest(const HashedName& typed,
                                                   const OptionList& options) {
  if (const Name* const exact = findName(typed, options))
    return {Match::unique, exact->option, {}, typed.text};
  sortNames();
  Matches matches;
  collect(m_sorted, typed.text, {}, matches);
  if (isNegated(typed.text))
    collect(m_sortedBooleans, withoutNegation(typed.text), negation, matches);
  else if (beginsWith(negation, typed.text))
    collect(m_sortedBooleans, {}, negation, matches);
  if (matches.count != 1)
    return {matches.count == 0 ? Match::none : Match::ambiguous};
  const Name& match = m_names[matches.first];
  return {Match::unique, match.option, matches.ahead, match.name.text};
}

std::optional<unsigned int> DeclarationIndex::findPositional(const OptionList& options) {
  catchUp(options);
  if (!m_positional && m_last != nullptr && m_last->m_positional)
    return m_nextOption;
  return m_positional;
}

bool DeclarationIndex::hasActions(const OptionList& options) {
  catchUp(options);
  return m_hasActions || (m_last != nullptr && m_last->isAction());
}

std::shared_ptr<const DeclaredDefaults> DeclarationIndex::timelessDefaults(
    const OptionList& options) {
  catchUp(options);
  if (m_last == nullptr || (m_defaultsOf == options.size() && m_defaultsOfChanges == m_lastChanges))
    return m_defaults;

  std::shared_ptr<DeclaredDefaults> defaults;
  bool areTimeless = true;
  forEachDefault(options, [&](const OptionDescription& option) {
    areTimeless = areTimeless && DeclaredDefaults::isTimeless(option);
    if (!areTimeless)
      return;
    if (defaults == nullptr)
      defaults = std::make_shared<DeclaredDefaults>();
    defaults->add(option);
  });
  m_defaults = areTimeless ? std::move(defaults) : nullptr;
  m_defaultsOf = options.size();
  m_defaultsOfChanges = m_lastChanges;
  return m_defaults;
}

void DeclarationIndex::learn(const OptionList& options) {
  while (m_nextOption < options.size()) {
    const OptionDescription& option = options[m_nextOption];
    for (; m_nextName < option.m_names.size(); ++m_nextName)
      m_names.add({option.m_names[m_nextName], m_nextOption, option.m_type == vtBool});
    if (m_nextOption + 1 == options.size())
      break;  // its builder may still change it
    settle(m_nextOption, options);
    ++m_nextOption;
    m_nextName = 0;
  }
  m_last = &options.back();
  m_lastChanges = m_last->m_changes;
}

// What may fail for want of memory comes first.
void DeclarationIndex::settle(std::uint32_t option, const OptionList& options) {
  const OptionDescription& settled = options[option];
  if (settled.hasDefault())
    m_withDefault.push_back(option);
  if (!m_positional && settled.m_positional)
    m_positional = option;
  m_hasActions = m_hasActions || settled.isAction();
}

void DeclarationIndex::sortNames() {
  const auto& names = m_names.entries();
  if (m_sorted.size() == names.size())
    return;
  Sorted sorted(m_sorted.get_allocator());
  Sorted booleans(m_sorted.get_allocator());
  for (std::uint32_t number = 0; number < names.size(); ++number)
    sorted.push_back(number);
  std::sort(sorted.begin(), sorted.end(), [&](std::uint32_t left, std::uint32_t right) {
    return names[left].name.text < names[right].name.text;
  });
  std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(booleans),
               [&](std::uint32_t number) { return names[number].isBoolean; });
  m_sortedBooleans.swap(booleans);
  m_sorted.swap(sorted);
}

void DeclarationIndex::collect(const Sorted& sorted, std::string_view prefix,
                               std::string_view ahead, Matches& matches) const {
  auto match = std::lower_bound(sorted.begin(), sorted.end(), prefix,
                                [&](std::uint32_t number, std::string_view wanted) {
                                  return m_names[number].name.text < wanted;
                                });
  for (; match != sorted.end() && beginsWith(m_names[*match].name.text, prefix); ++match) {
    if (++matches.count > 1)
      return;
    matches.first = *match;
    matches.ahead = ahead;
  }
}

}  // namespace kivo_3_3
