#include "workload.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace bench {

namespace {

using Texts = std::vector<std::string>;

std::vector<Option> spelled(std::vector<Option> options) {
  for (Option& option : options) {
    const bool hasLetter = !option.letter.empty();
    option.nameAndLetter = option.name + (hasLetter ? "," + option.letter : "");
    option.letterAndName = (hasLetter ? option.letter + "," : "") + option.name;
    option.dashed = (hasLetter ? "-" + option.letter + "," : "") + "--" + option.name;
  }
  return options;
}

std::vector<Option> typicalOptions() {
  return {
      {"verbose", "v", Kind::flag, "Tell what is being done, step by step."},
      {"quiet", "q", Kind::flag, "Say nothing but errors."},
      {"debug", "d", Kind::flag, "Write what only the makers of the tool understand."},
      {"force", "f", Kind::flag, "Overwrite files that exist."},
      {"recursive", "", Kind::flag, "Walk through the folders below as well."},
      {"simulate", "", Kind::flag, "Show what would be done, and do nothing."},
      {"color", "", Kind::flag, "Write messages in color."},
      {"progress", "", Kind::flag, "Show how far the work is."},
      {"jobs", "j", Kind::integer, "How many jobs to run at a time.", "1"},
      {"level", "l", Kind::integer, "How hard to try to make the result smaller.", "3"},
      {"port", "p", Kind::integer, "The port to listen at.", "8080"},
      {"retries", "", Kind::integer, "How often to try again."},
      {"width", "", Kind::integer, "How wide the picture is, in points."},
      {"height", "", Kind::integer, "How high the picture is, in points."},
      {"seed", "s", Kind::unsigned64, "Where the random numbers begin."},
      {"limit", "", Kind::unsigned64, "The largest size of a file, in bytes."},
      {"timeout", "t", Kind::real, "How many seconds to wait for an answer."},
      {"ratio", "", Kind::real, "How much of the material to take.", "0.5"},
      {"output", "o", Kind::text, "The file to write."},
      {"input", "i", Kind::text, "The file to read."},
      {"name", "n", Kind::text, "What to call the result."},
      {"mode", "", Kind::text, "How to go about it.", "safe", {"fast", "safe", "exact"}},
      {"format", "", Kind::text, "How to write it.", "plain", {"plain", "json", "xml"}},
      {"log", "", Kind::text, "What to write down.", "", {"nothing", "errors", "all"}},
  };
}

std::size_t indexOf(const Workload& workload, std::string_view name) {
  const auto& options = workload.options;
  const auto place = std::find_if(options.begin(), options.end(),
                                  [&](const Option& option) { return option.name == name; });
  return static_cast<std::size_t>(place - options.begin());
}

// The names differ only in their first three letters.
std::string generatedName(int number) {
  const auto letter = [&](int place) { return static_cast<char>('a' + number / place % 26); };
  return std::string{letter(676), letter(26), letter(1)} + "setting";
}

constexpr Kind generatedKinds[] = {Kind::flag, Kind::integer, Kind::text, Kind::real};

// Declares `options` options, whose kinds take turns. Gives `count` of them, or all, spread over
// the table, each with the first `letters` letters of its name.
Workload generated(int options, int count, std::size_t letters) {
  Workload workload;
  for (int i = 0; i < options; ++i)
    workload.options.push_back({generatedName(i), "", generatedKinds[i % 4],
                                "Sets the value of number " + std::to_string(i) + "."});
  workload.options = spelled(std::move(workload.options));

  constexpr int stride = 7919;  // a prime, so that no option is given twice
  for (int i = 0; i < std::min(count, options); ++i) {
    const auto index = static_cast<std::size_t>((i * stride + options / 2) % options);
    const Option& option = workload.options[index];
    const std::string value = option.kind == Kind::flag ? "1" : std::to_string(index);
    const std::string typed = "--" + option.name.substr(0, letters);
    workload.arguments.push_back(option.kind == Kind::flag ? typed : typed + "=" + value);
    workload.reads.push_back({index, {value}});
  }
  return workload;
}

// The typical tool, with options that take lists, for long command lines and option files.
Workload listingTool() {
  Workload workload;
  workload.options = typicalOptions();
  Option& texts = workload.options[indexOf(workload, "name")];
  texts.kind = Kind::texts;
  texts.letter = "";
  workload.options[indexOf(workload, "retries")].kind = Kind::integers;
  workload.options.push_back({"file", "", Kind::texts, "A file to work on.", "", {}, true});
  workload.options = spelled(std::move(workload.options));
  return workload;
}

void addExpected(Answers& answers, Kind kind, const std::string& text) {
  if (kind == Kind::flag)
    answers.add(text == "1");
  else if (kind == Kind::integer || kind == Kind::integers)
    answers.add(std::atoi(text.c_str()));
  else if (kind == Kind::unsigned64)
    answers.add(std::uint64_t(std::strtoull(text.c_str(), nullptr, 10)));
  else if (kind == Kind::real)
    answers.add(std::atof(text.c_str()));
  else
    answers.add(text);
}

}  // namespace

