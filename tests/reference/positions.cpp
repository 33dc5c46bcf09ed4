#include "reference/positions.h"

#include <climits>

namespace kivo_3_3::reference {

int& positionCounter() {
  static int counter = 1;
  return counter;
}

int drawPosition() {
  if (positionCounter() < 0 || positionCounter() == INT_MAX)
    throw PositionsExhausted();
  return positionCounter()++;
}

const char* PositionsExhausted::what() const noexcept { return "No position is left."; }

}  // namespace kivo_3_3::reference
