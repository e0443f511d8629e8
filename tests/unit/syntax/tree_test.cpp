#include "syntax/tree.h"

#include "unit/syntax/parsing.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

using namespace tarn::test;

/// What `print` writes for a whole source.
std::string printed(std::string_view source) {
    ParsedSource unit(source);
    for (Tree* tree : unit.defs) tree->print();
    return unit.log.printed;
}

TEST(TreePrintTest, ExpressionsKeepTheParenthesesThatTheyNeed) {
    const char* const rows[][2] = {
        {"(a + b) * c - d", "(a + b) * c - d"},
        {"a + (b * c)", "a + b * c"},
        {"-(a + b)", "- (a + b)"},
        {"(a = b) + (c ? d : e)", "(a = b) + (c ? d : e)"},
        {"a = b += c[1]", "a = (b += c[1])"},
        {"(String) (a + b)", "(String)(a + b)"},
        {"a++ instanceof B", "a ++ instanceof B"},
        {"(a || b) && c", "(a || b) && c"},
        {"(new A(b, c)).d", "(new A(b, c)).d"},
        {"a.new B()", "a.new B()"},
        {"new int[3][]", "new int[][]"},
        {"new int[] {1, 2}", "{1, 2}"},
        {"A.this.b(this)", "A.this.b(this)"},
        {"\"\\n\" + 'c' + 1.0f", "\"\\n\" + 'c' + 1.0"},
    };
    for (const auto& [source, text] : rows)
        EXPECT_EQ(printed("class C { Object o = " + std::string(source) + "; }"),
                  "class C {\n   Object o = " + std::string(text) + ";\n}")
            << source;
}

TEST(TreePrintTest, StatementsAreIndented) {
    EXPECT_EQ(printed("public class A extends B implements C, D { static final int i = 1; static { f(); }"
                      "abstract void f(int a, E[] b) throws F; A() { if (a) b(); else { } } }"),
              "public class A extends B implements C, D {\n"
              "   static final int i = 1;\n"
              "   static {\n"
              "      f();\n"
              "   };\n"
              "   abstract void f(int a, E[] b) F;;\n"
              "    <init>() {\n"
              "      if (a) {\n"
              "         b();\n"
              "      } else {\n"
              "         {\n"
              "         };\n"
              "      };\n"
              "   };\n"
              "}");
    EXPECT_EQ(printed("interface I extends J { }"), "interface I extends J {\n}");
    EXPECT_EQ(printed("class C { { x: for (int i = 0; ; i++) { break x; } switch (a) { case 1: return; default: } } }"),
              "class C {\n"
              "   {\n"
              "      x: for (int i = 0; ; i ++) {\n"
              "         {\n"
              "            break x;\n"
              "         };\n"
              "      };\n"
              "      switch (a) {\n"
              "      case 1:\n"
              "         return ;\n"
              "      default:\n"
              "      };\n"
              "   };\n"
              "}");
    EXPECT_EQ(printed("class C { { try { } catch (E e) { throw e; } finally { } while (a) ; do ; while (b);"
                      "synchronized (c) { } } }"),
              "class C {\n"
              "   {\n"
              "      try {\n"
              "      } catch (E e) {\n"
              "         throw e;\n"
              "      } finally {\n"
              "      };\n"
              "      while (a) {\n"
              "      };\n"
              "      do {\n"
              "      } while (b);\n"
              "      synchronized (c) {\n"
              "         {\n"
              "         };\n"
              "      };\n"
              "   };\n"
              "}");
    EXPECT_EQ(printed("package a.b; import c.*;"), "package a.bimport c.*");
}

} // namespace
} // namespace tarn
