#include "evaluation.h"

#include "runtime/console.h"
#include "runtime/failure.h"
#include "semantic/symbol.h"
#include "syntax/tree_builder.h"

namespace tarn {
namespace {

const char* const good = R"(package p;
public class Subject {
    int f;
    void stop(int i) {
        i = 2;
    }
    class Inner { }
})";

constexpr int STOP = 5;
constexpr const char* IN_SOURCE = "cannot evaluate expression: error in source ByteArrayStore[Subject.java]:";

class EvalServingTest : public EvaluationTest {
protected:
    EvalServingTest() { setSource(good); }
    void expectServed() { EXPECT_EQ(evaluate(STOP, "f + i"), ""); }
};

struct Row {
    int line;
    const char* expression;
    const char* failure;
};

TEST_F(EvalServingTest, FailuresAreTextsAndTheNextRequestIsServed) {
    const Row rows[] = {
        {STOP, "", "error in expression (column = 1): illegal start of expression"},
        {STOP, "  f +", "error in expression (column = 6): illegal start of expression"},
        {STOP, "f f", "error in expression (column = 3): malformed expression"},
        {STOP, "f; f", "error in expression (column = 4): malformed expression"},
        {STOP, "f)", "error in expression (column = 2): malformed expression"},
        {STOP, "/* f", "error in expression (column = 1): unclosed comment"},
        {STOP, "'", "error in expression (column = 1): unclosed character literal"},
        {STOP, "nowhere", "error in expression (column = 1): variable nowhere not found in class p.Subject"},
        {STOP, "f = 1L", "error in expression (column = 5): possible loss of precision: long, required: int"},
        {STOP, "stop(1)",
         "error in expression (column = 0): method box(void) not found in class quillon.compiler.loader.EvalSupport"},
        {STOP, "toString()", "error in expression (column = 1): not supported: remote method calls"},
        {STOP, "super.toString()", "error in expression (column = 7): not supported: remote method calls"},
        {STOP, "Subject.class", "error in expression (column = 9): not supported: remote method calls"},
        {STOP, "new Object() { int x; }", "error in expression (column = 11): expression cannot be evaluated"},
        {STOP, "new Inner()", "error in expression (column = 10): expression cannot be evaluated"},
        {STOP, "(i > 0 ? this : new Subject()).f", "error in expression (column = 8): expression cannot be evaluated"},
        {1, "f", ": error #800: not a valid line for an expression"},
        {0, "f", ": error #800: not a valid line for an expression"},
        {-7, "f", ": error #800: not a valid line for an expression"},
    };
    for (const Row& row : rows) {
        std::string failure = evaluate(row.line, row.expression);
        if (row.failure[0] == ':')
            EXPECT_EQ(failure, IN_SOURCE + std::to_string(std::max(row.line, 0)) + row.failure);
        else
            EXPECT_EQ(failure, row.failure) << row.expression;
        EXPECT_THROW(file->read(), IoFailure) << row.expression; // nothing was written
    }
    expectServed();
}

TEST_F(EvalServingTest, AFaultOfTheSourceIsToldWithItsPlace) {
    expectServed();
    setSource("package p;\npublic class Subject {\n    int f = 1L;\n    void stop(int i) {\n        i = 2;\n    }\n}");
    std::string failure = std::string(IN_SOURCE) + "3: error #355: possible loss of precision: long, required: int";
    EXPECT_EQ(evaluate(STOP, "f"), failure);
    EXPECT_EQ(evaluate(STOP, "((("), failure); // the expression is not looked at
    setSource(good);
    expectServed();
}

TEST_F(EvalServingTest, AChangedSourceIsReadAgainAndAnUnchangedOneIsNot) {
    host.options().quiet = false;
    auto lines = [&](auto request) {
        testing::internal::CaptureStdout();
        request();
        flushConsole();
        std::string printed = testing::internal::GetCapturedStdout();
        return std::count(printed.begin(), printed.end(), '\n');
    };
    EXPECT_EQ(lines([&] { expectServed(); }), 1);
    EXPECT_EQ(lines([&] {
                  for (const char* text : {"f", "nowhere", "i = f", "((", "toString()"}) evaluate(STOP, text);
                  expectServed();
              }),
              0);
    EXPECT_EQ(evaluate(STOP, "more"), "error in expression (column = 1): variable more not found in class p.Subject");
    setSource("package p;\npublic class Subject {\n    int more;\n    void stop() {\n    }\n}");
    EXPECT_EQ(lines([&] { EXPECT_EQ(evaluate(STOP, "more"), ""); }), 1);
}

TEST_F(EvalServingTest, OperationsDoNotDisturbEachOther) {
    expectServed();
    StoreRef other = ByteArrayStore::root("Other.java");
    auto write = [&](std::string_view text) { other->write(Bytes(text.begin(), text.end())); };
    write("package p; class Other { Subject s; int n() { return s.nothing; } }");
    out->becomeDirectory();
    EXPECT_FALSE(host.compile(other, out, &reporter));
    EXPECT_EQ(HostCompiler::reporter(), &reporter);
    expectServed();
    EXPECT_NE(host.symbolAt(source, (5 << 10) + 9), nullptr);
    expectServed();

    reporter.said.clear();
    RecordingReporter fresh;
    write("package p; public class Other { public static final int N = 3; }");
    StoreRef both[] = {other, source};
    EXPECT_EQ(host.compile(both, path, &fresh), (std::vector<bool>{true, true}));
    EXPECT_EQ(fresh.said, std::vector<std::string>());
    expectServed();

    // A store in memory takes a path for a name, so the class is put where it is looked for.
    auto putOther = [&] { path->create("p/Other.class")->write(path->lookup("p")->lookup("Other.class")->read()); };
    putOther();
    EXPECT_EQ(evaluate(STOP, "Other.N"), "");
    write("package p; public class Other { public static final int M = 4; }");
    EXPECT_TRUE(host.compile(other, path, &fresh));
    putOther();
    EXPECT_EQ(evaluate(STOP, "Other.M"), "") << "what was compiled is read again";
    ClassSymbol* info = host.classInfo("p.Other");
    EXPECT_EQ(info->toString(), "class p.Other");
    EXPECT_NE(info->pool, nullptr);
    EXPECT_EQ(host.classInfo("p.Other"), info);
    EXPECT_NE(host.symbolAt(source, (5 << 10) + 9), nullptr);
    EXPECT_NE(host.classInfo("java.lang.String")->pool, nullptr) << "also of a class that an operation has read";
    EXPECT_THROW(host.classInfo("p.None"), IoFailure);
    expectServed();

    Arena arena;
    TreeBuilder builder(arena);
    host.parseWith(source, builder, &fresh);
    expectServed();
}

TEST_F(EvalServingTest, AnUnfitClassPathIsAFailure) {
    PathList whole = host.classPath();
    host.setClassPath(nullptr);
    EXPECT_EQ(evaluate(STOP, "f"), "compiler initialization error");
    auto bare = ByteArrayStore::root("bare");
    bare->becomeDirectory();
    host.setClassPath(std::make_shared<std::vector<StoreRef>>(std::vector<StoreRef>{bare}));
    EXPECT_EQ(evaluate(STOP, "f"), "compiler initialization error");
    host.setClassPath(whole);
    expectServed();
}

TEST_F(EvalServingTest, NamesOfTheClassAreHeldToTheLanguage) {
    auto evaluateAs = [&](std::string_view prefix, std::string_view name) {
        return host.evaluate(prefix, name, *file, STOP, source, "f").value_or("");
    };
    for (const char* name : {"", "a b", "1", "a.b", "class", "a/b", "a;", "\xff", "a\\u0041", "Object", "EvalSupport",
                             "IExpression", "IEvaluatorContext"})
        EXPECT_NE(evaluateAs("quillon.compiler.loader", name), "") << name;
    for (const char* prefix : {"", ".", "a..b", "no.such.place"}) EXPECT_NE(evaluateAs(prefix, "Good"), "") << prefix;
    EXPECT_EQ(evaluateAs("quillon.compiler.loader", "Good$1"), "");
    EXPECT_EQ(evaluateAs("quillon.compiler.loader", "Good$1"), "");
    EXPECT_NE(evaluate(STOP, "new quillon.compiler.loader.Good$1()"), "") << "an earlier expression's class";
    setSource("package quillon.compiler.loader;\nclass Subject {\nint f;\nvoid stop() {\n}\n}");
    EXPECT_EQ(evaluateAs("quillon.compiler.loader", "Subject"),
              "illegal name of a class: quillon.compiler.loader.Subject");
    EXPECT_EQ(evaluateAs("quillon.compiler.loader", "Good"), "");
    EXPECT_EQ(evaluate(STOP, "new Subject().f"), "") << "its own class is untouched";
}

TEST_F(EvalServingTest, AFileThatCannotBeWrittenIsAFailure) {
    file->becomeDirectory();
    EXPECT_EQ(evaluate(STOP, "f"), "error writing to outStream: not writable: Expression.class");
    file = ByteArrayStore::root("Expression.class");
    expectServed();
}

TEST_F(EvalServingTest, HostileExpressionsAreRefusedOrCompiled) {
    std::string deep(60'000, '(');
    std::string nots(60'000, '!');
    std::string sum = "i";
    for (int n = 0; n < 20'000; n++) sum += "+i";
    std::string chain = "this";
    std::string choice = "i";
    for (int n = 0; n < 3000; n++) choice = "i>0?i:" + choice;
    std::string quoted = '"' + std::string(70'000, 'x') + '"';
    for (const std::string& text : {deep, nots, sum, choice, quoted, std::string(1, '\0'), std::string("f\x1a"),
                                    std::string("\xff\xfe"), std::string("\"\xc3\xa4\""), std::string("\\u0066"),
                                    std::string("\\u"), std::string("f // behind"), std::string("\"\xff\"")})
        evaluate(STOP, text);
    EXPECT_EQ(evaluate(STOP, quoted), "error in expression (column = 0): error writing class "
                                      "quillon.compiler.loader.Expression: length of a name or string exceeded");
    EXPECT_EQ(evaluate(STOP, "\"\xc3\xa4\""), "");
    expectServed();
}

} // namespace
} // namespace tarn
