#include <kivo/kivo.h>

#include <stdexcept>

#include "peer.h"

namespace bench {

namespace {

kivo::variant_type_t typeOf(Kind kind) {
  switch (kind) {
    case Kind::flag:
      return kivo::vtBool;
    case Kind::integer:
    case Kind::integers:
      return kivo::vtS32;
    case Kind::unsigned64:
      return kivo::vtU64;
    case Kind::real:
      return kivo::vtDouble;
    case Kind::text:
    case Kind::texts:
      return kivo::vtString;
  }
  return kivo::vtNull;
}

kivo::variant_t defaultOf(const Option& option) {
  if (option.kind == Kind::integer)
    return std::atoi(option.fallback.c_str());
  if (option.kind == Kind::real)
    return std::atof(option.fallback.c_str());
  return option.fallback.c_str();
}

class Kivo final : public Peer {
 public:
  explicit Kivo(const Workload& workload) : Peer(workload) {
    if (!workload.fileLines.empty())
      m_fileArgument = "--option-file=" + writeOptionFile(workload, "--");
  }

  void declare() override {
    m_parser = kivo::makeParser(kivo::parserFlags::unknownArgumentIsError |
                                kivo::parserFlags::dashArgumentsAreNeverPositional);
    for (const Option& option : m_workload.options)
      declare(option);
    if (!m_fileArgument.empty())
      m_parser->addOptionFileOption("A file with further arguments.", nullptr);
  }

  void tearDown() override { m_parser.reset(); }

  std::uint64_t run() override { return parse(argc(), argv()); }

  std::uint64_t runFile() override {
    const char* const arguments[] = {"tool", m_fileArgument.c_str()};
    return parse(2, arguments);
  }

  std::string help() override { return m_parser->getDescription(false); }

  // A parser keeps each description until its end, so each one is made of a new parser.
  std::string describe() override {
    declare();
    return kivo::describe(*m_parser, {"tool", "1.0", "Does the work."});
  }

  std::string error() override {
    const kivo::ResultHandle result = kivo::makeResult(*m_parser);
    m_parser->parseArgsVector(argc(), argv(), result.get());
    return m_parser->getErrorDesc();
  }

 private:
  void declare(const Option& option) {
    kivo::IOption* declared = m_parser->option(option.nameAndLetter.c_str(),
                                               option.description.c_str(), typeOf(option.kind));
    for (const std::string& text : option.allowed)
      declared->allowValue(text.c_str());
    if (!option.fallback.empty())
      declared->defaultValue(defaultOf(option));
    if (option.positional)
      declared->positional();
  }

  std::uint64_t parse(int argc, const char* const* argv) {
    const kivo::ResultHandle result = kivo::makeResult(*m_parser);
    if (m_parser->parseArgsVector(argc, argv, result.get()) != kivo::status::success)
      throw std::runtime_error(m_parser->getErrorDesc());
    Answers answers;
    for (const Read& read : m_workload.reads)
      add(answers, *result, m_workload.options[read.option]);
    return answers.digest();
  }

  static void add(Answers& answers, kivo::IParseResult& result, const Option& option) {
    const char* name = option.name.c_str();
    if (option.kind == Kind::flag)
      answers.add(kivo::valueOr(result, name, false));
    else if (option.kind == Kind::integer)
      answers.add(kivo::valueOr(result, name, 0));
    else if (option.kind == Kind::unsigned64)
      answers.add(kivo::valueOr(result, name, std::uint64_t(0)));
    else if (option.kind == Kind::real)
      answers.add(kivo::valueOr(result, name, 0.0));
    else if (option.kind == Kind::text)
      answers.add(kivo::valueOr(result, name, ""));
    else
      addAll(answers, result, option);
  }

  static void addAll(Answers& answers, kivo::IParseResult& result, const Option& option) {
    const char* name = option.name.c_str();
    for (kivo::Value value = result.get(name); value.isEmpty == 0; value = result.next(name)) {
      if (option.kind == Kind::integers)
        answers.add(value.value.get<int>());
      else
        answers.add(value.text);
    }
  }

  kivo::ParserHandle m_parser;
  std::string m_fileArgument;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Kivo>(workload);
}

const char* refusal(Work, int) { return nullptr; }

}  // namespace bench
