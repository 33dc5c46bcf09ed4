// Option files that name each other, themselves, or files that do not exist. Compares the library
// with a plain reader, which parses one list of arguments after the other.
//
// Lines before the first file are the command line. Slashes are replaced by full stops, so that no
// name leads out of the folder.
//   file NAME (its lines follow)   link NAME|TARGET   folder NAME   flags NUMBER

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include "fuzz/naive_tokens.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "support/console_capture.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;
namespace fs = std::filesystem;

constexpr std::size_t mostFilesRead = 200;

// A folder with the files of one input. It is the working directory for the lifetime of this
// object.
class Files {
 public:
  explicit Files(const string& text) : m_before(fs::current_path()) {
    fs::current_path(m_folder.path());
    string* lines = &m_commandLine;
    for (const string& line : linesOf(text)) {
      const Step step(line);
      if (step.is("file"))
        lines = &m_contents[step.text(0)];
      else if (!makeOther(step))
        *lines += line + "\n";
    }
    for (const auto& [name, content] : m_contents)
      m_folder.write(name, content);
  }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  ~Files() { fs::current_path(m_before); }

  std::vector<string> commandLine() const { return linesOf(m_commandLine); }
  int flags() const { return m_flags; }

 private:
  bool makeOther(const Step& step) {
    std::error_code ignored;
    if (step.is("link"))
      fs::create_symlink(step.text(1), step.text(0), ignored);
    else if (step.is("folder"))
      fs::create_directory(step.text(0), ignored);
    else if (step.is("flags"))
      m_flags = step.number(0);
    else
      return false;
    return true;
  }

  testing::TemporaryFolder m_folder;
  fs::path m_before;
  string m_commandLine;
  std::map<string, string> m_contents;
  int m_flags = 0;
};

void declare(IParser& parser) {
  parser.option("level,l", "", vtS32);
  parser.option("color", "", vtBool);
  parser.option("mode", "", vtString)->allowValue("fast")->allowValue("slow");
  parser.option("input", "", vtString)->positional();
}

string told(int status, IParser& parser, IParseResult& result) {
  return std::to_string(status) + " " + (status != 0 ? parser.getErrorDesc() : "") + "\n" +
         rendered(result, {"level", "l", "color", "mode", "input", "option-file"}, 0);
}

// Reads option files by the names that it finds in the result, without the library's support for
// option files.
class PlainReader {
 public:
  explicit PlainReader(int flags) : m_parser(makeParser(flags)), m_result(makeResult(*m_parser)) {
    declare(*m_parser);
    m_parser->option("option-file", "", vtString);
  }

  // The outcome of a parse of the command line; nothing if too many files are read.
  std::optional<string> read(const std::vector<string>& commandLine) {
    int status = parse(*m_parser, commandLine, m_result.get());
    string error = status != 0 ? m_parser->getErrorDesc() : "";
    note(none);
    for (std::size_t file = 0; status == 0 && file < m_files.size(); ++file) {
      if (file == mostFilesRead)
        return std::nullopt;
      std::error_code ignored;
      if (!fs::is_regular_file(m_files[file].name, ignored) || isInRing(file)) {
        status = status::optionFileUnreadable;
        error = "Error reading option file '" + m_files[file].name + "'";
        break;
      }
      std::ifstream stream(m_files[file].name, std::ios::binary);
      const string content(std::istreambuf_iterator<char>(stream), {});
      status = parse(*m_parser, naiveTokens(content), m_result.get());
      error = status != 0 ? m_parser->getErrorDesc() : "";
      note(file);
    }
    return std::to_string(status) + " " + error + "\n" +
           rendered(*m_result, {"level", "l", "color", "mode", "input", "option-file"}, 0);
  }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  struct File {
    string name;
    std::size_t namedBy;
  };

  // Names that are new in the result are those that the file `by` has named.
  void note(std::size_t by) {
    const std::vector<Value> all = values(*m_result, "option-file");
    for (std::size_t i = m_files.size(); i < all.size(); ++i)
      m_files.push_back({all[i].text, by});
  }

  bool isInRing(std::size_t file) const {
    for (std::size_t by = m_files[file].namedBy; by != none; by = m_files[by].namedBy)
      if (fs::equivalent(m_files[by].name, m_files[file].name))
        return true;
    return false;
  }

  ParserHandle m_parser;
  ResultHandle m_result;
  std::vector<File> m_files;
};

void compare(const Files& files) {
  startAfresh();
  const testing::ConsoleCapture console;
  const std::optional<string> expected = PlainReader(files.flags()).read(files.commandLine());
  if (!expected)
    return;
  startAfresh();
  const ParserHandle parser = makeParser(files.flags());
  declare(*parser);
  parser->addOptionFileOption("", nullptr);
  const ResultHandle result = makeResult(*parser);
  const int status = parse(*parser, files.commandLine(), result.get());
  expectEqual("option files are read one after the other", *expected,
              told(status, *parser, *result));
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = kivo_3_3::fuzzing::textOf(data, size);
  std::replace(text.begin(), text.end(), '/', '.');
  kivo_3_3::fuzzing::compare(kivo_3_3::fuzzing::Files(text));
  return 0;
}
