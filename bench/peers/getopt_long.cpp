// The lower bound: getopt_long() finds the option and its text, and everything else is done by
// hand, as in a tool that uses it. Texts are not copied.

#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "peer.h"

namespace bench {

namespace {

constexpr int firstLongOnly = 256;

class GetoptLong final : public Peer {
 public:
  explicit GetoptLong(const Workload& workload) : Peer(workload) {
    // "-" returns all arguments in their order: to move positional ones to the end takes quadratic
    // time.
    m_letters = "-";
    for (std::size_t i = 0; i < workload.options.size(); ++i)
      add(workload.options[i], i);
    m_table.push_back({nullptr, 0, nullptr, 0});
    if (!workload.fileLines.empty())
      m_file = writeOptionFile(workload, "--");
  }

  void declare() override { m_variables.emplace(m_workload); }
  void tearDown() override { m_variables.reset(); }

  std::uint64_t run() override {
    std::string message;
    if (!parse(argc(), argv(), message))
      throw std::runtime_error(message);
    return m_variables->digest();
  }

  std::uint64_t runFile() override {
    std::string text = load(m_file);
    std::vector<const char*> arguments = {"tool"};
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = text.find('\n', begin);
      text[end] = '\0';
      arguments.push_back(text.data() + begin);
      begin = end + 1;
    }
    const int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    std::string message;
    if (!parse(count, arguments.data(), message))
      throw std::runtime_error(message);
    return m_variables->digest();
  }

  std::string error() override {
    std::string message;
    parse(argc(), argv(), message);
    return message;
  }

 private:
  void add(const Option& option, std::size_t index) {
    if (option.positional) {
      m_positional = index;
      return;
    }
    const int hasValue = option.kind == Kind::flag ? no_argument : required_argument;
    const bool hasLetter = !option.letter.empty();
    const int value = hasLetter ? option.letter[0] : firstLongOnly + static_cast<int>(index);
    m_table.push_back({option.name.c_str(), hasValue, nullptr, value});
    if (hasLetter) {
      m_letters += option.letter + (hasValue == no_argument ? "" : ":");
      m_byLetter[static_cast<unsigned char>(option.letter[0])] = index;
    }
  }

  static std::string load(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY);
    std::string text(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
    const bool complete = pread(file, text.data(), text.size(), 0) == ssize_t(text.size());
    close(file);
    if (!complete)
      throw std::runtime_error("cannot read " + path);
    return text;
  }

  bool parse(int argc, const char* const* argv, std::string& message) {
    m_variables->reset();
    optind = 0;
    opterr = 0;
    char* const* arguments = const_cast<char* const*>(argv);
    for (;;) {
      const int value = getopt_long(argc, arguments, m_letters.c_str(), m_table.data(), nullptr);
      if (value == -1)
        return true;
      if (value == '?')
        return fail("invalid option: ", argv[optind - 1], message);
      if (!store(indexOf(value)))
        return fail("invalid value: ", argv[optind - 1], message);
    }
  }

  std::size_t indexOf(int value) const {
    if (value == 1)
      return m_positional;
    return value < firstLongOnly ? m_byLetter[value] : std::size_t(value - firstLongOnly);
  }

  static bool fail(const char* what, const char* argument, std::string& message) {
    message.append(what).append(argument);
    return false;
  }

  bool store(std::size_t index) {
    const Option& option = m_workload.options[index];
    char* end = optarg;
    switch (option.kind) {
      case Kind::flag:
        m_variables->get<bool>(index) = true;
        return true;
      case Kind::integer:
        m_variables->get<int>(index) = static_cast<int>(std::strtol(optarg, &end, 10));
        break;
      case Kind::integers:
        m_variables->get<std::vector<int>>(index).push_back(
            static_cast<int>(std::strtol(optarg, &end, 10)));
        break;
      case Kind::unsigned64:
        m_variables->get<std::uint64_t>(index) = std::strtoull(optarg, &end, 10);
        break;
      case Kind::real:
        m_variables->get<double>(index) = std::strtod(optarg, &end);
        break;
      case Kind::text:
        m_variables->get<const char*>(index) = optarg;
        return option.isAllowed(optarg);
      case Kind::texts:
        m_variables->get<std::vector<const char*>>(index).push_back(optarg);
        return true;
    }
    return end != optarg && *end == '\0';
  }

  std::string m_letters;
  std::vector<option> m_table;
  std::size_t m_byLetter[firstLongOnly] = {};
  std::size_t m_positional = 0;
  std::optional<Variables<const char*>> m_variables;
  std::string m_file;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<GetoptLong>(workload);
}

const char* refusal(Work work, int) {
  if (work == Work::declare)
    return "its options are a constant table";
  return work == Work::help ? "it writes no help" : nullptr;
}

}  // namespace bench
