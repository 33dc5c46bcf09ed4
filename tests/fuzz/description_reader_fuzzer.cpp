// Any text either is a description that pages can be made of, or is refused with one line.
//
// The input is the text itself.

#include "fuzz/fuzz.h"

#include <algorithm>
#include <string>

#include "description_reader.h"
#include "manual_page.h"
#include "markdown.h"
#include "page.h"
#include "text.h"

namespace kivo_3_3::fuzzing {
namespace {

using kivo_describe::Declarations;
using kivo_describe::Description;
using kivo_describe::Option;
using kivo_describe::Section;

void checkAnnotations(const kivo_describe::Annotations& annotations) {
  for (const auto& [key, texts] : annotations)
    expect(!texts.empty(), "an annotation has a text", key);
}

void checkDeclarations(const Declarations& declarations) {
  checkAnnotations(declarations.annotations);
  for (const Option& option : declarations.options) {
    expect(!option.names.empty(), "an option has a name", option.description);
    checkAnnotations(option.annotations);
    const auto section =
        std::find_if(declarations.sections.begin(), declarations.sections.end(),
                     [&](const Section& other) { return other.heading == option.section; });
    expect(section != declarations.sections.end(), "an option has a section", option.section);
    expect(option.hidden || !section->hidden, "a hidden section hides its options", option.section);
  }
}

void checkDescription(const Description& description) {
  expect(kivo_describe::isToolName(description.name), "the name is usable", description.name);
  checkDeclarations(description.declarations);
  for (const kivo_describe::Command& command : description.commands)
    checkDeclarations(command.declarations);
  const kivo_describe::Page page = makePage(description);
  const std::string manual = manualPage(page, "");
  expect(manual.find(".SH EXIT STATUS\n") != std::string::npos, "the page is whole", manual);
  const std::string markdown = kivo_describe::markdown(page);
  expect(markdown.find("## EXIT STATUS\n") != std::string::npos, "the page is whole", markdown);
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using kivo_3_3::fuzzing::checkDescription;
  using kivo_3_3::fuzzing::expect;
  const std::string json(data, data + size);
  try {
    checkDescription(kivo_describe::readDescription(json));
  } catch (const kivo_describe::NoDescription& problem) {
    expect(!kivo_describe::squeezed(problem.what()).empty(), "a refusal has a reason", json);
  }
  return 0;
}
