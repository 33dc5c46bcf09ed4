#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "workload.h"

// A library that parses command lines, made to do a workload as a tool would have it done.
// Each peer is a file in peers/ and a program of its own.

namespace bench {

// What peers are asked for; not every one can do all of it.
enum class Work {
  cycle,
  parse,
  declare,
  manyOptions,
  longCommandLine,
  optionFile,
  help,
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

  // Makes the parser with all its options, and ends it.
  virtual void declare() = 0;
  virtual void tearDown() = 0;

  // Parses into a result that knows nothing of a former run, reads the values back with
  // their types, and ends the result. Raises a standard exception where that fails.
  virtual std::uint64_t run() = 0;

  // The same with the arguments that stand in the option file.
  virtual std::uint64_t runFile() { return 0; }
  virtual std::string help() { return {}; }

  // The message about arguments that are wrong.
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

// Why the peer does not do a work of this size; null when it does.
const char* refusal(Work work, int size);

// Writes the lines of the workload's option file, each behind `ahead`, and answers its path.
std::string writeOptionFile(const Workload& workload, const std::string& ahead);

}  // namespace bench
