#include "bedrock/file.h"

#include <sys/stat.h>

#include <cstdio>
#include <memory>

namespace BEDROCK {

int load_file(const char* name, std::string& text) {
  // Opening a directory succeeds here; reading from it then fails.
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name, "rb"), std::fclose);
  if (file == nullptr)
    return 1;
  std::string read;
  struct stat status = {};
  if (fstat(fileno(file.get()), &status) == 0 && S_ISREG(status.st_mode))
    read.reserve(static_cast<std::size_t>(status.st_size));
  char buffer[16 * 1024];
  while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
    read.append(buffer, count);
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
