#pragma once

#include <string>
#include <vector>

#include "bedrock/assertion.h"

namespace kivo_3_3::testing {

// An assertion handler for the lifetime of this object: records each call and returns to the
// caller.
class AssertionRecorder {
 public:
  AssertionRecorder() : m_previous(BEDROCK::set_assertion_handler(record)) { s_records.clear(); }
  AssertionRecorder(const AssertionRecorder&) = delete;
  AssertionRecorder& operator=(const AssertionRecorder&) = delete;
  ~AssertionRecorder() { BEDROCK::set_assertion_handler(m_previous); }

  struct Record {
    std::string expression;
    std::string file;
    int line;
  };
  const std::vector<Record>& records() const { return s_records; }

  // The expressions in order: "a; b".
  std::string expressions() const {
    std::string all;
    for (const Record& one : s_records)
      all += (all.empty() ? "" : "; ") + one.expression;
    return all;
  }

 private:
  static void record(const char* expression, const char* file, int line) {
    s_records.push_back({expression, file, line});
  }

  static inline std::vector<Record> s_records;  // static, because the handler is a plain function

  BEDROCK::assertion_handler_t m_previous;
};

}  // namespace kivo_3_3::testing
