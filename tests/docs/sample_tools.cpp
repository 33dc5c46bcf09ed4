// The tools that docs/command-line.md takes its examples from, in one program. Called as "archive"
// it has actions; as "nameless" it has an option without a name; under any other name it is "tool",
// which has neither.

#include <kivo/kivo.h>

#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr int largestLevel = 9;

class Checks final : public kivo::EventHandler {
 public:
  bool onOptionParse(const char* name) override {
    if (std::string(name) == "fail")
      throw std::runtime_error("a check of the tool failed");
    return true;
  }
  bool onValueParse(const char* name, const kivo::Value& given) override {
    return std::string(name) != "level" || given.value.get<int>() <= largestLevel;
  }
};

void declareOptions(kivo::IParser& parser) {
  parser.option("level,l", "How hard to try, 0 to 9.", kivo::vtS32);
  parser.option("length", "How long.", kivo::vtU32);
  parser.option("size", "How large.", kivo::vtS64);
  parser.option("mask", "Which bits.", kivo::vtU64);
  parser.option("ratio", "How much of it.", kivo::vtDouble);
  parser.option("verbose,v", "Tell more.", kivo::vtBool);
  parser.option("title,t", "Any text, commas included.", kivo::vtString)->tokenize('\0');
  parser.option("color", "One or more colors.", kivo::vtString)
      ->allowValue("red")
      ->allowValue("green")
      ->allowValue("grey")
      ->allowDeprecatedValue("scarlet", "red");
  parser.option("help", "What to explain, or all.", kivo::vtString);
  parser.option("fail", "Fail while reading the arguments.", kivo::vtNull);
  parser.option("file", "What to work on.", kivo::vtString)->positional();
  parser.addOptionFileOption("A file with further arguments, one a line.", nullptr);
}

void declareActions(kivo::IParser& parser) {
  parser.action("pack,p", "Pack files.", kivo::vtNull);
  parser.action("unpack,u", "Unpack files.", kivo::vtNull);
  parser.action("list", "List what is packed.", kivo::vtNull);
  parser.allowSimultaneousActions({"pack", "list"});
  parser.modifier("method,m", "pack", "How to pack.", kivo::vtString);
}

void print(kivo::IParseResult& result, const char* name) {
  if (!result.present(name))
    return;
  std::cout << name;
  for (const kivo::Value& value : kivo::values(result, name))
    std::cout << " [" << value.text << ']';
  std::cout << '\n';
}

}  // namespace

int main(int argc, const char* const* argv) {
  const std::string path = argv[0];
  const std::string name = path.substr(path.rfind('/') + 1);
  const kivo::ParserHandle parser =
      kivo::makeParser(kivo::parserFlags::unknownArgumentIsError |
                       kivo::parserFlags::dashArgumentsAreNeverPositional);
  Checks checks;
  if (name == "archive")
    declareActions(*parser);
  if (name == "nameless")
    parser->option("", "Nobody can ask for this.", kivo::vtNull);
  declareOptions(*parser);
  parser->addHandler(&checks);

  const kivo::ResultHandle result = kivo::makeResult(*parser);
  const int status = parser->parseArgsVector(argc, argv, result.get());
  if (status != kivo::status::success) {
    std::cerr << parser->getErrorDesc() << '\n';
    return status;
  }
  if (result->present("help")) {
    const auto topic = kivo::valueOr<std::string>(*result, "help", "all");
    std::cout << parser->getDescription(topic == "all" ? nullptr : topic.c_str(), false);
    return status;
  }
  for (const char* option : {"pack", "unpack", "list", "method", "level", "length", "size", "mask",
                             "ratio", "verbose", "title", "color", "file"})
    print(*result, option);
  for (const char* argument : kivo::leftovers(*result))
    std::cout << "-- [" << argument << "]\n";
}
