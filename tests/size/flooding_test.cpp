// Hash flooding: texts that are crafted to collide in a hash table cost no more than others. The
// tests count probes instead of time, so they give the same result on every machine.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "parser/basic_parser.h"
#include "storage/colliding_texts.h"
#include "support/command.h"
#include "support/recording_handler.h"

namespace kivo_3_3::testing {
namespace {

using std::string;
using Texts = std::vector<string>;

constexpr std::size_t count = 100'000;

// Open addressing with a load factor of at most 1/2 takes 1.5 probes a search on average. The limit
// of 2 leaves room for chance.
constexpr std::size_t mostSteps = count * 2;

struct Crafted {
  const char* name;
  Texts (*make)(std::size_t count);
};

std::ostream& operator<<(std::ostream& out, const Crafted& crafted) { return out << crafted.name; }

// A parser interns what it announces only if it has a handler.
class Listener final : public TestHandler {};

class Flooding : public ::testing::TestWithParam<Crafted> {
 protected:
  Flooding() {
    command.option("value", vtString)->tokenize('\0');
    command.parser().addHandler(&listener);
  }

  string lines(const char* beginning) const {
    string all;
    for (const string& text : texts)
      all += beginning + text + "\n";
    return all;
  }

  std::size_t parserSteps() { return static_cast<BasicParser&>(command.parser()).countSteps(); }

  Texts texts = GetParam().make(count);
  Command command;
  Listener listener;
};

TEST_P(Flooding, UnknownArgumentsAreInternedInLinearSteps) {
  EXPECT_EQ(0, command.parseStream(lines("").c_str()));
  EXPECT_LE(count, parserSteps());
  EXPECT_GE(mostSteps, parserSteps());
}

TEST_P(Flooding, AnnouncedValuesAreNotInternedByTheParser) {
  EXPECT_EQ(0, command.parseStream(lines("--value=").c_str()));
  EXPECT_GE(8u, parserSteps());
  EXPECT_EQ(count, values(command.result(), "value").size());
}

TEST_P(Flooding, ValuesAreDeliveredInLinearSteps) {
  EXPECT_EQ(0, command.parseStream(lines("--value=").c_str()));
  std::set<const char*> addresses;
  for (const Value& value : values(command.result(), "value"))
    addresses.insert(value.text);
  EXPECT_EQ(count, addresses.size());
  EXPECT_LE(count, command.result().countSteps());
  EXPECT_GE(mostSteps, command.result().countSteps());
}

TEST_P(Flooding, LeftoverArgumentsAreDeliveredInLinearSteps) {
  EXPECT_EQ(0, command.parseStream(("--\n" + lines("")).c_str()));
  EXPECT_EQ(count, leftovers(command.result()).size());
  EXPECT_LE(count, command.result().countSteps());
  EXPECT_GE(mostSteps, command.result().countSteps());
}

INSTANTIATE_TEST_SUITE_P(Texts, Flooding,
                         ::testing::Values(Crafted{"OfOneFormerHash", textsOfOneFormerHash},
                                           Crafted{"OfOneHash", textsOfOneHash}),
                         [](const auto& crafted) { return string(crafted.param.name); });

// Proves that the crafted texts do collide: without that, the tests of Flooding would show nothing.
TEST(CraftedTexts, CollideUnderTheHashTheyAreMadeFor) {
  std::set<std::uint64_t> hashes;
  for (const string& text : textsOfOneHash(count))
    hashes.insert(TextHash::of(text, knownKey));
  EXPECT_EQ(1u, hashes.size());

  std::set<std::uint64_t> formerHashes;
  for (const string& text : textsOfOneFormerHash(count))
    formerHashes.insert(formerHashOf(text));
  EXPECT_EQ(256u, formerHashes.size());
}

TEST(CraftedTexts, DifferFromEachOther) {
  const Texts oneHash = textsOfOneHash(count);
  const Texts oneFormerHash = textsOfOneFormerHash(count);
  EXPECT_EQ(count, std::set<string>(oneHash.begin(), oneHash.end()).size());
  EXPECT_EQ(count, std::set<string>(oneFormerHash.begin(), oneFormerHash.end()).size());
}

}  // namespace
}  // namespace kivo_3_3::testing
