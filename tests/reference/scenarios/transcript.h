#pragma once

// The transcript of a scenario: indented lines, with the console output at the place where it
// was written.

#include <functional>
#include <iostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kivo_3_3::scenarios {

// The text in single quotes, on one line; "null" for a null pointer.
std::string quoted(const char* text);

class Transcript {
 public:
  // In bytes. Once the transcript is longer, the scene skips all further steps.
  static constexpr std::size_t fullLength = 200 * 1024;

  template <class... Parts>
  void line(const Parts&... parts) {
    endConsoleLine();
    m_text.append(m_depth * 2, ' ');
    (append(parts), ...);
    m_text += '\n';
  }
  // One line for each line of the text, marked with ">".
  void lines(std::string_view text);

  bool isFull() const { return m_text.size() > fullLength; }
  std::string take();

  // Indents lines during its lifetime.
  class Deeper {
   public:
    explicit Deeper(Transcript& transcript) : m_transcript(transcript) { ++transcript.m_depth; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --m_transcript.m_depth; }

   private:
    Transcript& m_transcript;
  };

  // A piece of console output; `stream` is "out" or "err".
  void console(const char* stream, std::string_view text);

 private:
  void append(std::string_view text) { m_text += text; }
  void append(bool is) { m_text += is ? "yes" : "no"; }
  void append(int number) { m_text += std::to_string(number); }
  void append(long long number) { m_text += std::to_string(number); }
  void append(unsigned int number) { m_text += std::to_string(number); }
  // Without this overload a pointer would convert to bool.
  void append(const char* text) { m_text += text; }
  void endConsoleLine();

  std::string m_text;
  std::size_t m_depth = 0;
  std::string m_consoleText;
  const char* m_consoleStream = nullptr;
};

// Redirects the console into a transcript during its lifetime.
class ConsoleTap {
 public:
  // Calls `afterLine` after each line that was written.
  ConsoleTap(Transcript& transcript, const std::function<void()>& afterLine);
  ConsoleTap(const ConsoleTap&) = delete;
  ConsoleTap& operator=(const ConsoleTap&) = delete;
  ~ConsoleTap();

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer(Transcript& transcript, const char* stream, const std::function<void()>& afterLine)
        : m_transcript(transcript), m_stream(stream), m_afterLine(afterLine) {}

   private:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    void pass(std::string_view text);

    Transcript& m_transcript;
    const char* m_stream;
    std::function<void()> m_afterLine;
  };

  Buffer m_out;
  Buffer m_err;
  std::streambuf* m_standardOutput;
  std::streambuf* m_standardError;
};

// Numbers the addresses of the texts that one owner hands out, in the order in which they are
// seen. Equal numbers mean equal addresses.
class Addresses {
 public:
  // 'text'#number
  std::string shown(const char* text);
  int numberOf(const char* text);

 private:
  std::unordered_map<const char*, int> m_numbers;
};

}  // namespace kivo_3_3::scenarios
