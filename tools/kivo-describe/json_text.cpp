#include "json_text.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>
#include <vector>

#include "no_description.h"

// Between a text and the JSON library, which takes some texts that are not JSON, and refuses some
// that are: it passes over a byte order mark, takes a zero byte for the end, keeps one of two
// values of a key, and refuses a number that a double cannot hold, even in a field that nobody
// reads.

namespace kivo_describe {
namespace {

using nlohmann::json;

[[noreturn]] void refuse(const std::string& reason) { throw NoDescription("not JSON: " + reason); }

// Refuses a key that an object has already.
class UniqueKeys {
 public:
  void look(json::parse_event_t event, const json& value) {
    if (event == json::parse_event_t::object_start)
      m_open.emplace_back();
    else if (event == json::parse_event_t::object_end)
      m_open.pop_back();
    else if (event == json::parse_event_t::key &&
             !m_open.back().insert(value.get<std::string>()).second)
      throw NoDescription("the key '" + value.get<std::string>() + "' stands twice in an object");
  }

 private:
  std::vector<std::set<std::string>> m_open;  // the keys of each object that has no end yet
};

constexpr std::string_view digits = "0123456789";

// Removes one of the characters from the beginning of a text, if it begins with one.
bool skipOne(std::string_view& text, std::string_view characters) {
  const bool is = !text.empty() && characters.find(text.front()) != std::string_view::npos;
  text.remove_prefix(is ? 1 : 0);
  return is;
}

bool skipDigits(std::string_view& text) {
  const bool has = skipOne(text, digits);
  while (skipOne(text, digits))
    ;
  return has;
}

bool isNumber(std::string_view text) {
  skipOne(text, "-");
  if (!skipOne(text, "0") && !skipDigits(text))
    return false;
  if (skipOne(text, ".") && !skipDigits(text))
    return false;
  if (skipOne(text, "eE")) {
    skipOne(text, "+-");
    if (!skipDigits(text))
      return false;
  }
  return text.empty();
}

// Replaces each number outside of the texts by a 0 and blanks, so that all other characters keep
// their places.
std::string withoutNumbers(std::string text) {
  bool isInText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"')
      isInText = !isInText;
    else if (isInText && text[i] == '\\')
      ++i;
    else if (!isInText && (text[i] == '-' || digits.find(text[i]) != std::string_view::npos)) {
      const std::size_t end = std::min(text.find_first_not_of("+-.eE0123456789", i), text.size());
      if (isNumber(std::string_view(text).substr(i, end - i)))
        text.replace(i, end - i, '0' + std::string(end - i - 1, ' '));
      i = end - 1;
    }
  }
  return text;
}

// Without the number of the error in brackets, with which the JSON library begins its messages.
std::string explanation(const json::exception& problem) {
  const std::string text = problem.what();
  const std::size_t end = text.find("] ");
  return end == std::string::npos ? text : text.substr(end + 2);
}

}  // namespace

json parseJson(const std::string& text) {
  if (text.rfind("\xEF\xBB\xBF", 0) == 0)
    refuse("a byte order mark at the beginning");
  if (text.find('\0') != std::string::npos)
    refuse("a zero byte");
  UniqueKeys keys;
  try {
    return json::parse(withoutNumbers(text),
                       [&](int, json::parse_event_t event, const json& value) {
                         keys.look(event, value);
                         return true;
                       });
  } catch (const json::exception& problem) {
    refuse(explanation(problem));
  }
}

}  // namespace kivo_describe
