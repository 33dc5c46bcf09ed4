#pragma once

// Writes help from declarations: sections with their options, and topics.
//
// It knows nothing of parsing and keeps no text. An option without names, met on the
// way, raises std::out_of_range.

#include <string>
#include <vector>

#include "options/option_registry.h"

namespace kivo_3_3 {

class HelpGenerator {
 public:
  using Options = OptionList;
  using Selection = std::vector<const OptionDescription*>;
  using Sections = RegisteredOptionStorage::Groups;

  // Both must outlive the generator.
  HelpGenerator(const Options& options, const Sections& sections)
      : m_options(options), m_sections(sections) {}

  // The whole tool: its actions as topics, or every option where it has no actions.
  std::string describeTool(bool hidden) const;
  // One option, or one action.
  std::string describeOption(unsigned int index, bool hidden) const;
  // The modifiers that go with the action at `index`.
  std::string describeActionModifiers(unsigned int index, bool hidden) const;
  // The options that go with every action.
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
