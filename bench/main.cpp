// The benchmarks of the one peer that is linked. Each benchmark checks the peer's answers before it
// measures the time.
//   bench_PEER [--iterations=N] [OPTION OF GOOGLE BENCHMARK]...

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "heap_use.h"
#include "peer.h"

namespace bench {

namespace {

// One workload and its peer. Both are made once, although Google Benchmark calls a benchmark
// several times.
struct Subject {
  explicit Subject(Workload made) : workload(std::move(made)), peer(makePeer(workload)) {}

  const Workload workload;
  const std::unique_ptr<Peer> peer;
  const std::uint64_t expected = expectedDigest(workload);
  bool isChecked = false;
  heapUse::Counts heap;
};

// On the first call, does `task` once, counts its heap use, and checks the answer with `isRight`.
// Then measures the time of `task`.
template <class Task, class IsRight>
void measure(benchmark::State& state, Subject& subject, Task task, IsRight isRight) {
  if (!subject.isChecked) {
    heapUse::start();
    const auto answer = task();
    subject.heap = heapUse::stop();
    if (!isRight(answer))
      throw std::runtime_error("wrong answers");
    subject.isChecked = true;
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(task());
  state.counters["allocations"] = static_cast<double>(subject.heap.allocations);
  state.counters["peak"] = static_cast<double>(subject.heap.peak);
}

void cycle(benchmark::State& state, Subject& subject) {
  const auto task = [&] {
    subject.peer->declare();
    const std::uint64_t digest = subject.peer->run();
    subject.peer->tearDown();
    return digest;
  };
  measure(state, subject, task, [&](auto digest) { return digest == subject.expected; });
}

void declare(benchmark::State& state, Subject& subject) {
  const auto task = [&] {
    subject.peer->declare();
    subject.peer->tearDown();
    return true;
  };
  measure(state, subject, task, [](bool done) { return done; });
}

// This benchmark and those below use a parser that runOne() has declared.
void parse(benchmark::State& state, Subject& subject) {
  measure(
      state, subject, [&] { return subject.peer->run(); },
      [&](auto digest) { return digest == subject.expected; });
}

void parseFile(benchmark::State& state, Subject& subject) {
  measure(
      state, subject, [&] { return subject.peer->runFile(); },
      [&](auto digest) { return digest == subject.expected; });
}

bool namesAllOptions(const std::string& text, const Workload& workload) {
  return std::all_of(workload.options.begin(), workload.options.end(), [&](const Option& option) {
    return text.find(option.name) != std::string::npos;
  });
}

void help(benchmark::State& state, Subject& subject) {
  measure(
      state, subject, [&] { return subject.peer->help(); },
      [&](const std::string& text) { return namesAllOptions(text, subject.workload); });
}

// Includes the declarations.
void describe(benchmark::State& state, Subject& subject) {
  if (subject.peer->describe().empty()) {
    state.SkipWithError("left out: it does not describe its tools");
    return;
  }
  measure(
      state, subject, [&] { return subject.peer->describe(); },
      [&](const std::string& text) { return namesAllOptions(text, subject.workload); });
}

// The message must quote the wrong part: the text after the last "-" or "=" of the argument.
void error(benchmark::State& state, Subject& subject) {
  const std::string& argument = subject.workload.arguments.front();
  const std::string quoted = argument.substr(argument.find_last_of("-=") + 1);
  measure(
      state, subject, [&] { return subject.peer->error(); },
      [&](const std::string& text) { return text.find(quoted) != std::string::npos; });
}

Workload wrongArgument(const char* argument) {
  Workload workload = typicalTool();
  workload.arguments = {argument};
  return workload;
}

Workload toolOfSize(int size) { return size == 24 ? typicalTool() : manyOptions(size, 0); }

struct Family {
  const char* name;
  Work work;
  std::vector<int> sizes;
  Workload (*make)(int size);
  void (*body)(benchmark::State&, Subject&);
};

const std::vector<int> one = {1};
const std::vector<int> optionCounts = {10, 100, 1000, 10000};
const std::vector<int> argumentCounts = {1000, 10000, 100000, 1000000};
const std::vector<int> toolSizes = {24, 1000};

const Family families[] = {
    {"W1/cycle", Work::cycle, one, [](int) { return typicalTool(); }, cycle},
    {"W1/parse", Work::parse, one, [](int) { return typicalTool(); }, parse},
    {"W2/declare", Work::declare, optionCounts, [](int n) { return manyOptions(n, 0); }, declare},
    {"W2/parse3", Work::manyOptions, optionCounts, [](int n) { return manyOptions(n, 3); }, parse},
    {"W2/parse50", Work::manyOptions, optionCounts, [](int n) { return manyOptions(n, 50); },
     parse},
    {"W3", Work::longCommandLine, argumentCounts, longCommandLine, parse},
    {"W4", Work::optionFile, argumentCounts, longOptionFile, parseFile},
    {"W5", Work::help, toolSizes, toolOfSize, help},
    {"W6/parse3", Work::abbreviations, toolSizes, [](int n) { return abbreviatedNames(n, 3); },
     parse},
    {"W6/parse50", Work::abbreviations, toolSizes, [](int n) { return abbreviatedNames(n, 50); },
     parse},
    {"W7/unknown", Work::unknownOption, one, [](int) { return wrongArgument("--mystery"); }, error},
    {"W7/ambiguous", Work::ambiguousOption, one, [](int) { return wrongArgument("--re"); }, error},
    {"W7/value", Work::badValue, one, [](int) { return wrongArgument("--jobs=many"); }, error},
    {"W8", Work::describe, toolSizes, toolOfSize, describe},
};

// A failure, or the reason why the peer refuses the work, is reported as the error of the
// benchmark.
void runOne(benchmark::State& state, const Family& family, int size,
            std::unique_ptr<Subject>& subject) {
  if (const char* reason = refusal(family.work, size)) {
    state.SkipWithError(("left out: " + std::string(reason)).c_str());
    return;
  }
  try {
    if (subject == nullptr) {
      subject = std::make_unique<Subject>(family.make(size));
      if (family.work != Work::cycle && family.work != Work::declare)
        subject->peer->declare();
    }
    family.body(state, *subject);
  } catch (const std::exception& failure) {
    state.SkipWithError(failure.what());
  }
}

void registerFamily(const Family& family, long iterations) {
  for (const int size : family.sizes) {
    const std::string name = std::string(family.name) + "/" + std::to_string(size);
    const auto subject = std::make_shared<std::unique_ptr<Subject>>();
    auto* registered = benchmark::RegisterBenchmark(
        name.c_str(), [&family, size, subject](benchmark::State& state) {
          runOne(state, family, size, *subject);
        });
    if (iterations > 0)
      registered->Iterations(iterations);
  }
}

// Removes "--iterations=N" from the arguments and returns N, or 0 if there is none. With a given
// number, two runs can differ in the number alone.
long takeIterations(int& argc, char** argv) {
  const std::string ahead = "--iterations=";
  for (int i = 1; i < argc; ++i) {
    if (std::string(argv[i]).compare(0, ahead.size(), ahead) != 0)
      continue;
    const long iterations = std::atol(argv[i] + ahead.size());
    for (--argc; i < argc; ++i)
      argv[i] = argv[i + 1];
    return iterations;
  }
  return 0;
}

// Removes the file when the process ends.
struct OptionFile {
  std::string path = "/tmp/bench-" + std::to_string(getpid()) + ".txt";
  ~OptionFile() { unlink(path.c_str()); }
};

const OptionFile optionFile;

}  // namespace

std::string writeOptionFile(const Workload& workload, const std::string& ahead) {
  std::ofstream file(optionFile.path);
  for (const std::string& line : workload.fileLines)
    file << ahead << line << '\n';
  return optionFile.path;
}

}  // namespace bench

int main(int argc, char** argv) {
  const long iterations = bench::takeIterations(argc, argv);
  for (const bench::Family& family : bench::families)
    bench::registerFamily(family, iterations);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 2;
  benchmark::RunSpecifiedBenchmarks();
}
