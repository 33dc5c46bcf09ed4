// How the time an argument takes grows with the number of arguments, on a command line
// and in a text of arguments: each size as a ratio to the smallest of the same run.

#include <benchmark/benchmark.h>
#include <kivo/kivo.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int smallest = 1000;
constexpr int largest = 1000000;

kivo::ParserHandle makeTool() {
  kivo::ParserHandle parser = kivo::makeParser(kivo::parserFlags::unknownArgumentIsError);
  for (const char* name : {"alpha,a", "beta,b", "gamma,c", "delta,d", "epsilon,e"})
    parser->option(name, "", kivo::vtString);
  parser->option("text,t", "", kivo::vtString);
  parser->option("number,n", "", kivo::vtS32);
  parser->option("verbose,v", "", kivo::vtBool);
  parser->option("file", "", kivo::vtString)->positional();
  return parser;
}

// Mostly a string with "=", and the other forms an argument can have among them.
std::vector<std::string> makeArguments(int count) {
  std::vector<std::string> arguments;
  while (static_cast<int>(arguments.size()) < count) {
    const std::string number = std::to_string(arguments.size());
    switch (arguments.size() % 20) {
      case 5:
        arguments.push_back("--number=" + number);
        break;
      case 10:
        arguments.push_back("--verb");
        break;
      case 15:
        arguments.push_back("file" + number);
        break;
      default:
        arguments.push_back("--text=value" + number);
    }
  }
  return arguments;
}

void check(benchmark::State& state, int status, kivo::IParseResult& result) {
  if (status != kivo::status::success || !result.present("text"))
    state.SkipWithError("the parse failed");
}

void commandLine(benchmark::State& state) {
  const kivo::ParserHandle parser = makeTool();
  const std::vector<std::string> arguments = makeArguments(static_cast<int>(state.range(0)));
  std::vector<const char*> argv = {"growth"};
  for (const std::string& argument : arguments)
    argv.push_back(argument.c_str());
  for (auto _ : state) {
    const kivo::ResultHandle result = kivo::makeResult(*parser);
    const int argc = static_cast<int>(argv.size());
    check(state, parser->parseArgsVector(argc, argv.data(), result.get()), *result);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void stream(benchmark::State& state) {
  const kivo::ParserHandle parser = makeTool();
  std::string text;
  for (const std::string& argument : makeArguments(static_cast<int>(state.range(0))))
    text += argument + '\n';
  for (auto _ : state) {
    const kivo::ResultHandle result = kivo::makeResult(*parser);
    check(state, parser->parseStream(text.c_str(), result.get()), *result);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(commandLine)->RangeMultiplier(10)->Range(smallest, largest);
BENCHMARK(stream)->RangeMultiplier(10)->Range(smallest, largest);

// Prints each run beside the first of its family.
class RatioReporter final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::printf("%-24s %14s %8s\n", "", "ns/argument", "ratio");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        std::printf("%-24s %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        continue;
      }
      const double time = 1e9 / run.counters.at("items_per_second");
      const double first = m_first.emplace(run.run_name.function_name, time).first->second;
      std::printf("%-24s %14.1f %8.2f\n", run.benchmark_name().c_str(), time, time / first);
    }
  }

 private:
  std::map<std::string, double> m_first;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
