#include "evaluation.h"

#include <span>

namespace tarn {
namespace {

const char* const subject = R"(package p;
public class Subject extends Base {
    int f; static long s; static final int K = 7; final String k = "text";
    Subject next; int[] a; Subject[][] all; byte b; static Object o;
    Subject m() { return this; }
    static void v() { }
    class Inner {
        int f; int g;
        void deep(final int c, int n) {
            Object r = new Runner() {
                public void run() {
                    int w = c;
                }
            };
        }
    }
    void stop(long x, double d, int i, boolean t, String text, byte n, char[] chars, Object any) {
        f = 1;
        final int local = 3;
        { long inner = 2; f = (int) inner; }
        switch (i) {
        case 1: int first = 1;
        case 2:
            first = 2;
        }
        int late = 0;
    }
}
class Base { int f; int inherited; static short sh; }
interface Runner { void run(); })";

constexpr int STOP = 19; // final int local = 3;

struct Row {
    const char* expression;
    const char* code;
};

class EvalGenerationTest : public EvaluationTest {
protected:
    EvalGenerationTest() { setSource(subject); }
    void expect(int line, std::span<const Row> rows) {
        for (const Row& row : rows) EXPECT_EQ(codeOf(line, row.expression), row.code) << row.expression;
    }
};

#define VARIABLE(name) "aload_1, \"" name "\", .getField"
#define FIELD(name) "\"" name "\", .getField"
#define THIS(name) VARIABLE("this") ", " FIELD(name)
#define VALUE_OF "invokestatic java/lang/String.valueOf:(Ljava/lang/Object;)Ljava/lang/String;"
#define STATIC(owner, name) "aload_1, \"" owner "\", \"" name "\", .getStatic"

TEST_F(EvalGenerationTest, NamesAreReadThroughHandles) {
    const Row rows[] = {
        {"x", VARIABLE("x") ", .getLongValue"},
        {"t", VARIABLE("t") ", .getBooleanValue"},
        {"n", VARIABLE("n") ", .getByteValue"},
        {"text", VARIABLE("text") ", .getObjectValue"},
        {"chars", VARIABLE("chars") ", .getObjectValue"},
        {"this", VARIABLE("this") ", .getObjectValue"},
        {"f", THIS("f") ", .getIntValue"},
        {"this.f", THIS("f") ", .getIntValue"},
        {"super.inherited", THIS("inherited") ", .getIntValue"},
        {"next.next.b", THIS("next") ", " FIELD("next") ", " FIELD("b") ", .getByteValue"},
        {"s", STATIC("p.Subject", "s") ", .getLongValue"},
        {"Subject.s", STATIC("p.Subject", "s") ", .getLongValue"},
        {"Subject.sh", STATIC("p.Base", "sh") ", .getShortValue"},
        {"this.s", STATIC("p.Subject", "s") ", .getLongValue"},
        {"next.next.s", THIS("next") ", " FIELD("next") ", pop, " STATIC("p.Subject", "s") ", .getLongValue"},
        {"K", "bipush 7"},
        {"Subject.K + 1", "bipush 8"},
        {"k", "\"text\""},
        {"local", "iconst_3"},
        {"null", "aconst_null"},
        {"a[i]", THIS("a") ", .getObjectValue, " VARIABLE("i") ", .getIntValue, .getIndexed, .getIntValue"},
        {"chars.length", VARIABLE("chars") ", " FIELD("length") ", .getIntValue"},
        {"all[0][1].f",
         THIS("all") ", .getObjectValue, iconst_0, .getIndexed, .getObjectValue, iconst_1, .getIndexed, " FIELD(
             "f") ", .getIntValue"},
        {"(t ? next : null).f", VARIABLE("t") ", .getBooleanValue, ifeq 39, " THIS(
                                    "next") ", .getObjectValue, goto 40, aconst_null, " FIELD("f") ", .getIntValue"},
        {"new int[2].length", "iconst_2, newarray 10, arraylength"},
    };
    expect(STOP, rows);
}

TEST_F(EvalGenerationTest, PlacesAreWrittenThroughHandles) {
    const Row rows[] = {
        {"d = 2", "ldc2_w 2d, dup2, " VARIABLE("d") ", dup_x2, pop, .setDoubleValue"},
        {"i = 2", "iconst_2, dup, " VARIABLE("i") ", swap, .setIntValue"},
        {"i--", VARIABLE("i") ", .getIntValue, " VARIABLE("i") ", .getIntValue, iconst_m1, iadd, " VARIABLE(
                    "i") ", swap, .setIntValue"},
        {"i += 100", VARIABLE("i") ", .getIntValue, bipush 100, iadd, " VARIABLE("i") ", swap, .setIntValue, " VARIABLE(
                         "i") ", .getIntValue"},
        {"x++", VARIABLE("x") ", .getLongValue, dup2, lconst_1, ladd, " VARIABLE("x") ", dup_x2, pop, .setLongValue"},
        {"n += 1", VARIABLE("n") ", .getByteValue, iconst_1, iadd, i2b, dup, " VARIABLE("n") ", swap, .setByteValue"},
        {"b++", THIS("b") ", dup, .getByteValue, dup_x1, iconst_1, iadd, i2b, .setByteValue"},
        {"s <<= i", STATIC("p.Subject",
                           "s") ", dup, .getLongValue, " VARIABLE("i") ", .getIntValue, lshl, dup2_x1, .setLongValue"},
        {"next.a[i].f", "error in expression (column = 11): object type required, but int found"},
        {"next.a[0] = f = 1", THIS("next") ", " FIELD("a") ", .getObjectValue, iconst_0, .getIndexed, " THIS(
                                  "f") ", iconst_1, dup_x1, .setIntValue, dup_x1, .setIntValue"},
        {"(next = this).f",
         THIS("next") ", " VARIABLE("this") ", .getObjectValue, dup_x1, .setObjectValue, " FIELD("f") ", .getIntValue"},
    };
    expect(STOP, rows);
}

TEST_F(EvalGenerationTest, InnerClassesReachWhatIsAroundThem) {
    constexpr int IN_INNER = 10;     // Object r = ...
    constexpr int IN_ANONYMOUS = 12; // int w = c;
    const Row inner[] = {
        {"f", THIS("f") ", .getIntValue"},
        {"c", VARIABLE("c") ", .getIntValue"},
        {"Subject.this.f", THIS("this0") ", " FIELD("f") ", .getIntValue"},
        {"Subject.this", THIS("this0") ", .getObjectValue"},
        {"b = 1", THIS("this0") ", " FIELD("b") ", iconst_1, dup_x1, .setByteValue"},
        {"inherited", THIS("this0") ", " FIELD("inherited") ", .getIntValue"},
        {"new Inner()", "error in expression (column = 10): expression cannot be evaluated"},
    };
    const Row anonymous[] = {
        {"c", THIS("val$c") ", .getIntValue"},
        {"g", THIS("this0") ", " FIELD("g") ", .getIntValue"},
        {"next", THIS("this0") ", " FIELD("this0") ", " FIELD("next") ", .getObjectValue"},
        {"n", "error in expression (column = 1): local variable n is accessed from within inner class; needs to be "
              "declared final"},
    };
    expect(IN_INNER, inner);
    expect(IN_ANONYMOUS, anonymous);
    expect(IN_ANONYMOUS, anonymous); // a refused name stays refused
}

TEST_F(EvalGenerationTest, OrdinaryCodeGetsObjectsOfTheTypesThatItTakes) {
    const Row rows[] = {
        {"\"a\".concat(text)",
         "\"a\", " VARIABLE("text") ", .getObjectValue, checkcast java/lang/String, invokevirtual "
                                    "java/lang/String.concat:(Ljava/lang/String;)Ljava/lang/String;"},
        {"new Subject[] {next}", "iconst_1, anewarray p/Subject, dup, iconst_0, " THIS(
                                     "next") ", .getObjectValue, checkcast p/Subject, aastore"},
        {"new Object[] {next}[0] = any",
         "iconst_1, anewarray java/lang/Object, dup, iconst_0, " THIS(
             "next") ", .getObjectValue, aastore, iconst_0, " VARIABLE("any") ", .getObjectValue, dup_x2, aastore"},
        {"text += any",
         VARIABLE("text") ", .getObjectValue, " VALUE_OF ", " VARIABLE(
             "any") ", .getObjectValue, " VALUE_OF ", " VALUE_OF
                    ", invokevirtual java/lang/String.concat:(Ljava/lang/String;)Ljava/lang/String;, dup, " VARIABLE(
                        "text") ", swap, .setObjectValue"},
        {"new Subject().next.f",
         "new p/Subject, dup, invokespecial p/Subject.<init>:()V, getfield p/Subject.next:Lp/Subject;, "
         "getfield p/Subject.f:I"},
    };
    expect(STOP, rows);
}

} // namespace
} // namespace tarn
