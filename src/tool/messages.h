#pragma once

#include <string>
#include <vector>

#include "tool/declaration.h"

// The texts with which the layer refuses a command line.

namespace kivo_3_3::tool_glue {

/// "--times", "-t", or the name of an operand.
std::string shownName(const std::string& name);

// Whether a byte of UTF-8 is the first one of a character.
bool beginsCharacter(char byte);
std::size_t countOfCharacters(const std::string& text);

std::string doesNotTake(const Declaration& declaration, const std::string& text,
                        const std::string& expected);
std::string isRequired(const Declaration& declaration);
std::string isDeprecated(const Declaration& declaration);
std::string doesNotAccept(const Declaration& action, const Declaration& operand);
std::string isDeprecatedChoice(const Declaration& declaration, const std::string& former,
                               const std::string& now);
std::string isForCommandLine(const Declaration& declaration);
std::string isUnexpected(const std::string& argument);
std::string excludeEachOther(const std::vector<std::string>& names);
std::string oneIsRequired(const std::vector<std::string>& names);
std::string isUnknownCommand(const std::string& word);
std::string isAmbiguousCommand(const std::string& word, const std::vector<std::string>& commands);
std::string didYouMean(const std::vector<std::string>& suggestions);

}  // namespace kivo_3_3::tool_glue
