// The parser of a command line gives all operands to one option. Operands with types of their own
// are therefore read by a parser each, whose only option is the operand.

#include "tool/operand_reader.h"

#include <kivo/handles.h>

#include <new>

#include "tool/scope.h"

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3::tool_glue {
namespace {

class Collector final : public EventHandler {
 public:
  explicit Collector(ReadOperand& read) : m_read(read) {}
  bool onValueParse(const char*, const Value& value) override {
    m_read.values.emplace_back(value.text, value.value);
    return true;
  }

 private:
  ReadOperand& m_read;
};

}  // namespace

ReadOperand readOperand(const Declaration& declaration, const char* text) {
  ReadOperand read;
  const ParserHandle parser =
      makeParser(parserFlags::leftoverArgumentsArePositional | parserFlags::noTokenizer);
  if (!parser)
    throw std::bad_alloc();
  IOption& option = *parser->option(declaration.firstName().c_str(), "", parserType(declaration));
  option.positional();
  limitValues(option, declaration);
  Collector collector(read);
  parser->addHandler(&collector);
  const char* const arguments[] = {"", "--", text};
  const int status = parser->parseArgsVector(3, arguments, nullptr);
  parser->removeHandler(&collector);
  if (status == status::usageError)
    read.failure = parser->getErrorDesc();
  else if (status != status::success)
    throw std::bad_alloc();
  return read;
}

}  // namespace kivo_3_3::tool_glue
