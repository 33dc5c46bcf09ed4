#include "bedrock/console.h"

#include <iostream>

namespace BEDROCK {

std::ostream& ucout = std::cout;
std::ostream& ucerr = std::cerr;

}  // namespace BEDROCK
