#pragma once

#include <string>
#include <string_view>

#include "settings.h"

namespace textkit {

/// The part of `text` that is left when `skip` bytes are passed over; a negative number
/// leaves the last `-skip` bytes. More than there is means all of it.
std::string_view afterSkip(std::string_view text, long long skip);

/// Reads files one after the other, and remembers whether one of them failed.
class InputReader {
 public:
  explicit InputReader(const Settings& settings) : m_settings(settings) {}

  /// Reads the whole of a file into `text`, less what is to be skipped; "-" is standard
  /// input. False, after a message, when it cannot be read to its end.
  bool read(const std::string& name, std::string& text);

  bool hasFailed() const { return m_hasFailed; }

 private:
  const Settings& m_settings;
  bool m_hasFailed = false;
};

/// The name under which the results for a file are shown.
std::string shownName(const std::string& name);

}  // namespace textkit
