#include <CLI/CLI.hpp>
#include <optional>

#include "peer.h"

namespace bench {

namespace {

class Cli11 final : public Peer {
 public:
  explicit Cli11(const Workload& workload) : Peer(workload) {
    if (!workload.fileLines.empty())
      m_fileArgument = "--config=" + writeOptionFile(workload, "");
  }

  void declare() override {
    m_variables.emplace(m_workload);
    m_app = std::make_unique<CLI::App>("tool");
    for (std::size_t i = 0; i < m_workload.options.size(); ++i)
      add(m_workload.options[i], i);
    if (!m_fileArgument.empty())
      m_app->set_config("--config");
  }

  void tearDown() override {
    m_app.reset();
    m_variables.reset();
  }

  std::uint64_t run() override { return parse(argc(), argv()); }

  std::uint64_t runFile() override {
    const char* const arguments[] = {"tool", m_fileArgument.c_str()};
    return parse(2, arguments);
  }

  std::string help() override { return m_app->help(); }

  std::string error() override {
    try {
      m_app->parse(argc(), argv());
      return {};
    } catch (const CLI::ParseError& failure) {
      return failure.what();
    }
  }

 private:
  void add(const Option& option, std::size_t index) {
    switch (option.kind) {
      case Kind::flag:
        m_app->add_flag(option.dashed.c_str(), m_variables->get<bool>(index),
                        option.description.c_str());
        return;
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
    const std::string& names = option.positional ? option.name : option.dashed;
    CLI::Option* added =
        m_app->add_option(names.c_str(), m_variables->get<T>(index), option.description.c_str());
    if (!option.allowed.empty())
      added->check(CLI::IsMember(option.allowed));
    if (!option.fallback.empty())
      added->capture_default_str();
    if (!option.positional)
      added->allow_extra_args(false);
  }

  std::uint64_t parse(int argc, const char* const* argv) {
    m_variables->reset();
    m_app->parse(argc, argv);
    return m_variables->digest();
  }

  std::optional<Variables<std::string>> m_variables;
  std::unique_ptr<CLI::App> m_app;
  std::string m_fileArgument;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Cli11>(workload);
}

const char* refusal(Work work, int size) {
  if (work == Work::abbreviations || work == Work::ambiguousOption)
    return "it takes no abbreviations";
  if ((work == Work::declare || work == Work::manyOptions) && size > 1000)
    return "quadratic";
  return nullptr;
}

}  // namespace bench
