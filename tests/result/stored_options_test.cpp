// Compares what a result stores under each name with a naive result, which stores everything for
// every name separately.

#include "result/stored_options.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <stdexcept>

#include "allocation/allocation_limit.h"
#include "base/quoted.h"
#include "options/make_option.h"
#include "recognizers/argument_parser.h"
#include "support/naive_result.h"
#include "support/stored.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

constexpr const char* longText = "a text too long to be kept without memory";

// Stores the same in StoredOptions and in a naive result.
class TwoWays {
 public:
  // Stores an occurrence with `values` values, of which every other one is a number.
  void store(const Names& names, int values = 1, std::uint64_t option = 0) {
    NaiveResult::Entry entry = {{IArgumentParser::getNewPositionIndex()}, {}};
    for (; values != 0; --values) {
      const int position = IArgumentParser::getNewPositionIndex();
      entry.values.push_back({"v" + std::to_string(position), position});
    }
    m_naive.store({names.begin(), names.end()}, entry);
    OptionData data;
    data.positions = {entry.positions.front()};
    for (const auto& [text, position] : entry.values)
      data.values.push_back(given(position % 2 == 0 ? variant_t(text.c_str()) : variant_t(position),
                                  m_memory.copy(text).data(), position));
    m_stored.store(names, data, option);
  }

  void apply(const OptionList& options) {
    int position = IArgumentParser::m_idx;
    const auto defaults = std::make_shared<DeclaredDefaults>();
    for (const OptionDescription& option : options) {
      if (!option.hasDefault())
        continue;
      defaults->add(option);
      m_naive.applyDefault({option.m_names.begin(), option.m_names.end()},
                           option.getDefaultValueAsText(), position);
      position += static_cast<int>(option.m_names.size());
    }
    testing::apply(defaults, m_stored);
    EXPECT_EQ(position, IArgumentParser::m_idx);
  }

  // Renders all names: "a: @1 v2@2; b: (d@3); ".
  string expected() const {
    string all;
    for (const auto& [name, entry] : m_naive.entries()) {
      OptionData data;
      data.positions.assign(entry.positions.begin(), entry.positions.end());
      for (const NaiveResult::Piece& value : entry.values)
        data.values.push_back({value.text.c_str(), variant_t(), value.position});
      all += told(name, render(data), entry.standby);
    }
    return all;
  }

  string actual() const {
    string all;
    for (const std::string_view name : m_stored.names()) {
      const auto number = m_stored.find(name);
      std::optional<NaiveResult::Piece> standby;
      if (const auto found = m_stored.findDefault(name))
        standby = NaiveResult::Piece{found->text, found->position};
      all += told(string(name), number ? render(m_stored.given(*number)) : "", standby);
    }
    return all;
  }

 private:
  // A default is rendered only if nothing was given under the name.
  static string told(const string& name, const string& given,
                     const std::optional<NaiveResult::Piece>& standby) {
    string text = name + ": " + given;
    if (given.empty() && standby)
      text += "(" + standby->text + "@" + std::to_string(standby->position) + ")";
    return text + "; ";
  }

  OwnedMemoryOf<640> m_memory;
  StoredOptions m_stored{m_memory};
  NaiveResult m_naive;
};

class Storing : public ::testing::Test {
 protected:
  Storing() { IArgumentParser::m_idx = 1; }
  ~Storing() override { IArgumentParser::m_idx = m_before; }

  string stored() const {
    EXPECT_EQ(both.expected(), both.actual());
    return both.actual();
  }

  TwoWays both;

 private:
  const int m_before = IArgumentParser::m_idx;
};

TEST_F(Storing, BeginsWithNothing) {
  OwnedMemoryOf<640> memory;
  const StoredOptions options(memory);
  EXPECT_TRUE(options.names().empty());
  EXPECT_FALSE(options.find("a"));
  EXPECT_FALSE(options.findDefault("a"));
}

TEST_F(Storing, NamesOfOneOptionShareTheirData) {
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  for (int position = 1; position < 4; ++position) {
    OptionData data;
    data.positions = {position};
    options.store({"a", "b", "c"}, data, 1);
    options.store({"x", "y"}, data, 2);
  }
  EXPECT_EQ(&options.given(*options.find("x")), &options.given(*options.find("y")));
  const GivenOption* const shared = &options.given(*options.find("a"));
  EXPECT_EQ("@1 @2 @3", render(*shared));
  EXPECT_EQ(shared, &options.given(*options.find("b")));
  EXPECT_EQ(shared, &options.given(*options.find("c")));
}

