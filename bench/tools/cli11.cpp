#include <CLI/CLI.hpp>
#include <string>

int main(int argc, char** argv) {
  bool verbose = false;
  bool quiet = false;
  bool force = false;
  int jobs = 1;
  int level = 3;
  int retries = 0;
  double ratio = 0.5;
  std::string output;
  std::string name;
  std::string mode = "safe";
  CLI::App app;
  app.add_flag("-v,--verbose", verbose, "Tell what is being done.");
  app.add_flag("-q,--quiet", quiet, "Say nothing but errors.");
  app.add_flag("-f,--force", force, "Overwrite files that exist.");
  app.add_option("-j,--jobs", jobs, "How many jobs to run at a time.")->capture_default_str();
  app.add_option("-l,--level", level, "How hard to try.")->capture_default_str();
  app.add_option("--retries", retries, "How often to try again.");
  app.add_option("--ratio", ratio, "How much to take.")->capture_default_str();
  app.add_option("-o,--output", output, "The file to write.");
  app.add_option("--name", name, "What to call the result.");
  app.add_option("--mode", mode, "How to go about it.")
      ->check(CLI::IsMember({"fast", "safe", "exact"}))
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  return (verbose ? 1 : 0) + jobs + level + static_cast<int>(ratio * 4) +
         static_cast<int>(output.size() + mode.size());
}
