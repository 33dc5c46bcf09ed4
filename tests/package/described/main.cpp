#include <kivo/kivo.h>

int main(int argc, char** argv) {
  const kivo::ParserHandle parser = kivo::makeParser();
  parser->option("loud,l", "Shout.", kivo::vtBool);
  int status = 0;
  kivo::describeIfAsked(*parser, {"hello-world", "1.2", "Greets the world."}, argc, argv, &status);
  return status;
}
