#!/usr/bin/env python3
"""Which changes scripts/mutate makes of a text, and which it doesn't."""
import sys
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).parents[2] / "scripts"))

from cpp_mutants import mutants_of  # noqa: E402


def changes(text, *kinds):
    return [mutant.after for mutant in mutants_of("a.cpp", text)
            if not kinds or mutant.kind in kinds]


def in_body(*lines):
    return "void f() {\n" + "\n".join(lines) + "\n}\n"


class Mutants(unittest.TestCase):
    def test_comparisons_are_changed(self):
        self.assertEqual(changes("bool a = b == c;"), ["bool a = b != c;"])
        self.assertEqual(changes("bool a = b < c;"), ["bool a = b <= c;"])
        self.assertEqual(changes("bool a = b && c;"), ["bool a = b || c;"])

    def test_a_not_is_left_out(self):
        self.assertEqual(changes(in_body("if (!a) return;")), ["if (a) return;"])

    def test_a_condition_is_negated(self):
        self.assertEqual(changes(in_body("if (a.b()) return;")), ["if (!(a.b())) return;"])

    def test_what_another_change_does_is_not_done_twice(self):
        self.assertEqual(changes(in_body("if (a == b) return;")), ["if (a != b) return;"])

    def test_a_condition_behind_an_initializer_is_negated(self):
        self.assertIn("if (auto a = f(); !(a.b)) g();", changes(in_body("if (auto a = f(); a.b) g();")))

    def test_a_declaration_in_a_condition_stays(self):
        self.assertEqual(changes(in_body("if (auto a = f()) g(a);"), "condition"), [])

    def test_numbers_are_one_more_or_doubled(self):
        self.assertEqual(changes("int a = 9;"), ["int a = 10;"])
        self.assertEqual(changes("int a = 3'000;"), ["int a = 6000;"])
        self.assertEqual(changes("double a = 0.5;"), ["double a = 1.5;"])
        self.assertEqual(changes("int a = 0x0f;"), ["int a = 0x10;"])
        self.assertEqual(changes("int a = 0600;"), ["int a = 0601;"])

    def test_calls_and_assignments_are_left_out(self):
        self.assertEqual(changes(in_body("a.b(c)->d();"), "call"), [""])
        self.assertEqual(changes(in_body("(void)a.b();"), "call"), [""])
        self.assertEqual(changes(in_body("a.b = c;"), "call"), [""])
        self.assertEqual(changes(in_body("a[b] += c;"), "call"), [""])

    def test_neighbors_change_places(self):
        self.assertEqual(changes(in_body("a();", "b();"), "order"), ["b(); a();"])

    def test_assignments_that_do_not_touch_each_other_stay_in_their_order(self):
        self.assertEqual(changes(in_body("a.x = b.x();", "a.y = b.y;"), "order"), [])
        self.assertEqual(changes(in_body("a.x = b;", "c = a.x;"), "order"), ["c = a.x; a.x = b;"])
        self.assertEqual(changes(in_body("a = f(1);", "b = f(2);"), "order"),
                         ["b = f(2); a = f(1);"])

    def test_statements_that_others_part_stay_in_their_order(self):
        self.assertEqual(changes(in_body("a();", "if (c) {", "}", "b();"), "order"), [])
        self.assertEqual(changes(in_body("a();", "int c = d;", "b();"), "order"), [])

    def test_bodies_of_lambdas_and_loops_are_bodies(self):
        self.assertEqual(changes(in_body("auto a = [&](int b) {", "c();", "};"), "call"), [""])
        self.assertEqual(changes(in_body("for (int a : b) {", "c();", "}"), "call"), [""])

    def test_declarations_stay(self):
        for line in ("std::string a(b);", "Type a = b;", "const auto& a = b();", "return a();",
                     "std::vector<int> a;", "using a::b;"):
            self.assertEqual(changes(in_body(line)), [], line)
        self.assertEqual(changes("class A {\n A();\n ~A();\n};\n"), [])
        self.assertEqual(changes("namespace a {\nb c(d);\n}\n"), [])

    def test_comments_texts_and_includes_stay(self):
        for line in ('// a == 1', '/* a\n == 1 */', 'f = "a == 1";', "#include <a1.h>",
                     "#define A \\\n  b == 1", 'f = R"(a == 1)";', "f = '1';"):
            self.assertEqual(changes(line), [], line)

    def test_templates_and_references_stay(self):
        for line in ("template <int a> void b();", "std::vector<a> b(c&& d);",
                     "bool operator==(const A&) const;", "bool operator<(A b);"):
            self.assertEqual(changes(line), [], line)

    def test_a_mutant_is_the_text_with_one_change(self):
        text = "bool a = b == c;\nint d = 1;\n"
        first, second = mutants_of("a.cpp", text)
        self.assertEqual(first.applied(text), "bool a = b != c;\nint d = 1;\n")
        self.assertEqual((second.line, second.before, second.after), (2, "int d = 1;", "int d = 2;"))


if __name__ == "__main__":
    unittest.main()
