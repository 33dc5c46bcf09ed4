#pragma once

/// @file
/// What a tool says about itself: a description of all its declarations as JSON, from which other
/// programs write completion scripts and manual pages.

#include <kivo/export.h>
#include <kivo/parser.h>

namespace kivo_3_3 {

/// What a tool says about itself in addition to its declarations. A null text counts as the empty
/// one.
struct ToolInfo {
  const char* name;     ///< as users type it
  const char* version;  ///< in any form
  const char* summary;  ///< one sentence
};

/// A command of a tool, with a parser of its own. A null text counts as the empty one. describe()
/// writes the texts as they are: programs that read the description refuse words that are empty,
/// begin with a dash, or are those of another command.
struct CommandInfo {
  const char* words;    ///< one or more, separated by a blank: "remote add"
  const char* summary;  ///< one sentence
  IParser* parser;      ///< has the declarations of the command
};

/// Returns the description of the tool as JSON, without a line end after it. It depends on nothing
/// but the declarations and the arguments of this call: values are written as in the classic
/// locale. `share/kivo/description.schema.json` is its schema.
///
/// `commands` points to `count` commands; a null pointer stands for none. The parser owns the text
/// until IParser::destroy(). The text is empty if memory runs out, or if one of the parsers was not
/// made by createParser().
///
/// A declared value of a kind that the type of its option cannot read is left out, since nobody can
/// type it. The time and memory that the call takes grow with the declarations and with the number
/// of actions that the modifiers go with.
KIVO_API const char* describe(IParser& parser, const ToolInfo& tool,
                              const CommandInfo* commands = nullptr, unsigned int count = 0);

/// Writes the description and a line end to standard output if the first argument of the tool,
/// `argv[1]`, is exactly "kivooption=kivodescribe=json". Call it after your declarations and before
/// your parse:
///
///     int status = 0;
///     if (kivo::describeIfAsked(*parser, {"greet", "1.0", "Greets people."}, argc, argv, &status))
///       return status;
///
/// Returns whether the description was asked for. If it was, `*status` becomes 0, or 1 if the
/// description could not be written completely; your tool should then exit with this status. If it
/// was not asked for, nothing is written and `*status` is unchanged. `status` may be null.
KIVO_API bool describeIfAsked(IParser& parser, const ToolInfo& tool, int argc,
                              const char* const* argv, int* status = nullptr);

/// Adds a fact that the declarations do not hold: to an option, given by any of its names in full,
/// or to the tool if `option` is null. The description has the texts of each key in the order in
/// which they were added. Keys that `kivo-describe` knows are listed in docs/description.md; all
/// others are passed on.
///
/// Returns false, and adds nothing, for an unknown option, a null `key` or `text`, a parser that
/// createParser() has not made, or if memory runs out.
KIVO_API bool annotate(IParser& parser, const char* option, const char* key, const char* text);

/// Returns the first name of the option that a parse would find for `typed`, a name in full or cut
/// short, without dashes: "no-" forms of booleans count, and so do hidden and positional options.
/// The parser owns the text until IParser::destroy().
///
/// Returns null if `typed` abbreviates no name or several names, even if these are of one option;
/// if `typed` is null or cannot be typed as a name; for a parser that createParser() has not made;
/// and if memory runs out.
KIVO_API const char* resolveName(IParser& parser, const char* typed);

/// Returns the declared name that is most like a misspelt one, without dashes: the name into which
/// `typed` turns with the fewest steps, each of which inserts, deletes or replaces a character, or
/// swaps two neighbours. Of equally near names the one declared first counts. Only (n + 1) / 4
/// steps are allowed for a text of n characters, and only the first 100 characters count. Names of
/// one or two characters, and those of hidden and of positional options, are never returned. The
/// parser owns the text until IParser::destroy().
///
/// Returns null if no name is near, if `typed` is null, for a parser that createParser() has not
/// made, and if memory runs out.
KIVO_API const char* nearestName(IParser& parser, const char* typed);

}  // namespace kivo_3_3
