// Flags are global and last as long as the process, so a process does one workload only. They are
// registered with the class that the library's macros use. A letter is a second flag with the same
// variable.

#include <gflags/gflags.h>

#include <stdexcept>

#include "peer.h"

namespace bench {

namespace {

constexpr const char* ownFile = "tool";

class Gflags final : public Peer {
 public:
  explicit Gflags(const Workload& workload)
      : Peer(workload), m_variables(workload), m_defaults(workload) {}

  void declare() override {
    for (std::size_t i = 0; i < m_workload.options.size(); ++i)
      add(m_workload.options[i], i);
  }

  void tearDown() override {}

  std::uint64_t run() override {
    m_variables.reset();
    std::vector<char*> arguments;
    for (int i = 0; i <= argc(); ++i)
      arguments.push_back(const_cast<char*>(argv()[i]));
    int count = argc();
    char** begin = arguments.data();
    google::ParseCommandLineFlags(&count, &begin, true);
    for (const Option& option : m_workload.options)
      if (!option.allowed.empty() && !textOf(option).empty() && !option.isAllowed(textOf(option)))
        throw std::runtime_error("not allowed: " + option.name);
    return m_variables.digest();
  }

  std::string help() override {
    std::vector<google::CommandLineFlagInfo> flags;
    google::GetAllFlags(&flags);
    std::string text;
    for (const google::CommandLineFlagInfo& flag : flags)
      if (flag.filename == ownFile)
        text += google::DescribeOneFlag(flag);
    return text;
  }

 private:
  void add(const Option& option, std::size_t index) {
    switch (option.kind) {
      case Kind::flag:
        return add<bool>(option, index);
      case Kind::integer:
        return add<int>(option, index);
      case Kind::unsigned64:
        return add<std::uint64_t>(option, index);
      case Kind::real:
        return add<double>(option, index);
      default:
        return add<std::string>(option, index);
    }
  }

  template <class T>
  void add(const Option& option, std::size_t index) {
    for (const std::string& name : {std::cref(option.name), std::cref(option.letter)})
      if (!name.empty())
        google::FlagRegisterer(name.c_str(), option.description.c_str(), ownFile,
                               &m_variables.get<T>(index), &m_defaults.get<T>(index));
  }

  const std::string& textOf(const Option& option) {
    const auto index = static_cast<std::size_t>(&option - m_workload.options.data());
    return m_variables.get<std::string>(index);
  }

  Variables<std::string> m_variables;
  Variables<std::string> m_defaults;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Gflags>(workload);
}

const char* refusal(Work work, int) {
  switch (work) {
    case Work::cycle:
    case Work::declare:
      return "its flags cannot be torn down";
    case Work::longCommandLine:
    case Work::optionFile:
      return "it keeps one value a flag";
    case Work::abbreviations:
    case Work::ambiguousOption:
      return "it takes no abbreviations";
    case Work::unknownOption:
    case Work::badValue:
      return "it ends the process";
    default:
      return nullptr;
  }
}

}  // namespace bench
