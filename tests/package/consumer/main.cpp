#include <kivo/kivo.h>

#include <iostream>
#include <string>

// Uses every kind of type and call of the interface.
namespace {

// g++ also warns about the base class of a handler, which has no virtual destructor on purpose. All
// other warnings stay on.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class Announcer final : public kivo::EventHandler {
 public:
  bool onValueParse(const char* name, const kivo::Value& value) override {
    std::cout << name << " = " << value.as<const char*>() << '\n';
    return true;
  }
};
#pragma GCC diagnostic pop

}  // namespace

int main(int argc, const char* const* argv) {
  const kivo::ParserHandle parser = kivo::makeParser(kivo::parserFlags::unknownArgumentIsError);
  Announcer announcer;
  parser->addHandler(&announcer);
  parser->option("level,l", "How hard to try", kivo::vtS32)->allowValue(1)->allowValue(2);
  parser->option("name", "What to call it", kivo::vtString)->defaultValue("nothing");
  const kivo::ResultHandle result = kivo::makeResult(*parser);
  const int status = parser->parseArgsVector(argc, argv, result.get());
  if (status != kivo::status::success) {
    std::cout << parser->getErrorDesc() << '\n';
    return status;
  }
  const kivo::Value level = kivo::getLastValue(result.get(), "level");
  std::cout << level.value.get<int>() << ' ' << result->get("name").text << '\n';
  for (const kivo::Value& value : kivo::values(*result, "level"))
    std::cout << kivo::valueOr(*result, "level", 0.5) * value.value.get<double>() << '\n';
  for (const char* leftover : kivo::leftovers(*result))
    std::cout << leftover << kivo::valueOr<std::string>(*result, "no such", "!") << '\n';
  return status;
}
