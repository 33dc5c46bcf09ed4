#include "tool/declaration.h"

#include <new>

#include "tool/tool_data.h"

namespace kivo_3_3::tool_glue {

OwnedCallable::OwnedCallable(const Callable& callable) : m_callable(callable) {
  if (callable.size != 0 && callable.function == nullptr)
    throw std::bad_alloc();
}

OwnedCallable& OwnedCallable::operator=(OwnedCallable&& other) noexcept {
  std::swap(m_callable, other.m_callable);
  return *this;
}

OwnedCallable::~OwnedCallable() {
  if (m_callable.function != nullptr)
    m_callable.destroy(m_callable.function);
}

int OwnedCallable::operator()(void* first, void* second, Text& answer) const {
  return m_callable.call(m_callable.function, first, second, answer);
}

std::string_view ToolData::keep(std::string_view text, std::string_view before) {
  const std::size_t size = before.size() + text.size();
  char* const kept = static_cast<char*>(memory.allocate(size + 1, 1));
  before.copy(kept, before.size());
  text.copy(kept + before.size(), text.size());
  kept[size] = '\0';
  return {kept, size};
}

Declaration::~Declaration() {
  if (staged != nullptr)
    type->destroy(staged);
}

bool Declaration::takesValue() const {
  if (use == Use::flag || use == Use::count || use == Use::action)
    return false;
  return type == nullptr || type->kind != Kind::boolean || !choices.empty() || function;
}

bool Declaration::takesAnyText() const {
  const bool isText = type == nullptr || type->kind == Kind::object || function;
  return isText && takesValue() && choices.empty();
}

variant_type_t parserType(const Declaration& declaration) {
  if (declaration.use == Use::flag || declaration.use == Use::count ||
      declaration.use == Use::action)
    return vtNull;
  const VariableType* type = declaration.type;
  if (type == nullptr || declaration.function || !declaration.choices.empty())
    return vtString;
  const bool isWide = type->bytes > sizeof(s32_t);
  switch (type->kind) {
    case Kind::boolean:
      return vtBool;
    case Kind::integer:
      return isWide ? vtS64 : vtS32;
    case Kind::natural:
      return isWide ? vtU64 : vtU32;
    case Kind::real:
      return vtDouble;
    default:
      return vtString;
  }
}

variant_type_t readType(const Declaration& declaration) {
  const variant_type_t type = parserType(declaration);
  const bool isLong = type == vtDouble && declaration.type->bytes > sizeof(double);
  return isLong || declaration.hasDeprecatedChoices() ? vtString : type;
}

}  // namespace kivo_3_3::tool_glue
