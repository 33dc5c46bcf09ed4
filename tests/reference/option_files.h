#pragma once

// Arguments that come from a text, and the order in which option files name each other.

#include <deque>
#include <set>
#include <string>
#include <vector>

namespace kivo_3_3::reference {

// The arguments of a text, one on each line. White space before an argument is dropped, and
// so are empty lines and those that begin with ';' or '#'. Nothing is quoted or split.
std::vector<std::string> argumentsOfText(const std::string& text);

// Tells option files that lead back to themselves from those that are only read twice.
//
// Option files are read in the order in which they were named: a file that names another
// puts it at the end of the queue. So each file waiting to be read is kept with the files
// that led to it.
class OptionFileQueue {
 public:
  // In total, this many files have been named by now. Those that are new were named by the
  // file entered last, or on the command line if there is none.
  void named(std::size_t total);

  // Takes the next file out of the queue. Returns false if the file is one of those that led
  // to it; files are told apart by their identity, whatever their names. A default is in no
  // queue, and nothing led to it.
  bool enter(const std::string& name);

 private:
  std::deque<std::set<std::string>> m_waiting;  // the files that led to each
  std::set<std::string> m_current;              // the file entered last and those before it
  std::size_t m_named = 0;
};

}  // namespace kivo_3_3::reference
