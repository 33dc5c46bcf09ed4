#pragma once

#include <kivo/kivo.h>

#include <string>
#include <vector>

namespace textkit {

/// The help on each topic, which is any name of an action or option; without topics the list of all
/// actions. The help on an action shows all options that can be given with it.
std::string describeTopics(kivo::IParser& parser, const std::vector<std::string>& topics);

}  // namespace textkit
