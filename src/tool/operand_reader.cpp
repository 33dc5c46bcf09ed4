// The parser of a command line gives all operands to one option. Operands with types of their own
// are therefore read by a parser each, whose only option is the operand.

#include "tool/operand_reader.h"

#include <new>

#include "tool/scope.h"

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3::tool_glue {
namespace {

class Collector final : public EventHandler {
 public:
  bool onOptionParse(const char*) override {
    isNotified = true;
    return true;
  }
  bool onValueParse(const char*, const Value& value) override {
    values.emplace_back(value.text, value.value);
    return true;
  }

  bool isNotified = false;  // false if the parser had no memory for the handler
  std::vector<OperandValue> values;
};

ParserHandle parserFor(const Declaration& declaration) {
  ParserHandle parser =
      makeParser(parserFlags::leftoverArgumentsArePositional | parserFlags::noTokenizer);
  if (!parser)
    throw std::bad_alloc();
  IOption& option = *parser->option("operand", "", readType(declaration));
  option.positional();
  limitValues(option, declaration, Purpose::parse);
  return parser;
}

}  // namespace

std::vector<OperandValue> OperandReader::read(const Declaration& declaration, const char* text) {
  ParserHandle& parser = m_parsers[&declaration];
  if (!parser)
    parser = parserFor(declaration);
  Collector collector;
  parser->addHandler(&collector);
  const char* const arguments[] = {"", "--", text};
  const int status = parser->parseArgsVector(3, arguments, nullptr);
  parser->removeHandler(&collector);
  if (!collector.isNotified || (status != status::success && status != status::usageError))
    throw std::bad_alloc();
  if (status == status::usageError)
    return {};
  return std::move(collector.values);
}

}  // namespace kivo_3_3::tool_glue
