#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace end_to_end {

/// The outcome of a process.
struct Outcome {
  int status;  // the exit status, or 128 plus the number of the signal that ended the process
  std::string out;
  std::string err;
};

bool operator==(const Outcome& left, const Outcome& right);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

/// A temporary folder for one test, removed with everything in it.
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

/// Runs `command` in `folder`, with `input` as its standard input, and waits for its end. The first
/// word is the program, which is searched for in PATH.
Outcome run(const std::vector<std::string>& command, const std::string& folder,
            const std::string& input);

/// The program that runs the tools under test, with its options, from the environment variable
/// TOOL_RUNNER; usually none.
std::vector<std::string> runner();

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& text);

}  // namespace end_to_end
