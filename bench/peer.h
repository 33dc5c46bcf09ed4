#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "workload.h"

// A library that parses command lines, and that does a workload as in a tool. Each peer is a file
// in peers/ and a program of its own.

namespace bench {

// The kinds of work. A peer may be unable to do some of them: see refusal().
enum class Work {
  cycle,
  parse,
  declare,
  manyOptions,
  longCommandLine,
  optionFile,
  help,
  describe,
  abbreviations,
  unknownOption,
  ambiguousOption,
  badValue
};

class Peer {
 public:
  explicit Peer(const Workload& workload) : m_workload(workload), m_argv{"tool"} {
    for (const std::string& argument : workload.arguments)
      m_argv.push_back(argument.c_str());
    m_argv.push_back(nullptr);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;

  // Make the parser with all its options, and destroy it.
  virtual void declare() = 0;
  virtual void tearDown() = 0;

  // Parses into a new result, reads the values with their types, and destroys the result. Raises a
  // standard exception on failure.
  virtual std::uint64_t run() = 0;

  // Like run(), with the arguments in the option file.
  virtual std::uint64_t runFile() { return 0; }
  virtual std::string help() { return {}; }

  // What the tool declares, for programs to read; empty if the library cannot say it.
  virtual std::string describe() { return {}; }

  // Parses wrong arguments and returns the error message.
  virtual std::string error() { return {}; }

 protected:
  int argc() const { return static_cast<int>(m_argv.size()) - 1; }
  const char* const* argv() const { return m_argv.data(); }

  const Workload& m_workload;

 private:
  std::vector<const char*> m_argv;
};

// Defined by each peer. The workload outlives the peer.
std::unique_ptr<Peer> makePeer(const Workload& workload);

// Why the peer does not do this work at this size; null if it does.
const char* refusal(Work work, int size);

// Writes the option file of the workload, with `ahead` before each line, and returns its path.
std::string writeOptionFile(const Workload& workload, const std::string& ahead);

}  // namespace bench
