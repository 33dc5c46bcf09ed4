#include "process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <system_error>

// The streams of a process are files: unlike pipes they cannot fill up. They are in a separate
// folder, outside of the one in which the process works.

namespace end_to_end {
namespace {

void check(int error, const char* what) {
  if (error != 0)
    throw std::system_error(error, std::generic_category(), what);
}

class FileActions {
 public:
  FileActions() { check(posix_spawn_file_actions_init(&m_actions), "file actions"); }
  ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void open(int descriptor, const std::string& path, int flags) {
    check(posix_spawn_file_actions_addopen(&m_actions, descriptor, path.c_str(), flags, 0600),
          path.c_str());
  }
  void enter(const std::string& folder) {
    check(posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str()), folder.c_str());
  }
  const posix_spawn_file_actions_t* get() const { return &m_actions; }

 private:
  posix_spawn_file_actions_t m_actions;
};

pid_t start(std::vector<std::string> command, const FileActions& actions) {
  std::vector<char*> arguments;
  for (std::string& argument : command)
    arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  pid_t process = 0;
  check(posix_spawnp(&process, arguments[0], actions.get(), nullptr, arguments.data(), environ),
        arguments[0]);
  return process;
}

int waitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) == -1)
    check(errno == EINTR ? 0 : errno, "waitpid");
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

bool operator==(const Outcome& left, const Outcome& right) {
  return left.status == right.status && left.out == right.out && left.err == right.err;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << "exit status " << outcome.status << "\nstandard output:\n"
             << outcome.out << "standard error:\n"
             << outcome.err;
}

TemporaryFolder::TemporaryFolder() {
  m_path = (std::filesystem::temp_directory_path() / "textkit-XXXXXX").string();
  if (mkdtemp(m_path.data()) == nullptr)
    check(errno, m_path.c_str());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

Outcome run(const std::vector<std::string>& command, const std::string& folder,
            const std::string& input) {
  const TemporaryFolder streams;
  const std::string in = streams.path() + "/in";
  const std::string out = streams.path() + "/out";
  const std::string err = streams.path() + "/err";
  writeFile(in, input);

  FileActions actions;
  actions.open(STDIN_FILENO, in, O_RDONLY);
  actions.open(STDOUT_FILENO, out, O_WRONLY | O_CREAT | O_TRUNC);
  actions.open(STDERR_FILENO, err, O_WRONLY | O_CREAT | O_TRUNC);
  actions.enter(folder);
  const int status = waitFor(start(command, actions));
  return {status, readFile(out), readFile(err)};
}

std::vector<std::string> runner() {
  const char* words = std::getenv("TOOL_RUNNER");
  std::istringstream stream(words != nullptr ? words : "");
  return {std::istream_iterator<std::string>(stream), {}};
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file)
    throw std::runtime_error("cannot write " + path);
}

}  // namespace end_to_end
