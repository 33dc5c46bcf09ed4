#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "date.h"

namespace notebook {

enum class Priority { low, normal, high };

struct Note {
  unsigned int number = 0;
  Priority priority = Priority::normal;
  std::optional<Date> due;
  std::vector<std::string> tags;  // sorted, each once
  std::string text;

  bool hasTag(const std::string& tag) const;
  void addTag(const std::string& tag);
  void removeTag(const std::string& tag);
};

const char* nameOf(Priority priority);

/// What is wrong with a notebook, as a sentence for the user.
struct NotebookError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The notes in a text file. After the first line, "notebook 1", each line is a note with five
/// fields that tabs separate: number, priority, due date, tags between commas, text. A note without
/// date or tags has "-" there. The numbers rise from line to line.
class Notebook {
 public:
  static constexpr unsigned int highestNumber = 999999;

  /// Reads a file. One that does not exist is an empty notebook. Throws NotebookError.
  explicit Notebook(std::filesystem::path path);

  const std::vector<Note>& notes() const { return m_notes; }
  /// Throws NotebookError if there is no note with this number.
  Note& find(unsigned int number);
  /// Adds a note with the next number. Throws NotebookError if no number is left.
  const Note& add(Note note);
  /// Replaces the file at once: other programs see the former notes or all of these. Throws
  /// NotebookError, and leaves the former file then.
  void save() const;

 private:
  void readNotes(std::istream& file);
  [[noreturn]] void refuseLine(std::size_t line, const std::string& reason) const;

  std::filesystem::path m_path;
  std::vector<Note> m_notes;
};

}  // namespace notebook
