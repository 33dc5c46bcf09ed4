#include <kivo/tool.h>

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
  kivo::Tool tool("tool", "Does the work.");
  tool.option("verbose,v", verbose, "Tell what is being done.");
  tool.option("quiet,q", quiet, "Say nothing but errors.");
  tool.option("force,f", force, "Overwrite files that exist.");
  tool.option("jobs,j", jobs, "How many jobs to run at a time.");
  tool.option("level,l", level, "How hard to try.");
  tool.option("retries", retries, "How often to try again.");
  tool.option("ratio", ratio, "How much to take.");
  tool.option("output,o", output, "The file to write.");
  tool.option("name", name, "What to call the result.");
  tool.option("mode", mode, "How to go about it.").choices({"fast", "safe", "exact"});
  if (const auto exit = tool.parse(argc, argv))
    return *exit;
  return (verbose ? 1 : 0) + jobs + level + static_cast<int>(ratio * 4) +
         static_cast<int>(output.size() + mode.size());
}
