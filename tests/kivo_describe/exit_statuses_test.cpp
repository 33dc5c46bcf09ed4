#include "exit_statuses.h"

#include <gtest/gtest.h>

namespace kivo_describe {
namespace {

// The statuses that are not those of every tool: "10=A file cannot be read.|..."
std::string added(const Texts& texts) {
  std::string shown;
  for (const ExitStatus& status : exitStatuses(texts)) {
    if (status.number.size() != 1)
      shown += status.number + '=' + status.meaning + '|';
  }
  return shown;
}

TEST(ExitStatuses, ThoseOfEveryTool) {
  std::string numbers;
  for (const ExitStatus& status : exitStatuses({})) {
    numbers += status.number;
    EXPECT_NE("", status.meaning);
  }
  EXPECT_EQ("012346", numbers);
}

TEST(ExitStatuses, StandInTheOrderOfTheirNumbers) {
  EXPECT_EQ("10=Ten.|99=Later.|100=Hundred.|",
            added({"100 Hundred.", "99 Nine.", "10 Ten.", "99 Later."}));
}

TEST(ExitStatuses, ReplaceANumberThatStandsAlready) {
  const auto all = exitStatuses({"2 Another meaning."});
  EXPECT_EQ("2 Another meaning.", all.at(2).number + ' ' + all.at(2).meaning);
  EXPECT_EQ(6U, all.size());
}

TEST(ExitStatuses, NumbersMayHaveLeadingZerosAndAnyLength) {
  EXPECT_EQ("10=Ten.|99999999999999999999=Much.|",
            added({"99999999999999999999 Much.", "0010 Ten."}));
  EXPECT_EQ("Zero.", exitStatuses({"000 Zero."}).at(0).meaning);
}

TEST(ExitStatuses, LinesWithoutANumberComeLast) {
  EXPECT_EQ("10=|=Above 10: 3rd.|=3rd party.|=|",
            added({"Above 10: 3rd.", "3rd party.", "10", ""}));
}

}  // namespace
}  // namespace kivo_describe
