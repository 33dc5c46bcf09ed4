#pragma once

// What a parse has stored, and the queries of a tool.
//
// The cursor points to a record, which never moves, and has indexes into it. So it stays valid when
// more is stored.

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

// The record of an option, or of one occurrence of it. A result has one record for each name of an
// option.
struct OptionData {
  std::vector<int> positions;  // one for each occurrence
  std::vector<StoredValue> values;
  StoredValue defaultValue;  // its text is empty if no default was applied

  // Whether the option has a default and was not given. A default with an empty text does not
  // count.
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
  // Applies the declared defaults, drawing one position per name. Options that are given on the
  // command line get their defaults too.
  void applyDefaults(const Options& options);
  void addArgument(const std::string& argument, int position);

  const StoredOptions& options() const { return m_options; }
  // The number of values stored under a name.
  std::size_t countValues(const std::string& name) const;

  // The option that present() or get() selected, and how far it was read.
  struct Cursor {
    const OptionData* option = nullptr;  // null if none is selected; records never move
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

// The last value of the option in the range; "no value" if there is none.
Value getLastValue(IParseResult* result, const char* name, int from, int to);

}  // namespace kivo_3_3::reference
