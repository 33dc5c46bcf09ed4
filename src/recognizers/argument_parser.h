#pragma once

#include <kivo/event_handler.h>

#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "base/trace.h"
#include "options/option_data.h"
#include "options/option_description.h"
#include "recognizers/argument_window.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Raised when the counter has no position left: none may be drawn twice in a process.
class PositionsExhausted final : public std::exception {};

// A recognizer: decides which declared option the first of some arguments is, and binds
// its value. The driver asks every recognizer to recognize() an argument; the claimant
// of the highest priority then parses it.
class IArgumentParser {
 public:
  // `handler` is null where there are no handlers: that is decided once for each recognizer. The
  // texts of values are stored in `texts`, which is null where there is no result.
  IArgumentParser(EventHandler* handler, OwnedMemory* texts, int flags);
  IArgumentParser(const IArgumentParser&) = delete;
  IArgumentParser& operator=(const IArgumentParser&) = delete;

  virtual ~IArgumentParser() = default;

  // 0 when this recognizer claims the front of `args`, else 1. `error` is part of the interface;
  // no recognizer writes to it.
  virtual int recognize(ArgumentWindow& args, OptionList& options, std::string& error) = 0;

  // Binds the argument that was recognized last and takes what it used from the front
  // of `args`. On failure `args` is as before, nothing is stored, and `error` tells why.
  // `optionIndex` becomes the number of the option; the driver does not read it, tests do.
  virtual int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
                    unsigned int& optionIndex, std::string& error) = 0;

  // " in argument: '--level'", to end a message with. Virtual as the recognizers' interface has
  // it; neither recognizer overrides it.
  virtual std::string formatTokenMessage(std::string_view token) const;

  virtual int getPriority() = 0;

  // The next position in this process, on whatever thread. Everything that is stored draws its
  // own. Positions are below the largest int, which stands for "no position": when none is left,
  // this raises PositionsExhausted and the counter stays where it is.
  KIVO_API static int getNewPositionIndex();
  KIVO_API static int m_idx;

  // The first of `count` positions in a row; none, and none drawn, where fewer are left.
  static std::optional<int> drawInARow(unsigned int count);

 protected:
  // The option as it stands before its first event, until the next call. A handler may amend the
  // option declared last, and no other: where there are handlers that one is copied, whenever it
  // has changed.
  const OptionDescription& asItStands(const OptionDescription& option, const OptionList& options) {
    const bool canChange = m_handler != nullptr && &option == &options.back();
    return canChange ? copied(option) : option;
  }

  // Notifies the handlers of the option.
  void announce(const OptionDescription& option) const;

  // Splits a value where the option asks for it, converts, checks and announces each
  // piece, and stores the option. An empty value stores the option without values.
  int parseValueAndAddOption(std::string_view value, std::string& error,
                             const OptionDescription& option, const ArgumentWindow& args,
                             IResultCollector* collector);

  // Takes the first argument from `args`.
  void removeFront(ArgumentWindow& args) const;

  // Sets and traces a usage error, and returns its status.
  int fail(std::string& error, std::string message) const;

  // Traces one line that begins with the name of this recognizer.
  template <class... Parts>
  void trace(const Parts&... parts) const {
    internal::traceLine(m_name, parts...);
  }

  EventHandler* const m_handler;           // null where there are no handlers
  const char* m_name = "UndefinedParser";  // until the recognizer sets its own
  const int m_flags;

 private:
  struct Binding;

  std::string_view kept(std::string_view text);
  int bindTokens(const Binding& binding);
  int bindEachToken(char separator, const Binding& binding);
  int bindToken(std::string_view token, const Binding& binding);
  int bindOne(std::string_view& token, const Binding& binding);
  [[gnu::cold]] const OptionDescription& copied(const OptionDescription& option);
  bool isRefused(std::string_view token, variant_t& value, int position,
                 const OptionDescription& option) const;

  std::optional<OptionDescription> m_copy;      // what asItStands() copied last
  const OptionDescription* m_copyOf = nullptr;  // the original of m_copy
  OwnedMemory* const m_texts;                   // null where there is no result
  std::string m_unstored;                       // the last text kept without a result
  // A member, so that the memory is reused for the next argument.
  OwnedMemoryOf<128> m_memory;
  OptionData m_data{&m_memory};
};

}  // namespace kivo_3_3
