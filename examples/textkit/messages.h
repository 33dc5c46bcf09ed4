#pragma once

#include <iostream>
#include <string>

namespace textkit {

/// Writes a message to the user, apart from the result: one line on standard error.
inline void say(const std::string& text) { std::cerr << "textkit: " << text << '\n'; }

}  // namespace textkit
