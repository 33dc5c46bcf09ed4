#include "reference/registry.h"

#include "reference/trace.h"

namespace kivo_3_3::reference {

namespace {

std::string orEmpty(const char* text) { return text != nullptr ? text : ""; }

bool isAcceptable(const std::vector<std::string>& names) {
  return names.size() < 3 || (names.size() == 3 && names[2].size() <= 2);
}

}  // namespace

std::vector<std::string> split(const std::string& text) {
  std::vector<std::string> words;
  std::string word;
  for (const char c : text) {
    if (c != ',') {
      word += c;
      continue;
    }
    words.push_back(word);
    word.clear();
  }
  if (!word.empty())
    words.push_back(word);
  return words;
}

std::optional<std::size_t> findOption(const std::string& name, const Options& options) {
  for (std::size_t index = 0; index < options.size(); ++index)
    for (const std::string& declared : options[index].names)
      if (name == declared || (options[index].type == vtBool && name == "no-" + declared))
        return index;
  return std::nullopt;
}

std::optional<std::size_t> findOption(const std::vector<std::string>& names,
                                      const Options& options) {
  for (const std::string& name : names)
    if (const auto index = findOption(name, options))
      return index;
  return std::nullopt;
}

// The text is "key:title", or a key without a title. The first title of a key stays.
Group Registry::registerGroup(const std::string& text) {
  const std::size_t colon = text.find(':');
  Group group = {text.substr(0, colon), colon != std::string::npos ? text.substr(colon + 1) : ""};
  for (const Group& registered : m_groups)
    if (registered.key == group.key)
      return registered;
  m_groups.push_back(group);
  return group;
}

// The group is registered even if the declaration is rejected.
IOption* Registry::option(const char* names, const char* tags, const char* description,
                          bool isAction, variant_type_t type, const char* group) {
  const Group registered = registerGroup(orEmpty(group));
  const std::vector<std::string> nameList = split(orEmpty(names));
  if (!isAcceptable(nameList))
    return &m_fallback;
  if (findOption(nameList, m_options)) {
    // Spelled like this since 3.0; tools depend on it.
    traceLine("Tried to register an option with a name, which is alread registered: " +
              orEmpty(names));
    return &m_fallback;
  }
  Option option;
  option.names = nameList;
  option.type = type;
  option.description = orEmpty(description);
  option.groupKey = registered.key;
  option.groupTitle = registered.title;
  option.isAction = isAction;
  option.tag(tags);
  if (isAction)
    option.tag(names);
  option.tokenize(m_tokenizer);
  m_options.push_back(option);
  return &m_options.back();
}

}  // namespace kivo_3_3::reference
