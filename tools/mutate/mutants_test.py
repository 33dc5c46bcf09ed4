"""Tests how a mutant is named: its key must survive what keeps the statement, and nothing else."""
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
import mutants

PLAIN = """
namespace n {
// Counts the even ones.
int Counter::even(const List& list, int limit) {
  int count = 0;
  for (int i = 0; i < limit; ++i)
    if (isEven(list[i]) && list[i] != "a  b")
      count += 1;  // one more
  return count;
}
}  // namespace n
"""


def keys(text, file="src/a/counter.cpp"):
    with tempfile.TemporaryDirectory() as tree:
        path = pathlib.Path(tree) / file
        path.parent.mkdir(parents=True)
        path.write_text(text)
        return [mutant.key() for mutant in mutants.mutants_of(tree, file)]


def lost(before, after):
    return sorted(set(keys(before)) - set(keys(after)))


class Keys(unittest.TestCase):
    def test_shows_file_function_statement_and_change(self):
        self.assertIn("src/a/counter.cpp: Counter::even: "
                      "for(int i=0;i @< -> <=@ limit;++i)if(isEven(list[i])&&list[i]!=\"a  b\")"
                      "count+=1", keys(PLAIN))
        self.assertIn("src/a/counter.cpp: Counter::even: @return count -> return{}@", keys(PLAIN))

    def test_each_mutant_has_its_own(self):
        self.assertEqual(len(keys(PLAIN * 2)), len(set(keys(PLAIN * 2))))
        self.assertIn("src/a/counter.cpp: Counter::even: int count= @0 -> 1@ #2", keys(PLAIN * 2))

    def test_lines_may_be_broken_otherwise(self):
        self.assertEqual(keys(PLAIN), keys(PLAIN.replace(" && ", " &&\n        ")
                                           .replace("(const List& list, ", "(const List& list,\n  ")
                                           .replace("i = 0; ", "i = 0;\n       ")))

    def test_indentation_and_comments_do_not_count(self):
        self.assertEqual(keys(PLAIN), keys(PLAIN.replace("\n  ", "\n      ")
                                           .replace("// one more", "// an even one")
                                           .replace("  return", "  // all < of them;\n  return")))

    def test_the_function_may_move_within_its_file(self):
        other = "int other() {\n  return 7 - 3;\n}\n"
        self.assertEqual([], lost(PLAIN, other + PLAIN))
        self.assertEqual([], lost(PLAIN, PLAIN + other))

    def test_statements_around_it_may_change(self):
        kept = [key for key in keys(PLAIN) if "for(" in key or "return" in key]
        self.assertEqual([], sorted(set(kept) - set(keys(PLAIN.replace("= 0;\n", "= 5;\n", 1)))))

    def test_a_change_of_the_statement_changes_the_key(self):
        for old, new in (("isEven", "isOdd"), ("+= 1", "+= 2"), ("&&", "||"), ("!=", "=="),
                         ("a  b", "a b")):
            with self.subTest(new):
                gone = lost(PLAIN, PLAIN.replace(old, new))
                self.assertEqual([key for key in keys(PLAIN) if "for(" in key], sorted(
                    gone, key=keys(PLAIN).index))

    def test_another_function_or_file_changes_the_key(self):
        self.assertEqual(set(keys(PLAIN)), set(lost(PLAIN, PLAIN.replace("::even", "::odd"))))
        self.assertFalse(set(keys(PLAIN)) & set(keys(PLAIN, "src/b/counter.cpp")))

    def test_a_space_that_separates_something_counts(self):
        self.assertEqual("a++ +b", mutants.normal("a++  +\nb"))
        self.assertEqual("a+ ++b", mutants.normal("a + ++b"))
        self.assertEqual("const int&x='a  b'", mutants.normal("const int& x = 'a  b'"))

    def test_a_condition_belongs_to_the_statement(self):
        text = "void f() {\n  if (a)\n    return;\n  else\n    go();\n  stay();\n}\n"
        self.assertEqual(["if(a) @return -> @", "else @go() -> @", "@stay() -> @"],
                         [key.split(": ")[-1] for key in keys(text) if "-> @" in key])

    def test_directives_and_static_assertions_do_not_count(self):
        text = "void f() {\n  static_assert(a < b);\n#if A < B\n  go(a < b);\n#endif\n}\n"
        self.assertIn("src/a/counter.cpp: f: go(a @< -> <=@ b)", keys(text))

    def test_classes_templates_and_lambdas(self):
        text = ("template <class T>\nclass [[gnu::visibility(\"default\")]] List final {\n"
                " public:\n"
                "  ~List() {\n    stop();\n  }\n  bool operator<(const List& o) const {\n"
                "    return any([&](int a) { return a < 3; });\n  }\n  int m_size = 0;\n};\n")
        self.assertEqual({"List::~List", "List::operator<", "List"},
                         {key.split(": ")[1] for key in keys(text)})
        self.assertIn("src/a/counter.cpp: List::operator<: return a @< -> <=@ 3", keys(text))


if __name__ == "__main__":
    unittest.main()
