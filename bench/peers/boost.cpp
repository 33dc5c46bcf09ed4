#include <boost/program_options.hpp>
#include <fstream>
#include <optional>
#include <sstream>

#include "peer.h"

namespace bench {

namespace {

namespace po = boost::program_options;

template <class T>
po::typed_value<T>* valueOf(const Option& option, const T& fallback) {
  auto* value = po::value<T>();
  return option.fallback.empty() ? value : value->default_value(fallback);
}

const po::value_semantic* semanticOf(const Option& option) {
  switch (option.kind) {
    case Kind::flag:
      return po::bool_switch();
    case Kind::integer:
      return valueOf(option, std::atoi(option.fallback.c_str()));
    case Kind::unsigned64:
      return po::value<std::uint64_t>();
    case Kind::real:
      return valueOf(option, std::atof(option.fallback.c_str()));
    case Kind::text:
      return valueOf(option, option.fallback);
    case Kind::integers:
      return po::value<std::vector<int>>();
    case Kind::texts:
      return po::value<std::vector<std::string>>();
  }
  return nullptr;
}

class Boost final : public Peer {
 public:
  explicit Boost(const Workload& workload) : Peer(workload) {
    if (!workload.fileLines.empty())
      m_file = writeOptionFile(workload, "");
  }

  void declare() override {
    m_declared.emplace();
    auto add = m_declared->options.add_options();
    for (const Option& option : m_workload.options) {
      add(option.nameAndLetter.c_str(), semanticOf(option), option.description.c_str());
      if (option.positional)
        m_declared->positional.add(option.name.c_str(), -1);
    }
  }

  void tearDown() override { m_declared.reset(); }

  std::uint64_t run() override {
    po::variables_map values;
    parse(values);
    return digestOf(values);
  }

  std::uint64_t runFile() override {
    po::variables_map values;
    po::store(po::parse_config_file(m_file.c_str(), m_declared->options), values);
    po::notify(values);
    return digestOf(values);
  }

  std::string help() override {
    std::ostringstream text;
    text << m_declared->options;
    return text.str();
  }

  std::string error() override {
    try {
      po::variables_map values;
      parse(values);
      return {};
    } catch (const po::error& failure) {
      return failure.what();
    }
  }

 private:
  void parse(po::variables_map& values) {
    po::store(po::command_line_parser(argc(), argv())
                  .options(m_declared->options)
                  .positional(m_declared->positional)
                  .run(),
              values);
    po::notify(values);
    for (const Option& option : m_workload.options)
      if (!option.allowed.empty() && values.count(option.name) != 0 &&
          !option.isAllowed(values[option.name].as<std::string>()))
        throw po::validation_error(po::validation_error::invalid_option_value, option.name);
  }

  std::uint64_t digestOf(const po::variables_map& values) const {
    Answers answers;
    for (const Read& read : m_workload.reads)
      add(answers, values[m_workload.options[read.option].name],
          m_workload.options[read.option].kind);
    return answers.digest();
  }

  static void add(Answers& answers, const po::variable_value& value, Kind kind) {
    switch (kind) {
      case Kind::flag:
        return answers.add(value.as<bool>());
      case Kind::integer:
        return answers.add(value.as<int>());
      case Kind::unsigned64:
        return answers.add(value.as<std::uint64_t>());
      case Kind::real:
        return answers.add(value.as<double>());
      case Kind::text:
        return answers.add(value.as<std::string>());
      case Kind::integers:
        return answers.add(value.as<std::vector<int>>());
      case Kind::texts:
        return answers.add(value.as<std::vector<std::string>>());
    }
  }

  struct Declared {
    po::options_description options;
    po::positional_options_description positional;
  };
  std::optional<Declared> m_declared;
  std::string m_file;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Boost>(workload);
}

const char* refusal(Work work, int size) {
  return work == Work::longCommandLine && size > 10000 ? "quadratic" : nullptr;
}

}  // namespace bench
