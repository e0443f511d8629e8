#include "syntax/dependency_scanner.h"

#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"
#include "unit/syntax/parsing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarn {
namespace {

using namespace tarn::test;

std::string join(const std::vector<Name*>& names) {
    std::string text;
    for (const Name* name : names) text.append(text.empty() ? "" : " ").append(name->toString());
    return text;
}

std::string scanWith(std::string_view text, bool wantsCode) {
    MessageLog log;
    StoreRef source = sourceOf(text);
    Scanner scanner(*source, std::nullopt);
    DependencyScanner factory;
    factory.wantsCode = wantsCode;
    Parser(scanner, factory).compilationUnit();
    return factory.packageName->toString() + " | " + join(factory.imports) + " | " + join(factory.classes);
}

/// "package | imports | classes", which are the same whether code is read or passed over.
std::string scan(std::string_view text) {
    std::string found = scanWith(text, true);
    EXPECT_EQ(scanWith(text, false), found) << text;
    return found;
}

struct Row {
    const char* source;
    const char* found;
};

TEST(DependencyScannerTest, FindsPackageAndImports) {
    const Row rows[] = {
        {"", ". |  | "},
        {"class A { }", ". |  | A"},
        {"package a; class A { }", "a |  | a.A"},
        {"package a.b.c;", "a.b.c |  | "},
        {"import a.b.C; import a.d.*; import E; import f.*; class G { }", ". | a.b a.d f | G"},
        {"package a; import a.b.*; interface C { } final class D { }", "a | a.b | a.C a.D"},
        {"package ; class A { }", ". |  | A"},
        {"package a.; class A { }", ". |  | A"},
        {"import a.; import ; class A { }", ". | a | A"},
    };
    for (const Row& row : rows) EXPECT_EQ(scan(row.source), row.found) << row.source;
}

TEST(DependencyScannerTest, NamesClassesAsACompileDoes) {
    const Row rows[] = {
        {"package p; class A { class B { class C { } } class D { } }", "p |  | p.A$B$C p.A$B p.A$D p.A"},
        {"package p; class A { void f() { class L { class M { } } class L2 { } } }",
         "p |  | p.A$1$L$M p.A$1$L p.A$2$L2 p.A"},
        {"class A { Object o = new B() { }; { new B() { class C { } }; } }", ". |  | A$1 A$2$C A$2 A"},
        {"class A { Object o = new B() { Object p = new C() { }; }; }", ". |  | A$2 A$1 A"},
        // A local class hangs on the outermost class, and what is in it hangs on the local class.
        {"class A { class B { void f() { class L { class M { } } new C() { class N { } }; } } }",
         ". |  | A$1$L$M A$1$L A$1$N A$1 A$B A"},
        {"class A { void f() { class L { void g() { class M { } new B() { }; } } } }", ". |  | A$2$M A$1 A$1$L A"},
        // The numbers go on through the unit.
        {"class A { Object o = new X() { }; } class B { Object o = new X() { }; void f() { class L { } } }",
         ". |  | A$1 A B$2 B$1$L B"},
        {"class A { void f() { class L { } } } class B { void f() { class L { } } }", ". |  | A$1$L A B$2$L B"},
        {"class A { void f() { interface I { } } }", ". |  | A$1$I A"},
        // A local class steps aside for a member of an anonymous class, wherever that follows.
        {"class A { void f() { class L { } class M { } } Object o = new X() { class L { } class M { } }; }",
         ". |  | A$2$L A$3$M A$1$L A$1$M A$1 A"},
        // A class whose name is missing, and all in it, is left out, but it counts.
        {"class A { void f() { class { class B { } } class L { } } }", ". |  | A$2$L A"},
        {"class { class B { } } class C { }", ". |  | C"},
        {"class A { int i = ; class B { } void f( { new C() { }; } ", ". |  | A$B A"},
    };
    for (const Row& row : rows) EXPECT_EQ(scan(row.source), row.found) << row.source;
}

TEST(DependencyScannerTest, PassesOverCodeWithoutClasses) {
    // Each body is followed by a member class and a class, which show whether its end was found, and the line.
    const char* const bodies[] = {
        "",
        "{ { } } ; { }",
        "char c = '}'; String s = \"}\\\"{\"; c = '\\''; c = '\"'; c = '\\\\'; c = '\\175';",
        "/* } */ // }\n /** \\ **/ /*/ } /*/ a /= b / c; // \\\r\n",
        "Class d = A.class; d = int[] . /**/ class;",
        "f(new int[] { 1, (2) }, new A(new A(b)[0].c()), new a.b.C()); if (new A() == null) { }",
        "new A().f(); if (x) { renew(); newer.classes = interfaces; }",
        "for (;;) \r { } \f { }",
        // What is left to a full parse.
        "class L { } f(new X(g()) { });",
        "new /**/ X(\")\") // {\n { class M { } };",
        "o.new B() { };",
        "char c = '\\u007d'; String s = \"\\u0022; }",
        "\\u007b \\u007d int \u00e9;",
        "int i = (((((1)))));",
        "/* \\u002a/ class L { }",
        "// \\u000a class L { }\n",
    };
    for (const std::string body : bodies) {
        scan("class A { void f() throws X {" + body + "} static {" + body + "} class B { } } class C { }");
    }
    EXPECT_EQ(scan("class A { void f() { if (a) { b(); } \n class B { } } } class C { }"), ". |  | A$1$B A C");
    EXPECT_EQ(scan("class A { void f() { if (a) { b(); } \n } class B { } } class C { }"), ". |  | A$B A C");
}

/// The names that a unit gives to the local and anonymous classes below a tree, in the order in which their bodies end;
/// the names in between are those of members.
class ClassNames {
public:
    explicit ClassNames(CompilationUnit& unit) : unit_(unit) {}

