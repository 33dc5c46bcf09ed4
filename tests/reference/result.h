#pragma once

// What one command line gave: stored during the parse, read afterwards.
//
// Reading goes by cursors, which are indexes and so survive everything that is stored.

#include <kivo/parse_result.h>

#include <map>
#include <string>
#include <vector>

#include "reference/garbage.h"
#include "reference/option.h"

namespace kivo_3_3::reference {

struct StoredValue {
  std::string text;
  variant_t value;
  int position = 0;
};

// One option, or one occurrence of it. An option has one record under each of its names.
struct OptionData {
  std::vector<int> positions;  // one for each occurrence
  std::vector<StoredValue> values;
  StoredValue defaultValue;  // its text is empty where no default was applied

  // An option that is known only through its default answers with the default.
  bool isDefaultOnly() const { return positions.empty() && !defaultValue.text.empty(); }
};

using StoredOptions = std::map<std::string, OptionData>;

class Result final : public IParseResult {
 public:
  void destroy() override;
  bool present(const char* name, int from, int to) override;
  Value get(const char* name, int from, int to) override;
  Value next(const char* name) override;
  int nextPosition() override;
  int getFirstArgument(const char** text) override;
  int getNextArgument(const char** text) override;

  // Records one occurrence of an option, under each of its names.
  void store(const Option& option, const OptionData& data);
  // Gives each name of each option that declares a default its default, and draws a position
  // for the name. Whether the option is given on the command line makes no difference.
  void applyDefaults(const Options& options);
  void addArgument(const std::string& argument, int position);

  const StoredOptions& options() const { return m_options; }
  // The number of values stored under a name.
  std::size_t countValues(const std::string& name) const;

  // The option that present() or get() selected, and how far it was read.
  struct Cursor {
    const OptionData* option = nullptr;  // null for none; records stay where they are
    std::size_t value = 0;
    std::size_t position = 0;
    int from = firstPosition;
    int to = lastPosition;
  };
  const Cursor& cursor() const { return m_cursor; }
  void setCursor(const Cursor& cursor) { m_cursor = cursor; }

 private:
  void applyDefault(const Option& option, const std::string& name);
  bool select(const char* name, int from, int to);
  bool deliverFirst(Value& value);
  bool deliverNext(Value& value);
  bool deliverNextStored(Value& value);
  bool deliverNextOccurrence(Value& value);
  Value handOut(const StoredValue& stored);

  StoredOptions m_options;
  Cursor m_cursor;
  Garbage m_garbage;
  std::vector<std::pair<std::string, int>> m_arguments;  // argument and its position
  std::size_t m_argumentCursor = 0;
};

// The last value of the option in the range, "no value" where there is none.
Value getLastValue(IParseResult* result, const char* name, int from, int to);

}  // namespace kivo_3_3::reference
