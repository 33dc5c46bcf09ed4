#include "reference/scenarios/transcript.h"

#include <algorithm>
#include <utility>

namespace kivo_3_3::scenarios {

using std::string;

string quoted(const char* text) {
  if (text == nullptr)
    return "null";
  string shown = "'";
  for (; *text != '\0'; ++text) {
    if (*text == '\n')
      shown += "\\n";
    else
      shown += *text;
  }
  return shown + "'";
}

void Transcript::lines(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    line("> ", text.substr(0, end), end < text.size() ? "" : " (no newline)");
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

string Transcript::take() {
  endConsoleLine();
  return std::move(m_text);
}

void Transcript::console(const char* stream, std::string_view text) {
  if (m_consoleStream != stream)
    endConsoleLine();
  m_consoleStream = stream;
  m_consoleText += text;
}

void Transcript::endConsoleLine() {
  if (m_consoleStream == nullptr)
    return;
  const string stream = std::exchange(m_consoleStream, nullptr);
  const string text = std::exchange(m_consoleText, {});
  line(stream, ":");
  lines(text);
}

ConsoleTap::ConsoleTap(Transcript& transcript, const std::function<void()>& afterLine)
    : m_out(transcript, "out", afterLine),
      m_err(transcript, "err", afterLine),
      m_standardOutput(std::cout.rdbuf(&m_out)),
      m_standardError(std::cerr.rdbuf(&m_err)) {}

ConsoleTap::~ConsoleTap() {
  std::cout.rdbuf(m_standardOutput);
  std::cerr.rdbuf(m_standardError);
}

ConsoleTap::Buffer::int_type ConsoleTap::Buffer::overflow(int_type character) {
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    const char written = traits_type::to_char_type(character);
    pass({&written, 1});
  }
  return traits_type::not_eof(character);
}

std::streamsize ConsoleTap::Buffer::xsputn(const char* text, std::streamsize size) {
  pass({text, static_cast<std::size_t>(size)});
  return size;
}

void ConsoleTap::Buffer::pass(std::string_view text) {
  m_transcript.console(m_stream, text);
  for (auto lines = std::count(text.begin(), text.end(), '\n'); lines != 0; --lines)
    m_afterLine();
}

string Addresses::shown(const char* text) {
  if (text == nullptr)
    return "null";
  return quoted(text) + "#" + std::to_string(numberOf(text));
}

int Addresses::numberOf(const char* text) {
  return m_numbers.emplace(text, static_cast<int>(m_numbers.size()) + 1).first->second;
}

}  // namespace kivo_3_3::scenarios
