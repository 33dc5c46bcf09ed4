#pragma once

#include <string>

namespace BEDROCK {

/// Reads the whole file `name`, bytes as they stand, into `text`.
///
/// Returns 0, or 1 with `text` unchanged when the file cannot be opened or cannot be read
/// to its end; a directory is such a file.
int load_file(const char* name, std::string& text);

/// A text that all names of one file have in common, whatever their spelling, links
/// included; the name itself where there is no such file.
std::string file_identity(const char* name);

}  // namespace BEDROCK
