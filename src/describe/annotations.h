#pragma once

// Facts about a tool and its options that the declarations do not hold. If a fact were attached to
// another option, the manual page would tell the user something wrong.

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kivo_3_3 {

// The annotations of one parser.
class Annotations {
 public:
  // The texts of each key, in the order in which they were added.
  using Texts = std::map<std::string, std::vector<std::string>>;

  // Bytes of `key` that are not UTF-8 are replaced first, so that no two keys look alike in the
  // description. Raises std::bad_alloc, and then nothing has changed that a reader could tell.
  void addToTool(std::string_view key, std::string_view text);
  void addToOption(unsigned int option, std::string_view key, std::string_view text);

  const Texts& ofTool() const { return m_tool; }
  const Texts& ofOption(unsigned int option) const;

 private:
  Texts m_tool;
  std::map<unsigned int, Texts> m_options;  // by the number of the option
};

}  // namespace kivo_3_3
