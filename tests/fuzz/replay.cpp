// Runs a fuzz target without a fuzzer: on the empty input, then on every file of the given folders.
// A target that finds a defect ends the process.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/fuzz.h"

namespace {

void run(const std::string& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

std::vector<std::filesystem::path> filesIn(const char* folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  run("");
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& path : filesIn(argv[i])) {
      std::cout << path.filename().string() << std::endl;  // if it traps, this was the input
      std::ifstream file(path, std::ios::binary);
      run(std::string(std::istreambuf_iterator<char>(file), {}));
      ++count;
    }
  }
  std::cout << count << " inputs" << std::endl;
  return count != 0 ? 0 : 1;
}
