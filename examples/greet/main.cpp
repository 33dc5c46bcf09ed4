#include <kivo/tool.h>

#include <iostream>

int main(int argc, char** argv) {
  unsigned int times = 1;
  std::string tone = "friendly";
  std::vector<std::string> names;

  kivo::Tool tool("greet", "Greets people.", "1.0");
  tool.option("times,t", times, "How often to greet.").range(1, 100);
  tool.option("tone", tone, "How to greet.").choices({"friendly", "formal"});
  tool.rest("name", names, "Whom to greet.").required();
  if (const std::optional<int> exit = tool.parse(argc, argv))
    return *exit;  // help, the version or an error has been printed

  for (const std::string& name : names)
    for (unsigned int i = 0; i < times; ++i)
      std::cout << (tone == "formal" ? "Good day, " : "Hello ") << name << '\n';
}
