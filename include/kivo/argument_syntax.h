#pragma once

#include <kivo/export.h>

#include <string>

namespace kivo_3_3 {

/// The length in bytes of the dash that starts at byte `pos` of `text`: 1 for "-", 3
/// for a typographic dash in UTF-8 (figure dash, en dash, em dash, horizontal bar,
/// swung dash), 0 if no dash starts there. A `pos` beyond the end raises std::out_of_range.
KIVO_API unsigned int getDashLength(const std::string& text, unsigned int pos);

/// Splits an argument into name and value, at the first '=' or run of white space.
///
///     "--level=3"  -> "level", "3", true
///     "--level 3"  -> "level", "3", true
///     "--level="   -> "level", "",  true     (split off, but empty)
///     "--level"    -> "level", value untouched, false
///
/// Up to two dashes of any kind are dropped before the name. The global locale decides what is
/// white space. A null `name` or `value` is not written to.
KIVO_API bool splitOptionValue(const std::string& arg, std::string* name, std::string* value);

}  // namespace kivo_3_3
