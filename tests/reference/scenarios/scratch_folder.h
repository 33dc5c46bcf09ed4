#pragma once

// The working directory of scenarios with files, so that file names are relative and the same in
// both worlds. It is in memory if /dev/shm is writable.

#include <string>

namespace kivo_3_3::scenarios::ScratchFolder {

// Enters the folder for its lifetime; then empties it and returns to the previous folder.
class Visit {
 public:
  Visit();
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;
  ~Visit();

 private:
  int m_before;  // a descriptor of the previous folder
};

// Call these during a visit. Names that lead out of the folder are ignored. "<zero>" in the text
// becomes a zero byte.
void write(const std::string& name, const std::string& text);
void makeFolder(const std::string& name);

}  // namespace kivo_3_3::scenarios::ScratchFolder
