#include <kivo/kivo.h>

#include <cstdio>
#include <string>

int main(int argc, const char* const* argv) {
  const kivo::ParserHandle parser =
      kivo::makeParser(kivo::parserFlags::unknownArgumentIsError |
                       kivo::parserFlags::dashArgumentsAreNeverPositional);
  parser->option("verbose,v", "Tell what is being done.", kivo::vtBool);
  parser->option("quiet,q", "Say nothing but errors.", kivo::vtBool);
  parser->option("force,f", "Overwrite files that exist.", kivo::vtBool);
  parser->option("jobs,j", "How many jobs to run at a time.", kivo::vtS32)->defaultValue(1);
  parser->option("level,l", "How hard to try.", kivo::vtS32)->defaultValue(3);
  parser->option("retries", "How often to try again.", kivo::vtS32);
  parser->option("ratio", "How much to take.", kivo::vtDouble)->defaultValue(0.5);
  parser->option("output,o", "The file to write.", kivo::vtString);
  parser->option("name", "What to call the result.", kivo::vtString);
  parser->option("mode", "How to go about it.", kivo::vtString)
      ->allowValue("fast")
      ->allowValue("safe")
      ->allowValue("exact")
      ->defaultValue("safe");

  const kivo::ResultHandle result = kivo::makeResult(*parser);
  if (parser->parseArgsVector(argc, argv, result.get()) != kivo::status::success) {
    std::fprintf(stderr, "%s\n", parser->getErrorDesc());
    return 1;
  }
  const auto verbose = kivo::valueOr(*result, "verbose", false);
  const auto jobs = kivo::valueOr(*result, "jobs", 1);
  const auto level = kivo::valueOr(*result, "level", 3);
  const auto ratio = kivo::valueOr(*result, "ratio", 0.5);
  const auto output = kivo::valueOr<std::string>(*result, "output", "");
  const auto mode = kivo::valueOr<std::string>(*result, "mode", "safe");
  return (verbose ? 1 : 0) + jobs + level + static_cast<int>(ratio * 4) +
         static_cast<int>(output.size() + mode.size());
}
