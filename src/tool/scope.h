#pragma once

#include <kivo/parser.h>

#include <cstddef>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tool/tool_data.h"

// The options that one command line may have: those of the tool and of the command. They are
// declared on a parser of the library here.

namespace kivo_3_3::tool_glue {

/// What the declarations are for: a parse, or the description of the tool.
enum class Purpose { parse, description };

/// A hash of a name that the author chose, so nobody can aim at it from outside.
struct NameHash {
  std::size_t operator()(std::string_view name) const {
    std::size_t hash = name.size();
    for (const char character : name)
      hash = hash * 31 + static_cast<unsigned char>(character);
    return hash;
  }
};

class Scope {
 public:
  /// Declares everything on the parser. For a description, a command is without the options of its
  /// tool. Throws std::bad_alloc.
  Scope(ToolData& tool, IParser& parser, Purpose purpose);
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

  /// The option for a first name of the parser, or null.
  Declaration* withFirstName(std::string_view name) const;
  /// The option that a typed name means, in full or cut short, or null.
  Declaration* resolve(const std::string& typed) const;
  /// The option that has a name in full, where a tool or its command has declared it; null if there
  /// is none, or if a command uses the name of its tool's option for an option of its own.
  const Declaration* declared(const ToolData& tool, const std::string& name) const;
  /// The first name that the parser has for an option.
  std::string nameOf(const Declaration& declaration) const;
  /// The names that a user can type for an option: without those that a command uses for others.
  std::vector<std::string> typedNames(const Declaration& declaration) const;

  const std::vector<Declaration*>& options() const { return m_options; }
  /// In order; the last one may take all the rest.
  const std::vector<Declaration*>& operands() const { return m_operands; }

 private:
  void addAll(ToolData& tool);
  void add(Declaration& declaration);
  void addHidden(Declaration& declaration);
  bool take(std::string_view name, Declaration& declaration);
  bool isDeclaredByAuthor(std::string_view name) const;
  std::string_view nameHiddenByCommand(const Declaration& declaration) const;
  void addOperand(Declaration& declaration);
  /// The option with a name, which may be the "no-" form of a boolean; null if there is none.
  Declaration* owner(std::string_view name) const;
  /// The boolean of which a name is the "no-" form; null if there is none.
  Declaration* negated(std::string_view name) const;
  /// An option that `name` would be confused with: one is the "no-" form of the other. Null if
  /// there is none.
  Declaration* opposite(std::string_view name, const Declaration& declaration) const;
  IOption& declareOnParser(const Declaration& declaration, const char* names, variant_type_t type);
  void declare(Declaration& declaration, const char* names);
  void annotateAll(const Declaration& declaration, const std::string& name);

  IParser& m_parser;
  const Purpose m_purpose;
  const bool m_isParserGivenAway;
  const IOption* m_rejected = nullptr;  // what the parser answers to all declarations that fail
  std::vector<Declaration*> m_options;
  std::vector<Declaration*> m_operands;
  std::byte m_block[4096];  // the names of some forty options
  std::pmr::monotonic_buffer_resource m_memory{m_block, sizeof m_block};
  std::pmr::unordered_map<std::string_view, Declaration*, NameHash> m_names{&m_memory};
};

std::vector<std::string> splitAt(const std::string& text, char separator);
std::string joined(const std::vector<std::string>& parts, char separator);

/// Adds a fact to an option of the parser, or to the tool. Throws std::bad_alloc.
void annotateOrThrow(IParser& parser, const char* option, const char* key, const std::string& text);

/// Declares the choices, unless they are chosen here, and at which character values are split.
void limitValues(IOption& option, const Declaration& declaration, Purpose purpose);

/// "option 'times,t'", as mistakes name a declaration.
std::string called(const Declaration& declaration);

}  // namespace kivo_3_3::tool_glue
