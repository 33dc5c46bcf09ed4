// Writes the lines of the trace. A line is composed before it is written, because other threads may
// write at the same time, and their lines must not be mixed.

#include "base/trace.h"

#include <string>

#include "bedrock/console.h"

namespace kivo_3_3::internal {

__thread bool kivoLogEnabled = false;

std::ostream& kivoLog() {
  if (kivoLogEnabled)
    return BEDROCK::ucout;
  static KivoLog log;
  return log.silentStream();
}

void writeTraceLine(std::initializer_list<std::string_view> parts) {
  std::string line;
  for (const std::string_view part : parts)
    line += part;
  line += '\n';
  kivoLog() << line << std::flush;
}

}  // namespace kivo_3_3::internal
