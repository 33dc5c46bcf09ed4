#pragma once

#include <kivo/parser.h>

#include <memory>

namespace kivo_3_3 {

/// Ends a parser or a result through its own destroy().
struct Destroy {
  template <class T>
  void operator()(T* object) const {
    object->destroy();
  }
};

/// Owns a parser, and ends it with the handle.
using ParserHandle = std::unique_ptr<IParser, Destroy>;
/// Owns a result, and ends it with the handle.
using ResultHandle = std::unique_ptr<IParseResult, Destroy>;

/// A new parser, or an empty handle when it cannot be made; `flags` as for createParser().
inline ParserHandle makeParser(int flags = 0) {
  IParser* parser = nullptr;
  createParser(&parser, flags);
  return ParserHandle(parser);
}

/// An empty result for `parser` to fill, or an empty handle when it cannot be made.
inline ResultHandle makeResult(IParser& parser) {
  IParseResult* result = nullptr;
  parser.createResult(&result);
  return ResultHandle(result);
}

}  // namespace kivo_3_3
