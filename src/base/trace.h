#pragma once

// The trace of a parse, written to standard output when it is switched on.
//
// Callers use traceLine(): while the trace is off, a call costs the test of a flag. The arguments
// of the call are evaluated all the same, so they must neither raise nor have side effects.

#include <initializer_list>
#include <ostream>
#include <streambuf>
#include <string_view>

namespace kivo_3_3::internal {

// Whether the trace of this thread is on. Every list of arguments (a command line, a text, an
// option file) sets the flag anew. `__thread`, because a `thread_local` variable that another file
// defines is read through a function.
extern __thread bool kivoLogEnabled;

// Accepts no characters: a stream that writes to it fails at the first write and stays silent.
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

// The console while the trace is on, a silent stream while the trace is off. Only tests write to
// the silent stream.
std::ostream& kivoLog();

// Writes the parts as one line in a single call, because other threads may write too.
[[gnu::cold]] void writeTraceLine(std::initializer_list<std::string_view> parts);

// Does what writeTraceLine() does while the trace is on; a no-op while the trace is off.
template <class... Parts>
void traceLine(const Parts&... parts) {
  if (kivoLogEnabled)
    writeTraceLine({std::string_view(parts)...});
}

}  // namespace kivo_3_3::internal
