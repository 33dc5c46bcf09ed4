#include "notebook.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <system_error>
#include <utility>

namespace notebook {
namespace {

constexpr const char* firstLine = "notebook 1";
constexpr const char* none = "-";

std::string withReason(const char* verb, const std::filesystem::path& path, int error) {
  return std::string("Cannot ") + verb + " '" + path.string() +
         "': " + std::generic_category().message(error);
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find(separator, begin)) != std::string::npos;) {
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  parts.push_back(text.substr(begin));
  return parts;
}

bool readNumber(const std::string& text, unsigned int& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, number);
  return problem == std::errc() && stop == end && number <= Notebook::highestNumber;
}

bool readPriority(const std::string& text, Priority& priority) {
  for (const Priority each : {Priority::low, Priority::normal, Priority::high}) {
    if (text != nameOf(each))
      continue;
    priority = each;
    return true;
  }
  return false;
}

// Returns what was expected, null for a note.
const char* readNote(const std::string& line, Note& note) {
  const std::vector<std::string> fields = split(line, '\t');
  if (fields.size() != 5)
    return "five fields between tabs";
  if (!readNumber(fields[0], note.number))
    return "a number up to 999999 in field 1";
  if (!readPriority(fields[1], note.priority))
    return "low, normal or high in field 2";
  if (fields[2] != none && parseValue(fields[2].c_str(), note.due.emplace()) != nullptr)
    return "a date such as 2026-05-01 or - in field 3";
  if (fields[3] != none) {
    for (const std::string& tag : split(fields[3], ','))
      note.addTag(tag);
  }
  note.text = fields[4];
  return nullptr;
}

void writeNote(std::ostream& out, const Note& note) {
  out << note.number << '\t' << nameOf(note.priority) << '\t'
      << (note.due ? formatValue(*note.due) : none) << '\t';
  for (const std::string& tag : note.tags)
    out << (tag == note.tags.front() ? "" : ",") << tag;
  out << (note.tags.empty() ? none : "") << '\t' << note.text << '\n';
}

// Renaming must replace the file that a symbolic link leads to, not the link.
std::filesystem::path withoutLinks(const std::filesystem::path& path) {
  std::error_code absent;
  const std::filesystem::path real = std::filesystem::canonical(path, absent);
  return absent ? path : real;
}

}  // namespace

bool Note::hasTag(const std::string& tag) const {
  return std::binary_search(tags.begin(), tags.end(), tag);
}

void Note::addTag(const std::string& tag) {
  if (!hasTag(tag))
    tags.insert(std::upper_bound(tags.begin(), tags.end(), tag), tag);
}

void Note::removeTag(const std::string& tag) {
  tags.erase(std::remove(tags.begin(), tags.end(), tag), tags.end());
}

const char* nameOf(Priority priority) {
  if (priority == Priority::normal)
    return "normal";
  return priority == Priority::low ? "low" : "high";
}

Notebook::Notebook(std::filesystem::path path) : m_path(std::move(path)) {
  std::error_code failure;
  const std::filesystem::file_status status = std::filesystem::status(m_path, failure);
  if (status.type() == std::filesystem::file_type::not_found)
    return;
  if (!failure && !std::filesystem::is_regular_file(status))
    throw NotebookError("'" + m_path.string() + "' is no regular file");
  std::ifstream file(m_path, std::ios::binary);
  readNotes(file);
  if (!file.eof())
    throw NotebookError(withReason("read", m_path, errno));
}

void Notebook::readNotes(std::istream& file) {
  std::string line;
  if (std::getline(file, line) ? line != firstLine : file.eof())
    refuseLine(1, std::string("'") + firstLine + "'");
  for (std::size_t number = 2; std::getline(file, line); ++number) {
    Note note;
    if (const char* const expected = readNote(line, note))
      refuseLine(number, expected);
    if (note.number <= (m_notes.empty() ? 0 : m_notes.back().number))
      refuseLine(number, "a higher number than before");
    m_notes.push_back(std::move(note));
  }
}

void Notebook::refuseLine(std::size_t line, const std::string& reason) const {
  throw NotebookError(m_path.string() + ':' + std::to_string(line) + ": Expected " + reason);
}

Note& Notebook::find(unsigned int number) {
  const auto found = std::find_if(m_notes.begin(), m_notes.end(),
                                  [&](const Note& note) { return note.number == number; });
  if (found == m_notes.end())
    throw NotebookError("No note " + std::to_string(number) + " in '" + m_path.string() + "'");
  return *found;
}

const Note& Notebook::add(Note note) {
  note.number = m_notes.empty() ? 1 : m_notes.back().number + 1;
  if (note.number > highestNumber)
    throw NotebookError("No number is left in '" + m_path.string() + "'");
  return m_notes.emplace_back(std::move(note));
}

void Notebook::save() const {
  const std::filesystem::path path = withoutLinks(m_path);
  const std::filesystem::path fresh = path.string() + ".new";
  std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
  file << firstLine << '\n';
  for (const Note& note : m_notes)
    writeNote(file, note);
  file.close();
  int error = file ? 0 : errno;
  std::error_code failure;
  const std::filesystem::file_status former = std::filesystem::status(path, failure);
  if (std::filesystem::exists(former))
    std::filesystem::permissions(fresh, former.permissions(), failure);
  failure.clear();
  if (error == 0)
    std::filesystem::rename(fresh, path, failure);
  if (error == 0 && !failure)
    return;
  error = error != 0 ? error : failure.value();
  std::filesystem::remove(fresh, failure);
  throw NotebookError(withReason("write", m_path, error));
}

}  // namespace notebook
