#include "options/name_index.h"

#include <gtest/gtest.h>

#include <random>

#include "allocation/allocation_limit.h"
#include "options/make_option.h"
#include "support/declaration_scan.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

// Options whose names are in an index.
class Indexed {
 public:
  Indexed() = default;
  Indexed(std::initializer_list<OptionDescription> options) {
    for (const OptionDescription& option : options)
      push_back(option);
  }

  void push_back(const OptionDescription& option) {
    OptionDescription& added = m_options.emplace_back(option);
    added.m_index = &m_index;
    added.m_number = static_cast<std::uint32_t>(m_options.size() - 1);
    m_index.makeRoomFor(added.m_names.size());
    for (const HashedName& name : added.m_names)
      m_index.add(name, added.m_number, added.m_type == vtBool);
  }
  bool empty() const { return m_options.empty(); }
  OptionDescription& back() { return m_options.back(); }
  const OptionList& list() const { return m_options; }

  void makeRoomFor(std::size_t count) { m_index.makeRoomFor(count); }

  string find(std::string_view name) const { return shown(m_index.find(name)); }
  string findBest(std::string_view typed) {
    NameIndex::Match match;
    m_index.findBest(typed, match);
    return shown(match);
  }

 private:
  OptionList m_options;
  NameIndex m_index{nullptr};
};

TEST(NameIndex, WithoutOptionsNothingIsFound) {
  Indexed options;
  EXPECT_EQ("none", options.find("a"));
  EXPECT_EQ("none", options.find(""));
  EXPECT_EQ("none", options.findBest(""));
}

TEST(NameIndex, FindsByEveryNameAndNegation) {
  Indexed options = {makeOption({"level", "l"}, vtS32), makeOption({"color", "c"}, vtBool)};
  EXPECT_EQ("0", options.find("l"));
  EXPECT_EQ("1", options.find("color"));
  EXPECT_EQ("1", options.find("no-c"));
  EXPECT_EQ("none", options.find("no-level"));
  EXPECT_EQ("none", options.find("lev"));
}

TEST(NameIndex, OfSeveralOptionsTheFirstDeclaredIsFound) {
  Indexed options = {makeOption({"x"}, vtBool), makeOption({"no-x", "y"}, vtS32),
                     makeOption({"y"}, vtBool)};
  EXPECT_EQ("0", options.find("no-x"));
  EXPECT_EQ("1", options.find("y"));
  EXPECT_EQ("2", options.find("no-y"));
}

TEST(NameIndex, CompletesAnAbbreviation) {
  Indexed options = {makeOption({"level"}, vtS32), makeOption({"length"}, vtS32),
                     makeOption({"color"}, vtBool), makeOption({"le"}, vtS32)};
  EXPECT_EQ("level@0", options.findBest("lev"));
  EXPECT_EQ("le@3", options.findBest("le"));
  EXPECT_EQ("ambiguous", options.findBest("l"));
  EXPECT_EQ("color@2", options.findBest("c"));
  EXPECT_EQ("no-color@2", options.findBest("no-c"));
  EXPECT_EQ("no-color@2", options.findBest("n"));
  EXPECT_EQ("none", options.findBest("levels"));
}

TEST(NameIndex, TwoNamesOfOneOptionAreTwoMatches) {
  Indexed options = {makeOption({"level", "length"}, vtS32)};
  EXPECT_EQ("ambiguous", options.findBest("le"));
}

TEST(NameIndex, LearnsWhatWasDeclaredSinceTheLastLookUp) {
  Indexed options = {makeOption({"a"}, vtS32)};
  EXPECT_EQ("none", options.find("b"));
  options.push_back(makeOption({"b"}, vtBool));
  EXPECT_EQ("1", options.find("b"));
  EXPECT_EQ("no-b@1", options.findBest("no"));
}

TEST(NameIndex, LearnsNamesAddedToTheLastOption) {
  Indexed options = {makeOption({"a"}, vtS32), makeOption({"b"}, vtS32)};
  EXPECT_EQ("none", options.find("c"));
  options.back().synonym("c");
  EXPECT_EQ("1", options.find("c"));
  options.back().synonym("delta");
  options.push_back(makeOption({"e"}, vtS32));
  EXPECT_EQ("delta@1", options.findBest("d"));
  EXPECT_EQ("2", options.find("e"));
}

TEST(NameIndex, LearnsNamesOfAnOptionDeclaredWithNone) {
  Indexed options = {makeOption({}, vtBool)};
  EXPECT_EQ("none", options.find("a"));
  options.back().synonym("a");
  EXPECT_EQ("0", options.find("no-a"));
}

TEST(NameIndex, TakesNoMemoryForFurtherAbbreviations) {
  Indexed options = {makeOption({"level"}, vtS32), makeOption({"color"}, vtBool)};
  EXPECT_EQ("level@0", options.findBest("lev"));
  const AllocationLimit limit(0, Failing::once);
  EXPECT_EQ("color@1", options.findBest("c"));
  EXPECT_FALSE(limit.reached());
}

