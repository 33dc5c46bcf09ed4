#pragma once

#include <kivo/event_handler.h>

#include <string>
#include <vector>

#include "base/garbage.h"
#include "base/trace.h"
#include "options/option_data.h"
#include "options/option_description.h"

namespace kivo_3_3 {

// A recognizer: decides which declared option the first of some arguments is, and binds
// its value. The driver asks every recognizer to recognize() an argument; the claimant
// of the highest priority then parses it.
class IArgumentParser {
 public:
  IArgumentParser(EventHandler& handler, Garbage& garbage, int flags);
  IArgumentParser(const IArgumentParser&) = delete;
  IArgumentParser& operator=(const IArgumentParser&) = delete;

  virtual ~IArgumentParser() = default;

  // 0 when this recognizer claims `args[0]`, else 1.
  virtual int recognize(std::vector<std::string>& args, std::vector<OptionDescription>& options,
                        std::string& error) = 0;

  // Binds the argument that was recognized last and takes what it used from the front
  // of `args`. On failure `args` is as before, nothing is stored, and `error` tells why.
  virtual int parse(std::vector<std::string>& args, IResultCollector* collector,
                    std::vector<OptionDescription>& options, unsigned int& optionIndex,
                    std::string& error) = 0;

  // " in argument: '--level'", to end a message with.
  virtual std::string formatTokenMessage(std::string& token);

  virtual int getPriority() = 0;

  // The next position in this process. Everything that is stored draws its own.
  KIVO_API static int getNewPositionIndex();
  KIVO_API static int m_idx;

 protected:
  // Splits a value where the option asks for it, converts, checks and announces each
  // piece, and stores the option. An empty value stores the option without values.
  int parseValueAndAddOption(std::string& value, std::string& error,
                             const OptionDescription& option, std::vector<std::string>& args,
                             IResultCollector* collector);

  // Sets and traces a usage error, and returns its status.
  int fail(std::string& error, std::string message) const;

  // Traces one line that begins with the name of this recognizer.
  template <class... Parts>
  void trace(const Parts&... parts) const {
    internal::traceLine([&](std::ostream& out) {
      out << m_name;
      (out << ... << parts);
    });
  }

  EventHandler* m_handler;
  std::string m_name;
  Garbage* m_garbage;
  int m_flags;

 private:
  struct Binding;

  int bindTokens(const Binding& binding);
  int bindOne(std::string& token, const Binding& binding);
};

}  // namespace kivo_3_3
