#include <popt.h>

#include <cstdio>
#include <cstring>

int main(int argc, const char** argv) {
  int verbose = 0;
  int quiet = 0;
  int force = 0;
  int jobs = 1;
  int level = 3;
  int retries = 0;
  double ratio = 0.5;
  const char* output = "";
  const char* name = "";
  const char* mode = "safe";
  const poptOption options[] = {
      {"verbose", 'v', POPT_ARG_NONE, &verbose, 0, "Tell what is being done.", nullptr},
      {"quiet", 'q', POPT_ARG_NONE, &quiet, 0, "Say nothing but errors.", nullptr},
      {"force", 'f', POPT_ARG_NONE, &force, 0, "Overwrite files that exist.", nullptr},
      {"jobs", 'j', POPT_ARG_INT, &jobs, 0, "How many jobs to run at a time.", nullptr},
      {"level", 'l', POPT_ARG_INT, &level, 0, "How hard to try.", nullptr},
      {"retries", '\0', POPT_ARG_INT, &retries, 0, "How often to try again.", nullptr},
      {"ratio", '\0', POPT_ARG_DOUBLE, &ratio, 0, "How much to take.", nullptr},
      {"output", 'o', POPT_ARG_STRING, &output, 0, "The file to write.", nullptr},
      {"name", '\0', POPT_ARG_STRING, &name, 0, "What to call the result.", nullptr},
      {"mode", '\0', POPT_ARG_STRING, &mode, 0, "How to go about it.", nullptr},
      POPT_TABLEEND};
  poptContext context = poptGetContext("tool", argc, argv, options, 0);
  const int status = poptGetNextOpt(context);
  const bool isAllowed = std::strcmp(mode, "fast") == 0 || std::strcmp(mode, "safe") == 0 ||
                         std::strcmp(mode, "exact") == 0;
  if (status != -1 || !isAllowed) {
    std::fprintf(stderr, "%s: %s\n", poptBadOption(context, 0), poptStrerror(status));
    return 1;
  }
  poptFreeContext(context);
  return verbose + jobs + level + static_cast<int>(ratio * 4) +
         static_cast<int>(std::strlen(output) + std::strlen(mode));
}
