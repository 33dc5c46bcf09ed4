#include <kivo/kivo.h>

#include <iostream>

int main(int argc, const char* const* argv) {
  const kivo::ParserHandle parser =
      kivo::makeParser(kivo::parserFlags::unknownArgumentIsError |
                       kivo::parserFlags::dashArgumentsAreNeverPositional);
  parser->option("times,t", "How often to greet", kivo::vtU32)->defaultValue(1);
  parser->option("tone", "How to greet", kivo::vtString)
      ->allowValue("friendly")
      ->allowValue("formal");
  parser->option("name", "Whom to greet", kivo::vtString)->positional();

  int described = 0;
  if (kivo::describeIfAsked(*parser, {"greet", "1.0", "Greets people."}, argc, argv, &described))
    return described;

  const kivo::ResultHandle result = kivo::makeResult(*parser);
  const int status = parser->parseArgsVector(argc, argv, result.get());
  if (status != kivo::status::success) {
    std::cerr << "greet: " << parser->getErrorDesc() << '\n';
    return status;
  }

  const auto times = kivo::valueOr(*result, "times", 1U);
  const auto tone = kivo::valueOr<std::string>(*result, "tone", "friendly");
  for (const kivo::Value& name : kivo::values(*result, "name"))
    for (unsigned int i = 0; i < times; ++i)
      std::cout << (tone == "formal" ? "Good day, " : "Hello ") << name.text << '\n';
}
