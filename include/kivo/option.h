#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

namespace kivo_3_3 {

/// Amends the option, action or modifier that was just declared.
///
/// Every operation returns the same builder, so that calls chain:
///   parser->option("level,l", "How hard to try", vtS32)->defaultValue(3)->tag("run");
///
/// The parser owns the builder. It is valid until the next declaration on the same
/// parser. A declaration that was rejected returns a builder too; what is called on it
/// has no effect on any option. An operation for which memory runs out changes nothing
/// at all; a `variant_t` made from a text for it raises std::bad_alloc itself.
class KIVO_API IOption {
 public:
  /// Adds a further name, as it stands: nothing is split off at commas, and nobody
  /// checks whether another option has it. Null changes nothing.
  virtual IOption* synonym(const char* name) = 0;

  /// Adds a value to those the option accepts; without any, every value of its type is
  /// accepted. Users may shorten an allowed text as long as it stays unambiguous. An
  /// option that was not splitting its values splits them at ',' from now on. The value
  /// must be of a kind that the option's type can read.
  virtual IOption* allowValue(const variant_t& value) = 0;

  /// Accepts `oldValue` too, with a warning that points to `newValue`. Looked at only
  /// where the option has allowed values; the first replacement for a value stays. The
  /// warning shows a `newValue` that is a text; a number is shown as the empty text.
  virtual IOption* allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) = 0;

  /// What the option answers when it was not given. The value must be of a kind that
  /// the option's type can read; beyond that it is not checked against anything. It becomes
  /// text at every parse of a command line, in the global locale of that moment.
  virtual IOption* defaultValue(const variant_t& value) = 0;

  /// The character at which one argument is split into several values, ',' unless the
  /// parser was made otherwise; the zero character means that nothing is split.
  virtual IOption* tokenize(char separator) = 0;

  /// Makes this the option that receives arguments which name no option. The first
  /// such option declared receives them all.
  virtual IOption* positional() = 0;

  /// Adds tags, separated by commas. An option with tags goes only with an action that
  /// has one of them; an action has its own names as tags. Null changes nothing.
  virtual IOption* tag(const char* tags) = 0;

 protected:
  virtual ~IOption();
};

}  // namespace kivo_3_3
