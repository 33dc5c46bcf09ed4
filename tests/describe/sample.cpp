// A tool that has everything that a description can have, for the check with the schema.

#include <kivo/kivo.h>

#include <iostream>

int main() {
  const kivo::ParserHandle parser = kivo::makeParser();
  parser->action("pack,p", "", kivo::vtNull, "\xFF:one");
  parser->action("list", "", kivo::vtString, "\xFE:two")->tokenize('\xE4');
  parser->modifier("level", "pack", "", kivo::vtS32)
      ->allowValue(1)
      ->allowDeprecatedValue(2, 1)
      ->defaultValue(1);
  parser->modifier("lost", "nobody", "", kivo::vtBool)->defaultValue(true);
  parser->option("other", "", stratum2::vtFloat)->allowValue(1.5)->defaultValue(1.5);
  parser->option("none", "", kivo::vtNull)->allowDeprecatedValue(1, 2)->defaultValue(1);
  parser->allowSimultaneousActions({"\xFE", "\xFF"});
  kivo::annotate(*parser, "level", "range", "1 to 2");
  kivo::annotate(*parser, nullptr, "\xFF", "");
  const kivo::ParserHandle add = kivo::makeParser(kivo::parserFlags::noTokenizer);
  add->option("force", "", kivo::vtBool)->positional();
  kivo::annotate(*add, nullptr, "footer", "Bye.");
  const kivo::CommandInfo commands[] = {{"remote add", "Adds one.", add.get()},
                                        {"remote", nullptr, add.get()}};
  std::cout << kivo::describe(*parser, {"sample", nullptr, "\xFF"}, commands, 2) << '\n';
}
