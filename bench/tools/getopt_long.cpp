#include <getopt.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv) {
  const option options[] = {
      {"verbose", no_argument, nullptr, 'v'},
      {"quiet", no_argument, nullptr, 'q'},
      {"force", no_argument, nullptr, 'f'},
      {"jobs", required_argument, nullptr, 'j'},
      {"level", required_argument, nullptr, 'l'},
      {"retries", required_argument, nullptr, 'r'},
      {"ratio", required_argument, nullptr, 'R'},
      {"output", required_argument, nullptr, 'o'},
      {"name", required_argument, nullptr, 'n'},
      {"mode", required_argument, nullptr, 'm'},
      {nullptr, 0, nullptr, 0},
  };
  int verbose = 0;
  int jobs = 1;
  int level = 3;
  double ratio = 0.5;
  const char* output = "";
  const char* mode = "safe";
  int value = 0;
  while ((value = getopt_long(argc, argv, "vqfj:l:o:", options, nullptr)) != -1) {
    char* end = optarg;
    switch (value) {
      case 'v':
        verbose = 1;
        continue;
      case 'j':
        jobs = static_cast<int>(std::strtol(optarg, &end, 10));
        break;
      case 'l':
        level = static_cast<int>(std::strtol(optarg, &end, 10));
        break;
      case 'R':
        ratio = std::strtod(optarg, &end);
        break;
      case 'o':
        output = optarg;
        continue;
      case 'm':
        mode = optarg;
        if (std::strcmp(mode, "fast") != 0 && std::strcmp(mode, "safe") != 0 &&
            std::strcmp(mode, "exact") != 0)
          return 1;
        continue;
      case '?':
        return 1;
      default:
        continue;
    }
    if (end == optarg || *end != '\0') {
      std::fprintf(stderr, "invalid value: %s\n", optarg);
      return 1;
    }
  }
  return verbose + jobs + level + static_cast<int>(ratio * 4) +
         static_cast<int>(std::strlen(output) + std::strlen(mode));
}
