// The whole help of a tool whose declarations take every form, compared with files in
// the folder "golden".

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include "support/golden_file.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

constexpr const char* behaviour =
    "Behaviour:How the work is done. What stands here goes with every action, and most of it "
    "can be left to its default.\n\nOf contradicting options the later one counts.";

void declareBooleans(IParser& parser) {
  parser.option("color,c", "Booleans without a default.", vtBool, behaviour);
  parser.option("backup,b", "On unless taken back.", vtBool, "Behaviour")->defaultValue(true);
  parser.option("force", "Off unless asked for.", vtBool, "Behaviour")->defaultValue(false);
  parser.option("follow-symbolic-links", "A long boolean.", vtBool, "Behaviour")
      ->defaultValue(false);
}

void declareValues(IParser& parser) {
  parser.option("version,V", "No value.", vtNull);
  parser.option("output,o", "A text without a default.", vtString, "");
  parser.option("name", "A text with one.", vtString)->defaultValue("John Doe");
  parser.option("suffix", "A text with an empty one.", vtString)->defaultValue("");
  parser.option("level,l", "", vtS32)->defaultValue(3);
  parser.option("depth", "A signed number.", vtS32, "Numbers")->defaultValue(-1);
  parser.option("count", "An unsigned one.", vtU32, "Numbers")->defaultValue(10u);
  parser.option("offset", "A wide one.", vtS64, "Numbers")->defaultValue(-5000000000LL);
  parser.option("mask", "A wide unsigned one.", vtU64, "Numbers")->defaultValue(u64_t{255});
  parser.option("ratio", "A fraction.", vtDouble, "Numbers")->defaultValue(0.1);
}

void declareAllowedValues(IParser& parser) {
  parser.option("mode,m", "One of some texts.", vtString, "Choices:")
      ->allowValue("fast")
      ->allowValue("slow")
      ->allowDeprecatedValue("medium", "slow");
  parser.option("speed", "One of some numbers.", vtDouble, "Choices")
      ->allowValue(0.5)
      ->allowValue(1)
      ->allowValue(2)
      ->defaultValue(1);
  parser.option("format", "So many of them that the head has a line of its own.", vtString)
      ->allowValue("plain")
      ->allowValue("csv")
      ->allowValue("json")
      ->allowValue("xml")
      ->defaultValue("plain");
}

// Heads of 29, 30 and 31 characters, with and without a description: descriptions begin in column
// 30.
void declareLongHeads(IParser& parser) {
  const char* const group = "Heads that reach the descriptions:";
  parser.option("head-of-29-characters-------", "Beside its head.", vtNull, group);
  parser.option("head-of-30-characters--------", "Below its head.", vtNull, group);
  parser.option("head-of-31-characters---------", "Below its head.", vtNull, group);
  parser.option("mute-head-of-29-characters--", "", vtNull, group);
  parser.option("mute-head-of-30-characters---", "", vtNull, group);
  parser.option("mute-head-of-31-characters----", "", vtNull, group);
}

void declareLongDescriptions(IParser& parser) {
  const char* const group = "Descriptions";
  parser.option("long",
                "Words enough for three lines, so that one sees where they are wrapped, "
                "and how a line goes on below the one ahead of it.",
                vtNull, group);
  parser.option("paragraphs", "One.\n\n  Two.\nThree.", vtNull, group);
  parser.option("word",
                "A word that fits no line: 0123456789012345678901234567890123456789"
                "0123456789, and more.",
                vtNull, group);
}

void declareTheRest(IParser& parser) {
  parser.option("file", "Positional: not listed.", vtString, "Arguments:Any number of files.")
      ->positional();
  parser.option("a,b,c,d", "Rejected, and yet its section is there.", vtNull, "Nothing");
  parser.option("debug", "Hidden.", vtBool, "kivo_hidden:For those who work on the tool.")
      ->defaultValue(false);
  parser.option("core-dump-folder,core", "Hidden, with a long head.", vtString, "kivo_hidden")
      ->defaultValue("/tmp");
  parser.option("silent", "", vtNull, "kivo_hidden");
}

TEST(WholeHelp, OfEveryFormOfDeclaration) {
  const ParserHandle parser = makeParser();
  declareBooleans(*parser);
  declareValues(*parser);
  declareAllowedValues(*parser);
  declareLongHeads(*parser);
  declareLongDescriptions(*parser);
  declareTheRest(*parser);
  compareWithFile(HELP_FOLDER "/every_form.txt", string("== ordinary\n") +
                                                     parser->getDescription(false) + "== hidden\n" +
                                                     parser->getDescription(true));
}

string helpOfAction(IParser& parser, const string& name, bool hidden) {
  return "== " + name + (hidden ? ", hidden\n" : "\n") +
         parser.getDescription(name.c_str(), hidden) + "== modifiers of " + name +
         (hidden ? ", hidden\n" : "\n") +
         parser.getActionModifiersDescription(name.c_str(), hidden);
}

TEST(WholeHelp, OfATopicOrientedTool) {
  const ParserHandle parser = makeParser();
  parser->action("pack,p", "Make an archive.", vtString, "Actions:What to do.");
  parser->action("unpack,u", "Take files out of an archive.", vtString, "Actions");
  parser->action("verify", "Compare checksums.", vtNull, "kivo_hidden");
  parser->modifier("level,l", "pack", "How hard to pack.", vtU32, "Packing")->defaultValue(6u);
  parser->modifier("keep", "pack,unpack", "Keep what was there.", vtBool)->defaultValue(true);
  parser->modifier("trace", "unpack", "Tell every step.", vtNull, "kivo_hidden");
  parser->option("quiet,q", "Say nothing.", vtNull, "Packing");
  parser->option("dump", "Show the declarations.", vtNull, "kivo_hidden");
  string text;
  for (const bool hidden : {false, true}) {
    text += string(hidden ? "== topics, hidden\n" : "== topics\n") + parser->getDescription(hidden);
    for (const char* name : {"pack", "u", "verify", "p,u"})
      text += helpOfAction(*parser, name, hidden);
    text += string(hidden ? "== global modifiers, hidden\n" : "== global modifiers\n") +
            parser->getGlobalModifiersDescription(hidden);
  }
  compareWithFile(HELP_FOLDER "/topics.txt", text);
}

}  // namespace
}  // namespace kivo_3_3::testing
