#include "bedrock/pages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <sstream>
#include <string>

namespace kivo_3_3::testing {
namespace {

using std::string;

struct Freed {
  void operator()(char* memory) const { ::operator delete(memory); }
};

std::unique_ptr<char, Freed> allocated(std::size_t bytes) {
  return std::unique_ptr<char, Freed>(static_cast<char*>(BEDROCK::allocateInLargePages(bytes)));
}

// The flags of the mapping that contains this address, as the system lists them: "rd wr mr mw me ac
// hg". "hg" means that large pages were requested.
string flagsOf(const char* address) {
  std::ifstream mappings("/proc/self/smaps");
  const auto wanted = reinterpret_cast<std::uintptr_t>(address);
  bool isMeant = false;
  for (string line; std::getline(mappings, line);) {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    char dash = 0;
    std::istringstream range(line);
    if (range >> std::hex >> begin >> dash >> end && dash == '-')
      isMeant = begin <= wanted && wanted < end;
    if (isMeant && line.rfind("VmFlags: ", 0) == 0)
      return line.substr(std::strlen("VmFlags: "));
  }
  return "";
}

bool areAdvised(std::size_t bytes) {
  const auto memory = allocated(bytes);
  std::memset(memory.get(), 1, bytes);
  return flagsOf(memory.get() + bytes / 2).find("hg") != string::npos;
}

constexpr std::size_t megabyte = std::size_t{1} << 20;

TEST(LargePages, AreRequestedFromFourMegabytesOn) {
  if (!std::filesystem::exists("/sys/kernel/mm/transparent_hugepage/enabled"))
    GTEST_SKIP() << "The system has no large pages.";
  EXPECT_TRUE(areAdvised(4 * megabyte));
  EXPECT_TRUE(areAdvised(31 * megabyte));
}

TEST(LargePages, AreNotRequestedBelowFourMegabytes) {
  EXPECT_FALSE(areAdvised(4 * megabyte - 1));
  EXPECT_FALSE(areAdvised(1));
}

}  // namespace
}  // namespace kivo_3_3::testing
