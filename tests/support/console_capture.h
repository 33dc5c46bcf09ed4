#pragma once

#include <iostream>
#include <sstream>
#include <string>

namespace kivo_3_3::testing {

// Captures standard output and standard error for its lifetime.
class ConsoleCapture {
 public:
  ConsoleCapture()
      : m_standardOutput(std::cout.rdbuf(m_out.rdbuf())),
        m_standardError(std::cerr.rdbuf(m_err.rdbuf())) {}
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;
  ~ConsoleCapture() {
    std::cout.rdbuf(m_standardOutput);
    std::cerr.rdbuf(m_standardError);
  }

  std::string out() const { return m_out.str(); }
  std::string err() const { return m_err.str(); }

 private:
  std::ostringstream m_out;
  std::ostringstream m_err;
  std::streambuf* m_standardOutput;
  std::streambuf* m_standardError;
};

}  // namespace kivo_3_3::testing
