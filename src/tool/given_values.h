#pragma once

#include <kivo/event_handler.h>

#include <list>
#include <string>
#include <vector>

#include "tool/operand_reader.h"
#include "tool/scope.h"

// Receives what the parser reads, converts and checks it, and keeps it until it is delivered.

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3::tool_glue {

/// Why a flag or a count may not be given this often; empty if it may, and for other options.
std::string refusedUse(const Declaration& declaration, unsigned int given);

class GivenValues final : public EventHandler {
 public:
  explicit GivenValues(const Scope& scope) : m_scope(scope) {}

  /// Values that follow come from here.
  void startSource(Source source);
  /// A value `mark` stands for the next one of these texts, which the parser would not take.
  void replaceMarks(std::string mark, std::list<std::string> texts);

  /// Whether events of the parser arrive here: it cannot tell that it had no memory for a handler.
  bool isNotifiedBy(IParser& parser);

  bool onOptionParse(const char* name) override;
  bool onValueParse(const char* name, const Value& value) override;

  /// Counts an option without a value.
  void give(Declaration& declaration);
  /// A value for a boolean that does not come from the parser. Returns whether it was accepted.
  bool giveTruth(Declaration& declaration, bool truth);
  /// The same for an operand.
  bool giveOperand(Declaration& declaration, const char* text);

  /// Why a value was refused; empty if none was.
  const std::string& failure() const { return m_failure; }
  /// The status of the failure: memory ran out, a function of the tool threw, or a wrong value.
  int failureStatus() const { return m_failureStatus; }
  /// Of deprecated choices on the command line, each once.
  const std::vector<std::string>& warnings() const { return m_warnings; }
  /// The actions that were given, in command-line order.
  const std::vector<Declaration*>& actions() const { return m_actions; }

 private:
  void choose(Declaration& declaration, const char* given, const variant_t& typed);
  void take(Declaration& declaration, const char* text, const variant_t& typed);
  void takeOperand(const char* text);
  void readOperand(Declaration& declaration, const char* text);
  void read(Declaration& declaration, const char* text, const variant_t& typed, void* variable);
  void refuse(std::string reason);
  bool isOutranked(const Declaration& declaration) const;
  template <class Work>
  bool guarded(Work work);

  const Scope& m_scope;
  bool m_isNotified = false;
  Source m_source = Source::none;
  std::size_t m_operands = 0;
  OperandReader m_reader;
  unsigned int m_place = 0;
  std::string m_mark;
  std::list<std::string> m_marked;
  std::vector<Declaration*> m_actions;
  std::vector<std::string> m_warnings;
  std::string m_failure;
  int m_failureStatus = 0;
};

}  // namespace kivo_3_3::tool_glue

#pragma GCC diagnostic pop
