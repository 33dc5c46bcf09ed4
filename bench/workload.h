#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What is measured, whatever the peer: the options that a tool declares, the arguments that it is
// given, and the values that it reads. All peers use the same tables.

namespace bench {

// The kinds of options, in the order of the alternatives of Variables::Variable.
enum class Kind { flag, integer, unsigned64, real, text, integers, texts };

struct Option {
  std::string name;
  std::string letter;  // empty for an option without a short name
  Kind kind = Kind::text;
  std::string description;
  std::string fallback = {};  // the default as a text, empty for none
  std::vector<std::string> allowed = {};
  bool positional = false;

  // The names in the spelling of each peer. They are literals in a tool, so no peer should spend
  // time on composing them.
  std::string nameAndLetter = {};  // "jobs,j"
  std::string letterAndName = {};  // "j,jobs"
  std::string dashed = {};         // "-j,--jobs"

  bool isAllowed(std::string_view value) const;
};

// One option to read, and the texts of the values that it must have.
struct Read {
  std::size_t option;
  std::vector<std::string> expected;
};

struct Workload {
  std::vector<Option> options;
  std::vector<std::string> arguments;
  std::vector<Read> reads;
  std::vector<std::string> fileLines = {};  // "name=value", for the peers that read option files
};

Workload typicalTool();
Workload manyOptions(int options, int arguments);
Workload abbreviatedNames(int options, int arguments);
Workload longCommandLine(int arguments);
Workload longOptionFile(int lines);

// Hashes all values that were read into one number, at almost no cost.
class Answers {
 public:
  void add(bool value) { mix(value ? 1 : 2); }
  void add(int value) { mix(static_cast<std::uint64_t>(value)); }
  void add(std::uint64_t value) { mix(value); }
  void add(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    mix(bits);
  }
  void add(const char* text) { add(std::string_view(text)); }
  void add(const std::string& text) { add(std::string_view(text)); }
  void add(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); at += sizeof(std::uint64_t)) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, text.data() + at, std::min(sizeof bits, text.size() - at));
      mix(bits);
    }
    mix(text.size());
  }
  template <class T>
  void add(const std::vector<T>& values) {
    for (const T& value : values)
      add(value);
  }

  std::uint64_t digest() const { return m_digest; }

 private:
  void mix(std::uint64_t value) {
    m_digest = (m_digest ^ value) * 0x9E3779B97F4A7C15;
    m_digest ^= m_digest >> 32;
  }

  std::uint64_t m_digest = 1;
};

std::uint64_t expectedDigest(const Workload& workload);

// The variables of a tool, one for each option. For peers that store values into variables, or that
// leave storing to the tool.
template <class Text>
class Variables {
 public:
  using Variable =
      std::variant<bool, int, std::uint64_t, double, Text, std::vector<int>, std::vector<Text>>;

  explicit Variables(const Workload& workload) : m_workload(workload) {
    m_variables.reserve(workload.options.size());
    for (const Option& option : workload.options)
      m_variables.push_back(fresh(option));
  }

  // Resets the variables that a run reads to their defaults.
  void reset() {
    for (const Read& read : m_workload.reads)
      m_variables[read.option] = fresh(m_workload.options[read.option]);
  }

  template <class T>
  T& get(std::size_t option) {
    return *std::get_if<T>(&m_variables[option]);
  }

  std::uint64_t digest() const {
    Answers answers;
    for (const Read& read : m_workload.reads)
      std::visit([&](const auto& value) { answers.add(value); }, m_variables[read.option]);
    return answers.digest();
  }

 private:
  static Variable fresh(const Option& option) {
    const char* fallback = option.fallback.c_str();
    switch (option.kind) {
      case Kind::flag:
        return false;
      case Kind::integer:
        return std::atoi(fallback);
      case Kind::unsigned64:
        return std::uint64_t(std::strtoull(fallback, nullptr, 10));
      case Kind::real:
        return std::atof(fallback);
      case Kind::text:
        return Text(fallback);
      case Kind::integers:
        return std::vector<int>();
      case Kind::texts:
        return std::vector<Text>();
    }
    return false;
  }

  const Workload& m_workload;
  std::vector<Variable> m_variables;
};

}  // namespace bench
