#pragma once

// The trace of a parse, written to standard output when it is switched on.
//
// Callers use traceLine(), so that a silent trace costs the test of a flag. Its arguments are
// evaluated even then: they must neither raise nor have side effects.

#include <initializer_list>
#include <ostream>
#include <streambuf>
#include <string_view>

namespace kivo_3_3::internal {

// Whether parses of this thread are traced. Every list of arguments sets it anew.
// `__thread`, because a `thread_local` of another file is read through a function.
extern __thread bool kivoLogEnabled;

// Takes no characters: a stream on it fails at its first write and stays silent.
template <class Char>
class basic_nullbuf : public std::basic_streambuf<Char> {
 public:
  ~basic_nullbuf() override = default;
};

// Owns the stream that discards the trace while it is off. Only kivoLog() returns it.
class KivoLog {
 public:
  KivoLog() : m_stream(&m_buffer) {}

  std::ostream& silentStream() { return m_stream; }

 private:
  basic_nullbuf<char> m_buffer;
  std::ostream m_stream;  // writes to the buffer, so it is destroyed first
};

// The console while the trace is on, the silent stream while it is off. The library itself writes
// only while it is on; the silent stream is part of the interface.
std::ostream& kivoLog();

// Writes the parts as one line in a single call, because other threads may write too.
[[gnu::cold]] void writeTraceLine(std::initializer_list<std::string_view> parts);

// The same while the trace is on.
template <class... Parts>
void traceLine(const Parts&... parts) {
  if (kivoLogEnabled)
    writeTraceLine({std::string_view(parts)...});
}

}  // namespace kivo_3_3::internal
