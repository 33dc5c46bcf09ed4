#pragma once

// The base of the recognizers: the position counter, and the binding of a value to an option. If
// the binding were wrong, a value would be stored that its type, its option or a handler refuses.

#include <kivo/event_handler.h>

#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "base/trace.h"
#include "base/white_space.h"
#include "options/option_data.h"
#include "options/option_description.h"
#include "recognizers/argument_window.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Raised if no position is left: no position may be drawn twice in a process.
class PositionsExhausted final : public std::exception {};

// A recognizer decides whether an argument gives a declared option, and binds the option's value.
// The driver calls recognize() of every recognizer; of those that claim the argument, the one with
// the highest priority then parses it.
class IArgumentParser {
 public:
  // `handler` is notified of every event; null if there are no handlers when the recognizer is
  // made. The texts of values are copied to `texts`; null without a result.
  IArgumentParser(EventHandler* handler, OwnedMemory* texts, int flags);
  IArgumentParser(const IArgumentParser&) = delete;
  IArgumentParser& operator=(const IArgumentParser&) = delete;

  virtual ~IArgumentParser() = default;

  // Returns 0 if this recognizer claims the first argument of `args`, otherwise 1. `error` is
  // unused.
  virtual int recognize(ArgumentWindow& args, OptionList& options, std::string& error) = 0;

  // Binds the argument that recognize() claimed last, and drops the arguments of the option and its
  // value from the front of `args`. Returns a status. After a failure, `args` is unchanged, nothing
  // is stored, and `error` has the reason. Sets `optionIndex` to the number of the option, which
  // only tests read.
  virtual int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
                    unsigned int& optionIndex, std::string& error) = 0;

  // The end of a message: " in argument: '--level'". Virtual, as all operations of a recognizer; no
  // recognizer overrides it.
  virtual std::string formatTokenMessage(std::string_view token) const;

  virtual int getPriority() = 0;

  // Draws the next position of the process; any thread may call this. Each stored occurrence,
  // value, default and leftover argument has a position of its own. Positions are below the largest
  // int, which means "no position". If none is left, raises PositionsExhausted, and the counter is
  // unchanged.
  KIVO_API static int getNewPositionIndex();
  // The counter: the next position. Exported, so code outside of the library may set it.
  KIVO_API static int m_idx;

  // Draws `count` positions in a row and returns the first of them. If fewer are left, draws and
  // returns none.
  static std::optional<int> drawInARow(unsigned int count);

 protected:
  // The option as it is before the first event of the current occurrence; valid until the next
  // call. A handler may amend the option declared last, and no other. So if there are handlers,
  // that option is copied; the copy is renewed if the option has changed.
  const OptionDescription& asItStands(const OptionDescription& option, const OptionList& options) {
    const bool canChange = m_handler != nullptr && &option == &options.back();
    return canChange ? copied(option) : option;
  }

  // White space in the global locale of the moment. The locale is looked up once as long as no code
  // of the tool runs between two arguments: a handler, or a stream buffer of the tool that receives
  // the trace or a warning.
  const WhiteSpace& whiteSpace() {
    if (m_handler != nullptr || internal::kivoLogEnabled || !m_whiteSpace)
      m_whiteSpace.emplace();
    return *m_whiteSpace;
  }

  // Notifies the handlers that the option was recognized.
  void announce(const OptionDescription& option) const;

  // Splits `value` if the option splits its values; converts, checks and announces each token; and
  // passes the occurrence to `collector`, unless that is null. An empty `value` makes an occurrence
  // without values. The first of `args` is the argument being parsed, for messages. Returns a
  // status; after a failure, `error` has the reason, and nothing is stored.
  int parseValueAndAddOption(std::string_view value, std::string& error,
                             const OptionDescription& option, const ArgumentWindow& args,
                             IResultCollector* collector);

  // Drops the first argument of `args`, and traces that.
  void removeFront(ArgumentWindow& args) const;

  // Sets `error` to `message`, traces it, and returns status::usageError.
  int fail(std::string& error, std::string message) const;

  // Traces one line that begins with the name of this recognizer.
  template <class... Parts>
  void trace(const Parts&... parts) const {
    internal::traceLine(m_name, parts...);
  }

  EventHandler* const m_handler;           // null without handlers
  const char* m_name = "UndefinedParser";  // until a recognizer sets its own name
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

  std::optional<WhiteSpace> m_whiteSpace;       // what whiteSpace() returned last
  std::optional<OptionDescription> m_copy;      // the copy that asItStands() made last
  const OptionDescription* m_copyOf = nullptr;  // the option that m_copy was copied from
  OwnedMemory* const m_texts;                   // null without a result
  std::string m_unstored;                       // the copy that kept() made last without a result
  // Members, so that every argument reuses the same memory.
  OwnedMemoryOf<128> m_memory;
  OptionData m_data{&m_memory};
};

}  // namespace kivo_3_3
