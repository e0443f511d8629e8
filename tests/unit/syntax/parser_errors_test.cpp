#include "unit/syntax/parsing.h"

#include "runtime/big_stack.h"
#include "syntax/nesting.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// What the parser reports must not depend on the factory that it talks to: a source is parsed twice, once to trees and
// once for its dependencies.

namespace tarn {
namespace {

using namespace tarn::test;

// The sources of tests/diagnostics hold the texts and places, by the parse into trees.
TEST(ParserErrorTest, TheScanForDependenciesReportsWhatTheParserDoes) {
    int broken = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TARN_TEST_DATA "/diagnostics")) {
        if (entry.path().extension() != ".java") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::string source(std::istreambuf_iterator<char>(in), {});
        std::string messages = messagesOfParse(source);
        EXPECT_EQ(messagesOfScan(source), messages) << entry.path();
        if (!messages.empty()) broken++;
    }
    EXPECT_GE(broken, 10);
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

} // namespace
} // namespace tarn
