#pragma once

// Writes help from the declarations alone, each time a tool asks for it.
//
// The group "kivo_hidden" is shown only in the hidden help, which shows nothing else.

#include <optional>
#include <string>
#include <vector>

#include "reference/registry.h"

namespace kivo_3_3::reference {

// Describes options, section by section, and within a section in the order of first names.
// Positional options are left out. Describing an option without names raises std::out_of_range.
std::string formatHelp(const std::vector<Group>& sections, std::vector<Option> options,
                       bool hidden);

// The actions with their descriptions, in the order of their first names; nothing if there is no
// action to show.
std::optional<std::string> topicList(const Options& options, bool hidden);

// The options that go with every action, in declaration order.
std::vector<Option> globalModifiers(const Options& options);

// The options that go with the action at `index`, in declaration order.
std::vector<Option> actionModifiers(const Options& options, std::size_t index);

}  // namespace kivo_3_3::reference
