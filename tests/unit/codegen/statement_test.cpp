#include "pipeline.h"

namespace tarn {
namespace {

const char* const surroundings = R"(
    static int s;
    static boolean p() { return false; }
    static int g() { return 0; }
    static void h() { }
)";

struct Row {
    const char* method;
    const char* code;
    const char* handlers = "";
};

class StatementTest : public PipelineTest {
protected:
    /// Compiles the method `m`; what is reported besides `expectedMessages` is a failure.
    Disassembly method(const std::string& text, const std::vector<std::string>& expectedMessages = {}) {
        std::map<std::string, Disassembly> methods = methodsOf(surroundings + text, expectedMessages);
        return methods["m"];
    }
    void expect(std::span<const Row> rows) {
        for (const Row& row : rows) {
            Disassembly text = method(row.method);
            EXPECT_EQ(text.code, row.code) << row.method;
            EXPECT_EQ(text.handlers, row.handlers) << row.method;
        }
    }
};

#define H "invokestatic A.h:()V"
#define P "invokestatic A.p:()Z"
#define G "invokestatic A.g:()I"

TEST_F(StatementTest, SwitchTakesTheTableWhereItIsDense) {
    const Row rows[] = {
        {"static void m(int x) { switch (x) { case 1: h(); break; case 2: case 3: g(); } }",
         "iload_0, tableswitch default=38 1=28 2=34 3=34, " H ", goto 38, " G ", pop, return"},
        {"static void m(int x) { switch (x) { case 1000: h(); case 1: g(); } }",
         "iload_0, lookupswitch default=35 1=31 1000=28, " H ", " G ", pop, return"},
        // a gap goes to the default, and a trailing break costs nothing
        {"static void m(int x) { switch (x) { case 0: h(); break; default: g(); break; case 1: case 3: h(); break; } }",
         "iload_0, tableswitch default=38 0=32 1=45 2=38 3=45, " H ", goto 48, " G ", pop, goto 48, " H ", return"},
        {"static void m(int x) { switch (x) { case 0: case 2: h(); } }",
         "iload_0, lookupswitch default=31 0=28 2=28, " H ", return"},
        {"static void m(int x) { switch (x) { case 2147483645: case 2147483646: case 2147483647: h(); } }",
         "iload_0, tableswitch default=31 2147483645=28 2147483646=28 2147483647=28, " H ", return"},
        {"static void m(int x) { switch (x) { case 2147483647: case -2147483648: h(); } }",
         "iload_0, lookupswitch default=31 -2147483648=28 2147483647=28, " H ", return"},
        {"static void m(int x) { switch (x) { } }", "iload_0, pop, return"},
        {"static void m() { switch (g()) { default: if (p()) break; h(); } }",
         G ", pop, " P ", ifeq 13, goto 16, " H ", return"},
        {"static void m() { switch (g()) { default: h(); break; } }", G ", pop, " H ", return"},
    };
    expect(rows);
}

TEST_F(StatementTest, FinallyIsOneSubroutine) {
    const Row rows[] = {
        {"static void m() { try { h(); } finally { g(); } }",
         H ", jsr 15, goto 22, astore_0, jsr 15, aload_0, athrow, astore_1, " G ", pop, ret 1, return", "0-9 9 any"},
        {"static void m() { try { h(); } finally { } }",
         H ", jsr 15, goto 18, astore_0, jsr 15, aload_0, athrow, astore_1, ret 1, return", "0-9 9 any"},
        // the value of a return is kept while the subroutine runs
        {"static int m(int x) { try { return x; } finally { h(); } }",
         "iload_0, istore_1, jsr 13, iload_1, ireturn, astore_2, jsr 13, aload_2, athrow, astore_3, " H ", ret 3",
         "0-7 7 any"},
        {"static int m(int x) { try { return x; } catch (Error e) { return 1; } }",
         "iload_0, ireturn, astore_1, iconst_1, ireturn", "0-2 2 java/lang/Error"},
        // the clauses call it too, and are protected by it
        {"static void m() { try { h(); } catch (Error e) { g(); } finally { h(); } }",
         H ", jsr 26, goto 32, astore_0, " G ", pop, jsr 26, goto 32, astore_1, jsr 26, aload_1, athrow, astore_2, " H
           ", ret 2, return",
         "0-3 9 java/lang/Error, 0-20 20 any"},
    };
    expect(rows);
}

TEST_F(StatementTest, JumpsCallTheSubroutinesThatTheyLeave) {
    const Row rows[] = {
        // the inner one first
        {"static void m() { try { try { return; } finally { g(); } } finally { h(); } }",
         "jsr 13, jsr 26, return, astore_0, jsr 13, aload_0, athrow, astore_1, " G ", pop, ret 1, "
         "astore_2, jsr 26, aload_2, athrow, astore_3, " H ", ret 3",
         "0-7 7 any, 0-20 20 any"},
        {"static void m() { for (;;) { try { if (p()) break; } finally { h(); } } }",
         P ", ifeq 12, jsr 24, goto 33, jsr 24, goto 30, astore_0, jsr 24, aload_0, athrow, astore_1, " H
           ", ret 1, goto 0, return",
         "0-18 18 any"},
        // nobody comes back from this one, so the break leads nowhere
        {"static void m() { for (;;) { try { break; } finally { return; } } }",
         "jsr 12, goto 3, astore_0, jsr 12, aload_0, athrow, astore_1, return", "0-6 6 any"},
        // what leaves a finally block is not protected by what it leaves there
        {"static void m() { for (;;) { try { h(); } finally { try { if (p()) break; } finally { g(); } } } }",
         H ", jsr 15, goto 49, astore_0, jsr 15, aload_0, athrow, astore_1, " P ", ifeq 28, jsr 40, goto 52, "
           "jsr 40, goto 47, astore_2, jsr 40, aload_2, athrow, astore_3, " G ", pop, ret 3, "
           "ret 1, goto 0, return",
         "0-9 9 any, 16-25 34 any, 28-34 34 any"},
    };
    expect(rows);
}

TEST_F(StatementTest, UnreachableStatementsLeaveNoCode) {
    Disassembly text = method("static void m() {\nreturn;\nh(); }", {"8:1 warning: statement not reachable"});
    EXPECT_EQ(text.code, "return");
    // one behind `if (true)` is reached as far as the language is concerned, and may hold anything
    text =
        method("static int m() {\nif (true) return 1;\ntry { h(); } catch (Error e) { } finally { g(); }\nreturn 2; }",
               {"8:7 warning: statement not reachable", "8:44 warning: statement not reachable",
                "9:1 warning: statement not reachable"});
    EXPECT_EQ(text.code, "iconst_1, ireturn");
    EXPECT_EQ(text.handlers, "");
}

TEST_F(StatementTest, LinesAreThoseOfTheStatements) {
    Disassembly text = method("static void m(int x) {\n" // 6
                              "h();\n"                   // 7
                              "if (x == 0)\n"            // 8
                              "  h();\n"                 // 9
                              "for (int i = 0;\n"        // 10
                              "     i < 2;\n"            // 11
                              "     i++)\n"              // 12
                              "  h();\n"                 // 13
                              "}");                      // 14
    EXPECT_EQ(text.code, H ", iload_0, iconst_0, if_icmpne 11, " H
                           ", iconst_0, istore_1, iload_1, iconst_2, if_icmpge 27, " H ", iinc 1 1, goto 13, return");
    EXPECT_EQ(text.lines, "0:7, 3:8, 8:9, 11:10, 13:11, 18:13, 21:12, 27:14");
    EXPECT_EQ(text.locals, "");
    EXPECT_EQ(text.maxStack, 2);
    EXPECT_EQ(text.maxLocals, 2);
}

TEST_F(StatementTest, DebugInformationNamesVariablesWhereTheyHaveAValue) {
    context_.options.debugInfo = true;
    Disassembly text = method("void m(int x, long y) { int a; h(); a = 1; { String b = null; } h(); }");
    EXPECT_EQ(text.code, H ", iconst_1, istore 4, aconst_null, astore 5, " H ", return");
    EXPECT_EQ(text.locals, "this 0-13 r0, x 0-13 r1, y 0-13 r2, a 6-13 r4");
}

TEST_F(StatementTest, WideJumpsAreUsedWhereAMethodNeedsThem) {
    std::string body = "static void m(boolean c) { int x = 0; while (p()) { if (c) break;\n";
    for (int i = 0; i < 8200; i++) body += "x = x * x;\n"; // 4 bytes each
    body += "} }";
    Disassembly text = method(body);
    // 0 iconst_0, 1 istore_1, 2 p, 5 ifne over the goto_w, 8 goto_w, 13 iload_0, 14 ifne, 17 goto_w, 22 goto_w, 27 ...
    std::string head =
        "iconst_0, istore_1, " P ", ifne 13, goto_w 32832, iload_0, ifne 22, goto_w 27, goto_w 32832, iload_1";
    EXPECT_EQ(text.code.substr(0, head.size()), head);
    std::string tail = "istore_1, goto_w 2, return";
    EXPECT_EQ(text.code.substr(text.code.size() - tail.size()), tail);
}

} // namespace
} // namespace tarn
