#pragma once

// Reads option files and tells whether two file names mean the same file. Without the second, an
// option file that includes itself would be read again and again.

#include <string>

namespace BEDROCK {

/// Reads the bytes of the file `name` into `text` unchanged, up to the end of the file or its
/// first zero byte. The file is read in blocks, and no block is read after the one with the zero
/// byte.
///
/// Returns 0. Returns 1 and leaves `text` unchanged if the file cannot be opened or a block cannot
/// be read, as in a directory.
int load_file(const char* name, std::string& text);

/// Returns a text that is equal for all names of one file: for other spellings of its path, and
/// for links to it. Returns `name` itself if there is no file with that name.
std::string file_identity(const char* name);

}  // namespace BEDROCK
