#include <kivo/tool.h>

#include <optional>
#include <stdexcept>

#include "peer.h"

namespace bench {

namespace {

// A kivo::Tool parses once, so each parse needs new declarations.
class KivoTool final : public Peer {
 public:
  explicit KivoTool(const Workload& workload) : Peer(workload) {}

  void declare() override {
    m_variables.emplace(m_workload);
    m_tool.emplace("tool", "Does the work.", "1.0");
    for (std::size_t i = 0; i < m_workload.options.size(); ++i)
      add(m_workload.options[i], i);
  }

  void tearDown() override {
    m_tool.reset();
    m_variables.reset();
  }

  std::uint64_t run() override {
    if (m_tool->parse(argc(), argv()))
      throw std::runtime_error("the tool should go on");
    return m_variables->digest();
  }

  std::string help() override { return m_tool->help(); }

 private:
  void add(const Option& option, std::size_t index) {
    switch (option.kind) {
      case Kind::flag:
        return bind<bool>(option, index);
      case Kind::integer:
        return bind<int>(option, index);
      case Kind::unsigned64:
        return bind<std::uint64_t>(option, index);
      case Kind::real:
        return bind<double>(option, index);
      case Kind::text:
        return bind<std::string>(option, index);
      case Kind::integers:
        return bind<std::vector<int>>(option, index);
      case Kind::texts:
        return bind<std::vector<std::string>>(option, index);
    }
  }

  template <class T>
  void bind(const Option& option, std::size_t index) {
    auto declared = m_tool->option(option.nameAndLetter.c_str(), m_variables->get<T>(index),
                                   option.description.c_str());
    for (const std::string& text : option.allowed)
      declared.choices({text.c_str()});
  }

  std::optional<Variables<std::string>> m_variables;
  std::optional<kivo::Tool> m_tool;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<KivoTool>(workload);
}

const char* refusal(Work work, int) {
  const bool isDone = work == Work::cycle || work == Work::declare || work == Work::help;
  return isDone ? nullptr : "a tool parses once";
}

}  // namespace bench
