// Whatever a tool says of itself, mandoc has nothing to say to its manual page, and its page in
// Markdown has no elements but plain ones.
//
// The input is a script, as in describer.h.

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <string>

#include "description_reader.h"
#include "fuzz/describer.h"
#include "fuzz/fuzz.h"
#include "manual_page.h"
#include "markdown.h"
#include "page.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

// What a command of the shell prints for an input, and "[failed]" if the command fails.
string outputOf(const string& command, const string& input) {
  const char* const folder = std::getenv("TMPDIR");
  const string file =
      string(folder != nullptr ? folder : "/tmp") + "/kivo-page-" + std::to_string(getpid());
  std::ofstream(file, std::ios::binary) << input;
  std::FILE* const pipe = popen((command + " <" + file + " 2>&1").c_str(), "r");
  expect(pipe != nullptr, "the command starts", command);
  string output;
  for (int character = 0; (character = std::fgetc(pipe)) != EOF;)
    output += static_cast<char>(character);
  if (pclose(pipe) != 0)
    output += "[failed]";
  std::remove(file.c_str());
  return output;
}

void checkCharacters(const string& page) {
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool isC1 = page[i] == '\xC2' && static_cast<unsigned char>(page[i + 1]) < 0xA0;
    const bool isC0 = static_cast<unsigned char>(page[i]) < 0x20 && page[i] != '\n';
    expect(!isC0 && !isC1 && page[i] != '\x7F', "no control character but the line end", page);
  }
}

// Every element of the rendered page is one of these, without attributes.
void checkElements(const string& html) {
  const std::set<string> plain = {"h1", "h2", "h3", "h4", "p", "ul", "li", "em", "code", "br /"};
  for (std::size_t begin = html.find('<'); begin != string::npos;
       begin = html.find('<', begin + 1)) {
    const std::size_t slash = html[begin + 1] == '/' ? 1 : 0;
    const string element =
        html.substr(begin + 1 + slash, html.find('>', begin) - begin - 1 - slash);
    expect(plain.count(element) != 0, "elements are plain", html);
  }
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3::fuzzing;
  Describer describer;
  for (const Step& step : scriptOf(data, size))
    describer.run(step);
  const auto description = kivo_describe::readDescription(describer.text());
  const kivo_describe::Page page = makePage(description);
  const std::string manual = manualPage(page, "2024-02-29");
  expectEqual(("mandoc has nothing to say to\n" + manual).c_str(), "",
              outputOf("mandoc -T lint -W warning", manual));
  checkCharacters(manual);
  const std::string markdown = kivo_describe::markdown(page);
  checkCharacters(markdown);
  checkElements(outputOf("cmark-gfm --unsafe -e table", markdown));
  return 0;
}
