#include "reference/trace.h"

#include <ostream>

#include "bedrock/console.h"

namespace kivo_3_3::reference {

bool& traceSwitch() {
  static bool isOn = false;
  return isOn;
}

void traceLine(const std::string& line) {
  if (traceSwitch())
    BEDROCK::ucout << line << std::endl;
}

}  // namespace kivo_3_3::reference
