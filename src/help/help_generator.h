#pragma once

// Writes help from declarations: sections with their options, and topics.
//
// Help does not depend on parses, and the generator stores no text. An option without names that
// help has to list raises std::out_of_range.

#include <string>
#include <vector>

#include "options/option_registry.h"

namespace kivo_3_3 {

class HelpGenerator {
 public:
  using Options = OptionList;
  using Selection = std::vector<const OptionDescription*>;
  using Sections = RegisteredOptionStorage::Groups;

  // `options` and `sections` must outlive the generator.
  HelpGenerator(const Options& options, const Sections& sections)
      : m_options(options), m_sections(sections) {}

  // The whole tool: its actions as topics, or every option if no action is selected. Here and
  // below, `hidden` selects the hidden section alone instead of all other sections.
  std::string describeTool(bool hidden) const;
  // One option, or one action.
  std::string describeOption(unsigned int index, bool hidden) const;
  // The modifiers that have a tag in common with the action at `index`.
  std::string describeActionModifiers(unsigned int index, bool hidden) const;
  // The options that go with every action: those without tags.
  std::string describeGlobalModifiers(bool hidden) const;

  Selection getGlobalActions() const;
  Selection getGlobalModifiers() const;
  // Appends the modifiers of the action at `index`, which must exist.
  void findActionModifiers(unsigned int index, Selection& modifiers) const;

 private:
  std::string describe(const Selection& selection, bool hidden) const;

  const Options& m_options;
  const Sections& m_sections;
};

}  // namespace kivo_3_3
