#include "describe/json_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace kivo_3_3::testing {
namespace {

using std::string;

string textOf(std::string_view value) {
  JsonWriter writer;
  writer.text(value);
  return writer.json();
}

TEST(JsonWriter, SeparatesMembersAndElements) {
  JsonWriter writer;
  writer.beginObject();
  writer.key("a");
  writer.text("x");
  writer.key("b");
  writer.beginList();
  writer.boolean(true);
  writer.boolean(false);
  writer.null();
  writer.beginList();
  writer.endList();
  writer.beginList();
  writer.text("y");
  writer.endList();
  writer.endList();
  writer.key("c");
  writer.beginObject();
  writer.endObject();
  writer.endObject();
  EXPECT_EQ(R"({"a":"x","b":[true,false,null,[],["y"]],"c":{}})", writer.json());
}

TEST(JsonWriter, AnObjectInAListBeginsALine) {
  JsonWriter writer;
  writer.beginList();
  for (int count = 0; count < 2; ++count) {
    writer.beginObject();
    writer.key("a");
    writer.null();
    writer.endObject();
  }
  writer.endList();
  EXPECT_EQ("[\n{\"a\":null},\n{\"a\":null}]", writer.json());
}

TEST(JsonWriter, EscapesQuotesBackslashesAndControlCharacters) {
  EXPECT_EQ(R"("a\"b\\c/")", textOf("a\"b\\c/"));
  EXPECT_EQ(R"("\u0000\u0001\u0009\u000a\u000d\u001f !")", textOf({"\0\1\t\n\r\x1F !", 8}));
  EXPECT_EQ(R"("~\u007f\u0080\u009f)"
            "\u00A0\"",
            textOf("~\x7F\u0080\u009F\u00A0"));
}

TEST(JsonWriter, ReplacesEachByteThatIsNotUtf8) {
  EXPECT_EQ("\"\u00E4\u20AC\U0001F600\"", textOf("\u00E4\u20AC\U0001F600"));
  EXPECT_EQ("\"a\uFFFD\uFFFDb\"", textOf("a\xE2\x82"
                                         "b"));                           // cut short
  EXPECT_EQ("\"\uFFFD\uFFFD\"", textOf("\xC0\x80"));                      // overlong
  EXPECT_EQ("\"\uFFFD\uFFFD\uFFFD\"", textOf("\xED\xA0\x80"));            // a surrogate
  EXPECT_EQ("\"\uFFFD\uFFFD\uFFFD\uFFFD\"", textOf("\xF4\x90\x80\x80"));  // above U+10FFFF
  EXPECT_EQ("\"\uFFFDx\"", textOf("\xFFx"));
}

TEST(JsonWriter, KeysAreWrittenLikeTexts) {
  JsonWriter writer;
  writer.beginObject();
  writer.key("a\"\n\xFF");
  writer.text("");
  writer.endObject();
  EXPECT_EQ("{\"a\\\"\\u000a\uFFFD\":\"\"}", writer.json());
}

TEST(AsUtf8, KeepsEverythingButBytesThatAreNotUtf8) {
  EXPECT_EQ("a\n\u00E4\uFFFD", asUtf8("a\n\u00E4\x80"));
  EXPECT_EQ("", asUtf8(""));
}

}  // namespace
}  // namespace kivo_3_3::testing
