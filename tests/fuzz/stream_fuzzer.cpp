// Compares a parse of a text with a parse of the list of arguments that a plain walk over its lines
// finds. The input is the text.

#include "base/white_space.h"
#include "fuzz/naive_tokens.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "parser/option_file.h"
#include "support/arguments.h"
#include "support/console_capture.h"
#include "support/global_locale.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

// Without defaults, because parseStream() does not apply them and parseArgsVector() does.
void declare(IParser& parser) {
  parser.action("run,r", "", vtNull);
  parser.option("level,l", "", vtS32)->synonym("länge");
  parser.option("color,c", "", vtBool);
  parser.option("mode", "", vtString)->allowValue("fast")->allowValue("faster");
  parser.option("ratio", "", vtDouble)->tokenize('\0');
  parser.option("mask", "", vtU64)->tokenize(';');
  parser.modifier("depth", "run", "", vtU32);
  parser.modifier("quiet", "rest", "", vtNull);
  parser.option("file", "", vtString)->positional();
}

string joined(const std::vector<string>& texts) {
  string all;
  for (const string& text : texts)
    all += "[" + text + "]";
  return all;
}

// Status, message, result and trace of one parse by a new parser.
template <class Parse>
string told(int flags, Parse parseInto) {
  startAfresh();
  const testing::ConsoleCapture console;
  const ParserHandle parser = makeParser(flags);
  declare(*parser);
  const ResultHandle result = makeResult(*parser);
  const int status = parseInto(*parser, *result);
  const string read = rendered(*result,
                               {"run", "r", "level", "l", "länge", "color", "mode", "ratio", "mask",
                                "depth", "quiet", "file"},
                               0);
  return std::to_string(status) + " " + (status != 0 ? parser->getErrorDesc() : "") + "\n" + read +
         console.out();
}

void compare(const string& text, const std::vector<int>& flagsOfParsers) {
  const std::vector<string> expected = naiveTokens(text);
  const WhiteSpace isSpace;
  const std::vector<string> actual = testing::leftOf(parseStreamToArgs(text.c_str(), isSpace));
  expectEqual("a text has the arguments that its lines hold", joined(expected), joined(actual));
  const auto asList = [&](IParser& parser, IParseResult& result) {
    return parse(parser, expected, &result);
  };
  const auto asText = [&](IParser& parser, IParseResult& result) {
    return parser.parseStream(text.c_str(), &result);
  };
  for (const int flags : flagsOfParsers)
    expectEqual("a text is parsed as the arguments that it holds", told(flags, asList),
                told(flags, asText));
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  const std::string text = fuzzing::textOf(data, size);
  using namespace parserFlags;
  fuzzing::compare(text, {0, unknownArgumentIsError | leftoverArgumentsArePositional});
  static const std::locale locale = testing::localeWithUnderscoreAsSpace();
  const testing::GlobalLocale global(locale);
  fuzzing::compare(text, {dashArgumentsAreNeverPositional | noTokenizer});
  return 0;
}
