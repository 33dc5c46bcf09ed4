#pragma once

#include <kivo/handles.h>
#include <kivo/tool.h>

#include <deque>
#include <map>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

#include "tool/declaration.h"

// All that a Tool hides.

namespace kivo_3_3::tool_glue {

struct Command {
  std::string words;  // separated by single blanks
  std::string help;
  OwnedCallable function;
};

/// Options of which at most one may be given.
struct Group {
  std::vector<std::string> names;
  bool isNeeded;  // exactly one
};

/// The options of a tool that stand before the words of a command, by their places on its command
/// line. The command may have options of the same names.
using EarlyOptions = std::map<std::size_t, Declaration*>;

/// The first block of a tool's memory, in bytes: a tool with a dozen options.
constexpr std::size_t firstBlock = 8192;

struct ToolData {
  /// Returns a zero-terminated copy of `before` and the text, which lives as long as the tool.
  /// Throws std::bad_alloc.
  std::string_view keep(std::string_view text, std::string_view before = {});

  /// The name as a user types it, with the words of the command.
  std::string calledName() const { return command != nullptr ? name + ' ' + command->words : name; }
  const ToolData& root() const { return parent != nullptr ? parent->root() : *this; }
  ToolData& root() { return parent != nullptr ? parent->root() : *this; }
  /// A tool for a command, which does not own its data.
  static Tool handleOf(ToolData& data) { return Tool(&data); }
  static void release(Tool& tool) { tool.m_data = nullptr; }

  std::pmr::monotonic_buffer_resource memory{firstBlock};  // freed with the tool

  std::string name, summary, version;
  std::vector<std::string> footers;
  int usageStatus = 2;

  const char* section = "";                            // of the next declarations
  std::pmr::deque<Declaration> declarations{&memory};  // at stable addresses
  std::pmr::deque<Declaration> builtIn{&memory};       // help and version
  std::vector<Group> groups;
  std::pmr::deque<Command> commands{&memory};
  OwnedCallable output;

  ParserHandle parser;
  bool isParserGivenAway = false;  // to the author, who may declare on it
  std::string help;

  Tool* handle = nullptr;
  ToolData* parent = nullptr;  // of a command
  const Command* command = nullptr;
  std::vector<const char*> words;  // the command line of a command
  EarlyOptions early;              // those before the words of the command
  bool mayHaveSwitch = true;       // for the library, as first word
  bool isDescribing = false;
  bool isParsed = false;
  bool isWorking = false;  // an action or a command runs; what it throws passes through
  bool isOutOfMemory = false;
};

/// Tells the assertion handler of a mistake in the declarations.
void reportMistake(const std::string& mistake);

}  // namespace kivo_3_3::tool_glue