TEST_F(Storing, NamesStillShareTheirDataWhenAnotherHasItsOwn) {
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  OptionData data;
  data.positions = {1};
  options.store({"a", "b", "c"}, data, 1);
  options.store({"c"}, data, 2);
  options.store({"a", "b"}, data, 3);
  EXPECT_EQ("@1 @1", render(options.given(*options.find("a"))));
  EXPECT_EQ(&options.given(*options.find("a")), &options.given(*options.find("b")));
  EXPECT_EQ("@1 @1", render(options.given(*options.find("c"))));
}

TEST_F(Storing, OccurrencesOfOneOptionInARowAddUp) {
  constexpr std::uint64_t option = 7;
  for (int round = 0; round < 3; ++round)
    both.store({"a", "x"}, 0, option);
  EXPECT_EQ("a: @1 @2 @3; x: @1 @2 @3; ", stored());
  both.store({"a", "x", "y"}, 0, option);
  both.store({"a", "x", "y"}, 0, option);
  EXPECT_EQ("a: @1 @2 @3 @4 @5; x: @1 @2 @3 @4 @5; y: @4 @5; ", stored());
}

TEST_F(Storing, OccurrencesBetweenThoseOfAnotherOptionAreKeptApart) {
  for (int round = 0; round < 2; ++round) {
    both.store({"a", "x"}, 0, 1);
    both.store({"b", "y"}, 0, 2);
    both.store({"b", "y"}, 0, 2);
    both.store({"c", "x"}, 0, 3);
    both.store({"a", "x"}, 0, 1);
    both.store({"a", "x"}, 0, 1);
    stored();
  }
  EXPECT_EQ(
      "a: @1 @5 @6 @7 @11 @12; b: @2 @3 @8 @9; c: @4 @10; x: @4 @5 @6 @7 @10 @11 @12; "
      "y: @2 @3 @8 @9; ",
      stored());
}

TEST_F(Storing, TextsAreNotCopied) {
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  const char* const number = "17";
  OptionData data;
  data.positions = {1};
  data.values.push_back({number, variant_t(17), 2});
  data.values.push_back({longText, variant_t(longText, true), 3});
  for (int round = 0; round < 2; ++round)
    options.store({"a"}, data, 0);
  const auto& values = options.given(*options.find("a")).values;
  EXPECT_EQ(4u, values.size());
  for (const GivenValue& value : values) {
    EXPECT_EQ(value.position == 2 ? number : longText, value.text);
    EXPECT_EQ(value.position == 2 ? variant_t(17) : variant_t(longText), value.value);
  }
}

TEST_F(Storing, WithoutANameIsOutOfRange) {
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  OptionData data;
  data.positions = {1};
  EXPECT_THROW(options.store({}, data, 0), std::out_of_range);
  EXPECT_TRUE(options.names().empty());
}

TEST_F(Storing, TheFirstOccurrenceOfALaterOptionReplacesTheSharedName) {
  both.store({"a", "x"});
  both.store({"b", "x"});
  EXPECT_EQ("a: @1 v2@2; b: @3 v4@4; x: @3 v4@4; ", stored());
}

TEST_F(Storing, LaterOccurrencesOfBothAreKeptApartAndAddUpUnderTheSharedName) {
  both.store({"a", "x"}, 0);
  both.store({"b", "x"}, 0);
  both.store({"a", "x"}, 0);
  EXPECT_EQ("a: @1 @3; b: @2; x: @2 @3; ", stored());
  both.store({"b", "x"}, 0);
  both.store({"a", "x"}, 0);
  EXPECT_EQ("a: @1 @3 @5; b: @2 @4; x: @2 @3 @4 @5; ", stored());
}

TEST_F(Storing, OneOptionMayShareNamesWithSeveralOthers) {
  for (int round = 0; round < 2; ++round) {
    both.store({"a", "x"}, 0);
    both.store({"b", "y"}, 0);
    both.store({"x", "y", "a", "b"}, 0);
    stored();
  }
  EXPECT_EQ("a: @1 @3 @4 @6; b: @2 @3 @5 @6; x: @1 @3 @4 @6; y: @2 @3 @5 @6; ", stored());
}

