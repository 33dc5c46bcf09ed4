#pragma once

#include <string>

namespace BEDROCK {

/// Reads the file `name`, bytes as they stand, into `text`: up to its end or its first zero
/// byte, where a text ends. It is read in blocks: no block is asked for after the one with the
/// zero byte.
///
/// Returns 0, or 1 with `text` unchanged when the file cannot be opened or a block of it cannot
/// be read; a directory is such a file.
int load_file(const char* name, std::string& text);

/// A text that all names of one file have in common, whatever their spelling, links
/// included; the name itself where there is no such file.
std::string file_identity(const char* name);

}  // namespace BEDROCK
