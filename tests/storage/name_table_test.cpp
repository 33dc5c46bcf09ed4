#include "storage/name_table.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

#include "allocation/allocation_limit.h"
#include "storage/owned_memory.h"

namespace kivo_3_3::testing {
namespace {

using std::string;
using Numbers = std::vector<std::uint32_t>;

struct Entry {
  HashedName name;
  int tag = 0;
};

// Adds the entry even if there are others with its name.
Entry& addTo(NameTable<Entry>& table, const Entry& entry) {
  return table.findOrAdd(
      entry.name, [](const Entry&) { return false; }, [&] { return entry; });
}

class Table : public ::testing::Test {
 protected:
  std::uint32_t add(const string& name, int tag = 0) {
    return table.numberOf(addTo(table, {memory.copy(name), tag}));
  }

  string found(std::string_view name) const {
    const Entry* const entry = table.find(name);
    return entry != nullptr ? std::to_string(table.numberOf(*entry)) : "none";
  }

  // The tags of all entries with this name, in the order in which a search finds them.
  Numbers row(std::string_view name) const {
    std::vector<int> tags;
    const Entry* const none = table.find(name, [&](const Entry& entry) {
      tags.push_back(entry.tag);
      return false;
    });
    EXPECT_EQ(nullptr, none);
    return {tags.begin(), tags.end()};
  }

