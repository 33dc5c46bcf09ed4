#pragma once

#include <iostream>
#include <string>

namespace textkit {

/// Tells the user something beside the result: one line on standard error.
inline void say(const std::string& text) { std::cerr << "textkit: " << text << '\n'; }

}  // namespace textkit
