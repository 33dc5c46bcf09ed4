#pragma once

// A scenario is a text that says what a tool and its handlers do with parsers and results: one
// step a line, a verb and fields between bars, in the format of fuzz/script.h. "<null>" and a
// missing field are null pointers. Steps with an unknown verb are skipped.
//
// P is a parser, R a result, H a handler, K a buffer: small numbers, which wrap around. In a
// reaction, "@" is the parser that passes the event on, or the result that is being filled.
//
//   parser P|FLAGS   result R|P   endparser P   endresult R   nowhere P (null out-parameters)
//   option P|NAMES|DESCRIPTION|TYPE|GROUP       action (the same)
//   modifier P|NAMES|ACTIONS|DESCRIPTION|TYPE|GROUP
//   files P|DESCRIPTION|GROUP   together P|ACTIONS   declared P|NAME|AMONG ACTIONS|GROUP
//   resolve P|NAME   nearest P|NAME   annotate P|OPTION|KEY|TEXT
//   describe P|NAME|VERSION|SUMMARY   (then three fields for each command: |WORDS|SUMMARY|P)
//   synonym P|NAME   allow P|KIND|VALUE   deprecate P|KIND|OLD|KIND|NEW   default P|KIND|VALUE
//   tokenize P|CHARACTER   positional P   tag P|TAGS      (amend the last declaration)
//   add P|H   remove P|H   direct P|P (a parser as the only handler)
//   undirect P|P   forward H|P (the handler passes its events on to the parser)
//   react H|EVENT|N|STEP (EVENT: option, value, unknown, any; N: which of them, 0 for all)
//   parse P|R|ARGUMENTS   vector P|R|ARGC|ARGV   stream P|R|TEXT     (R: also foreign)
//   send P|option|NAME   send P|value|NAME|TEXT|KIND|VALUE   send P|unknown|ARGUMENT
//   present R|NAME|FROM|TO   get R|NAME|FROM|TO   last R|NAME|FROM|TO   next R|NAME
//   position R   first R   nextargument R   read R (everything, under every name)
//   error P   help P|tool|HIDDEN   help P|topic|HIDDEN|NAME   help P|modifiers|HIDDEN|NAME
//   help P|global|HIDDEN
//   paragraph TEXT|HEAD|INDENT|WIDTH   dash TEXT|POSITION   split TEXT|NAME?|VALUE?
//   locale N (classic, decimal comma, underscore as space)   assertions N (return, throw)
//   console N|STEP (does the step, locale or buffer, after the Nth line that is written from here
//   on) counter N   counter end|N (before the largest int)   buffer K|TEXT   budget N (reactions)
//   file NAME|TEXT ("<zero>" is a zero byte)   folder NAME
//
// The STEP of a reaction can also be:
//   answer 0   throw (a standard exception)   throw int   resend P (the same event)
//   spoil (overwrites the arguments of the innermost parse)
//
// FROM and TO are numbers; "+N" counts from the position counter at the start, or from the last
// step that set it; "end" is the largest int.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/script.h"

namespace kivo_3_3::scenarios {

class Command;
class Scene;
using Operation = void (Scene::*)(const Command&);

// One step, with the operation that its verb stands for.
class Command {
 public:
  Command(const std::string& line, Operation does);

  const std::string& line() const { return m_line; }
  Operation operation() const { return m_operation; }
  // The step that a `react` step makes a handler do, or a `console` step the console; null for
  // other steps.
  const std::shared_ptr<const Command>& reaction() const { return m_reaction; }

  bool isNull(std::size_t field) const;
  std::string text(std::size_t field) const { return m_step.text(field); }
  bool is(std::size_t field, const char* text) const { return m_step.text(field) == text; }
  int number(std::size_t field, int fallback = 0) const { return m_step.number(field, fallback); }
  std::size_t fields() const;

 private:
  friend std::optional<Command> commandOf(const std::string& line);

  std::string m_line;
  fuzzing::Step m_step;
  Operation m_operation;
  std::shared_ptr<const Command> m_reaction;
};

// Nothing if the verb is unknown.
std::optional<Command> commandOf(const std::string& line);

class Scenario {
 public:
  explicit Scenario(const std::string& text);

  const std::vector<Command>& commands() const { return m_commands; }
  // Every name that the scenario declares or queries, sorted, each once.
  const std::vector<std::string>& names() const { return m_names; }
  bool hasFiles() const { return m_hasFiles; }

 private:
  void note(const Command& command);

  std::vector<Command> m_commands;
  std::vector<std::string> m_names;
  bool m_hasFiles = false;
};

}  // namespace kivo_3_3::scenarios
