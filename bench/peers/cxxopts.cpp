#include <cxxopts.hpp>
#include <optional>

#include "peer.h"

namespace bench {

namespace {

std::shared_ptr<cxxopts::Value> valueOf(Kind kind) {
  switch (kind) {
    case Kind::flag:
      return cxxopts::value<bool>();
    case Kind::integer:
      return cxxopts::value<int>();
    case Kind::unsigned64:
      return cxxopts::value<std::uint64_t>();
    case Kind::real:
      return cxxopts::value<double>();
    case Kind::text:
      return cxxopts::value<std::string>();
    case Kind::integers:
      return cxxopts::value<std::vector<int>>();
    case Kind::texts:
      return cxxopts::value<std::vector<std::string>>();
  }
  return nullptr;
}

class Cxxopts final : public Peer {
 public:
  using Peer::Peer;

  void declare() override {
    m_options.emplace("tool");
    auto add = m_options->add_options();
    for (const Option& option : m_workload.options) {
      auto value = valueOf(option.kind);
      if (!option.fallback.empty())
        value = value->default_value(option.fallback.c_str());
      add(option.letterAndName.c_str(), option.description.c_str(), value);
      if (option.positional)
        m_options->parse_positional({option.name});
    }
  }

  void tearDown() override { m_options.reset(); }

  std::uint64_t run() override {
    const cxxopts::ParseResult result = parse();
    Answers answers;
    for (const Read& read : m_workload.reads)
      add(answers, result[m_workload.options[read.option].name],
          m_workload.options[read.option].kind);
    return answers.digest();
  }

  std::string help() override { return m_options->help(); }

  std::string error() override {
    try {
      parse();
      return {};
    } catch (const cxxopts::exceptions::exception& failure) {
      return failure.what();
    }
  }

 private:
  cxxopts::ParseResult parse() {
    cxxopts::ParseResult result = m_options->parse(argc(), argv());
    for (const Option& option : m_workload.options)
      if (!option.allowed.empty() && result.count(option.name) != 0 &&
          !option.isAllowed(result[option.name].as<std::string>()))
        throw cxxopts::exceptions::incorrect_argument_type(option.name);
    return result;
  }

  static void add(Answers& answers, const cxxopts::OptionValue& value, Kind kind) {
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

  std::optional<cxxopts::Options> m_options;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Cxxopts>(workload);
}

const char* refusal(Work work, int) {
  if (work == Work::abbreviations || work == Work::ambiguousOption)
    return "it takes no abbreviations";
  return work == Work::optionFile ? "it reads no option files" : nullptr;
}

}  // namespace bench