TEST_F(Storing, OneNameTwiceHasLaterOccurrencesTwice) {
  both.store({"a", "a"});
  EXPECT_EQ("a: @1 v2@2; ", stored());
  both.store({"a", "a"});
  EXPECT_EQ("a: @1 @3 @3 v2@2 v4@4 v4@4; ", stored());
}

TEST_F(Storing, OneNameTwiceTakesMemoryInProportionToItsOccurrences) {
  const long before = liveBlocks();
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  for (int position = 1; position <= 16'000; ++position) {
    OptionData data;
    data.positions = {position};
    options.store({"a", "a"}, data, 1);
  }
  EXPECT_EQ(31'999u, options.given(*options.find("a")).positions.size());
  EXPECT_GT(before + 20, liveBlocks());  // blocks grow fourfold, so there are few
}

TEST_F(Storing, OneNameTwiceBesideAnotherHasLaterOccurrencesTwice) {
  both.store({"b", "a", "a"}, 0);
  both.store({"b", "a", "a"}, 0);
  EXPECT_EQ("a: @1 @2 @2; b: @1 @2; ", stored());
}

TEST_F(Storing, ANameAddedBetweenTwoOccurrencesHasOnlyTheSecond) {
  both.store({"a"}, 0);
  both.store({"a", "b"}, 0);
  EXPECT_EQ("a: @1 @2; b: @2; ", stored());
  both.store({"a", "b"}, 0);
  EXPECT_EQ("a: @1 @2 @3; b: @2 @3; ", stored());
}

TEST_F(Storing, AListThatIsAPrefixOfAnotherIsStoredApart) {
  both.store({"a", "b"}, 0);
  both.store({"a"}, 0);
  EXPECT_EQ("a: @1 @2; b: @1; ", stored());
  both.store({"b", "a"}, 0);
  EXPECT_EQ("a: @1 @2 @3; b: @1 @3; ", stored());
}

// A default makes the result know the option, so its first occurrence replaces nothing.
TEST_F(Storing, AnOptionWithADefaultReplacesNothing) {
  OptionList options;
  options.push_back(makeOption({"b", "x"}, vtString));
  options.back().defaultValue("d");
  both.apply(options);
  EXPECT_EQ("b: (d@1); x: (d@2); ", stored());
  both.store({"a", "x"}, 0);
  both.store({"b", "x"}, 0);
  EXPECT_EQ("a: @3; b: @4; x: @3 @4; ", stored());
}

TEST_F(Storing, OneNameTwiceWithADefaultHasEachOccurrenceTwice) {
  OptionList options;
  options.push_back(makeOption({"a", "a"}, vtString));
  options.back().defaultValue("d");
  both.apply(options);
  both.store({"a", "a"}, 0);
  EXPECT_EQ("a: @3 @3; ", stored());
}

TEST_F(Storing, TheDefaultAppliedLastCounts) {
  OptionList first;
  first.push_back(makeOption({"a", "b"}, vtString));
  first.back().defaultValue("one");
  OptionList second;
  second.push_back(makeOption({"b", "c"}, vtString));
  second.back().defaultValue("two");
  both.apply(first);
  both.apply(second);
  EXPECT_EQ("a: (one@1); b: (two@3); c: (two@4); ", stored());
  both.apply(first);
  EXPECT_EQ("a: (one@5); b: (one@6); c: (two@4); ", stored());
}

TEST_F(Storing, TheSameDefaultsAppliedAgainHaveNewPositionsAndComeFirst) {
  OwnedMemoryOf<640> memory;
  StoredOptions options(memory);
  const auto with = [](const char* text) {
    OptionDescription option = makeOption({"a"}, vtString);
    option.defaultValue(text);
    auto defaults = std::make_shared<DeclaredDefaults>();
    defaults->add(option);
    return defaults;
  };
  const auto first = with("one");
  const auto second = with("two");
  int position = 1;
  for (const auto& [defaults, text] :
       {std::pair(first, "one"), std::pair(second, "two"), std::pair(first, "one"),
        std::pair(first, "one"), std::pair(second, "two")}) {
    testing::apply(defaults, options);
    EXPECT_STREQ(text, options.findDefault("a")->text);
    EXPECT_EQ(position++, options.findDefault("a")->position);
  }
}

using Random = std::mt19937;

std::size_t below(std::size_t end, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

string randomName(Random& random) { return string(1, static_cast<char>('a' + below(5, random))); }

std::vector<string> randomNames(Random& random) {
  std::vector<string> names;
  for (std::size_t count = 1 + below(3, random); count != 0; --count)
    names.push_back(randomName(random));
  return names;
}

OptionList randomOptions(Random& random) {
  OptionList options;
  for (std::size_t count = 1 + below(4, random); count != 0; --count) {
    options.push_back(makeOption(randomNames(random), vtString));
    if (below(3, random) == 0)
      options.back().defaultValue(below(4, random) == 0 ? "" : "d");
  }
  return options;
}

// Few names and many options, so that options share names in every way.
TEST_F(Storing, MatchesANaiveResultWhateverNamesAreShared) {
  Random random(20261121);
  for (int round = 0; round < 2'000; ++round) {
    TwoWays result;
    OptionList options = randomOptions(random);
    for (int step = 0; step < 12; ++step) {
      const std::size_t number = below(options.size(), random);
      OptionDescription& option = options[number];
      const std::size_t what = below(10, random);
      if (what == 0)
        result.apply(options);
      else if (what == 1)
        option.synonym(randomName(random).c_str());
      else
        for (std::size_t times = 1 + below(2, random); times != 0; --times)
          result.store(option.m_names, static_cast<int>(below(3, random)),
                       below(4, random) == 0 ? 0 : number + 1);
      ASSERT_EQ(result.expected(), result.actual()) << "round " << round << ", step " << step;
    }
  }
}

TEST_F(Storing, MatchesANaiveResultWithManyNames) {
  OptionList options;
  for (int number = 0; number < 500; ++number)
    options.push_back(makeOption({"option" + std::to_string(number), "o" + std::to_string(number),
                                  "s" + std::to_string(number % 7 == 0 ? number / 2 : number)},
                                 vtString));
  TwoWays result;
  for (int round = 0; round < 3; ++round)
    for (const OptionDescription& option : options)
      result.store(option.m_names);
  EXPECT_EQ(result.expected(), result.actual());
}

// One occurrence with two values.
OptionData twoValues(int position) {
  OptionData data;
  data.positions = {position};
  data.values.push_back(given(position, longText, position));
  data.values.push_back(given(longText, nullptr, position));
  return data;
}

// A result with some contents, whose arena has fewer than `left` + 8 bytes free in its block.
struct Filled {
  explicit Filled(std::size_t left) {
    OptionDescription option = makeOption({"x", "y", "new"}, vtString, &garbage);
    option.defaultValue("d");
    const auto defaults = std::make_shared<DeclaredDefaults>();
    defaults->add(option);
    testing::apply(defaults, stored);
    stored.store({"a", "b"}, twoValues(1), 0);
    stored.store({"b", "c"}, twoValues(2), 0);
    const auto* const begin = static_cast<const char*>(memory.allocate(0));
    const char* const end = memory.copy({}).data();
    for (auto room = static_cast<std::size_t>(end - begin); room >= left + 8; room -= 8)
      memory.allocate(8);
  }

  // Renders all names: "a: @1 x@2; new: default; ".
  string told() const {
    string all;
    for (const std::string_view name : stored.names()) {
      const auto number = stored.find(name);
      all += string(name) + ": " + (number ? render(stored.given(*number)) : "default") + "; ";
    }
    return all;
  }

  Garbage garbage;
  OwnedMemoryOf<640> memory;
  StoredOptions stored{memory};
};

// Stores an occurrence while only `allowed` allocations succeed. Returns whether memory ran out.
bool storeWithLittleMemory(const Names& names, std::size_t left, long allowed) {
  Filled result(left);
  const string before = result.told();
  const OptionData occurrence = twoValues(5);
  bool raised = false;
  {
    const AllocationLimit limit(allowed, Failing::forEver);
    try {
      result.stored.store(names, occurrence, 0);
    } catch (const std::bad_alloc&) {
      raised = true;
    }
    EXPECT_EQ(limit.reached(), raised);
  }
  Filled all(left);
  all.stored.store(names, occurrence, 0);
  EXPECT_EQ(raised ? before : all.told(), result.told());
  if (raised) {
    result.stored.store(names, occurrence, 0);
    EXPECT_EQ(all.told(), result.told());
  }
  return raised;
}

TEST_F(Storing, StoresAllOrNothingWhenMemoryRunsOut) {
  const Names cases[] = {{"a", "b"},      {"b", "c"},      {"x"},          {"x", "y"}, {"x", "a"},
                         {"n", "m", "o"}, {"a", "b", "n"}, {"a", "y"},     {"n", "a"}, {"b", "new"},
                         {"x", "x"},      {"a", "a"},      {"a", "n", "y"}};
  for (const Names& names : cases) {
    SCOPED_TRACE(listed(names));
    long failures = 0;
    for (std::size_t left = 0; left < 480; left += 8) {
      SCOPED_TRACE(left);
      const long blocks = liveBlocks();
      for (long allowed = 0; storeWithLittleMemory(names, left, allowed); ++allowed)
        ++failures;
      EXPECT_EQ(blocks, liveBlocks());
      if (HasFailure())
        return;  // larger sizes would fail in the same way
    }
    EXPECT_LT(0, failures);
  }
}

// The default `text` for one option of each name.
std::shared_ptr<const DeclaredDefaults> defaultsOf(const std::vector<string>& names,
                                                   const char* text, Garbage& garbage) {
  const auto defaults = std::make_shared<DeclaredDefaults>();
  for (const string& name : names) {
    OptionDescription option = makeOption({name}, vtString, &garbage);
    option.defaultValue(text);
    defaults->add(option);
  }
  return defaults;
}

// All defaults by name: "a=first b=second".
string defaultsIn(const StoredOptions& stored) {
  string all;
  for (const std::string_view name : stored.names())
    all += joined(all.empty() ? "" : " ", name, "=", stored.findDefault(name)->text);
  return all;
}

TEST_F(Storing, LaterDefaultsReplaceFormerOnes) {
  Garbage garbage;
  OwnedMemoryOf<640> memory;
  StoredOptions stored(memory);
  stored.apply(defaultsOf({"a"}, "first", garbage), 1);
  stored.apply(defaultsOf({"b"}, "second", garbage), 2);
  stored.apply(defaultsOf({"c"}, "third", garbage), 3);
  EXPECT_EQ("a=first b=second c=third", defaultsIn(stored));
  stored.apply(defaultsOf({"a", "c"}, "later", garbage), 4);
  EXPECT_EQ("a=later b=second c=later", defaultsIn(stored));
}

TEST_F(Storing, FormerDefaultsAreFreedOnceAllAreReplaced) {
  Garbage garbage;
  OwnedMemoryOf<640> memory;
  StoredOptions stored(memory);
  std::weak_ptr<const DeclaredDefaults> former;
  {
    const auto defaults = defaultsOf({"a"}, "first", garbage);
    former = defaults;
    stored.apply(defaults, 1);
  }
  stored.apply(defaultsOf({"a", "b"}, "second", garbage), 2);
  stored.apply(defaultsOf({"a", "b", "c"}, "third", garbage), 4);
  EXPECT_TRUE(former.expired());
  EXPECT_EQ("a=third b=third c=third", defaultsIn(stored));
}

// A parse that converts each default anew adds the defaults after it has applied them.
TEST_F(Storing, DefaultsMayBeAddedWhileTheyAreApplied) {
  Garbage garbage;
  OwnedMemoryOf<640> memory;
  StoredOptions stored(memory);
  stored.apply(defaultsOf({"a", "b"}, "first", garbage), 1);
  const auto defaults = std::make_shared<DeclaredDefaults>();
  stored.apply(defaults, firstPosition);
  EXPECT_EQ("a=first b=first", defaultsIn(stored));
  defaults->set({"b", "second", "second", 9});
  EXPECT_EQ("a=first b=second", defaultsIn(stored));
  EXPECT_EQ(9, stored.findDefault("b")->position);
}

}  // namespace
}  // namespace kivo_3_3::testing
