#include "reference/scenarios/scratch_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <vector>

namespace kivo_3_3::scenarios::ScratchFolder {

using std::string;

namespace {

class Place {
 public:
  Place() {
    const bool hasMemory = access("/dev/shm", W_OK) == 0;
    m_path = hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path().string();
    m_path += "/kivo-scenarios-XXXXXX";
    if (mkdtemp(m_path.data()) == nullptr)
      throw std::runtime_error("no temporary folder");
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;
  ~Place() { rmdir(m_path.c_str()); }

  const string& path() const { return m_path; }

 private:
  string m_path;
};

// The names of the files and folders in the scratch folder.
std::vector<string>& inside() {
  static std::vector<string> names;
  return names;
}

bool isInside(const string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == string::npos;
}

string withZeroBytes(string text) {
  static const string mark = "<zero>";
  for (std::size_t at = text.find(mark); at != string::npos; at = text.find(mark, at))
    text.replace(at, mark.size(), 1, '\0');
  return text;
}

void enter(int result) {
  if (result != 0)
    throw std::runtime_error("a folder cannot be entered");
}

}  // namespace

Visit::Visit() : m_before(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  static const Place place;
  enter(chdir(place.path().c_str()));
}

Visit::~Visit() {
  for (const string& name : inside())
    std::remove(name.c_str());
  inside().clear();
  [[maybe_unused]] const int entered = fchdir(m_before);
  close(m_before);
}

void write(const string& name, const string& text) {
  if (!isInside(name))
    return;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "wb"),
                                                             std::fclose);
  if (file == nullptr)
    return;
  const string bytes = withZeroBytes(text);
  std::fwrite(bytes.data(), 1, bytes.size(), file.get());
  inside().push_back(name);
}

void makeFolder(const string& name) {
  if (isInside(name) && mkdir(name.c_str(), S_IRWXU) == 0)
    inside().push_back(name);
}

}  // namespace kivo_3_3::scenarios::ScratchFolder