  OwnedMemoryOf<640> memory;
  NameTable<Entry> table{&memory};
};

// Equality depends on every character and on the length.
TEST(HashedName, EqualsOnlyTheSameText) {
  for (std::size_t size = 0; size < 50; ++size) {
    string text;
    for (std::size_t place = 0; place < size; ++place)
      text += static_cast<char>('a' + place % 7);
    const HashedName name(text);
    EXPECT_TRUE(name == HashedName(string(text))) << text;
    EXPECT_FALSE(name == HashedName(text + text.substr(size / 2, 1) + "a")) << text;
    EXPECT_FALSE(name == HashedName(text + '\0')) << text;
    for (std::size_t place = 0; place < size; ++place) {
      for (const char other : {'x', '\0', '\xff'}) {
        string changed = text;
        changed[place] = other;
        EXPECT_FALSE(name == HashedName(changed)) << text << " at " << place;
        EXPECT_NE(name.hash, HashedName(changed).hash) << text << " at " << place;
      }
    }
  }
}

TEST(HashedName, MadeOfNothingIsTheEmptyText) {
  EXPECT_TRUE(HashedName() == HashedName(""));
  EXPECT_FALSE(HashedName() == HashedName("a"));
}

// Up to eight characters, equal hash and length count as equal text: a bit that did not change the
// hash would make two names equal.
TEST(HashedName, EveryBitOfAShortTextChangesTheHash) {
  for (const char all : {'\0', 'a', 'b', '\x80', '\xff'}) {
    for (std::size_t size = 1; size <= 8; ++size) {
      const string text(size, all);
      for (std::size_t bit = 0; bit < size * 8; ++bit) {
        string changed = text;
        changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ (1 << (bit % 8)));
        EXPECT_NE(HashedName(text).hash, HashedName(changed).hash) << size << ", bit " << bit;
      }
    }
  }
}

// The first slot in a table of 1,024 slots: the ten high bits of the hash.
std::size_t placeIn1024(const string& name) {
  return static_cast<std::size_t>(HashedName(name).hash >> (64 - 10));
}

TEST(HashedName, TextsThatDifferInOneCharacterAreSpread) {
  for (std::size_t size = 1; size <= 24; ++size) {
    for (std::size_t place = 0; place < size; ++place) {
      std::set<std::size_t> places;
      for (int character = 0; character < 256; ++character) {
        string text(size, 'a');
        text[place] = static_cast<char>(character);
        places.insert(placeIn1024(text));
      }
      EXPECT_LT(96u, places.size()) << size << " characters, at " << place;
    }
  }
}

TEST(HashedName, NamesAsToolsHaveThemAreSpread) {
  for (const char* const begin : {"", "o", "opt", "size", "level", "option-", "no-option-name"}) {
    for (const char* const end : {"", "e", "me", "-name", "-for-output"}) {
      std::set<std::size_t> places;
      for (int number = 100; number < 612; ++number)
        places.insert(placeIn1024(begin + std::to_string(number) + end));
      EXPECT_LT(320u, places.size()) << begin << "100" << end;
    }
  }
}

TEST(HashedName, HasAHashOfItsOwnForEveryTextOfTwoCharacters) {
  std::set<std::uint64_t> hashes;
  for (int first = 0; first < 256; ++first)
    for (int second = 0; second < 256; ++second)
      hashes.insert(HashedName(string{static_cast<char>(first), static_cast<char>(second)}).hash);
  EXPECT_EQ(256u * 256u, hashes.size());
}

TEST(HashedName, LongTextsOfOneHashAreDistinguished) {
  const string text = "a name of more than eight characters";
  for (std::size_t place = 0; place < text.size(); ++place) {
    string changed = text;
    changed[place] = '.';
    HashedName other(changed);
    other.hash = HashedName(text).hash;
    EXPECT_FALSE(other == HashedName(text)) << changed;
  }
}

TEST(HashedName, ShorterTextsOfOneHashAreDistinguished) {
  HashedName other("a name");
  other.hash = HashedName("a nam").hash;
  EXPECT_FALSE(other == HashedName("a nam"));
}

TEST_F(Table, MakesRoomForManyEntriesAtOnce) {
  constexpr std::uint32_t count = 1000;
  add("first");
  table.makeRoomFor(count);
  std::vector<string> names;
  for (std::uint32_t number = 1; number <= count; ++number)
    names.push_back("name" + std::to_string(number));
  std::vector<Entry> entries;
  for (const string& name : names)
    entries.push_back({memory.copy(name)});
  {
    const AllocationLimit limit(0, Failing::forEver);
    for (const Entry& entry : entries)
      addTo(table, entry);
    EXPECT_FALSE(limit.reached());
  }
  EXPECT_EQ("0", found("first"));
  for (std::uint32_t number = 1; number <= count; ++number)
    ASSERT_EQ(std::to_string(number), found(names[number - 1]));
}

TEST_F(Table, FindsNothingWhenEmpty) {
  EXPECT_EQ("none", found("a"));
  EXPECT_EQ("none", found(""));
  EXPECT_TRUE(table.entries().empty());
}

TEST_F(Table, NumbersEntriesAsTheyAreAdded) {
  EXPECT_EQ(0u, add("b"));
  EXPECT_EQ(1u, add("a"));
  EXPECT_EQ(2u, add(""));
  EXPECT_EQ("0 1 2 none", found("b") + " " + found("a") + " " + found("") + " " + found("c"));
  EXPECT_EQ("a", table[1].name.text);
  EXPECT_EQ(3u, table.entries().size());
}

TEST_F(Table, OnlyTheWholeNameCounts) {
  add("level");
  for (const char* name : {"", "leve", "levels", "Level", " level", "l"})
    EXPECT_EQ("none", found(name)) << name;
}

TEST_F(Table, OfEqualNamesTheFirstIsFound) {
  add("a");
  add("b");
  add("a");
  add("b");
  EXPECT_EQ("0 1", found("a") + " " + found("b"));
}

TEST_F(Table, OfEqualNamesTheFirstThatIsMeantIsFound) {
  for (int tag = 0; tag < 6; ++tag)
    add(tag % 2 == 0 ? "a" : "b", tag);
  const auto isLate = [](const Entry& entry) { return entry.tag > 1; };
  EXPECT_EQ(&table[2], table.find("a", isLate));
  EXPECT_EQ(&table[3], table.find("b", isLate));
  EXPECT_EQ(nullptr, table.find("c", isLate));
  EXPECT_EQ((Numbers{0, 2, 4}), row("a"));
}

TEST_F(Table, AddsOnlyWhatIsNotThere) {
  const auto findOrAdd = [&](const string& name, int tag) {
    return table.numberOf(table.findOrAdd(std::string_view(name), [&] {
      return Entry{memory.copy(name), tag};
    }));
  };
  for (int tag = 0; tag < 1'000; ++tag) {
    const auto number = static_cast<std::uint32_t>(tag);
    ASSERT_EQ(number, findOrAdd("name" + std::to_string(tag), tag));
    ASSERT_EQ(number / 2, findOrAdd("name" + std::to_string(tag / 2), -1));
    ASSERT_EQ(std::to_string(tag), found("name" + std::to_string(tag)));
  }
  EXPECT_EQ(1'000u, table.entries().size());
  EXPECT_EQ(7, table[7].tag);
}

TEST_F(Table, AddsNothingWhenMakingTheEntryRaises) {
  add("a");
  const auto make = []() -> Entry { throw std::bad_alloc(); };
  EXPECT_EQ(&table[0], &table.findOrAdd("a", make));
  EXPECT_THROW(table.findOrAdd("b", make), std::bad_alloc);
  EXPECT_EQ("none", found("b"));
  EXPECT_EQ(1u, table.entries().size());
  EXPECT_EQ(1u, table.numberOf(table.findOrAdd("b", [] { return Entry{"b"}; })));
}

TEST_F(Table, WhatIsThereIsFoundWithoutMemory) {
  for (int count = 1; count < 200; ++count) {
    const string name = "name" + std::to_string(count);
    add(name);
    const AllocationLimit limit(0, Failing::forEver);
    table.findOrAdd(std::string_view(name), []() -> Entry { throw std::bad_alloc(); });
    ASSERT_FALSE(limit.reached()) << count;
  }
}

// `other` has the hash of another name: a search that compared only hashes would find that name.
TEST_F(Table, TellsNamesOfOneHashApart) {
  HashedName other("another name");
  other.hash = HashedName("the one name").hash;
  add("the one name");
  EXPECT_EQ(nullptr, table.find(other));
  EXPECT_EQ(1u, table.numberOf(table.findOrAdd(other, [&] { return Entry{other}; })));
  EXPECT_EQ(&table[1], table.find(other));
  EXPECT_EQ(&table[0], table.find("the one name"));
}

TEST_F(Table, AnEntryCanBeChangedUnderItsName) {
  add("a", 1);
  table[0].tag = 7;
  EXPECT_EQ(7, table.find("a")->tag);
}

// 20,000 entries with at most 15,000 names: some names occur several times.
TEST_F(Table, FindsThousandsOfNamesAsAMapDoes) {
  std::mt19937 random(20261121);
  std::map<string, Numbers> expected;
  for (std::uint32_t number = 0; number < 20'000; ++number) {
    const string name = "option-" + std::to_string(random() % 15'000);
    ASSERT_EQ(number, add(name, static_cast<int>(number)));
    expected[name].push_back(number);
    if (number % 1'000 == 0) {
      ASSERT_EQ(expected[name], row(name));
    }
  }
  for (const auto& [name, numbers] : expected) {
    ASSERT_EQ(std::to_string(numbers.front()), found(name));
    ASSERT_EQ(numbers, row(name));
    ASSERT_EQ("none", found(name + "x"));
  }
}

constexpr std::size_t firstSize = 32;  // slots, of which the 5 high bits of a hash choose one

// A name whose first slot is `place` in a table of `firstSize` slots.
string nameFor(std::size_t place) {
  for (int number = 0;; ++number) {
    const string name = "name" + std::to_string(number);
    if (HashedName(name).hash >> (64 - 5) == place)
      return name;
  }
}

// A row of equal names that passes the last slot continues in the first one. A table that grew by
// walking its slots would change the order of these names.
TEST(NameTable, KeepsTheOrderOfARowThatWrapsAroundWhileItGrows) {
  for (std::size_t place = 0; place < firstSize; ++place) {
    const string name = nameFor(place);
    for (std::size_t ahead = 0; ahead < 8; ++ahead) {
      SCOPED_TRACE(std::to_string(ahead) + " ahead of a row that begins at " +
                   std::to_string(place));
      NameTable<Entry> table(nullptr);
      const string other = nameFor((place + firstSize - 1) % firstSize);
      for (std::size_t i = 0; i < ahead; ++i)
        addTo(table, {std::string_view(other), -1});
      for (int tag = 0; tag < 100; ++tag) {
        addTo(table, {std::string_view(name), tag});
        int next = 0;
        table.find(std::string_view(name), [&](const Entry& entry) {
          EXPECT_EQ(next++, entry.tag);
          return false;
        });
        ASSERT_EQ(tag + 1, next);
        ASSERT_EQ(&table.entries()[ahead], table.find(std::string_view(name)));
      }
    }
  }
}

// Adds an entry at every size below 300, since the table grows at some of these sizes.
TEST(NameTable, NothingChangesWhenMemoryRunsOut) {
  bool hasFailed = false;
  for (int count = 0; count < 300; ++count) {
    for (long allowed = 0, isReached = 1; isReached != 0; ++allowed) {
      SCOPED_TRACE(std::to_string(count) + " entries, " + std::to_string(allowed) + " allowed");
      OwnedMemoryOf<640> memory;
      NameTable<Entry> table(&memory);
      for (int tag = 0; tag < count; ++tag)
        addTo(table, {memory.copy("name" + std::to_string(tag)), tag});
      bool raised = false;
      {
        const AllocationLimit limit(allowed, Failing::forEver);
        try {
          addTo(table, {"another", count});
        } catch (const std::bad_alloc&) {
          raised = true;
        }
        isReached = limit.reached();
      }
      hasFailed = hasFailed || raised;
      ASSERT_EQ(isReached != 0, raised);
      ASSERT_EQ(static_cast<std::size_t>(count + (raised ? 0 : 1)), table.entries().size());
      ASSERT_EQ(!raised, table.find("another") != nullptr);
      for (int tag = 0; tag < count; ++tag)
        ASSERT_EQ(tag, table.find(memory.copy("name" + std::to_string(tag)))->tag);
      if (raised)
        addTo(table, {"another", count});
      int found = 0;
      table.find("another", [&](const Entry&) { return ++found == 0; });
      ASSERT_EQ(1, found);
    }
  }
  EXPECT_TRUE(hasFailed);
}

}  // namespace
}  // namespace kivo_3_3::testing
