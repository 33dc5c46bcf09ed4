#include "stratum2/generic_iterator.h"

#include <gtest/gtest.h>

#include <list>
#include <set>
#include <string>

namespace kivo_3_3::testing {
namespace {

using Walk = stratum2::generic_iterator_t<std::string>;

std::string walked(Walk walk) {
  std::string text;
  for (; walk; ++walk)
    text += "[" + *walk + "]";
  return text;
}

TEST(GenericIterator, AnEmptyHandleIsAWalkOverNothing) {
  const Walk none;
  EXPECT_FALSE(static_cast<bool>(none));
  EXPECT_EQ("", walked(none));
}

TEST(GenericIterator, HidesWhatHoldsTheValues) {
  const std::vector<std::string> vector = {"c", "a", "b"};
  const std::list<std::string> list = {"x", "", "y"};
  const std::set<std::string> set = {"c", "a", "b"};
  const std::string array[] = {"1", "2"};
  EXPECT_EQ("[c][a][b]", walked({vector.begin(), vector.end()}));
  EXPECT_EQ("[x][][y]", walked({list.begin(), list.end()}));
  EXPECT_EQ("[a][b][c]", walked({set.begin(), set.end()}));
  EXPECT_EQ("[1][2]", walked({std::begin(array), std::end(array)}));
}

TEST(GenericIterator, ARangeWithoutValuesIsAtItsEnd) {
  const std::vector<std::string> none;
  EXPECT_EQ("", walked({none.begin(), none.end()}));
  EXPECT_EQ("", walked(Walk(none)));
}

TEST(GenericIterator, AWalkMadeFromAVectorKeepsIt) {
  Walk walk;
  {
    std::vector<std::string> values = {"a text too long for the string itself", "b"};
    walk = Walk(values);
    values.clear();
  }
  EXPECT_EQ("[a text too long for the string itself][b]", walked(walk));
}

TEST(GenericIterator, CopiesMoveOnIndependently) {
  const std::vector<std::string> values = {"a", "b", "c"};
  for (Walk walk : {Walk(values.begin(), values.end()), Walk(values)}) {
    ++walk;
    const Walk copy = walk;
    Walk assigned;
    assigned = walk;
    ++walk;
    EXPECT_EQ("[c]", walked(walk));
    EXPECT_EQ("[b][c]", walked(copy));
    EXPECT_EQ("[b][c]", walked(assigned));
  }
}

TEST(GenericIterator, ACopyOutlivesTheWalkItWasMadeFrom) {
  Walk copy;
  {
    const Walk walk(std::vector<std::string>{"a", "b"});
    copy = walk;
  }
  EXPECT_EQ("[a][b]", walked(copy));
}

TEST(GenericIterator, ReachesIntoTheCurrentValue) {
  const std::vector<std::string> values = {"four"};
  const Walk walk(values.begin(), values.end());
  EXPECT_EQ(4u, walk->size());
  EXPECT_EQ(&values[0], &*walk);
}

}  // namespace
}  // namespace kivo_3_3::testing
