// A tool that does not use the standard streams, so the library has to initialise them itself
// before it writes, here a trace and a warning.
#include <kivo/kivo.h>

int main() {
  const kivo::ParserHandle parser = kivo::makeParser();
  parser->option("tone", "How to say it", kivo::vtString)
      ->allowValue("formal")
      ->allowDeprecatedValue("stiff", "formal");
  const kivo::ResultHandle result = kivo::makeResult(*parser);
  const char* const arguments[] = {"tool", "kivooption=kivologenable=1", "--tone=stiff"};
  return parser->parseArgsVector(3, arguments, result.get());
}
