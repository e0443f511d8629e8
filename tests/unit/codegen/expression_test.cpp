#include "pipeline.h"

namespace tarn {
namespace {

// What the rows below speak of.
const char* const surroundings = R"(
    static int s; static long sl; static String str; static String[] strs; static boolean z; int f; long l;
    static int g() { return 0; }
    static boolean p() { return false; }
    static void h() { }
    static A a() { return null; }
    private void own() { }
    static final int CONST = 7;
    final int instance = 8;
    static void run(Runner r) { r.run(1, 2L); }
)";

struct Row {
    const char* method;
    const char* code;
};

class ExpressionTest : public PipelineTest {
protected:
    void expect(std::span<const Row> rows) {
        for (const Row& row : rows) {
            auto methods =
                methodsOf(surroundings + std::string(row.method), {}, "interface Runner { void run(int i, long l); }");
            EXPECT_EQ(methods["m"].code, row.code) << row.method;
        }
    }
};

#define VALUE_OF(type) "invokestatic java/lang/String.valueOf:(" type ")Ljava/lang/String;"
#define OBJECT "Ljava/lang/Object;"
#define CONCAT "invokevirtual java/lang/String.concat:(Ljava/lang/String;)Ljava/lang/String;"

TEST_F(ExpressionTest, ConditionsBecomeJumpsAndNoBooleans) {
    const Row rows[] = {
        {"static boolean m(boolean a, boolean b) { return !(a && b); }",
         "iload_0, ifeq 8, iload_1, ifne 12, iconst_1, goto 13, iconst_0, ireturn"},
        {"static void m(boolean a, boolean b) { if (a || b) h(); }",
         "iload_0, ifne 8, iload_1, ifeq 11, invokestatic A.h:()V, return"},
        {"static void m(boolean a, boolean b, boolean c) { if (!(a || b) && c) h(); }",
         "iload_0, ifne 15, iload_1, ifne 15, iload_2, ifeq 15, invokestatic A.h:()V, return"},
        {"static void m() { if (true || p()) h(); }", "invokestatic A.h:()V, return"},
        {"static void m() { if (false && p()) h(); }", "return"},
        {"static void m() { if (p() && false) h(); }", "invokestatic A.p:()Z, ifeq 6, return"},
        {"static int m(boolean c) { return c ? 1 : 2; }", "iload_0, ifeq 8, iconst_1, goto 9, iconst_2, ireturn"},
        {"static double m(boolean c, float x, long y) { return c ? x : y; }",
         "iload_0, ifeq 8, fload_1, goto 10, lload_2, l2f, f2d, dreturn"},
        {"static void m(boolean c, boolean a, boolean b) { if (c ? a : b) h(); }",
         "iload_0, ifeq 11, iload_1, ifne 15, goto 18, iload_2, ifeq 18, invokestatic A.h:()V, return"},
        {"static int m(int x) { return true ? x : g(); }", "iload_0, ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, StringsAreJoinedByValueOfAndConcat) {
    const Row rows[] = {
        {"static String m(String t) { return t + 1; }",
         "aload_0, " VALUE_OF(OBJECT) ", iconst_1, " VALUE_OF("I") ", " CONCAT ", areturn"},
        {"static String m(String t, byte b) { return t + b; }",
         "aload_0, " VALUE_OF(OBJECT) ", iload_1, " VALUE_OF("I") ", " CONCAT ", areturn"},
        {"static String m(String t) { return t + null; }",
         "aload_0, " VALUE_OF(OBJECT) ", aconst_null, " VALUE_OF(OBJECT) ", " CONCAT ", areturn"},
        {"static String m(String t, char[] c) { return t + c; }",
         "aload_0, " VALUE_OF(OBJECT) ", aload_1, " VALUE_OF(OBJECT) ", " CONCAT ", areturn"},
        {"static String m() { return \"a\" + 1; }", "ldc \"a1\", areturn"},
        // toString of an object may give null
        {"static String m(A o) { return o + \"\"; }",
         "aload_0, " VALUE_OF(OBJECT) ", " VALUE_OF(OBJECT) ", ldc \"\", " VALUE_OF(OBJECT) ", " CONCAT ", areturn"},
        {"static void m(int x) { str += x; }",
         "getstatic A.str:Ljava/lang/String;, " VALUE_OF(OBJECT) ", iload_0, " VALUE_OF(
             "I") ", " CONCAT ", putstatic A.str:Ljava/lang/String;, return"},
        {"static void m(int i, long x) { strs[i++] += x; }",
         "getstatic A.strs:[Ljava/lang/String;, iload_0, iinc 0 1, dup2, aaload, " VALUE_OF(
             OBJECT) ", lload_1, " VALUE_OF("J") ", " CONCAT ", aastore, return"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, ConstantsBehindAnExpressionAreStillReadThroughIt) {
    const Row rows[] = {
        {"static int m() { return a().CONST; }", "invokestatic A.a:()LA;, pop, bipush 7, ireturn"},
        {"static int m() { return A.CONST + 1; }", "bipush 8, ireturn"},
        {"int m() { return this.instance; }", "bipush 8, ireturn"},
        {"static int m(A o) { return o.CONST; }", "bipush 7, ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, ClassLiteralsAskTheLibrary) {
#define FOR_NAME "invokestatic java/lang/Class.forName:(Ljava/lang/String;)Ljava/lang/Class;"
    const Row rows[] = {
        {"static Class m() { return int.class; }", "getstatic java/lang/Integer.TYPE:Ljava/lang/Class;, areturn"},
        {"static Class m() { return String.class; }", "ldc \"java.lang.String\", " FOR_NAME ", areturn"},
        {"static Class m() { return int[].class; }", "ldc \"[I\", " FOR_NAME ", areturn"},
        {"static Class m() { return String[][].class; }", "ldc \"[[Ljava.lang.String;\", " FOR_NAME ", areturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, ClassLiteralOfAMissingWrapperIsAnError) {
    compile("A", "class A { Class c = long.class; }");
    ASSERT_EQ(reporter.said.size(), 1U);
    EXPECT_EQ(reporter.said[0].rfind("1:26 cannot access class java.lang.Long", 0), 0U) << reporter.said[0];
    EXPECT_EQ(output("A.class"), nullptr);
}

TEST_F(ExpressionTest, MembersOfAHiddenClassAreReachedThroughThePublicOne) {
    const Row rows[] = {
        {"static int m(p.Shown o) { o.method(); p.Shown.shared(); return o.field; }",
         "aload_0, invokevirtual p/Shown.method:()V, invokestatic p/Shown.shared:()V, aload_0, getfield "
         "p/Shown.field:I, "
         "ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, ExcludedVoidCallsLeaveNoCode) {
    context_.options.exclude = Name::fromBytes("A");
    const Row rows[] = {
        {"static void m() { h(); a().h(); }", "return"},
        {"static void m() { g(); }", "invokestatic A.g:()I, pop, return"},
        {"static void m(Runner r) { r.run(g(), 1); }",
         "aload_0, invokestatic A.g:()I, lconst_1, invokeinterface Runner.run:(IJ)V 4 0, return"},
    };
    expect(rows);
}

} // namespace
} // namespace tarn
