#include "syntax/tree.h"

#include "runtime/failure.h"
#include "semantic/universe.h"
#include "unit/syntax/parsing.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

using namespace tarn::test;

Name* nameOf(std::string_view text) {
    return Name::fromString(text);
}

std::string textOf(const Name* name) {
    return name != nullptr ? name->toString() : "-";
}

TEST(TreeTest, ANodeWhoseNameIsMissingIsErroneous) {
    Arena arena;
    Name* missing = names().error;
    Ident ident(1, missing);
    Select select(1, missing, &ident);
    VarDef var(1, missing, 0, &ident, nullptr);
    MethodDef method(arena, 1, treetag::METHODDEF, missing, 0, nullptr, {}, {}, nullptr);
    for (const NamedTree* tree : {static_cast<NamedTree*>(&ident), static_cast<NamedTree*>(&select),
                                  static_cast<NamedTree*>(&var), static_cast<NamedTree*>(&method)}) {
        EXPECT_EQ(tree->tag, treetag::ERRONEOUS);
        EXPECT_EQ(tree->name, missing);
    }
    EXPECT_EQ(Ident(1, nameOf("a")).tag, treetag::IDENT);
    EXPECT_EQ(MethodDef(arena, 1, treetag::CATCH, nullptr, 0, nullptr, {}, {}, nullptr).tag, treetag::CATCH);
}

TEST(TreeTest, TheErroneousTreeHasTheErrorTypeAndNothingElse) {
    Context context;
    Tree* tree = Tree::erroneous();
    EXPECT_EQ(tree->attr(nullptr, 0, nullptr), errType);
    EXPECT_EQ(tree->type, errType);
    EXPECT_THROW(tree->gen(), InternalError);
    EXPECT_EQ(tree->fullName(), nullptr);
    EXPECT_THROW(Tree(1, treetag::BREAK).attr(nullptr, 0, nullptr), InternalError);
}

TEST(TreeTest, FullNamesAreThoseOfNamesOnly) {
    Ident a(1, nameOf("a"));
    Select ab(1, nameOf("b"), &a);
    Select abc(1, nameOf("c"), &ab);
    Indexed indexed(1, &ab, &a);
    Select ofIndexed(1, nameOf("c"), &indexed);
    Select broken(1, names().error, &a);
    EXPECT_EQ(textOf(a.fullName()), "a");
    EXPECT_EQ(textOf(abc.fullName()), "a.b.c");
    EXPECT_EQ(textOf(ofIndexed.fullName()), "-");
    EXPECT_EQ(textOf(indexed.fullName()), "-");
    EXPECT_EQ(textOf(broken.fullName()), "a.<error>");
}

TEST(TreeTest, BodiesAndBlocksFillInWhatIsMissing) {
    Arena arena;
    Break jump(7, nullptr);
    MethodDef clause(arena, 1, treetag::CATCH, nullptr, 0, nullptr, {}, {}, &jump);
    ASSERT_NE(clause.body, nullptr);
    EXPECT_EQ(clause.body->pos, 7);
    EXPECT_EQ(clause.body->endPos, 7);
    ASSERT_EQ(clause.body->stats.size(), 1u);
    EXPECT_EQ(clause.body->stats[0], &jump);
    MethodDef method(arena, 1, treetag::METHODDEF, nameOf("f"), 0, nullptr, {}, {}, clause.body);
    EXPECT_EQ(method.body, clause.body);
    EXPECT_EQ(Block(3, Trees()).endPos, 3);

    Synchronized sync(2, &jump, clause.body, arena.make<Block>(2, Trees()));
    EXPECT_EQ(sync.tag, treetag::SYNCHRONIZED);
    EXPECT_TRUE(sync.catchers.empty());
    EXPECT_EQ(sync.finalizer->tag, treetag::BLOCK);
}

TEST(TreeTest, AnIdentOfASymbolTakesItsType) {
    Context context;
    Ident ident(1, nameOf("int"), context.intType->tsym);
    EXPECT_EQ(ident.sym, context.intType->tsym);
    EXPECT_EQ(ident.type, context.intType->tsym->type);
}

TEST(TreeTest, OperatorNamesOfACompoundAssignmentAreThoseOfItsOperator) {
    names(); // the first name opens the table, spellings included
    std::string texts;
    for (int tag = treetag::OR_OR; tag <= treetag::MOD; tag++) texts += textOf(operatorName(tag)) + " ";
    EXPECT_EQ(texts, "|| && == != < > <= >= | ^ & << >> >>> + - * / % ");
    texts.clear();
    for (int tag = treetag::ASSIGN; tag <= treetag::MOD_ASG; tag++) texts += textOf(operatorName(tag)) + "= ";
    EXPECT_EQ(texts, "= |= ^= &= <<= >>= >>>= += -= *= /= %= ");
    texts.clear();
    for (int tag = treetag::POS; tag <= treetag::POSTDEC; tag++) texts += textOf(operatorName(tag)) + " ";
    EXPECT_EQ(texts, "+ - ! ~ ++ -- ++ -- ");
    EXPECT_THROW(operatorName(treetag::TYPECAST), InternalError);
}

TEST(TreeBuilderTest, ListsAreUsedAgain) {
    Arena arena;
    TreeBuilder builder(arena);
    Tree tree(1, treetag::ERRONEOUS);
    TreeBuffer* first = builder.newList();
    TreeBuffer* second = builder.append(builder.newList(), &tree);
    EXPECT_NE(first, second);
    EXPECT_EQ(builder.single(first), nullptr);
    EXPECT_EQ(builder.single(builder.append(builder.append(first, &tree), &tree)), nullptr);
    EXPECT_EQ(builder.single(second), &tree);
    EXPECT_EQ(builder.newList(), second);
    Tree* block = builder.block(1, first);
    EXPECT_EQ(dynamic_cast<Block&>(*block).stats.size(), 2u);
    EXPECT_EQ(builder.newList(), first);
    EXPECT_TRUE(first->empty());
}

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
