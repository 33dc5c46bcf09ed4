#include "textkit_fixture.h"

#include <cstdlib>
#include <filesystem>

namespace end_to_end {
Textkit::Textkit() { setenv("LC_ALL", "C", 1); }

Outcome Textkit::textkit(const Arguments& arguments, const std::string& input) const {
  Arguments command = runner();
  command.push_back(TEXTKIT_PATH);
  command.insert(command.end(), arguments.begin(), arguments.end());
  return tool(command, input);
}

Outcome Textkit::tool(const Arguments& command, const std::string& input) const {
  return run(command, m_folder.path(), input);
}

Outcome Textkit::textkitAfter(const std::string& first, const Arguments& arguments) const {
  Arguments command = {"sh", "-c", first + "; exec \"$@\"", "sh"};
  const Arguments runner = end_to_end::runner();
  command.insert(command.end(), runner.begin(), runner.end());
  command.emplace_back(TEXTKIT_PATH);
  command.insert(command.end(), arguments.begin(), arguments.end());
  return tool(command, "text\n");
}

void Textkit::write(const std::string& name, const std::string& text) const {
  writeFile(m_folder.path() + "/" + name, text);
}

void Textkit::makeFolder(const std::string& name) const {
  std::filesystem::create_directory(m_folder.path() + "/" + name);
}

Outcome prints(const std::string& out) { return {0, out, ""}; }

Outcome fails(int status, const std::string& message) {
  return {status, "", "textkit: " + message + "\n"};
}

}  // namespace end_to_end
