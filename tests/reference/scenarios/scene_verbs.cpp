// The verbs of scenarios.

#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

namespace {

constexpr std::pair<std::string_view, Operation> verbs[] = {
    {"parser", &Scene::parser},
    {"result", &Scene::result},
    {"endparser", &Scene::endparser},
    {"endresult", &Scene::endresult},
    {"nowhere", &Scene::nowhere},
    {"option", &Scene::option},
    {"action", &Scene::action},
    {"modifier", &Scene::modifier},
    {"files", &Scene::files},
    {"together", &Scene::together},
    {"declared", &Scene::declared},
    {"resolve", &Scene::resolve},
    {"nearest", &Scene::nearest},
    {"annotate", &Scene::annotate},
    {"describe", &Scene::describe},
    {"synonym", &Scene::synonym},
    {"allow", &Scene::allow},
    {"deprecate", &Scene::deprecate},
    {"default", &Scene::defaults},
    {"tokenize", &Scene::tokenize},
    {"positional", &Scene::positional},
    {"tag", &Scene::tag},
    {"add", &Scene::add},
    {"remove", &Scene::remove},
    {"direct", &Scene::direct},
    {"undirect", &Scene::undirect},
    {"forward", &Scene::forward},
    {"react", &Scene::react},
    {"answer", &Scene::answer},
    {"throw", &Scene::throws},
    {"send", &Scene::send},
    {"resend", &Scene::resend},
    {"parse", &Scene::parse},
    {"vector", &Scene::vector},
    {"stream", &Scene::stream},
    {"spoil", &Scene::spoil},
    {"present", &Scene::present},
    {"get", &Scene::get},
    {"next", &Scene::next},
    {"position", &Scene::position},
    {"last", &Scene::last},
    {"first", &Scene::first},
    {"nextargument", &Scene::nextargument},
    {"read", &Scene::read},
    {"error", &Scene::error},
    {"help", &Scene::help},
    {"paragraph", &Scene::paragraph},
    {"dash", &Scene::dash},
    {"split", &Scene::split},
    {"locale", &Scene::locale},
    {"assertions", &Scene::assertions},
    {"console", &Scene::console},
    {"counter", &Scene::counter},
    {"buffer", &Scene::buffer},
    {"budget", &Scene::budget},
    {"file", &Scene::file},
    {"folder", &Scene::folder},
};

}  // namespace

Operation Scene::operation(std::string_view verb) {
  static const std::unordered_map<std::string_view, Operation> operations(std::begin(verbs),
                                                                          std::end(verbs));
  const auto known = operations.find(verb);
  return known != operations.end() ? known->second : nullptr;
}

}  // namespace kivo_3_3::scenarios
