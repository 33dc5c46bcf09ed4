#pragma once

#include <string>
#include <string_view>

#include "settings.h"

namespace textkit {

/// `text` without its first `skip` bytes, or the last `-skip` bytes of `text` if `skip` is
/// negative. A number beyond the size of `text` counts as that size.
std::string_view afterSkip(std::string_view text, long long skip);

/// Reads files one after the other, and remembers whether one of them failed.
class InputReader {
 public:
  explicit InputReader(const Settings& settings) : m_settings(settings) {}

  /// Reads a file into `text`, without the bytes to skip; "-" is standard input. Returns false,
  /// after a message unless the tool is quiet, if the file cannot be read to its end.
  bool read(const std::string& name, std::string& text);

  bool hasFailed() const { return m_hasFailed; }

 private:
  const Settings& m_settings;
  bool m_hasFailed = false;
};

/// The name under which the results for a file are shown.
std::string shownName(const std::string& name);

}  // namespace textkit
