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

TEST_F(ExpressionTest, AssignmentsCopyOnlyAValueThatIsWanted) {
    const Row rows[] = {
        {"static void m(int x) { x = 1; }", "iconst_1, istore_0, return"},
        {"static void m(int x, int y) { y = x = 1; }", "iconst_1, dup, istore_0, istore_1, return"},
        {"static int m() { return s = 2; }", "iconst_2, dup, putstatic A.s:I, ireturn"},
        {"static long m() { return sl = 1; }", "lconst_1, dup2, putstatic A.sl:J, lreturn"},
        {"static int m(A o) { return o.f = 3; }", "aload_0, iconst_3, dup_x1, putfield A.f:I, ireturn"},
        {"static long m(A o) { return o.l = 0; }", "aload_0, lconst_0, dup2_x1, putfield A.l:J, lreturn"},
        {"static int m(int[] a, int i) { return a[i] = 4; }", "aload_0, iload_1, iconst_4, dup_x2, iastore, ireturn"},
        {"static long m(long[] a) { return a[0] = 1; }", "aload_0, iconst_0, lconst_1, dup2_x2, lastore, lreturn"},
        {"void m() { f = 1; this.f = 2; }",
         "aload_0, iconst_1, putfield A.f:I, aload_0, iconst_2, putfield A.f:I, return"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, StepsUseIincOnIntLocalsOnly) {
    const Row rows[] = {
        {"static void m(int x) { x++; --x; }", "iinc 0 1, iinc 0 -1, return"},
        {"static int m(int x) { return x++; }", "iload_0, iinc 0 1, ireturn"},
        {"static int m(int x) { return --x; }", "iinc 0 -1, iload_0, ireturn"},
        {"static void m(byte b) { b++; }", "iload_0, iconst_1, iadd, i2b, istore_0, return"},
        {"static char m(char c) { return c--; }", "iload_0, dup, iconst_1, isub, i2c, istore_0, ireturn"},
        {"static long m(long x) { return x++; }", "lload_0, dup2, lconst_1, ladd, lstore_0, lreturn"},
        {"static double m(double x) { return ++x; }", "dload_0, dconst_1, dadd, dup2, dstore_0, dreturn"},
        {"static void m(float x) { x--; }", "fload_0, fconst_1, fsub, fstore_0, return"},
        {"static void m() { s++; }", "getstatic A.s:I, iconst_1, iadd, putstatic A.s:I, return"},
        {"static long m() { return sl--; }", "getstatic A.sl:J, dup2, lconst_1, lsub, putstatic A.sl:J, lreturn"},
        {"static int m(A o) { return o.f++; }",
         "aload_0, dup, getfield A.f:I, dup_x1, iconst_1, iadd, putfield A.f:I, ireturn"},
        {"static long m(A o) { return ++o.l; }",
         "aload_0, dup, getfield A.l:J, lconst_1, ladd, dup2_x1, putfield A.l:J, lreturn"},
        {"static void m(int[] a, int i) { a[i]++; }",
         "aload_0, iload_1, dup2, iaload, iconst_1, iadd, iastore, return"},
        {"static short m(short[] a, int i) { return a[i]--; }",
         "aload_0, iload_1, dup2, saload, dup_x2, iconst_1, isub, i2s, sastore, ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, CompoundAssignmentsConvertBack) {
    const Row rows[] = {
        {"static void m(int x) { x += 100; x -= 128; x += 'a'; }", "iinc 0 100, iinc 0 -128, iinc 0 97, return"},
        {"static void m(int x) { x += 200; }", "iload_0, sipush 200, iadd, istore_0, return"},
        {"static void m(int x) { x -= -128; }", "iload_0, bipush -128, isub, istore_0, return"},
        {"static void m(int x, int y) { x += y; }", "iload_0, iload_1, iadd, istore_0, return"},
        {"static void m(byte b) { b += 1; }", "iload_0, iconst_1, iadd, i2b, istore_0, return"},
        {"static void m(byte b) { b += 1.5; }", "iload_0, i2d, ldc2_w 1.5d, dadd, d2i, i2b, istore_0, return"},
        {"static void m(char c, long x) { c <<= x; }", "iload_0, lload_1, l2i, ishl, i2c, istore_0, return"},
        {"static void m(long x, int n) { x >>>= n; }", "lload_0, iload_2, lushr, lstore_0, return"},
        {"static void m(boolean a, boolean b) { a &= b; }", "iload_0, iload_1, iand, istore_0, return"},
        {"static int m(int[] a) { return a[0] *= 3; }",
         "aload_0, iconst_0, dup2, iaload, iconst_3, imul, dup_x2, iastore, ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, OperandsArePromotedToTheWiderOne) {
    const Row rows[] = {
        {"static long m(int x, long y) { return x + y; }", "iload_0, i2l, lload_1, ladd, lreturn"},
        {"static double m(long x, float y) { return x * y; }", "lload_0, l2f, fload_2, fmul, f2d, dreturn"},
        {"static long m(long x, long y) { return x << y; }", "lload_0, lload_2, l2i, lshl, lreturn"},
        {"static int m(byte x, long y) { return x >> y; }", "iload_0, lload_1, l2i, ishr, ireturn"},
        {"static int m(int x) { return ~x + -x + +x; }",
         "iload_0, iconst_m1, ixor, iload_0, ineg, iadd, iload_0, iadd, ireturn"},
        {"static long m(long x) { return ~x; }", "lload_0, lconst_0, lconst_1, lsub, lxor, lreturn"},
        {"static byte m(long x) { return (byte) x; }", "lload_0, l2i, i2b, ireturn"},
        {"static int m() { return (byte) 200; }", "bipush -56, ireturn"},
        {"static float m() { return 2; }", "fconst_2, freturn"},
        {"static Object m(String t) { return (Object) t; }", "aload_0, areturn"},
        {"static String m(Object o) { return (String) o; }", "aload_0, checkcast java/lang/String, areturn"},
        {"static boolean m(Object o) { return o instanceof int[]; }", "aload_0, instanceof [I, ireturn"},
    };
    expect(rows);
}

TEST_F(ExpressionTest, ComparisonsJumpWithoutShortForms) {
    const Row rows[] = {
        {"static boolean m(int x) { return x == 0; }",
         "iload_0, iconst_0, if_icmpne 9, iconst_1, goto 10, iconst_0, ireturn"},
        {"static boolean m(Object o) { return o != null; }",
         "aload_0, aconst_null, if_acmpeq 9, iconst_1, goto 10, iconst_0, ireturn"},
        {"static boolean m(float x, float y) { return x < y; }",
         "fload_0, fload_1, fcmpg, ifge 10, iconst_1, goto 11, iconst_0, ireturn"},
        {"static boolean m(double x, double y) { return x > y; }",
         "dload_0, dload_2, dcmpl, ifle 10, iconst_1, goto 11, iconst_0, ireturn"},
        {"static boolean m(long x, int y) { return x >= y; }",
         "lload_0, iload_2, i2l, lcmp, iflt 11, iconst_1, goto 12, iconst_0, ireturn"},
        {"static boolean m(boolean x, boolean y) { return x != y; }",
         "iload_0, iload_1, if_icmpeq 9, iconst_1, goto 10, iconst_0, ireturn"},
    };
    expect(rows);
}

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

TEST_F(ExpressionTest, CallsAreBoundByTheKindOfTheirTarget) {
    const Row rows[] = {
        {"static void m(A o) { o.own(); }", "aload_0, invokespecial A.own:()V, return"},
        {"String m() { return super.toString(); }",
         "aload_0, invokespecial java/lang/Object.toString:()Ljava/lang/String;, areturn"},
        {"String m() { return toString(); }",
         "aload_0, invokevirtual java/lang/Object.toString:()Ljava/lang/String;, areturn"},
        {"static void m(Runner r) { r.run('a', 2); }",
         "aload_0, bipush 97, ldc2_w 2L, invokeinterface Runner.run:(IJ)V 4 0, return"},
        {"static void m() { a().h(); }", "invokestatic A.a:()LA;, pop, invokestatic A.h:()V, return"},
        {"static void m(A[] a) { a[0].h(); }", "aload_0, iconst_0, aaload, pop, invokestatic A.h:()V, return"},
        {"static void m() { g(); }", "invokestatic A.g:()I, pop, return"},
        {"static Object m() { return new A(); }", "new A, dup, invokespecial A.<init>:()V, areturn"},
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

TEST_F(ExpressionTest, ArraysAreMadeByWhatTheirElementsAre) {
    const Row rows[] = {
        {"static Object m() { return new int[3][4]; }", "iconst_3, iconst_4, multianewarray [[I 2, areturn"},
        {"static Object m() { return new int[3][]; }", "iconst_3, anewarray [I, areturn"},
        {"static Object m() { return new int[3][4][]; }", "iconst_3, iconst_4, multianewarray [[[I 2, areturn"},
        {"static Object m(int n) { return new char[n]; }", "iload_0, newarray 5, areturn"},
        {"static Object m() { return new String[2]; }", "iconst_2, anewarray java/lang/String, areturn"},
        {"static Object m() { return new int[] { 0, 9 }; }",
         "iconst_2, newarray 10, dup, iconst_0, iconst_0, iastore, dup, iconst_1, bipush 9, iastore, areturn"},
        {"static Object m(long x) { double[][] d = { { x } }; return d; }",
         "iconst_1, anewarray [D, dup, iconst_0, iconst_1, newarray 7, dup, iconst_0, lload_0, l2d, dastore, aastore, "
         "astore_2, aload_2, areturn"},
        {"static int m(int[] a) { return a.length; }", "aload_0, arraylength, ireturn"},
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