bool Option::isAllowed(std::string_view value) const {
  return allowed.empty() || std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

Workload typicalTool() {
  Workload workload;
  workload.options = spelled(typicalOptions());
  workload.arguments = {"--verbose",
                        "--jobs=8",
                        "-o",
                        "result.txt",
                        "-d",
                        "--mode=fast",
                        "--limit=4000000000000",
                        "--ratio=0.75",
                        "--format",
                        "json",
                        "-l",
                        "42"};
  const std::pair<const char*, const char*> expected[] = {{"verbose", "1"},
                                                          {"quiet", "0"},
                                                          {"debug", "1"},
                                                          {"jobs", "8"},
                                                          {"level", "42"},
                                                          {"port", "8080"},
                                                          {"limit", "4000000000000"},
                                                          {"ratio", "0.75"},
                                                          {"output", "result.txt"},
                                                          {"mode", "fast"}};
  for (const auto& [name, value] : expected)
    workload.reads.push_back({indexOf(workload, name), {value}});
  return workload;
}

Workload manyOptions(int options, int arguments) {
  return generated(options, arguments, std::string::npos);
}

Workload abbreviatedNames(int options, int arguments) { return generated(options, arguments, 4); }

// The arguments are mostly one string option with "=", every tenth an integer option, and every
// twentieth a positional argument.
Workload longCommandLine(int arguments) {
  Workload workload = listingTool();
  Read texts{indexOf(workload, "name"), {}};
  Read integers{indexOf(workload, "retries"), {}};
  Read files{indexOf(workload, "file"), {}};
  for (int i = 0; i < arguments; ++i) {
    const std::string number = std::to_string(i);
    Read& read = i % 20 == 19 ? files : i % 10 == 0 ? integers : texts;
    read.expected.push_back(&read == &integers ? number : "value" + number);
    const std::string ahead =
        &read == &files ? "" : "--" + workload.options[read.option].name + "=";
    workload.arguments.push_back(ahead + read.expected.back());
  }
  workload.reads = {std::move(texts), std::move(integers), std::move(files)};
  return workload;
}

// One option only: not every peer collects the values of an option that are scattered over a file.
Workload longOptionFile(int lines) {
  Workload workload = listingTool();
  Read texts{indexOf(workload, "name"), {}};
  for (int i = 0; i < lines; ++i) {
    texts.expected.push_back("value" + std::to_string(i));
    workload.fileLines.push_back("name=" + texts.expected.back());
  }
  workload.reads = {std::move(texts)};
  return workload;
}

std::uint64_t expectedDigest(const Workload& workload) {
  Answers answers;
  for (const Read& read : workload.reads)
    for (const std::string& text : read.expected)
      addExpected(answers, workload.options[read.option].kind, text);
  return answers.digest();
}

}  // namespace bench
