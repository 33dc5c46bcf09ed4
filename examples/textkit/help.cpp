#include "help.h"

namespace textkit {
namespace {

std::string describeTopic(kivo::IParser& parser, const char* topic) {
  std::string text = parser.getDescription(topic, false);
  if (parser.isOptionDeclared(topic, true, nullptr)) {
    text += parser.getActionModifiersDescription(topic, false);
    text += "\nWith every action:\n";
    text += parser.getGlobalModifiersDescription(false);
  }
  return text;
}

}  // namespace

std::string describeTopics(kivo::IParser& parser, const std::vector<std::string>& topics) {
  if (topics.empty())
    return parser.getDescription(false);
  std::string text;
  for (const std::string& topic : topics) {
    if (!text.empty())
      text += '\n';
    text += describeTopic(parser, topic.c_str());
  }
  return text;
}

}  // namespace textkit
