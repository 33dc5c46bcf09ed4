// A tool that uses every operation of the interface and prints its outcome, but no text that the
// library composes: the words of messages and help may change.
#include <bedrock/assertion.h>
#include <kivo/kivo.h>

#include <cstring>
#include <iostream>
#include <stdexcept>

namespace {

void show(const char* what, long long value) { std::cout << what << ": " << value << '\n'; }

void show(const char* what, const kivo::Value& value) {
  std::cout << what << ": " << (value.text == nullptr ? "(none)" : value.text) << ", kind "
            << value.value.type() << (value.isEmpty == 0 ? "" : ", empty") << '\n';
}

class Handler : public kivo::EventHandler {
 public:
  bool onOptionParse(const char* name) override {
    std::cout << "met " << name << '\n';
    return true;
  }
  bool onValueParse(const char* name, const kivo::Value& value) override {
    show(name, value);
    return std::strcmp(value.text, "refused") != 0;
  }
  bool onUknownArgument(const char* argument) override {
    std::cout << "unknown " << argument << '\n';
    return std::strcmp(argument, "--tolerated") != 0;  // false lets it pass
  }
};

// A result class of the tool, which the library reads through the virtual functions.
class Countdown : public kivo::IParseResult {
 public:
  void destroy() override {}
  bool present(const char*, int, int) override { return true; }
  kivo::Value get(const char*, int, int) override { return next(nullptr); }
  kivo::Value next(const char*) override {
    return m_left == 0 ? kivo::Value() : kivo::Value("count", --m_left, kivo::firstPosition);
  }
  int nextPosition() override { return kivo::lastPosition; }
  int getFirstArgument(const char**) override { return 1; }
  int getNextArgument(const char**) override { return 1; }

 private:
  int m_left = 3;
};

void declare(kivo::IParser& parser) {
  parser.action("run,r", "Runs", kivo::vtNull);
  parser.action("list", "Lists", kivo::vtNull);
  parser.option("level,l", "A number", kivo::vtS32)->defaultValue(3)->tokenize('/');
  parser.option("name", "A text", kivo::vtString)->positional();
  parser.option("tone", "A choice", kivo::vtString, "style:How it sounds")
      ->allowValue("formal")
      ->allowValue("friendly")
      ->allowDeprecatedValue("stiff", "formal")
      ->defaultValue("friendly");
  parser.option("size", "Unsigned", kivo::vtU64)->synonym("extent")->tag("run");
  parser.option("ratio", "A fraction", kivo::vtDouble);
  parser.option("loud", "A switch", kivo::vtBool);
  parser.modifier("deep", "list", "For lists", kivo::vtNull);
  show("option files", parser.addOptionFileOption("More arguments", nullptr));
  show("together", parser.allowSimultaneousActions({"run", "list"}));
  show("declared", parser.isOptionDeclared("extent", false, nullptr));
  show("declared among actions", parser.isOptionDeclared("extent", true, nullptr));
}

template <class T>
void readAs(kivo::IParseResult& result, const char* name) {
  const kivo::Value value = result.get(name);
  if (value.isEmpty == 0)
    std::cout << name << " read as " << value.value.get<T>() << '\n';
}

void read(kivo::IParseResult& result) {
  for (kivo::Value level = result.get("level"); level.isEmpty == 0; level = result.next("level"))
    show("level", level);
  show("last level", kivo::getLastValue(&result, "level"));
  show("nothing", result.get("unknown"));
  readAs<int>(result, "level");
  readAs<const char*>(result, "tone");
  readAs<unsigned long long>(result, "extent");
  readAs<double>(result, "ratio");
  readAs<bool>(result, "loud");
  int occurrences = 0;
  if (result.present("level", kivo::firstPosition, kivo::lastPosition)) {
    while (result.nextPosition() != kivo::lastPosition)
      ++occurrences;
  }
  show("occurrences", occurrences);
  const char* text = nullptr;
  for (int end = result.getFirstArgument(&text); end == 0; end = result.getNextArgument(&text))
    std::cout << "leftover " << text << '\n';
}

template <std::size_t count>
void parse(kivo::IParser& parser, const char* const (&argv)[count]) {
  const kivo::ResultHandle result = kivo::makeResult(parser);
  const int status = parser.parseArgsVector(static_cast<int>(count), argv, result.get());
  show("status", status);
  show("reason given", *parser.getErrorDesc() != '\0');
  if (status == kivo::status::success)
    read(*result);
}

void help(kivo::IParser& parser) {
  show("help", *parser.getDescription(false) != '\0');
  show("help on a topic", *parser.getDescription("level", false) != '\0');
  show("help on an action", *parser.getActionModifiersDescription("list", false) != '\0');
  show("help on the rest", *parser.getGlobalModifiersDescription(false) != '\0');
}

void useParser() {
  const kivo::ParserHandle parser =
      kivo::makeParser(kivo::parserFlags::unknownArgumentIsError |
                       kivo::parserFlags::dashArgumentsAreNeverPositional);
  declare(*parser);
  Handler handler;
  parser->addHandler(&handler);
  parse(*parser, {"tool", "--run", "--level=1/2", "-l", "5", "--tone=for", "--extent", "0x10",
                  "--ratio=2.25", "--no-loud", "first", "--tolerated", "--", "-x", "rest"});
  parse(*parser, {"tool", "--run", "--name=refused"});
  parse(*parser, {"tool", "--list", "--level=much"});
  parser->removeHandler(&handler);
  parse(*parser, {"tool", "--list", "--intolerable"});
  parse(*parser, {"tool", "--run", "--option-file=/no/such/file"});
  const kivo::ResultHandle result = kivo::makeResult(*parser);
  show("stream", parser->parseStream("# a comment\n--run\n--level=7\n", result.get()));
  show("from the stream", result->get("level"));
  help(*parser);
  const kivo::EventHandler* base = parser.get();
  show("a handler that is the parser", dynamic_cast<const kivo::IParser*>(base) == parser.get());
}

void useVariants() {
  const kivo::variant_t text("shared");
  kivo::variant_t copy = text;
  kivo::variant_t other(7);
  show("equal", copy == text);
  show("ordered", kivo::variant_t(7) < kivo::variant_t(8U));
  copy = other;
  other = text;
  show("swapped", copy.get<int>());
  std::cout << other.get<const char*>() << '\n';
  show("readable as text", copy.can_get<const char*>());
}

void useOwnResult() {
  Countdown result;
  readAs<int>(result, "first of three");
  show("last of them", kivo::getLastValue(&result, "any"));
}

void unsuitableRead(const char*, const char*, int) { throw std::logic_error("unsuitable"); }

void useFunctions() {
  std::string name;
  std::string value;
  show("split", kivo::splitOptionValue("--level=3", &name, &value));
  std::cout << name << ' ' << value << '\n';
  show("dash", kivo::getDashLength("\xE2\x80\x93", 0));
  std::cout << kivo::paragraphString("one two three", "-", 4, 10);
  const kivo::WordWrappedText wrapped("-", "one two three", 4, 14);
  const kivo::WordWrappedText copied = wrapped;  // the copy constructor is compiled into the tool
  std::cout << copied.getText();
}

void useAssertions() {
  BEDROCK::set_assertion_handler(unsuitableRead);
  try {
    show("a number", kivo::variant_t("text").get<int>());
  } catch (const std::logic_error& error) {
    std::cout << error.what() << '\n';
  }
  BEDROCK::set_assertion_handler(nullptr);
}

}  // namespace

int main() {
  useParser();
  useVariants();
  useOwnResult();
  useFunctions();
  useAssertions();
}
