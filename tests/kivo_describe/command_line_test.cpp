#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include "end_to_end/process.h"
#include "sample_description.h"

// kivo-describe as a process: its own actions, and what it does with its arguments. The folder
// "pages" tests what it writes, and more of what it refuses; the folder "completion" tests its
// scripts.

namespace kivo_describe {
namespace {

using end_to_end::Outcome;
using testing::emptyTool;

class KivoDescribe : public ::testing::Test {
 protected:
  Outcome run(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::vector<std::string> command = {KIVO_DESCRIBE_PATH};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return end_to_end::run(command, m_folder.path(), input);
  }

  // In a shell that runs `first` before.
  Outcome runAfter(const std::string& first, const std::vector<std::string>& arguments) {
    std::vector<std::string> command = {"sh", "-c", first + R"(; exec "$0" "$@")",
                                        KIVO_DESCRIBE_PATH};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return end_to_end::run(command, m_folder.path(), emptyTool);
  }

  static Outcome fails(int status, const std::string& message) {
    return {status, "", "kivo-describe: " + message + '\n'};
  }

  end_to_end::TemporaryFolder m_folder;
};

TEST_F(KivoDescribe, ShowsItsHelp) {
  const std::string help =
      "kivo-describe -FORMAT [FILE]\n\n"
      "    bash       Write a completion script for bash.\n"
      "    fish       Write a completion script for fish.\n"
      "    help       Show this help.\n"
      "    man        Write a manual page of section 1.\n"
      "    markdown   Write a page in Markdown.\n"
      "    version    Show the version.\n"
      "    zsh        Write a completion script for zsh.\n";
  EXPECT_EQ((Outcome{0, help, ""}), run({"-help"}));
  EXPECT_EQ((Outcome{0, help, ""}), run({"--h"}));
}

TEST_F(KivoDescribe, ShowsItsVersion) {
  EXPECT_EQ((Outcome{0, "kivo-describe " KIVO_VERSION "\n", ""}), run({"--version"}));
}

TEST_F(KivoDescribe, ReadsAFileOrStandardInput) {
  end_to_end::writeFile(m_folder.path() + "/-x y.json", emptyTool);
  const Outcome page = run({"-man"}, emptyTool);
  EXPECT_EQ(0, page.status);
  EXPECT_EQ(page, run({"--man", "--", "-x y.json"}));
  EXPECT_EQ(page, run({"-man", m_folder.path() + "/-x y.json"}));
}

TEST_F(KivoDescribe, NeedsOneFormatAndAtMostOneFile) {
  EXPECT_EQ(fails(2, "No format is given; '-help' shows the formats."), run({}));
  EXPECT_EQ(fails(2, "No action defined."), run({"file"}));
  EXPECT_EQ(fails(2, "Unknown option: -html"), run({"-html"}));
  EXPECT_EQ(fails(2, "Only one description can be read."), run({"-man", "a", "b"}));
  EXPECT_EQ(fails(2, "Only one description can be read."), run({"-man", "a", "--", "b"}));
  EXPECT_EQ(fails(2, "The name of the file is empty."), run({"-man", ""}));
}

TEST_F(KivoDescribe, SaysInOneLineWhatItCannotRead) {
  EXPECT_EQ(fails(10, "cannot read 'no such': No such file or directory"),
            run({"-man", "no\nsuch"}));
  EXPECT_EQ(fails(10, "cannot read '.': Is a directory"), run({"-man", "."}));
  EXPECT_EQ(fails(10, "cannot read standard input: Bad file descriptor"),
            runAfter("exec <&-", {"-man"}));
}

TEST_F(KivoDescribe, SaysWhyATextIsNoDescription) {
  EXPECT_EQ(fails(11, "schema is missing"), run({"-man"}, "{}"));
}

TEST_F(KivoDescribe, FailsIfTheOutputCannotBeWritten) {
  const Outcome unwritable = fails(12, "The output cannot be written.");
  for (const char* const action : {"-man", "-help", "-version"}) {
    EXPECT_EQ(unwritable, runAfter("exec >/dev/full", {action})) << action;
    EXPECT_EQ(unwritable, runAfter("exec >&-", {action})) << action;
  }
}

TEST_F(KivoDescribe, FailsIfItsOwnDescriptionCannotBeWritten) {
  EXPECT_EQ(fails(1, "The output cannot be written."),
            runAfter("exec >/dev/full", {"kivooption=kivodescribe=json"}));
}

TEST_F(KivoDescribe, TakesTheDateOfThePageFromTheEnvironment) {
  const auto titled = [&](const std::string& first) {
    const std::string page = runAfter(first, {"-man"}).out;
    return page.substr(page.find(".TH"), page.find("\n.nh") - page.find(".TH"));
  };
  EXPECT_EQ(".TH \"FX\" \"1\" \"\" \"fx\" \"\"", titled("unset SOURCE_DATE_EPOCH"));
  EXPECT_EQ(".TH \"FX\" \"1\" \"2024-02-29\" \"fx\" \"\"",
            titled("export SOURCE_DATE_EPOCH=1709164800 TZ=Pacific/Kiritimati"));
  EXPECT_EQ(fails(2, "SOURCE_DATE_EPOCH is no number of seconds since 1970: 'now'"),
            runAfter("export SOURCE_DATE_EPOCH=now", {"-man"}));
}

TEST_F(KivoDescribe, DescribesItself) {
  const Outcome description = run({"kivooption=kivodescribe=json", "-man"});
  EXPECT_EQ(0, description.status);
  EXPECT_EQ("", description.err);
  EXPECT_EQ("kivo-describe", readDescription(description.out).name);
}

}  // namespace
}  // namespace kivo_describe
