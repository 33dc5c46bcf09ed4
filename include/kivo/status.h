#pragma once

namespace kivo_3_3 {

/// What a parse returns: `success`, or why it ended early. The message that goes
/// with a failure is read with IParser::getErrorDesc().
namespace status {

/// All went well.
constexpr int success = 0;
/// An event handler refused a value.
constexpr int valueRefused = 1;
/// The user's arguments are wrong: an unknown or ambiguous option, a missing,
/// unexpected or invalid value, or actions and modifiers that do not go together.
constexpr int usageError = 2;
/// A standard exception (memory ran out, say) ended the operation; no message is set.
constexpr int exceptionCaught = 3;
/// A standard exception ended the walk over the arguments.
constexpr int unidentifiedProblem = 4;
/// An option file cannot be read, or leads back to itself.
constexpr int optionFileUnreadable = 6;

}  // namespace status

}  // namespace kivo_3_3