// The registry makes room for a declaration, which may fail before its names are added.
TEST(NameIndex, CompletesAnAbbreviationAfterRoomWasMadeButNotUsed) {
  Indexed options = {makeOption({"level"}, vtS32), makeOption({"color", "color"}, vtBool)};
  EXPECT_EQ("level@0", options.findBest("l"));
  options.makeRoomFor(1'000);
  EXPECT_EQ("level@0", options.findBest("l"));
  EXPECT_EQ("ambiguous", options.findBest("no-c"));
}

// All different, or all equal.
std::vector<string> makeNames(std::size_t count, bool areEqual) {
  std::vector<string> names;
  for (std::size_t number = 0; number < count; ++number)
    names.push_back("name" + std::to_string(areEqual ? 0 : number));
  return names;
}

// add() ends the process if it has to allocate.
TEST(NameIndex, AddsTheNamesForWhichRoomWasMadeWithoutMemory) {
  for (const bool areEqual : {false, true}) {
    for (std::uint32_t count = 0; count < 70; ++count) {
      SCOPED_TRACE(count);
      const std::vector<string> names = makeNames(2 * count + 1, areEqual);
      NameIndex index(nullptr);
      for (std::uint32_t number = 0; number < count; ++number) {
        index.makeRoomFor(1);
        index.add(std::string_view(names[number]), number, false);
      }
      index.makeRoomFor(count + 1);
      {
        const AllocationLimit limit(0, Failing::forEver);
        for (std::uint32_t number = count; number < names.size(); ++number)
          index.add(std::string_view(names[number]), number, false);
        EXPECT_FALSE(limit.reached());
      }
      EXPECT_EQ(areEqual ? "0" : std::to_string(2 * count),
                shown(index.find(std::string_view(names.back()))));
    }
  }
}

// Each time the room doubles.
TEST(NameIndex, MakesRoomForThousandsOfEqualNamesInFewAllocations) {
  const std::vector<string> names = makeNames(10'000, true);
  NameIndex index(nullptr);
  const AllocationLimit limit(20, Failing::forEver);
  for (std::uint32_t number = 0; number < names.size(); ++number) {
    index.makeRoomFor(1);
    index.add(std::string_view(names[number]), number, false);
  }
  EXPECT_FALSE(limit.reached());
}

TEST(NameIndex, ManyNamesAreFound) {
  Indexed options;
  for (unsigned int number = 0; number < 3'000; ++number) {
    options.push_back(makeOption({"option" + std::to_string(number)}, vtS32));
    if (number % 100 == 0) {
      EXPECT_EQ(std::to_string(number / 2), options.find(("option" + std::to_string(number / 2))));
    }
  }
  for (unsigned int number = 0; number < 3'000; ++number)
    ASSERT_EQ(std::to_string(number), options.find(("option" + std::to_string(number))));
  EXPECT_EQ("none", options.find("option3000"));
}

using Random = std::mt19937;

std::size_t below(std::size_t end, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

string randomName(Random& random) {
  static const char* const pieces[] = {"n", "o", "-", "a", "no-", "b"};
  string name;
  for (std::size_t count = below(4, random); count != 0; --count)
    name += pieces[below(std::size(pieces), random)];
  return name;
}

OptionDescription randomOption(Random& random) {
  const variant_type_t types[] = {vtBool, vtS32, vtNull};
  OptionDescription option = makeOption({}, types[below(3, random)]);
  for (std::size_t count = below(4, random); count != 0; --count)
    option.synonym(randomName(random).c_str());
  return option;
}

void expectAgreement(Indexed& options, const string& typed, const DeclarationScan& scan) {
  ASSERT_EQ(scan.find(typed), options.find(typed)) << typed;
  ASSERT_EQ(scan.findBest(typed), options.findBest(typed)) << typed;
}

// Every text of up to `length` letters.
std::vector<string> allTexts(std::size_t length) {
  std::vector<string> texts = {""};
  for (std::size_t next = 0; texts[next].size() < length; ++next)
    for (const char letter : {'n', 'o', '-', 'a', 'b'})
      texts.push_back(texts[next] + letter);
  return texts;
}

TEST(NameIndex, AnswersAsAWalkOverTheDeclarationsWhileOptionsAreDeclared) {
  Random random(20240608);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    Indexed options;
    for (int step = 0; step < 30; ++step) {
      const std::size_t what = below(4, random);
      if (what == 0)
        options.push_back(randomOption(random));
      else if (what == 1 && !options.empty())
        options.back().synonym(randomName(random).c_str());
      else
        ASSERT_NO_FATAL_FAILURE(
            expectAgreement(options, randomName(random), DeclarationScan(options.list())));
    }
  }
}

TEST(NameIndex, AnswersAsAWalkOverTheDeclarationsForEveryShortText) {
  Random random(20240609);
  const std::vector<string> texts = allTexts(4);
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    Indexed options;
    for (std::size_t count = below(8, random); count != 0; --count)
      options.push_back(randomOption(random));
    const DeclarationScan scan(options.list());
    for (const string& typed : texts)
      ASSERT_NO_FATAL_FAILURE(expectAgreement(options, typed, scan));
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
