#include "unit/syntax/parsing.h"

#include "runtime/big_stack.h"
#include "syntax/nesting.h"

#include <gtest/gtest.h>

#include <string>

// What the parser reports, and where. A source is parsed twice, once to trees and once for its dependencies: the
// factory must make no difference.

namespace tarn {
namespace {

using namespace tarn::test;

struct Row {
    const char* source;
    const char* messages;
};

template <std::size_t Count>
void check(const Row (&rows)[Count], const std::string& before, const std::string& after) {
    for (const Row& row : rows) {
        std::string source = before + row.source + after;
        EXPECT_EQ(messagesOfParse(source), row.messages) << row.source;
        EXPECT_EQ(messagesOfScan(source), row.messages) << row.source;
    }
}

/// The rows are statements, in line 2.
template <std::size_t Count>
void checkStatements(const Row (&rows)[Count]) {
    check(rows, "class C { void m() {\n", "\n}}");
}

TEST(ParserErrorTest, TermsThatAreNoStatement) {
    checkStatements({
        {"a.b;", "2:3 not a statement"},
        {"a;", "2:1 not a statement"},
        {"a + b;", "2:3 not a statement"},
        {"-a;", "2:1 not a statement"},
        {"(a) b;", "2:1 not a statement"},
        {"(a);", "2:2 not a statement"},
        {"this;", "2:1 not a statement"},
        {"new int[1];", "2:5 not a statement"},
        {"(a[0]) b;", "2:3 not a statement; 2:8 ';' expected"},
        {"int;", "2:1 malformed declaration"},
        {"a[];", "2:2 malformed declaration"},
        {"int[5] a;", "2:4 not a statement; 2:8 ';' expected"},
        {"for (int; ; ) ;", "2:6 malformed declaration"},
        {"(x): f();", "2:2 not a statement; 2:4 ';' expected"},
    });
}

TEST(ParserErrorTest, BrokenTermsAreReportedOnce) {
    checkStatements({
        {"= 1;", "2:1 illegal start of expression"},
        {"x = ;", "2:5 illegal start of expression"},
        {"(;", "2:2 illegal start of expression"},
        {"f(;", "2:3 illegal start of expression"},
        {"a[;", "2:3 illegal start of expression"},
        {"a[] = b;", "2:2 malformed declaration; 2:5 ';' expected"},
        {"int.a b;", "2:1 basic type cannot be dereferenced"},
        {"f(a, );", "2:6 illegal start of expression"},
        {"goto a;", "2:1 illegal start of expression"},
        {"public int a;", "2:1 illegal start of expression"},
        {"a.;", "2:3 <identifier> expected"},
        {"x = a.;", "2:7 <identifier> expected"},
        {"x = a.new;", "2:10 <identifier> expected"},
        {"x = int;", "2:5 illegal start of type"},
        {"x = int[];", "2:5 illegal start of expression"},
        {"x = a[];", "2:5 illegal start of expression"},
        {"f(int[]);", "2:3 illegal start of expression"},
        {"x = int[5];", "2:5 illegal start of type"},
        {"x = int.a;", "2:5 basic type cannot be dereferenced"},
        {"x = int[].a;", "2:11 class expected"},
        {"x = (a) instanceof;", "2:19 illegal start of type"},
        {"x = new int;", "2:12 '(' or '[' expected"},
        {"new int;", "2:8 '(' or '[' expected"},
        {"x = new int[];", "2:14 '{' expected"},
        {"x = new 5;", "2:9 illegal start of type"},
        {"x = new int.a();", "2:9 basic type cannot be dereferenced"},
        {"x = (a ? b, c : d);", "2:11 : expected"},
        {"x = {1};", "2:5 illegal start of expression"},
        {"int a[] = {1, , 2};", "2:15 illegal start of expression"},
        {"A.super.f();", "2:1 illegal qualifier for super"},
        {"a().super.f();", "2:1 illegal qualifier for super"},
        {"a instanceof B C;", "2:3 not a statement; 2:16 ';' expected"},
    });
}

TEST(ParserErrorTest, BrokenStatements) {
    checkStatements({
        {"f()\ng();", "2:4 ';' expected"},
        {"f() g();", "2:5 ';' expected"},
        {"f(a", "2:4 ')' expected"},
        {"f(a;", "2:4 ')' expected"},
        {"a b c;", "2:5 ';' expected"},
        {"int i = 1, ;", "2:12 <identifier> expected"},
        {"if a) f();", "2:4 '(' expected"},
        {"while (a f();", "2:10 ')' expected"},
        {"do f(); f();", "2:9 while expected"},
        {"else f();", "2:1 'else' without 'if'"},
        {"if (a) f(); else g(); else h();", "2:23 'else' without 'if'"},
        {"finally { }", "2:1 'finally' without 'try'"},
        {"catch (E e) { }", "2:1 'catch' without 'try'"},
        {"try { } f();", "2:1 'try' without 'catch' or 'finally'"},
        {"{ case 1: f(); }", "2:3 'case' outside of switch; 3:2 'class' or 'interface' expected"},
        {"default: f();", "2:1 'default' outside of switch; 3:2 'class' or 'interface' expected"},
        {"switch (a) { f(); }", "2:14 '}' expected; 3:2 'class' or 'interface' expected"},
        {"final x: f();", "2:8 <identifier> expected"},
        {"final final int i;", "2:7 repeated modifier"},
        {"abstract f();", "2:10 'class' expected"},
        {"try f(); catch (E e) { }", "warning 2:5 obsolete syntax: '{' now required here"},
        {"try { } finally f();", "warning 2:17 obsolete syntax: '{' now required here"},
        {"x = #;", "2:5 illegal character"},
        {"x = 2147483648;", "2:5 integer number too large"},
        {"x = -2147483648;", ""},
        {"x = * -2147483648;", "2:5 illegal start of expression"},
        {"x = a + -2147483648;", ""},
        {"x = a - 2147483648;", "2:9 integer number too large"},
        {"x = -a - 2147483648;", "2:10 integer number too large"},
        {"x = ] f(a; b) { c; } ; g();", "2:5 illegal start of expression"},
    });
}

TEST(ParserErrorTest, BrokenMembers) {
    const Row rows[] = {
        {"foo() { }", "2:4 invalid method declaration; return type required"},
        {"C.D() { }", "2:4 invalid method declaration; return type required"},
        {"int () { }", "2:5 <identifier> expected"},
        {"int a", "2:6 ';' expected"},
        {"int a b;", "2:7 ';' expected"},
        {"int 5;", "2:5 <identifier> expected"},
        {"int[5] a;", "2:5 ']' expected"},
        {"public public int a;", "2:8 repeated modifier"},
        {"public { }", "2:8 illegal start of type"},
        {"static public { }", "2:15 illegal start of type"},
        {"if (a) { }", "2:1 illegal start of type"},
        {"int.a b;", "2:1 basic type cannot be dereferenced"},
        {"class extends D { }", "2:7 <identifier> expected; 3:2 '}' expected"},
        {"C()[] { }", "2:4 '{' expected; 3:2 '}' expected"},
    };
    check(rows, "class C {\n", "\n}");
}

TEST(ParserErrorTest, BrokenUnits) {
    check(
        {
            {"}", "1:1 'class' or 'interface' expected"},
            {"class A { } } } class B { }", "1:13 'class' or 'interface' expected"},
            {"int a; class B { }", "1:1 'class' or 'interface' expected"},
            {"import a class B { }", "1:10 ';' expected"},
            {"import a.b", "1:11 ';' expected"},
            {"import a.b.*; import", "1:21 <identifier> expected"},
            {"import a.*.b;", "1:11 ';' expected"},
            {"package ; class A { }", "1:9 <identifier> expected"},
            {"package int; class A { }", "1:9 illegal start of type"},
            {"class { }", "1:7 <identifier> expected"},
            {"class A extends { }", "1:17 illegal start of type"},
            {"class A extends int[5] { }", "1:21 ']' expected"},
            {"class A { void f() { ", "1:22 '}' expected"},
            {"class A { void f() { if (a", "1:27 ')' expected"},
            {"interface I { int a; }", "1:20 missing initializer"},
            {"interface I { int a, b = 1; }", "1:20 missing initializer"},
            {"interface I { int a = 1, b; }", "1:27 missing initializer"},
            {"interface I { I(); }", "1:16 invalid method declaration; return type required"},
            {"interface I { { } }", "1:15 illegal start of type"},
            {"interface I { class J { int; } interface K { int a; } }",
             "1:28 <identifier> expected; 1:51 missing initializer"},
        },
        "", "");
}

TEST(ParserErrorTest, ParsingGoesOnBehindAnError) {
    EXPECT_EQ(parseStatements("x = ; f();"), "(exec (= x ERROR)) (exec (call f [])) | 2:5 illegal start of expression");
    EXPECT_EQ(parseMembers("foo() { f(); } int a;"),
              "(method <> <error> foo [] [] ({} [(exec (call f []))])) (var <> int a -)"
              " | 2:4 invalid method declaration; return type required");
    EXPECT_EQ(parseMembers("int 5; int b;"), "(var <error> -) (var <> int b -) | 2:5 <identifier> expected");
    ParsedSource unit("} class A { } } interface B { }");
    EXPECT_EQ(unit.text(), "(class <> A - [] []) (class <interface> B - [] [])");
    EXPECT_EQ(unit.log.text(), "1:1 'class' or 'interface' expected; 1:15 'class' or 'interface' expected");
}

TEST(ParserErrorTest, EveryPrefixOfASourceComesToAnEnd) {
    const std::string source =
        "package a.b; import c.*; public class D extends E implements F { int[] g[] = {1, {2}}, h;"
        "D(final int i) throws G { super(i); } static { for (int j = 0; j < 1; j++) { } }"
        "int k()[] { switch (a) { case 1: break; default: return (int[]) b[0].c(new L() { }); }"
        "try { do x: f(); while (-1 > 'c'); } catch (M m) { throw m; } finally { ; }"
        "synchronized (this) { if (int[].class == n.class) a = b ? c : \"d\"; else e++; } } }";
    EXPECT_EQ(messagesOfParse(source), "");
    for (std::size_t length = 0; length < source.size(); length++) {
        std::string prefix = source.substr(0, length);
        EXPECT_EQ(messagesOfParse(prefix), messagesOfScan(prefix)) << prefix;
        messagesOfParse(prefix + " ) } ] { " + source.substr(length));
    }
}

// Nesting

struct Nested {
    const char* before;
    const char* opening; ///< repeated
    const char* middle;
    const char* closing; ///< repeated
    const char* after;
    bool isChain = false; ///< parsed by a loop, so that only the tree is deep
};

const Nested nestings[] = {
    {"class C { int i = ", "(", "1", ")", ";}"},
    {"class C { int i = ", "- ", "1", "", ";}"},
    {"class C { int i = ", "(int) ", "1", "", ";}"},
    {"class C { int i = ", "a = ", "1", "", ";}"},
    {"class C { int i = ", "a ? b : ", "1", "", ";}"},
    {"class C { int i = ", "a ? ", "1", " : b", ";}"},
    {"class C { int i = ", "f(", "1", ")", ";}"},
    {"class C { int i = ", "f(a, ", "1", ")", ";}"},
    {"class C { int i = ", "a[", "1", "]", ";}"},
    {"class C { int i = ", "new int[", "1", "]", ";}"},
    {"class C { int i = ", "new A(", "1", ")", ";}"},
    {"class C { int i = ", "a.new A(", "", ")", ";}"},
    {"class C { int i = ", "1 + (", "1", ")", ";}"},
    {"class C { int[] i = ", "{", "1", "}", ";}"},
    {"class C { int[] i = ", "new int[] {", "1", "}", ";}"},
    {"class C { void f() ", "{", "", "}", "}"},
    {"class C { void f() { ", "if (a) ", ";", "", "}}"},
    {"class C { void f() { ", "if (a) ; else ", ";", "", "}}"},
    {"class C { void f() { ", "x: ", ";", "", "}}"},
    {"class C { void f() { ", "while (a) { ", ";", "}", "}}"},
    {"class C { void f() { ", "for (;;) ", ";", "", "}}"},
    {"class C { void f() { ", "do ", ";", "while (a);", "}}"},
    {"class C { void f() { ", "switch (a) { case 1: ", ";", "}", "}}"},
    {"class C { void f() { ", "try {", ";", "} finally { }", "}}"},
    {"class C { void f() { ", "try { } catch (E e) {", ";", "}", "}}"},
    {"class C { void f() { ", "synchronized (a) ", ";", "", "}}"},
    {"class C { int i = 1", "", "", " + 1", ";}", true},
    {"class C { int i = a", "", "", ".a", ";}", true},
    {"class C { int i = a", "", "", "[0]", ";}", true},
    {"class C { int i = a", "", "", ".f()", ";}", true},
    {"class C { int i = a", "", "", "++", ";}", true},
    {"class C { int", "", "", "[]", " i;}", true},
    {"class C { int i", "", "", "[]", ";}", true},
    {"class C { int i = new int[1]", "", "", "[]", ";}", true},
};

const Nested nestedClasses[] = {
    {"", "class A { ", "", "}", ""},
    {"", "class A { void f() { ", "", "}}", ""},
    {"class C { Object o = ", "new A() { Object o = ", "a", "; }", ";}"},
};

std::string textOf(const Nested& nested, int depth) {
    return nested.before + repeat(nested.opening, depth) + nested.middle + repeat(nested.closing, depth) + nested.after;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// Whether the messages are one that the nesting is too deep.
bool isTooDeep(const std::string& messages) {
    return endsWith(messages, " nesting too deep") && messages.find(';') == std::string::npos;
}

void checkNesting(const Nested& nested, int accepted, int refused) {
    std::string shallow = textOf(nested, accepted);
    EXPECT_EQ(messagesOfParse(shallow), "") << nested.opening << nested.closing << accepted;
    EXPECT_EQ(messagesOfScan(shallow), "") << nested.opening << nested.closing << accepted;
    std::string deep = textOf(nested, refused);
    std::string messages = messagesOfParse(deep);
    EXPECT_TRUE(isTooDeep(messages)) << nested.opening << nested.closing << ": " << messages;
    messages = messagesOfScan(deep);
    EXPECT_TRUE(nested.isChain ? messages.empty() : isTooDeep(messages))
        << nested.opening << nested.closing << ": " << messages;
}

TEST(NestingTest, DeepSourcesParseAndTooDeepOnesGiveOneError) {
    runOnBigStack([] {
        bool isFullStack = nestingLimit() == MAX_NESTING; // a sanitizer takes a smaller one
        for (const Nested& nested : nestings) checkNesting(nested, isFullStack ? 10'000 : 1'000, 60'000);
        for (const Nested& nested : nestedClasses) checkNesting(nested, isFullStack ? 400 : 40, 10'000);
    });
}

TEST(NestingTest, AnOrdinaryStackHoldsToo) {
    for (const Nested& nested : nestings) checkNesting(nested, 100, 20'000);
    for (const Nested& nested : nestedClasses) checkNesting(nested, 5, 10'000);
}

TEST(NestingTest, ChainsWithinChainsAddUp) {
    runOnBigStack([] {
        std::string chain = repeat(" + 1", 1'000);
        std::string source = "class C { int i = " + repeat("(", 1'000) + "1" + repeat(chain + ")", 1'000) + ";}";
        EXPECT_TRUE(isTooDeep(messagesOfParse(source)));
        EXPECT_EQ(messagesOfScan(source), "");
    });
}

TEST(NestingTest, WhatFollowsAClassThatIsTooDeepIsStillScannedUpToIt) {
    MessageLog log;
    StoreRef source = sourceOf("class A { } class B { int i = " + repeat("(", 200'000));
    Scanner scanner(*source, std::nullopt);
    DependencyScanner factory;
    Parser(scanner, factory).compilationUnit();
    ASSERT_EQ(factory.classes.size(), 2u);
    EXPECT_EQ(factory.classes[1]->toString(), "B");
}

TEST(ParserErrorTest, AnExpressionEndsBeforeWhatFollows) {
    Context context;
    MessageLog log;
    Arena arena;
    TreeBuilder builder(arena);
    StoreRef source = sourceOf("a + b; c");
    Scanner scanner(*source, std::nullopt);
    EXPECT_EQ(dump(Parser(scanner, builder).expression()), "(+ a b)");
    EXPECT_EQ(scanner.token, Token::SEMICOLON);
}

} // namespace
} // namespace tarn
