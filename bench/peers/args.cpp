#include <args.hxx>
#include <optional>
#include <sstream>

#include "peer.h"

namespace bench {

namespace {

using Names = std::unordered_map<std::string, std::string>;

// An array of variants takes one allocation for the flags of all options. In a tool they would be
// local variables.
using Slot =
    std::variant<std::monostate, args::Flag, args::ValueFlag<int>, args::ValueFlag<std::uint64_t>,
                 args::ValueFlag<double>, args::ValueFlag<std::string>,
                 args::MapFlag<std::string, std::string>, args::ValueFlagList<int>,
                 args::ValueFlagList<std::string>, args::PositionalList<std::string>>;

args::Matcher matcherOf(const Option& option) {
  if (option.letter.empty())
    return args::Matcher({args::EitherFlag(option.name.c_str())});
  return args::Matcher({args::EitherFlag(option.letter[0]), args::EitherFlag(option.name.c_str())});
}

Names namesOf(const std::vector<std::string>& allowed) {
  Names names;
  for (const std::string& text : allowed)
    names.emplace(text, text);
  return names;
}

struct Tool {
  explicit Tool(const std::vector<Option>& options)
      : parser("tool"), slots(std::make_unique<Slot[]>(options.size())) {
    for (std::size_t i = 0; i < options.size(); ++i)
      add(options[i], slots[i]);
  }

  Tool(const Tool&) = delete;
  Tool& operator=(const Tool&) = delete;

  void add(const Option& option, Slot& slot) {
    switch (option.kind) {
      case Kind::flag:
        return make<args::Flag>(option, slot);
      case Kind::integer:
        return make<args::ValueFlag<int>>(option, slot, std::atoi(option.fallback.c_str()));
      case Kind::unsigned64:
        return make<args::ValueFlag<std::uint64_t>>(option, slot);
      case Kind::real:
        return make<args::ValueFlag<double>>(option, slot, std::atof(option.fallback.c_str()));
      case Kind::text:
        if (option.allowed.empty())
          return make<args::ValueFlag<std::string>>(option, slot, option.fallback.c_str());
        return make<args::MapFlag<std::string, std::string>>(option, slot, namesOf(option.allowed),
                                                             option.fallback.c_str());
      case Kind::integers:
        return make<args::ValueFlagList<int>>(option, slot);
      case Kind::texts:
        if (!option.positional)
          return make<args::ValueFlagList<std::string>>(option, slot);
        slot.emplace<args::PositionalList<std::string>>(parser, option.name.c_str(),
                                                        option.description.c_str());
    }
  }

  template <class T, class... Rest>
  void make(const Option& option, Slot& slot, Rest&&... rest) {
    slot.emplace<T>(parser, option.name.c_str(), option.description.c_str(), matcherOf(option),
                    std::forward<Rest>(rest)...);
  }

  args::ArgumentParser parser;
  std::unique_ptr<Slot[]> slots;
};

class Args final : public Peer {
 public:
  using Peer::Peer;

  void declare() override { m_tool.emplace(m_workload.options); }
  void tearDown() override { m_tool.reset(); }

  std::uint64_t run() override {
    m_tool->parser.ParseCLI(argc(), argv());
    Answers answers;
    for (const Read& read : m_workload.reads)
      std::visit([&](auto& slot) { add(answers, slot); }, m_tool->slots[read.option]);
    return answers.digest();
  }

  std::string help() override {
    std::ostringstream text;
    m_tool->parser.Help(text);
    return text.str();
  }

  std::string error() override {
    try {
      m_tool->parser.ParseCLI(argc(), argv());
      return {};
    } catch (const args::Error& failure) {
      return failure.what();
    }
  }

 private:
  template <class T>
  static void add(Answers& answers, T& slot) {
    if constexpr (!std::is_same_v<T, std::monostate>)
      answers.add(args::get(slot));
  }

  std::optional<Tool> m_tool;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Args>(workload);
}

const char* refusal(Work work, int) {
  if (work == Work::abbreviations || work == Work::ambiguousOption)
    return "it takes no abbreviations";
  return work == Work::optionFile ? "it reads no option files" : nullptr;
}

}  // namespace bench
