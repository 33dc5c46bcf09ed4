#pragma once

namespace kivo_3_3 {

/// The values that a parse returns: `success`, or the reason why the parse ended early. Read the
/// message for a failure with IParser::getErrorDesc().
namespace status {

/// The parse succeeded.
constexpr int success = 0;
/// An event handler refused a value.
constexpr int valueRefused = 1;
/// The user's arguments are wrong: an unknown or ambiguous option, a missing,
/// unexpected or invalid value, or actions and modifiers that do not go together.
constexpr int usageError = 2;
/// A standard exception, for example std::bad_alloc, ended the operation; no message is set.
constexpr int exceptionCaught = 3;
/// A standard exception ended a list of arguments: a handler threw it, memory ran out, calls were
/// nested too deep, or no position was left.
constexpr int unidentifiedProblem = 4;
/// An option file cannot be read, or includes itself, directly or through others.
constexpr int optionFileUnreadable = 6;

}  // namespace status

}  // namespace kivo_3_3
