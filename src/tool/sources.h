#pragma once

#include <string>

#include "tool/given_values.h"

// What a command line leaves open is taken from the environment, and then from a configuration
// file. Both are read by the parser of the command line.

namespace kivo_3_3::tool_glue {

/// Returns the status; `failure` says what is wrong.
int readEnvironment(const Scope& scope, IParser& parser, GivenValues& values, std::string& failure);
int readConfiguration(const Scope& scope, IParser& parser, GivenValues& values,
                      std::string& failure);

/// Whether an option concerns this command line: one for some actions needs one of them.
bool isConcerned(const Declaration& declaration, const GivenValues& values);

}  // namespace kivo_3_3::tool_glue
