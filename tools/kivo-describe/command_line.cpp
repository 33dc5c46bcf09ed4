#include "command_line.h"

#include <kivo/kivo.h>

#include <new>
#include <utility>

#include "exit_codes.h"

// The command line: one action for each format, and at most one file.
//
// Arguments that look like options are never files, so that a misspelt format is an error; a file
// whose name begins with "-" is given after "--".

namespace kivo_describe {
namespace {

constexpr int parserFlags =
    kivo::parserFlags::unknownArgumentIsError | kivo::parserFlags::dashArgumentsAreNeverPositional |
    kivo::parserFlags::leftoverArgumentsArePositional | kivo::parserFlags::noTokenizer;

constexpr kivo::ToolInfo toolInfo = {
    "kivo-describe", KIVO_DESCRIBE_VERSION,
    "Makes manual pages and completion scripts of what a tool says about its command line."};

void declareAll(kivo::IParser& parser) {
  for (const Format& format : formats())
    parser.action(format.name, format.help, kivo::vtNull);
  parser.action("help,h", "Show this help.", kivo::vtNull);
  parser.action("version", "Show the version.", kivo::vtNull);
  parser
      .option("file", "The description of a tool, as JSON; standard input if there is none.",
              kivo::vtString)
      ->positional();
}

void annotateAll(kivo::IParser& parser) {
  kivo::annotate(parser, "file", "placeholder", "FILE");
  for (const ExitCode& code : exitCodes) {
    const std::string line = std::to_string(code.number) + ' ' + code.meaning;
    kivo::annotate(parser, nullptr, "exitStatus", line.c_str());
  }
  kivo::annotate(parser, nullptr, "footer",
                 "A tool of the library writes its description to standard output if its first "
                 "argument is kivooption=kivodescribe=json. If the environment variable "
                 "SOURCE_DATE_EPOCH has a number of seconds since 1970, the manual page has the "
                 "date of that day; otherwise it has none.");
}

template <class Handle>
Handle existing(Handle handle) {
  return handle != nullptr ? std::move(handle) : throw std::bad_alloc();
}

std::string help(kivo::IParser& parser) {
  return std::string("kivo-describe -FORMAT [FILE]\n\n") + parser.getDescription(false);
}

int usageError(const char* reason, std::string& error) {
  error = reason;
  return kivo::status::usageError;
}

int readFile(kivo::IParseResult& result, Settings& settings, std::string& error) {
  for (const kivo::Value& value : kivo::values(result, "file")) {
    if (settings.file)
      return usageError("Only one description can be read.", error);
    settings.file = value.text;
  }
  // An empty argument is an occurrence without a value.
  if (result.present("file") && !settings.file)
    return usageError("The name of the file is empty.", error);
  return kivo::status::success;
}

int readSettings(kivo::IParser& parser, kivo::IParseResult& result, Settings& settings,
                 std::string& error) {
  if (result.present("help"))
    settings.text = help(parser);
  else if (result.present("version"))
    settings.text = std::string("kivo-describe ") + KIVO_DESCRIBE_VERSION + '\n';
  for (const Format& format : formats()) {
    if (result.present(format.name))
      settings.format = &format;
  }
  if (!settings.text && settings.format == nullptr)
    return usageError("No format is given; '-help' shows the formats.", error);
  return readFile(result, settings, error);
}

}  // namespace

int readCommandLine(int argc, const char* const* argv, Settings& settings, std::string& error) {
  const auto parser = existing(kivo::makeParser(parserFlags));
  const auto result = existing(kivo::makeResult(*parser));
  declareAll(*parser);
  annotateAll(*parser);
  int described = kivo::status::success;
  if (kivo::describeIfAsked(*parser, toolInfo, argc, argv, &described)) {
    settings.exitStatus = described;
    return kivo::status::success;
  }
  const int status = parser->parseArgsVector(argc, argv, result.get());
  if (status != kivo::status::success) {
    error = parser->getErrorDesc();
    return status;
  }
  return readSettings(*parser, *result, settings, error);
}

}  // namespace kivo_describe
