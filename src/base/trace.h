#pragma once

// The running account of a parse, written to standard output when it is switched on.
//
// Writers go through traceLine(), so that a silent trace costs the test of a flag.

#include <initializer_list>
#include <ostream>
#include <streambuf>
#include <string_view>

namespace kivo_3_3::internal {

// Whether parses of this thread are traced. Every run over a list of arguments sets it anew.
// `__thread`, for a `thread_local` of another file is read through a function.
extern __thread bool kivoLogEnabled;

// Takes no characters: a stream on it fails at its first write and stays silent.
template <class Char>
class basic_nullbuf : public std::basic_streambuf<Char> {
 public:
  ~basic_nullbuf() override = default;
};

// Holds the stream that swallows the trace while it is off.
class KivoLog {
 public:
  KivoLog() : m_stream(&m_buffer) {}

  std::ostream& silentStream() { return m_stream; }

 private:
  basic_nullbuf<char> m_buffer;
  std::ostream m_stream;  // writes to the buffer, so it is destroyed first
};

// The console while the trace is on, the same silent stream whenever it is off.
std::ostream& kivoLog();

// Writes these parts as one line, and all of it at once: another thread may write too.
[[gnu::cold]] void writeTraceLine(std::initializer_list<std::string_view> parts);

// The same, if anybody is listening.
template <class... Parts>
void traceLine(const Parts&... parts) {
  if (kivoLogEnabled)
    writeTraceLine({std::string_view(parts)...});
}

}  // namespace kivo_3_3::internal
