#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "process.h"

namespace end_to_end {

using Arguments = std::vector<std::string>;

/// Runs textkit, and the tools it is held against, in a folder of its own. All of them
/// run in the C locale.
class Textkit : public testing::Test {
 protected:
  Textkit();

  Outcome textkit(const Arguments& arguments, const std::string& input = "") const;
  Outcome tool(const Arguments& command, const std::string& input = "") const;

  void write(const std::string& name, const std::string& text) const;
  void makeFolder(const std::string& name) const;

 private:
  TemporaryFolder m_folder;
};

/// What a run leaves that writes `out` and ends well.
Outcome prints(const std::string& out);

/// What a run leaves that ends with `status` and the one line "textkit: " + `message`.
Outcome fails(int status, const std::string& message);

}  // namespace end_to_end
