#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

namespace kivo_3_3 {

/// Amends the option, action or modifier that was just declared.
///
/// Every operation returns the same builder, so that calls chain:
///
///     parser->option("level,l", "How hard to try", vtS32)->defaultValue(3)->tag("run");
///
/// The parser owns the builder. The builder is valid until the next declaration on the same
/// parser. A rejected declaration returns a builder too; its operations have no effect on any
/// option. An operation changes nothing if memory runs out; constructing a `variant_t` argument
/// from a text raises std::bad_alloc then.
class KIVO_API IOption {
 public:
  /// Adds a further name, unchanged: the name is not split at commas, and there is no check
  /// whether another option has the same name. Null changes nothing.
  virtual IOption* synonym(const char* name) = 0;

  /// Adds a value to the values the option accepts. An option without allowed values accepts
  /// every value of its type. Users may abbreviate an allowed text if it stays unambiguous. An
  /// option that did not split its values splits them at ',' from now on. The value must be of a
  /// kind that the option's type can read.
  virtual IOption* allowValue(const variant_t& value) = 0;

  /// Accepts `oldValue` too, with a warning that recommends `newValue`. Has an effect only if the
  /// option has allowed values. A second replacement for the same value is ignored. The warning
  /// shows a `newValue` that is a text; a number is shown as the empty text.
  virtual IOption* allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) = 0;

  /// Sets the value of the option if it is not given. The value must be of a kind that the
  /// option's type can read; it is not checked further. Each parse of a command line converts
  /// the value to text, in the global locale at that time.
  virtual IOption* defaultValue(const variant_t& value) = 0;

  /// Sets the character at which one argument is split into several values. It is ',' unless the
  /// parser was made with `parserFlags::noTokenizer`; the zero character means no splitting.
  virtual IOption* tokenize(char separator) = 0;

  /// Makes this option positional: it receives the arguments that name no option. If several
  /// options are positional, the one declared first receives all these arguments.
  virtual IOption* positional() = 0;

  /// Adds tags, separated by commas. An option with tags is accepted only with an action that has
  /// one of these tags; an action has its own names as tags. Null changes nothing.
  virtual IOption* tag(const char* tags) = 0;

 protected:
  virtual ~IOption();
};

}  // namespace kivo_3_3
