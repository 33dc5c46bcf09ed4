#include "exit_statuses.h"

#include <algorithm>
#include <map>
#include <utility>

#include "text.h"

// If an order of texts were used for the numbers, 10 would stand before 2.

namespace kivo_describe {
namespace {

// Numbers of any length, shorter ones first.
struct ByNumber {
  bool operator()(const std::string& left, const std::string& right) const {
    return std::make_pair(left.size(), left) < std::make_pair(right.size(), right);
  }
};

ExitStatus split(const std::string& line) {
  const std::size_t end = std::min(line.find_first_not_of("0123456789"), line.size());
  if (end == 0 || (end < line.size() && line[end] != ' '))
    return {"", line};
  const std::size_t firstDigit = std::min(line.find_first_not_of('0'), end - 1);
  return {line.substr(firstDigit, end - firstDigit), line.substr(std::min(end + 1, line.size()))};
}

}  // namespace

std::vector<ExitStatus> exitStatuses(const Texts& added) {
  std::map<std::string, std::string, ByNumber> byNumber = {
      {"0", "The tool did what it was asked to do."},
      {"1", "A value was refused."},
      {"2",
       "An option is unknown or ambiguous, a value is missing, not expected or not valid, or "
       "actions and options do not go together."},
      {"3", "The arguments could not be read for lack of memory."},
      {"4", "The arguments could not be read because of a failure in the tool."},
      {"6", "An option file cannot be read, or leads back to itself."}};
  std::vector<ExitStatus> withoutNumber;
  for (const std::string& text : added) {
    const ExitStatus status = split(squeezed(text));
    if (status.number.empty())
      withoutNumber.push_back(status);
    else
      byNumber[status.number] = status.meaning;
  }

  std::vector<ExitStatus> all;
  all.reserve(byNumber.size() + withoutNumber.size());
  for (const auto& [number, meaning] : byNumber)
    all.push_back({number, meaning});
  all.insert(all.end(), withoutNumber.begin(), withoutNumber.end());
  return all;
}

}  // namespace kivo_describe
