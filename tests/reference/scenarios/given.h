#pragma once

#include <optional>
#include <string>

#include "reference/scenarios/scenario.h"

namespace kivo_3_3::scenarios {

// A text argument that is freed after the call: the parser must have copied it.
class Given {
 public:
  Given(const Command& command, std::size_t field) {
    if (!command.isNull(field))
      m_text = command.text(field);
  }

  const char* get() const { return m_text ? m_text->c_str() : nullptr; }

 private:
  std::optional<std::string> m_text;
};

}  // namespace kivo_3_3::scenarios
