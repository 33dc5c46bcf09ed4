#include "threads/episodes.h"

#include "support/recording_handler.h"
#include "threads/parsing.h"

namespace kivo_3_3::testing {

namespace {

using std::string;
using Arguments = std::vector<string>;
using Names = std::vector<const char*>;

// An option of every type, most of them with a default.
ParserHandle declared(int flags = 0) {
  ParserHandle parser = makeParser(flags);
  parser->option("switch,s", "On or off.", vtBool)->defaultValue(true);
  parser->option("level,l", "A number.", vtS32)->defaultValue(3);
  parser->option("count", "A number that is not negative.", vtU32)->defaultValue(4U);
  parser->option("offset", "A wide number.", vtS64)->defaultValue(-5000000000LL);
  parser->option("mask", "Bits.", vtU64)->defaultValue(u64_t{255});
  parser->option("ratio", "A fraction.", vtDouble)->defaultValue(0.1);
  parser->option("name,n", "A text.", vtString)->defaultValue("nobody");
  parser->option("mode,m", "How to work.", vtString)->allowValue("fast")->allowValue("slow");
  parser->option("quiet,q", "Say nothing.", vtNull);
  parser->option("files", "What to work on.", vtString)->positional();
  return parser;
}

const Names all = {"switch", "level", "count", "offset", "mask",
                   "ratio",  "name",  "mode",  "quiet",  "files"};

// The outcome of each command line for these options, one on each line. One parser parses them all.
string outcomes(IParser& parser, const Names& options, const std::vector<Arguments>& commandLines) {
  string text;
  for (const Arguments& args : commandLines)
    text += parsed(parser, args, options) + '\n';
  return text;
}

string takeDefaults(const TemporaryFolder&) { return outcomes(*declared(), all, {{}}); }

string giveEveryType(const TemporaryFolder&) {
  return outcomes(*declared(), all,
                  {{"--no-switch", "--level=-7,8", "--count=9", "--offset=6000000000", "--mask=1Fh",
                    "--ratio=0.25", "--name=Ann", "--mode=slow", "--quiet", "--quiet", "a", "b"}}) +
         outcomes(*declared(), {"mask", "ratio"},
                  {{"--ratio=1e3", "--ratio=-2.5E-1", "--mask=0x1F", "--mask=31"}});
}

string abbreviate(const TemporaryFolder&) {
  return outcomes(*declared(), {"switch", "level", "name", "mode", "quiet"},
                  {{"--lev=5", "-n", "Bob", "-mode", "f", "--no-sw", "\u2013q"},
                   {"\u2014level=6", "\u2012level 7", "\u2015level=8", "-l", "9"}});
}

string fail(const TemporaryFolder&) {
  return outcomes(
      *declared(parserFlags::unknownArgumentIsError | parserFlags::dashArgumentsAreNeverPositional),
      all,
      {{"--level=x"},
       {"--level"},
       {"--level", "-q"},
       {"--mode=medium"},
       {"--name=,"},
       {"--quiet=1"},
       {"--unknown"},
       {"--count=99999999999"}});
}

string askForHelp(const TemporaryFolder&) {
  const ParserHandle parser = makeParser();
  parser->option("switch,s", "On or off.", vtBool)->defaultValue(true);
  parser->option("mode,m", "How to work, in words enough for more than one line.", vtString)
      ->allowValue("fast")
      ->allowValue("slow");
  string help = parser->getDescription(false);
  help += parser->getDescription("s", false);
  return help + parser->getDescription("x", false);
}

// Messages name a file in the folder of the thread. The folder is removed from them, so that the
// outcome is the same on all threads.
string readOptionFiles(const TemporaryFolder& folder) {
  const ParserHandle parser = declared();
  parser->addOptionFileOption("Where to read more.", nullptr);
  string text = outcomes(*parser, {"level", "name"},
                         {{"--option-file=" + folder.path("first"), "--level=0"},
                          {"--option-file=" + folder.path("missing")},
                          {"--option-file=" + folder.path("ring")}});
  const string path = folder.path() + "/";
  for (auto place = text.find(path); place != string::npos; place = text.find(path))
    text.erase(place, path.size());
  return text;
}

// Handlers are notified in the order of their addresses.
string notifyHandlers(const TemporaryFolder&) {
  const ParserHandle parser = declared(parserFlags::dashArgumentsAreNeverPositional);
  RecordingHandler handlers[2];
  for (RecordingHandler& handler : handlers) {
    handler.refusedValues = {"13"};
    parser->addHandler(&handler);
  }
  const string text = outcomes(*parser, {"level", "quiet", "files"},
                               {{"--level=1,2", "-x", "a", "--quiet"}, {"--level=13"}});
  return text + handlers[0].events + "\n" + handlers[1].events;
}

string readStream(const TemporaryFolder&) {
  const ParserHandle parser = declared();
  const ResultHandle result = makeResult(*parser);
  const int status = parser->parseStream(
      "# a comment\n\n  --level=7\n\t--name=two words\n; another\n\x0b-q\nfile\n--\nrest\n  more",
      result.get());
  return std::to_string(status) + " " + contentsOf(*result, all);
}

string leaveOver(const TemporaryFolder&) {
  return outcomes(*declared(), {"files"}, {{"a", "--", "--level=1", "b"}, {"--", "--"}}) +
         outcomes(*declared(parserFlags::leftoverArgumentsArePositional), {"files"},
                  {{"a", "--", "b", "-q"}});
}

string followActions(const TemporaryFolder&) {
  const ParserHandle parser = makeParser();
  parser->action("run", "Goes fast.", vtNull);
  parser->action("walk", "Goes slowly.", vtNull);
  parser->action("rest", "Goes nowhere.", vtNull);
  parser->modifier("level", "run", "How fast.", vtS32);
  parser->allowSimultaneousActions({"run", "rest"});
  const string help = parser->getActionModifiersDescription("run", false);
  return help + outcomes(*parser, {"run", "walk", "rest", "level"},
                         {{"--run", "--level=1"},
                          {"--walk", "--level=1"},
                          {"--run", "--rest"},
                          {"--run", "--walk"},
                          {"--level=1"}});
}

string declareMore(const TemporaryFolder&) {
  const ParserHandle parser = declared();
  string text = outcomes(*parser, {"level", "late"}, {{"--level=1"}});
  parser->option("level", "Taken.", vtString)->defaultValue("none");
  parser->option("a,b,long", "Not short.", vtString);
  parser->option("late", "Comes late.", vtString)->defaultValue("here");
  text += outcomes(*parser, {"level", "late"}, {{}});
  for (const char* name : {"level", "a", "late"})
    text += parser->isOptionDeclared(name, false, nullptr) ? "yes " : "no ";
  return text;
}

// Ranges, last values, and texts of options of any type.
string query(const TemporaryFolder&) {
  const ParserHandle parser = declared();
  const ResultHandle result = makeResult(*parser);
  parse(*parser, {"--level=1", "--name=a", "--level=2", "--name=b", "--level=3"}, result.get());
  const int firstName = result->get("name").position;
  string text = shown(result->get("level", firstName));
  text += " " + shown(result->next("level"));
  text += result->next("level").isEmpty == 0 ? " more" : " end";
  text += " " + shown(getLastValue(result.get(), "level", firstPosition, firstName));
  text += " " + valueOr<string>(*result, "level", "none");
  text += " " + std::to_string(valueOr(*result, "count", 0));
  return text + " " + valueOr<string>(*result, "unknown", "none");
}

}  // namespace

void writeOptionFiles(const TemporaryFolder& folder) {
  folder.write("first", "--level=1\n--option-file=" + folder.path("second") + "\n--\nleft\n");
  folder.write("second", "# nothing\n--level=2\n--name=from a file\n");
  folder.write("ring", "--option-file=" + folder.path("ring") + "\n");
}

const std::vector<Episode>& episodes() {
  static const std::vector<Episode> list = {
      {"defaults", takeDefaults,
       "switch=1:1 level=3:3 count=4:4 offset=-5000000000:-5000000000 mask=255:255 "
       "ratio=0.1:0.100000 name=nobody:'nobody'\n"},
      {"every type", giveEveryType,
       "switch=0:0 level=-7:-7,8:8 count=9:9 offset=6000000000:6000000000 mask=1Fh:31 "
       "ratio=0.25:0.250000 name=Ann:'Ann' mode=slow:'slow' quiet x2 files=a:'a',b:'b' x2\n"
       "mask=0x1F:31,31:31 x2 ratio=1e3:1000.000000,-2.5E-1:-0.250000 x2\n"},
      {"abbreviations", abbreviate,
       "switch=0:0 level=5:5 name=Bob:'Bob' mode=fast:'fast' quiet\n"
       "switch=1:1 level=6:6,7:7,8:8,9:9 x4 name=nobody:'nobody'\n"},
      {"failures", fail,
       "2: Value validation problem in argument '--level=x': Option 'level' can not parse 'x' "
       "value, requires a type 'integer' here.\n"
       "2: Option 'level' requires a value in argument: '--level'\n"
       "2: Option 'level' received value from the next argument: '-q', but it seems to be an "
       "option. Use '-option=value' declaration form or make sure that value is not missed\n"
       "2: Value validation problem in argument '--mode=medium': Option 'mode' does not allow "
       "value 'medium'. Possible values follows: 'fast', 'slow'\n"
       "2: No value parsed in argument ',' for option 'name'\n"
       "2: Option 'quiet'does not requires a value in argument: '--quiet=1'\n"
       "2: Unknown option: --unknown\n"
       "2: Value validation problem in argument '--count=99999999999': Option 'count' can not "
       "parse '99999999999' value, requires a type 'unsigned integer' here.\n"},
      {"help", askForHelp,
       "-mode, -m=fast | slow         How to work, in words enough for more than one\n"
       "                              line.\n"
       "-switch, -s (default) | -no-switch\n"
       "                              On or off.\n"
       "-switch, -s (default) | -no-switch\n"
       "                              On or off.\n"
       "Help for x not available.Please use one of the following topics:\n"
       "-mode, -m=fast | slow         How to work, in words enough for more than one\n"
       "                              line.\n"
       "-switch, -s (default) | -no-switch\n"
       "                              On or off.\n"},
      {"option files", readOptionFiles,
       "level=0:0,1:1,2:2 x3 name=from a file:'from a file' | left\n"
       "6: Error reading option file 'missing'\n"
       "6: Error reading option file 'ring'\n"},
      {"handlers", notifyHandlers,
       "level=1:1,2:2 quiet files=a:'a'\n"
       "1: Value '13' is not valid for option 'level' in argument '--level=13'\n"
       "option level; value level=1; value level=2; unknown -x; option files; value files=a; "
       "option quiet; option level; value level=13\n"
       "option level; value level=1; value level=2; unknown -x; option files; value files=a; "
       "option quiet; option level"},
      {"a stream", readStream,
       "0 level=7:7 name=two words:'two words' quiet files=file:'file' | rest more"},
      {"leftovers", leaveOver,
       "files=a:'a' | --level=1 b\n"
       "| --\n"
       "files=a:'a',b:'b',-q:'-q' x3 | b -q\n"},
      {"actions", followActions,
       "-level=<integer>              How fast.\n"
       "run level=1:1\n"
       "2: Action '-walk' doesn't accept option '-level'\n"
       "run rest\n"
       "2: Action '-walk' and action '-run' were defined, but only one action possible.\n"
       "2: No action defined.\n"},
      {"declarations", declareMore,
       "level=1:1\n"
       "level=3:3 late=here:'here'\n"
       "yes no yes "},
      {"queries", query, "2:2 3:3 end 1:1 3 4 none"},
  };
  return list;
}

}  // namespace kivo_3_3::testing
