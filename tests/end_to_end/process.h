#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace end_to_end {

/// All that a process leaves behind.
struct Outcome {
  int status;  // the exit status, or 128 and the number of the signal that ended it
  std::string out;
  std::string err;
};

bool operator==(const Outcome& left, const Outcome& right);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

/// A folder of its own for one test, removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return m_path; }

 private:
  std::string m_path;
};

/// Runs a program, looked for in PATH, inside `folder`, with `input` as its standard
/// input, and waits for its end. The program is the first of `command`.
Outcome run(const std::vector<std::string>& command, const std::string& folder,
            const std::string& input);

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& text);

}  // namespace end_to_end
