#include "base/trace.h"

#include "bedrock/console.h"

namespace kivo_3_3::internal {

bool kivoLogEnabled = false;

KivoLog::~KivoLog() {
  m_stream.reset();  // it writes to the buffer, so it goes first
}

std::ostream& KivoLog::silentStream() {
  if (m_stream == nullptr) {
    m_buffer = std::make_unique<basic_nullbuf<char>>();
    m_stream = std::make_unique<std::ostream>(m_buffer.get());
  }
  return *m_stream;
}

std::ostream& kivoLog() {
  static KivoLog log;
  return kivoLogEnabled ? BEDROCK::ucout : log.silentStream();
}

void writeTraceLine(std::initializer_list<std::string_view> parts) {
  std::ostream& log = kivoLog();
  for (const std::string_view part : parts)
    log << part;
  log << std::endl;
}

}  // namespace kivo_3_3::internal
