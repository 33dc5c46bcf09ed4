#pragma once

// Splits a text into arguments, and finds option files that name each other in a ring.

#include <deque>
#include <set>
#include <string>
#include <vector>

namespace kivo_3_3::reference {

// The arguments of a text, one on each line. White space before an argument and carriage returns
// after it are dropped, and so are empty lines and lines that begin with ';' or '#'. There is no
// quoting, and an argument is never split.
std::vector<std::string> argumentsOfText(const std::string& text);

// Distinguishes option files that name themselves, directly or through others, from option files
// that are only read twice.
//
// Option files are read in the order in which they were named: a file that an option file names
// goes to the end of the queue. So each file in the queue is stored with its chain: the files that
// led to it.
class OptionFileQueue {
 public:
  // Notes that `total` files have been named so far. The new ones were named by the file entered
  // last, or on the command line if no file has been entered yet.
  void named(std::size_t total);

  // Takes the next file out of the queue. Returns false if the file is in its own chain. Files are
  // compared by identity, not by name. A file that only a default names is not in the queue, and
  // its chain is empty.
  bool enter(const std::string& name);

 private:
  std::deque<std::set<std::string>> m_waiting;  // the chain of each file in the queue
  std::set<std::string> m_current;              // the file entered last, and its chain
  std::size_t m_named = 0;
};

}  // namespace kivo_3_3::reference
