#pragma once

#include <kivo/parser.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tool/tool_data.h"

// The options that one command line may have: those of the tool and of the command. They are
// declared on a parser of the library here.

namespace kivo_3_3::tool_glue {

/// What the declarations are for: a parse, or the description of the tool.
enum class Purpose { parse, description };

class Scope {
 public:
  /// Declares everything on the parser. For a description, a command is without the options of its
  /// tool. Throws std::bad_alloc.
  Scope(ToolData& tool, IParser& parser, Purpose purpose);

  /// The option for a first name of the parser, or null.
  Declaration* withFirstName(std::string_view name) const;
  /// The option that a typed name means, in full or cut short, or null.
  Declaration* resolve(const char* typed) const;
  /// The option that has a name in full, where a tool or its command has declared it; null if there
  /// is none, or if a command uses the name of its tool's option for an option of its own.
  const Declaration* declared(const ToolData& tool, const std::string& name) const;
  /// The first name that the parser has for an option.
  const std::string& nameOf(const Declaration& declaration) const;
  /// The names that a user can type for an option: without those that a command uses for others.
  std::vector<std::string> typedNames(const Declaration& declaration) const;

  const std::vector<Declaration*>& options() const { return m_options; }
  /// In order; the last one may take all the rest.
  const std::vector<Declaration*>& operands() const { return m_operands; }

 private:
  void addAll(ToolData& tool);
  void add(Declaration& declaration);
  std::vector<std::string> takeNames(Declaration& declaration);
  bool isDeclaredByAuthor(const std::string& name) const;
  const std::string* nameHiddenByCommand(const Declaration& declaration) const;
  void addOperand(Declaration& declaration);
  IOption& declareOnParser(const Declaration& declaration, const std::vector<std::string>& names,
                           variant_type_t type);
  void declare(Declaration& declaration, const std::vector<std::string>& names);
  bool isDeclared(const std::string& name, bool amongActions) const;
  void annotateAll(const Declaration& declaration, const std::string& name);

  IParser& m_parser;
  const Purpose m_purpose;
  const bool m_isParserGivenAway;
  std::vector<Declaration*> m_options;
  std::vector<Declaration*> m_operands;
  std::map<std::string, Declaration*, std::less<>> m_taken;       // all names, "no-" forms too
  std::map<std::string, Declaration*, std::less<>> m_firstNames;  // those of the parser
  std::map<const Declaration*, std::string> m_nameOf;
};

std::vector<std::string> splitAt(const std::string& text, char separator);
std::string joined(const std::vector<std::string>& parts, char separator);

/// Adds a fact to an option of the parser, or to the tool. Throws std::bad_alloc.
void annotateOrThrow(IParser& parser, const char* option, const char* key, const std::string& text);

/// The type of the values on the parser.
variant_type_t parserType(const Declaration& declaration);

/// The type of the values while a command line is read: the parser has no long double, and does not
/// look at choices some of which are deprecated.
variant_type_t readType(const Declaration& declaration);

/// Declares the choices, unless they are chosen here, and at which character values are split.
void limitValues(IOption& option, const Declaration& declaration, Purpose purpose);

/// "option 'times,t'", as mistakes name a declaration.
std::string called(const Declaration& declaration);

}  // namespace kivo_3_3::tool_glue
