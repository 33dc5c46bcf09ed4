#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace kivo_3_3::testing {

// A folder for the files of one test, removed together with this object.
class TemporaryFolder {
 public:
  TemporaryFolder() : m_path((std::filesystem::temp_directory_path() / "kivo-XXXXXX").string()) {
    if (mkdtemp(m_path.data()) == nullptr)
      throw std::runtime_error("no temporary folder");
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  const std::string& path() const { return m_path; }
  std::string path(const std::string& name) const { return m_path + "/" + name; }

  // Writes a file and returns its path.
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }

 private:
  std::string m_path;
};

}  // namespace kivo_3_3::testing
