#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "process.h"

namespace end_to_end {

using Arguments = std::vector<std::string>;

/// Runs textkit, and the tools that it is compared with, in a temporary folder and in the C locale.
class Textkit : public testing::Test {
 protected:
  Textkit();

  Outcome textkit(const Arguments& arguments, const std::string& input = "") const;
  Outcome tool(const Arguments& command, const std::string& input = "") const;

  /// Runs textkit in a shell that has run `first`, with a text of one line as its input.
  Outcome textkitAfter(const std::string& first, const Arguments& arguments) const;

  void write(const std::string& name, const std::string& text) const;
  void makeFolder(const std::string& name) const;

 private:
  TemporaryFolder m_folder;
};

/// The outcome of a run that writes `out` to standard output and succeeds.
Outcome prints(const std::string& out);

/// The outcome of a run that exits with `status` and writes one line to standard error: "textkit: "
/// + `message`.
Outcome fails(int status, const std::string& message);

}  // namespace end_to_end