    void enter(Tree* tree, ClassSymbol* encl, bool isLocal) {
        auto& def = dynamic_cast<ClassDef&>(*tree);
        Name* flat = def.name;
        if (def.name == nullptr) {
            def.name = unit_.anonymousName(def);
            isLocal = true;
        }
        if (encl != nullptr) flat = isLocal ? unit_.localClassName(def, encl) : formFlatName(def.name, encl);
        ClassSymbol* owner = encl != nullptr ? encl : context().rootPackage;
        ClassSymbol* c = context().newClass(0, flat, owner);
        for (Tree* member : def.body->stats) visit(member, c);
        names.push_back(flat);
    }

    std::vector<Name*> names;

private:
    void visit(Tree* member, ClassSymbol* c) {
        if (member->tag == treetag::CLASSDEF) enter(member, c, false);
        if (auto* method = dynamic_cast<MethodDef*>(member)) visitStatements(method->body->stats, c);
        if (auto* variable = dynamic_cast<VarDef*>(member)) visitExpression(variable->init, c);
    }
    void visitStatements(Trees stats, ClassSymbol* c) {
        // Backwards: the names must not depend on the order in which they are asked for.
        for (std::size_t i = stats.size(); i-- > 0;) {
            Tree* tree = stats[i];
            if (tree->tag == treetag::CLASSDEF) enter(tree, c, true);
            if (auto* statement = dynamic_cast<Exec*>(tree)) visitExpression(statement->expr, c);
        }
    }
    void visitExpression(Tree* tree, ClassSymbol* c) {
        if (auto* creation = dynamic_cast<NewClass*>(tree)) enter(creation->def, c, true);
    }

    CompilationUnit& unit_;
};

TEST(DependencyScannerTest, TreesCarryTheSameNumbersInAnyOrderOfAttribution) {
    const char* text =
        "class A { Object o = new X() { }; void f() { class L { } new X() { Object p = new Y() { }; };"
        "class M { class N { } void g() { class O { } new X() { }; } } } class B { Object q = new X() { }; } }";
    ParsedSource source(text);
    TreeBuffer* list = source.builder.newList();
    for (Tree* def : source.defs) list = source.builder.append(list, def);
    auto& unit = dynamic_cast<CompilationUnit&>(*source.builder.compilationUnit(list, nullptr));
    ClassNames names(unit);
    names.enter(unit.defs[0], nullptr, false);
    EXPECT_EQ(join(names.names), "A$1 A$2$M$N A$4 A$3$O A$2$M A$3 A$2 A$1$L A$5 A$B A");
    // The scan, in order of the source.
    EXPECT_EQ(scan(text), ". |  | A$1 A$1$L A$3 A$2 A$2$M$N A$3$O A$4 A$2$M A$5 A$B A");
}

TEST(DependencyScannerTest, ClassesMadeLaterGetNumbersBehindThoseOfTheSource) {
    ParsedSource source("class A { void f() { class L { } new X() { }; } }");
    TreeBuffer* list = source.builder.newList();
    for (Tree* def : source.defs) list = source.builder.append(list, def);
    auto& unit = dynamic_cast<CompilationUnit&>(*source.builder.compilationUnit(list, nullptr));
    ClassSymbol* a = source.context.newClass(0, Name::fromString("p.A"), source.context.rootPackage);
    Block body(0, Trees());
    ClassDef local(0, Name::fromString("K"), 0, nullptr, {}, &body);
    EXPECT_EQ(unit.localClassName(local, a)->toString(), "p.A$2$K");
    EXPECT_EQ(unit.localClassName(local, a)->toString(), "p.A$3$K");
    ClassDef anonymous(0, nullptr, 0, nullptr, {}, &body);
    EXPECT_EQ(unit.anonymousName(anonymous)->toString(), "2");
    EXPECT_EQ(unit.anonymousName(anonymous)->toString(), "3");
}

} // namespace
} // namespace tarn
