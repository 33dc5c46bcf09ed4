// The parts of variant_t that are compiled once, in the library: owned texts and comparisons.
// Comparisons decide which values an option allows; a wrong reference count frees a text in use.

#include "stratum2/variant.h"

#include <cstring>
#include <new>

#include "bedrock/assertion.h"
#include "counter.h"
#include "stratum2/text_pool.h"

namespace stratum2 {

namespace {

void verify(bool holds, const char* expression, int line) {
  if (!holds)
    BEDROCK::assertion_failed(expression, __FILE__, line);
}

}  // namespace

allocator_t variant_t::m_mem;

int string_compare(const char* left, const char* right) { return std::strcmp(left, right); }

void* allocator_t::allocate(std::size_t bytes) { return ::operator new(bytes); }

void allocator_t::free(void* memory) noexcept { ::operator delete(memory); }

variant_t::variant_t(const char* text, bool reference)
    : m_type(reference ? vtStringReference : vtString) {
  if (text == nullptr)
    text = "";
  if (reference) {
    m_value.m_reference = text;
    return;
  }
  const std::size_t bytes = std::strlen(text) + 1;
  m_value.m_data = new (m_mem.allocate(sizeof(data_t) + bytes)) data_t{bytes, {1}, 0};
  std::memcpy(reinterpret_cast<char*>(m_value.m_data + 1), text, bytes);
}

void variant_t::retain() noexcept { add(m_value.m_data->m_references, 1); }

void variant_t::free(data_t* data) noexcept {
  if (data->m_offset == 0)
    m_mem.free(data);
  else
    text_pool_t::leave(data);
}

// The last owner skips the atomic subtraction: no other variant can reach the count any more.
void variant_t::release() noexcept {
  std::atomic<int>& references = m_value.m_data->m_references;
  if (references.load(std::memory_order_acquire) == 1 || add(references, -1) == 1)
    free(m_value.m_data);
}

void variant_t::reportUnsuitableRead() { verify(false, "can_get<T>()", __LINE__); }

bool variant_t::operator==(const variant_t& var) const {
  if (isInteger() && var.isInteger())
    return m_value.m_unsigned == var.m_value.m_unsigned && isNegative() == var.isNegative();
  if (isNumber() && var.isNumber())
    return number() == var.number();
  if (isText() && var.isText())
    return string_compare(text(), var.text()) == 0;
  return m_type == var.m_type;
}

bool variant_t::operator<(const variant_t& var) const {
  if (isInteger() && var.isInteger())
    return isUnsigned() && var.isUnsigned() ? m_value.m_unsigned < var.m_value.m_unsigned
                                            : m_value.m_signed < var.m_value.m_signed;
  if (isNumber() && var.isNumber())
    return number() < var.number();
  if (isText() && var.isText())
    return string_compare(text(), var.text()) < 0;
  if (m_type != var.m_type)
    return var.m_type < m_type;
  verify(m_type == vtNull && var.m_type == vtNull, "m_type == vtNull && var.m_type == vtNull",
         __LINE__);
  return false;
}

}  // namespace stratum2
