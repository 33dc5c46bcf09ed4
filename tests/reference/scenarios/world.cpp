#include "reference/scenarios/world.h"

#include "base/trace.h"
#include "recognizers/argument_parser.h"
#include "reference/argument_syntax.h"
#include "reference/parser.h"
#include "reference/positions.h"
#include "reference/result.h"
#include "reference/text_layout.h"
#include "reference/trace.h"

namespace kivo_3_3::scenarios {

namespace {

int& libraryCounter() { return IArgumentParser::m_idx; }
bool& librarySwitch() { return internal::kivoLogEnabled; }

}  // namespace

const World& libraryWorld() {
  static const World world = {createParser,     getLastValue,   paragraphString, describe,
                              annotate,         resolveName,    nearestName,     getDashLength,
                              splitOptionValue, libraryCounter, librarySwitch};
  return world;
}

const World& referenceWorld() {
  static const World world = {
      reference::createParser,    reference::getLastValue,  reference::paragraphString,
      reference::describe,        reference::annotate,      reference::resolveName,
      reference::nearestName,     reference::getDashLength, reference::splitOptionValue,
      reference::positionCounter, reference::traceSwitch};
  return world;
}

}  // namespace kivo_3_3::scenarios
