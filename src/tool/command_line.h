#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tool/arguments.h"
#include "tool/given_values.h"
#include "tool/scope.h"

// One command line of a tool, from its words to the variables of the tool: if this file were wrong,
// a variable would change although the command line is refused.

namespace kivo_3_3::tool_glue {

/// One parse of a command line by the parser, with what comes from elsewhere.
class CommandLine {
 public:
  CommandLine(ToolData& tool, const Scope& scope, const Arguments& arguments)
      : m_tool(tool), m_scope(scope), m_arguments(arguments), m_values(scope) {}

  /// The status if the command line is wrong.
  std::optional<int> read();
  /// Gives the variables their values and calls the functions of options. The status if a function
  /// or an assignment of the tool has thrown.
  std::optional<int> deliver();

  /// The actions that were given, in command-line order.
  const std::vector<Declaration*>& actions() const { return m_values.actions(); }

 private:
  std::optional<int> readAll(IParser& parser);
  std::optional<int> readOthers(IParser& parser);
  bool needsResult() const;
  void passOverUnconcerned() const;
  std::string wrong() const;
  std::string wrongWith(const Declaration& declaration) const;
  std::string wrongIn(const ToolData& tool, const Group& group) const;
  std::vector<Declaration*> givenDeclarations() const;
  void warn(const std::vector<Declaration*>& given) const;

  ToolData& m_tool;
  const Scope& m_scope;
  const Arguments& m_arguments;
  GivenValues m_values;
};

}  // namespace kivo_3_3::tool_glue
