#pragma once

// The two recognizers: they find the option that an argument stands for, and its value.
//
// Of the recognizers that claim an argument, the one with the highest priority parses it: it finds
// the value, splits the value into tokens, validates and announces each token, and stores the
// occurrence.

#include <kivo/event_handler.h>

#include <string>
#include <vector>

#include "reference/option.h"
#include "reference/result.h"

namespace kivo_3_3::reference {

using Arguments = std::vector<std::string>;

class Recognizer {
 public:
  // `handler` is the parser, which passes the events on; `flags` are the flags of that parser.
  Recognizer(const char* name, EventHandler& handler, int flags);
  Recognizer(const Recognizer&) = delete;
  Recognizer& operator=(const Recognizer&) = delete;
  virtual ~Recognizer() = default;

  // Whether this recognizer claims the first argument.
  virtual bool recognize(const Arguments& args, const Options& options) = 0;

  // Parses the first argument, which recognize() has just claimed, and removes the arguments that
  // it used. Returns a status; on failure `error` has the message and nothing is stored or removed.
  virtual int parse(Arguments& args, Result* result, const Options& options,
                    std::string& error) = 0;

  virtual int priority() const = 0;

 protected:
  // Stores an occurrence of an option with the value found for it, after validating and announcing
  // that value. An empty value gives an occurrence without values. A failure takes back neither the
  // events that were sent nor the positions that were drawn.
  int parseValueAndAddOption(std::string value, std::string& error, const Option& option,
                             const Arguments& args, Result* result);

  void announceOption(const Option& option);
  void removeArguments(Arguments& args, int count) const;
  void trace(const std::string& text) const;
  int flags() const { return m_flags; }

 private:
  int parseWholeValue(std::string& value, std::string& error, const Option& option,
                      const std::string& argument, std::vector<StoredValue>& values);
  int parseTokens(const std::string& value, std::string& error, const Option& option,
                  const std::string& argument, std::vector<StoredValue>& values);
  int validate(std::string& token, variant_t& typed, std::string& error, const Option& option,
               const std::string& argument) const;
  int announceValue(const StoredValue& announced, const std::string& quoted, std::string& error,
                    const Option& option, const std::string& argument);

  std::string m_name;
  EventHandler& m_handler;
  int m_flags;
};

// The names, of all names of all options, that a typed name can stand for: the name itself, or else
// all that begin with it, in declaration order. Each name of a boolean option is followed by its
// "no-" form.
std::vector<std::string> namesMeant(const Options& options, const std::string& typed);

// Options given by name: "-v", "--level=3", "--no-verbose", or an abbreviation.
class NamedRecognizer final : public Recognizer {
 public:
  NamedRecognizer(EventHandler& handler, int flags);

  // Claims an ambiguous argument too, so that parse() reports it.
  bool recognize(const Arguments& args, const Options& options) override;
  int parse(Arguments& args, Result* result, const Options& options, std::string& error) override;
  int priority() const override { return -10; }

 private:
  // The value found for an option, and the number of arguments that it used: 1 or 2.
  struct Taken {
    std::string value;
    int count = 1;
  };
  int takeValue(const Option& option, const Arguments& args, Taken& taken, std::string& error);
  int takeNextArgument(const Option& option, const Arguments& args, Taken& taken,
                       std::string& error);
  int fail(std::string& error, const std::string& message) const;

  std::size_t m_optionIndex = 0;  // the option recognize() matched, unless it was ambiguous
  std::string m_candidates;       // 'level', 'length' after an ambiguous match, else empty
  std::string m_matchedName;      // possibly a "no-" form
};

// Binds arguments that name no option to the first option declared as positional.
class PositionalRecognizer final : public Recognizer {
 public:
  PositionalRecognizer(EventHandler& handler, int flags);

  bool recognize(const Arguments& args, const Options& options) override;
  int parse(Arguments& args, Result* result, const Options& options, std::string& error) override;
  int priority() const override { return -100; }
};

}  // namespace kivo_3_3::reference
