// Reads option files. A mistake here loses arguments of the user, or reads a file that includes
// itself again and again.

#include "bedrock/file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "bedrock/pages.h"

namespace BEDROCK {

namespace {

// The number of bytes that a regular file occupies on the disk, at most its size: a sparse file
// may claim a far larger size. 0 for any other file, because its size is unknown.
std::size_t storedSize(std::FILE* file) {
  constexpr off_t blockSize = 512;  // the unit of st_blocks
  struct stat status = {};
  if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode))
    return 0;
  return static_cast<std::size_t>(std::min(status.st_size, status.st_blocks * blockSize));
}

}  // namespace

int load_file(const char* name, std::string& text) {
  // fopen() opens a directory too; fread() then fails.
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name, "rb"), std::fclose);
  if (file == nullptr)
    return 1;
  std::string read;
  char buffer[16 * 1024];
  for (bool isEnded = false; !isEnded;) {
    const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get());
    const std::size_t length = strnlen(buffer, count);
    isEnded = length < sizeof buffer;
    if (!isEnded && read.empty()) {
      read.reserve(storedSize(file.get()));
      askForLargePages(read.data(), read.capacity());
    }
    read.append(buffer, length);
  }
  if (std::ferror(file.get()) != 0)
    return 1;
  text = std::move(read);
  return 0;
}

std::string file_identity(const char* name) {
  struct stat status = {};
  if (stat(name, &status) != 0)
    return name;
  return std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino);
}

}  // namespace BEDROCK
