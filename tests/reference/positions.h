#pragma once

// Every option occurrence, value, applied default and leftover argument has a position. All
// positions come from one counter of the process, so they only grow, across parses too.

#include <exception>

namespace kivo_3_3::reference {

// The position that is drawn next; 1 in a fresh process.
int& positionCounter();

// Returns the counter and advances it. A counter that is negative or has reached the largest
// int stays as it is, and PositionsExhausted is thrown.
int drawPosition();

class PositionsExhausted : public std::exception {
 public:
  const char* what() const noexcept override;
};

}  // namespace kivo_3_3::reference
