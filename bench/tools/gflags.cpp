#include <gflags/gflags.h>

#include <string>

namespace {

bool isMode(const char*, const std::string& text) {
  return text == "fast" || text == "safe" || text == "exact";
}

}  // namespace

DEFINE_bool(verbose, false, "Tell what is being done.");
DEFINE_bool(quiet, false, "Say nothing but errors.");
DEFINE_bool(force, false, "Overwrite files that exist.");
DEFINE_int32(jobs, 1, "How many jobs to run at a time.");
DEFINE_int32(level, 3, "How hard to try.");
DEFINE_int32(retries, 0, "How often to try again.");
DEFINE_double(ratio, 0.5, "How much to take.");
DEFINE_string(output, "", "The file to write.");
DEFINE_string(name, "", "What to call the result.");
DEFINE_string(mode, "safe", "How to go about it.");
DEFINE_validator(mode, &isMode);

int main(int argc, char** argv) {
  gflags::ParseCommandLineFlags(&argc, &argv, true);
  return (FLAGS_verbose ? 1 : 0) + FLAGS_jobs + FLAGS_level + static_cast<int>(FLAGS_ratio * 4) +
         static_cast<int>(FLAGS_output.size() + FLAGS_mode.size());
}
