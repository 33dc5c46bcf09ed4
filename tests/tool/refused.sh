#!/usr/bin/env bash
# Checks that each wrong declaration fails to compile with its sentence, and that right ones compile.
#   refused.sh SOURCE-DIRECTORY COMPILER
set -euo pipefail
source=$1
compiler=$2
failures=0

# Compiles the body of a function that declares on `tool`. Prints the errors.
compile() {
  "$compiler" "${extensions:--std=c++17}" -fsyntax-only -I"$source/include" -I"$source/platform/stratum2/include" \
    -I"$source/platform/bedrock/include" -x c++ - 2>&1 <<EOF
#include <kivo/tool.h>
#include <memory>
struct Own {};
enum class Tone { warm, cold };
void declare(kivo::Tool& tool) { $1 }
EOF
}

complain() {
  echo "$1"
  failures=$((failures + 1))
}

refuses() {
  local sentence=$1 body=$2 errors
  if errors=$(compile "$body"); then
    complain "compiles: $body"
  elif ! grep -qF -- "$sentence" <<<"$errors"; then
    complain "'$sentence' is not told for: $body"$'\n'"$errors"
  fi
}

accepts() {
  local errors
  errors=$(compile "$1") || complain "does not compile: $1"$'\n'"$errors"
}

isConst="a const variable cannot receive a value"
refuses "$isConst" 'const int number = 1; tool.option("n", number, "");'
refuses "$isConst" 'const std::string text; tool.operand("n", text, "");'
refuses "$isConst" 'const std::vector<int> list; tool.rest("n", list, "");'

isPointer="a pointer can only be const char*"
refuses "$isPointer" 'int* number = nullptr; tool.option("n", number, "");'
refuses "$isPointer" 'char* text = nullptr; tool.option("n", text, "");'
refuses "$isPointer" 'const void* any = nullptr; tool.option("n", any, "");'
refuses "$isPointer" 'const unsigned char* text = nullptr; tool.option("n", text, "");'
refuses "$isPointer" 'const wchar_t* text = nullptr; tool.option("n", text, "");'
refuses "$isPointer" 'std::vector<int*> list; tool.rest("n", list, "");'

isNested="a list or an optional of lists or optionals"
refuses "$isNested" 'std::optional<std::vector<int>> list; tool.option("n", list, "");'
refuses "$isNested" 'std::vector<std::optional<int>> list; tool.option("n", list, "");'
refuses "$isNested" 'std::vector<std::vector<int>> list; tool.rest("n", list, "");'
refuses "$isNested" 'std::optional<std::optional<int>> one; tool.option("n", one, "");'

isParser="a parser returns what was expected: null or an empty text accepts the value"
refuses "$isParser" 'int n; tool.option("n", n, "", [](const char*, int&) { return false; });'
accepts 'int n; tool.option("n", n, "", [](const char*, int&) { return ""; });'
refuses "parseValue() returns what was expected: null or an empty text is fine" \
  '} bool parseValue(const char*, Own&); void more(kivo::Tool& tool) { Own n; tool.option("n", n, "");'
isWide="numbers have at most 64 bits"
extensions=-std=gnu++17 refuses "$isWide" '__int128 n; tool.option("n", n, "");'
extensions=-std=gnu++17 refuses "$isWide" '__float128 n; tool.option("n", n, "");'
accepts 'long double n; tool.option("n", n, "");'

refuses "std::vector<bool>: use std::vector<char>" \
  'std::vector<bool> list; tool.option("n", list, "");'

isWide="wide characters are not supported"
refuses "$isWide" 'wchar_t letter = 0; tool.option("n", letter, "");'
refuses "$isWide" 'char16_t letter = 0; tool.option("n", letter, "");'
refuses "$isWide" 'std::optional<char32_t> letter; tool.option("n", letter, "");'

isOwn="a type of your own needs parseValue(const char*, T&) or a parser"
refuses "$isOwn" 'Own own; tool.option("n", own, "");'
refuses "$isOwn" 'std::vector<Own> list; tool.rest("n", list, "");'
refuses "$isOwn" 'std::unique_ptr<int> number; tool.option("n", number, "");'
refuses "$isOwn" 'std::wstring text; tool.option("n", text, "");'
refuses "$isOwn" 'char text[10] = {}; tool.option("n", text, "");'
refuses "$isOwn" 'int Own::*member = nullptr; tool.option("n", member, "");'
refuses "$isOwn" 'std::nullptr_t nothing = nullptr; tool.option("n", nothing, "");'

refuses "a rest needs a std::vector" 'int number = 1; tool.rest("n", number, "");'
refuses "a rest needs a std::vector" 'std::optional<int> one; tool.rest("n", one, "");'

isRange="a range is for numbers"
refuses "$isRange" 'std::string text; tool.option("n", text, "").range("a", "b");'
refuses "$isRange" 'char letter = 0; tool.option("n", letter, "").range(0, 9);'
refuses "$isRange" 'bool truth = false; tool.flag("n", truth, "").range(false, true);'
refuses "$isRange" 'Tone tone{}; tool.option("n", tone, "").range(Tone::warm, Tone::cold);'

refuses "a text or a type of your own has choices without values" \
  'std::string text; tool.option("n", text, "").choices({{"a", "b"}, {"c", "d"}});'

refuses "a check returns what was expected: null or an empty text accepts the value" \
  'int number = 1; tool.option("n", number, "").check([](int) { return true; });'

accepts 'int number = 1; tool.option("n", number, "").range(1, 2).choices({{"a", 1}, {"b", 2}});'
accepts 'Own own; tool.option("n", own, "", [](const char*, Own&) { return ""; });'
accepts 'std::vector<char> list; tool.rest("n", list, "").choices({"a", "b"});'

echo "$failures failures"
[ "$failures" -eq 0 ]
