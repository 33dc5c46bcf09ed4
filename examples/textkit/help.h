#pragma once

#include <kivo/kivo.h>

#include <string>
#include <vector>

namespace textkit {

/// The help on each topic, by any name of an action or option; without topics the list of
/// all actions. Of an action it shows all the options that can be given with it.
std::string describeTopics(kivo::IParser& parser, const std::vector<std::string>& topics);

}  // namespace textkit
