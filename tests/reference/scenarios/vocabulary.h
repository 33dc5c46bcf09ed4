#pragma once

// The words of generated scenarios. There are few of them, so that name collisions, abbreviations
// and equal texts are frequent.

namespace kivo_3_3::scenarios::vocabulary {

// Two names that differ only after the 100 characters that count for a misspelt one.
constexpr const char* longName =
    "a-name-of-more-than-a-hundred-characters-é-a-name-of-more-than-a-hundred-characters-é-"
    "a-name-of-more-than-a-hundred-characters";
constexpr const char* otherLongName =
    "a-name-of-more-than-a-hundred-characters-é-a-name-of-more-than-a-hundred-characters-é-"
    "a-name-of-more-than-a-hundred-signs";
constexpr const char* names[] = {
    "level", "le", "l", "length", "a", "ab", "abc", "no-a", "color", "mode", "input", "v",
    "verbose", "x", "b", "out", "o", "no-b", "-x", "no-color", "two words", "a=b", "é", "fast",
    // for misspelt names, and for names that are no UTF-8
    "long-distance", "distances", "été-étés", "colors", longName, otherLongName,
    "control\x01\x7F\"", "cut\xC3", "cut\xFF", "cut\u2028", "cut😀"};
constexpr const char* shortNames[] = {"l", "v", "x", "b", "o", "le", "ab", "a", "né"};

constexpr const char* numbers[] = {
    "1",     "2",       "0",          "10",    "1",       "2",   "7 ", " 7", "0x1F",
    "1Fh",   "1234567", "3000000000", "5_",    "_5",      "1e3", "+4", "-5", "99999999999999999999",
    "12abc", "1.5",     "1,5",        "1.234", "1.234,5", "0X1", "FFH"};
constexpr const char* words[] = {"x",         "xyz",       "fast", "faster", "fa",  "slow", "a,b",
                                 ",,",        "two words", "a",    "b",      "x,x", "1",    "2",
                                 "fast,slow", "a,,b",      "F",    "–5",     "é",   "true", "s",
                                 "fast,fa",   "-5",        "=",    "a:b",    "; x", "nan"};
constexpr const char* allowedWords[] = {"fast", "faster", "fast", "faster", "slow",      "a",
                                        "b",    "x",      "xyz",  "",       "\"\\\t\xFF"};
constexpr const char* smallNumbers[] = {"1", "2", "0", "10", "7", "31", "-5"};

constexpr const char* types[] = {"s32",  "s32",    "string", "string", "string", "string",
                                 "bool", "bool",   "bool",   "null",   "null",   "u64",
                                 "u64",  "double", "double", "u32",    "s64",    "s32"};
constexpr const char* strangeTypes[] = {"strange", "wide",      "float",  "s8",
                                        "block",   "reference", "object", "negative"};
constexpr const char* kinds[] = {"bool", "s8",  "u8",    "s16",    "u16",    "s32",       "u32",
                                 "s64",  "u64", "float", "double", "string", "reference", "null"};

constexpr const char* groups[] = {"<null>",
                                  "<null>",
                                  "",
                                  "Main",
                                  "Main:Main options",
                                  "kivo_hidden",
                                  "Main:Again",
                                  "Other:",
                                  "kivo_hidden:Not for all",
                                  ":Without a heading",
                                  "Odd\xED\xA0\x80\x1F:\"In\xF4\x90\x80\x80tro\\\r",
                                  "Odd\xEE\xA0\xFF\x1F:Another"};
constexpr const char* longDescription =
    "A description that is long enough to be wrapped into the second line of its column, or into "
    "a third";
constexpr const char* descriptions[] = {
    "How hard to try",
    "",
    longDescription,
    "Two\nlines",
    "–é–",
    "\"\\/\b\f\r\t\x1B\x7F\u0085\u2028",
    "\xFF\xC0\xAF\xE0\x80\x80\xF0\x9F\x98\xF0\x9F\x98\x80",
    "<null>",
    "Averyveryverylongwordthatdoesnotfitintoanycolumnofthehelpandhastobebroken"};

// Of annotations. The last three differ, but not once they are repaired.
constexpr const char* keys[] = {"hint", "range", "range", "",      "<null>",
                                "\x01", "\xFF",  "\xFE",  "\uFFFD"};

constexpr const char* oddArguments[] = {"-",        "",    "---x", "--=3",  "-- x",      "--no-",
                                        "–level=3", "—-a", "--l=", "-no-a", "---",       "-=",
                                        "--a b",    "―x",  "–",    "a b",   "--no-no-a", "- -a"};
constexpr const char* dashes[] = {"--", "--", "--", "-", "-", "–", "—", "-–", "⁓", "‒―"};

constexpr const char* traceSwitch = "kivooption=kivologenable=1";
constexpr const char* fileNames[] = {"a", "b", "c", "args", "missing"};

}  // namespace kivo_3_3::scenarios::vocabulary
