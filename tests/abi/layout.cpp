// Prints the layout of the records of the interface, and its numbers: tools have both compiled in.
// Compile this with -fno-access-control, because it reads private fields.
#include <kivo/kivo.h>

#include <cstddef>
#include <iostream>
#include <type_traits>

using namespace kivo_3_3;

namespace {

// The fields of a derived class begin where the data of the base class ends, maybe in its padding.
template <class T>
struct Followed : T {
  char next;
};

template <class T>
void record(const char* name) {
  std::cout << name << ": " << sizeof(T) << " bytes, data in " << offsetof(Followed<T>, next)
            << ", aligned to " << alignof(T) << '\n';
}

// A trivially copyable record would be passed in registers.
template <class T>
void handedOver() {
  std::cout << "  handed over by "
            << (std::is_trivially_copyable_v<T> ? "its bytes" : "its address") << '\n';
}

void field(const char* name, std::size_t offset, std::size_t size) {
  std::cout << "  " << name << ": " << size << " bytes at " << offset << '\n';
}

template <class T>
void enumeration(const char* name) {
  std::cout << name << ": " << sizeof(T) << " bytes, "
            << (std::is_signed_v<std::underlying_type_t<T>> ? "signed" : "unsigned") << '\n';
}

void number(const char* name, int value) { std::cout << "  " << name << " = " << value << '\n'; }

void records() {
  record<Value>("Value");
  field("text", offsetof(Value, text), sizeof(Value::text));
  field("isEmpty", offsetof(Value, isEmpty), sizeof(Value::isEmpty));
  field("position", offsetof(Value, position), sizeof(Value::position));
  field("value", offsetof(Value, value), sizeof(Value::value));
  handedOver<Value>();
  record<variant_t>("variant_t");
  field("m_value", offsetof(variant_t, m_value), sizeof(variant_t::m_value));
  field("m_type", offsetof(variant_t, m_type), sizeof(variant_t::m_type));
  handedOver<variant_t>();
  // The characters follow in the same block. Tools depend on this, because get<const char*>() is
  // inline.
  record<variant_t::data_t>("variant_t::data_t");
  field("m_bytes", offsetof(variant_t::data_t, m_bytes), sizeof(variant_t::data_t::m_bytes));
  field("m_references", offsetof(variant_t::data_t, m_references),
        sizeof(variant_t::data_t::m_references));
  field("m_offset", offsetof(variant_t::data_t, m_offset), sizeof(variant_t::data_t::m_offset));
  record<WordWrappedText>("WordWrappedText");
  field("m_text", offsetof(WordWrappedText, m_text), sizeof(WordWrappedText::m_text));
  record<EventHandler>("EventHandler");
  record<IParser>("IParser");
  record<IOption>("IOption");
  record<IParseResult>("IParseResult");
}

void types() {
  enumeration<variant_type_t>("variant_type_t");
  number("vtBool", vtBool);
  number("vtByte", vtByte);
  number("vtS8", vtS8);
  number("vtU8", vtU8);
  number("vtS16", vtS16);
  number("vtU16", vtU16);
  number("vtS32", vtS32);
  number("vtU32", vtU32);
  number("vtS64", vtS64);
  number("vtU64", vtU64);
  number("vtFloat", vtFloat);
  number("vtDouble", vtDouble);
  number("vtString", vtString);
  number("vtWideString", vtWideString);
  number("vtStringReference", vtStringReference);
  number("vtWideStringReference", vtWideStringReference);
  number("vtBlock", vtBlock);
  number("vtNull", vtNull);
  number("vtObject", vtObject);
  enumeration<result_t>("result_t");
  number("found", found);
  number("notFound", notFound);
}

void constants() {
  std::cout << "parserFlags\n";
  number("unknownArgumentIsError", parserFlags::unknownArgumentIsError);
  number("leftoverArgumentsArePositional", parserFlags::leftoverArgumentsArePositional);
  number("dashArgumentsAreNeverPositional", parserFlags::dashArgumentsAreNeverPositional);
  number("noTokenizer", parserFlags::noTokenizer);
  std::cout << "status\n";
  number("success", status::success);
  number("valueRefused", status::valueRefused);
  number("usageError", status::usageError);
  number("exceptionCaught", status::exceptionCaught);
  number("unidentifiedProblem", status::unidentifiedProblem);
  number("optionFileUnreadable", status::optionFileUnreadable);
  std::cout << "positions\n";
  number("firstPosition", firstPosition);
  number("lastPosition", lastPosition);
}

}  // namespace

int main() {
  records();
  types();
  constants();
}
