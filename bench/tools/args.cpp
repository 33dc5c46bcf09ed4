#include <args.hxx>
#include <cstdio>
#include <string>
#include <unordered_map>

int main(int argc, const char* const* argv) {
  const std::unordered_map<std::string, std::string> modes = {
      {"fast", "fast"}, {"safe", "safe"}, {"exact", "exact"}};
  args::ArgumentParser parser("tool");
  args::Flag verbose(parser, "verbose", "Tell what is being done.", {'v', "verbose"});
  args::Flag quiet(parser, "quiet", "Say nothing but errors.", {'q', "quiet"});
  args::Flag force(parser, "force", "Overwrite files that exist.", {'f', "force"});
  args::ValueFlag<int> jobs(parser, "jobs", "How many jobs to run at a time.", {'j', "jobs"}, 1);
  args::ValueFlag<int> level(parser, "level", "How hard to try.", {'l', "level"}, 3);
  args::ValueFlag<int> retries(parser, "retries", "How often to try again.", {"retries"});
  args::ValueFlag<double> ratio(parser, "ratio", "How much to take.", {"ratio"}, 0.5);
  args::ValueFlag<std::string> output(parser, "output", "The file to write.", {'o', "output"});
  args::ValueFlag<std::string> name(parser, "name", "What to call the result.", {"name"});
  args::MapFlag<std::string, std::string> mode(parser, "mode", "How to go about it.", {"mode"},
                                               modes, "safe");
  try {
    parser.ParseCLI(argc, argv);
  } catch (const args::Error& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
  return (args::get(verbose) ? 1 : 0) + args::get(jobs) + args::get(level) +
         static_cast<int>(args::get(ratio) * 4) +
         static_cast<int>(args::get(output).size() + args::get(mode).size());
}
