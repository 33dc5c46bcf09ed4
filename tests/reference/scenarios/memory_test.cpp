// Memory that runs out during a query, which scenarios do not cover.

#include <gtest/gtest.h>

#include "allocation/allocation_limit.h"
#include "reference/scenarios/world.h"

namespace kivo_3_3::scenarios {
namespace {

using testing::AllocationLimit;
using testing::Failing;

constexpr const char* longText = "a text too long to be kept without memory";

// The status of a parse, then the answers of three equal queries: without memory, with memory, and
// without memory again.
std::string answersOf(const World& world) {
  IParser* parser = nullptr;
  world.createParser(&parser, 0);
  parser->option("name", "", vtString);
  IParseResult* result = nullptr;
  parser->createResult(&result);
  const char* const argv[] = {"tool", "--name", longText};
  std::string answers = std::to_string(parser->parseArgsVector(3, argv, result));
  const auto ask = [&] {
    const Value value = result->get("name");
    return value.isEmpty != 0 ? "nothing" : value.value.type() == vtString ? "a text" : "another";
  };
  const auto askWithoutMemory = [&] {
    const AllocationLimit limit(0, Failing::forEver);
    return ask();
  };
  for (const char* answer : {askWithoutMemory(), ask(), askWithoutMemory()})
    answers += std::string(", ") + answer;
  result->destroy();
  parser->destroy();
  return answers;
}

TEST(Reference, AValueThatCannotBeCopiedIsNoValueInBothWorlds) {
  EXPECT_EQ("0, nothing, a text, a text", answersOf(referenceWorld()));
  EXPECT_EQ(answersOf(referenceWorld()), answersOf(libraryWorld()));
}

}  // namespace
}  // namespace kivo_3_3::scenarios
