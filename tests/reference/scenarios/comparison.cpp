#include "reference/scenarios/comparison.h"

#include <algorithm>
#include <vector>

#include "fuzz/script.h"
#include "reference/scenarios/scenario.h"
#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

constexpr std::size_t linesBefore = 6;
constexpr std::size_t linesAfter = 3;
constexpr int mostAttempts = 3000;

using Lines = std::vector<string>;

string transcriptOf(const Scenario& scenario, const World& world) {
  return Scene(world, scenario).run();
}

string excerpt(const Lines& lines, std::size_t at) {
  string text;
  const std::size_t end = std::min(at + linesAfter, lines.size());
  for (std::size_t i = at - std::min(at, linesBefore); i < end; ++i)
    text += (i == at ? "* " : "  ") + lines[i] + "\n";
  return text;
}

string joined(const Lines& lines) {
  string text;
  for (const string& line : lines)
    text += line + "\n";
  return text;
}

// Greedy: every line and field is dropped if the rest is still wanted.
class Minimizer {
 public:
  Minimizer(const string& scenario, const std::function<bool(const string&)>& isWanted)
      : m_lines(fuzzing::linesOf(scenario)), m_isWanted(isWanted) {}

  string run() {
    for (std::size_t count = (m_lines.size() + 1) / 2; count > 1; count /= 2)
      leaveOutLines(count);
    while (leaveOutLines(1) || leaveOutFields()) {
    }
    return joined(m_lines);
  }

 private:
  bool isWanted(const Lines& lines) {
    return m_attempts++ < mostAttempts && m_isWanted(joined(lines));
  }

  // Drops runs of `count` lines, the last first, because later steps depend on earlier ones.
  bool leaveOutLines(std::size_t count) {
    bool isShorter = false;
    for (std::size_t end = m_lines.size(); end > 0;) {
      const std::size_t begin = end - std::min(end, count);
      Lines fewer = m_lines;
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(begin),
                  fewer.begin() + static_cast<std::ptrdiff_t>(end));
      end = begin;
      if (isWanted(fewer)) {
        m_lines = fewer;
        isShorter = true;
      }
    }
    return isShorter;
  }

  // Drops single fields, the last of each line first.
  bool leaveOutFields() {
    bool isShorter = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
      std::size_t end = m_lines[i].size();
      while (end != 0) {
        const std::size_t bar = m_lines[i].find_last_of("| ", end - 1);
        if (bar == string::npos)
          break;
        Lines shorter = m_lines;
        shorter[i].erase(bar, end - bar);
        end = bar;
        if (isWanted(shorter)) {
          m_lines = shorter;
          isShorter = true;
        }
      }
    }
    return isShorter;
  }

  Lines m_lines;
  const std::function<bool(const string&)>& m_isWanted;
  int m_attempts = 0;
};

}  // namespace

string transcriptOf(const string& scenario, const World& world) {
  return transcriptOf(Scenario(scenario), world);
}

std::optional<string> difference(const string& expected, const string& actual) {
  if (expected == actual)
    return std::nullopt;
  const Lines left = fuzzing::linesOf(expected);
  const Lines right = fuzzing::linesOf(actual);
  const auto [apart, ignored] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  const auto at = static_cast<std::size_t>(apart - left.begin());
  return "expected:\n" + excerpt(left, at) + "actual:\n" + excerpt(right, at);
}

std::optional<string> differenceIn(const string& scenario) {
  const Scenario read(scenario);
  return difference(transcriptOf(read, referenceWorld()), transcriptOf(read, libraryWorld()));
}

string minimized(const string& scenario, const std::function<bool(const string&)>& isWanted) {
  return Minimizer(scenario, isWanted).run();
}

}  // namespace kivo_3_3::scenarios
