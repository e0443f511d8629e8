#include "class_outline.h"
#include "pipeline.h"

#include <gmock/gmock.h>

namespace tarn {
namespace {

using testing::Contains;
using testing::ElementsAre;

class LoweringTest : public PipelineTest {
protected:
    /// Compiles the source, which has to be fine.
    void compileFine(std::string_view text) {
        compile("A", text);
        EXPECT_THAT(reporter.said, ElementsAre()) << text;
    }
    ClassOutline outlineOf(const std::string& name) {
        StoreRef file = output(name + ".class");
        if (file != nullptr) return outline(file->read());
        ADD_FAILURE() << "no class " << name;
        return {};
    }
    std::string code(const std::string& name, const std::string& method) {
        StoreRef file = output(name + ".class");
        return file == nullptr ? "no class " + name : disassemble(file->read())[method].code;
    }
};

TEST_F(LoweringTest, LoweredTreesArePrintedOnDemand) {
    const char* text = "class A { int x; class B { int f() { return x; } } }";
    compileFine(text);
    EXPECT_EQ(reporter.printed, "");
    context_.options.backendTrace = true;
    compileFine(text);
    EXPECT_THAT(reporter.printed, testing::HasSubstr("   int f() {\n      return this0.x;\n   };\n"));
}

#define SUPER "aload_0, invokespecial java/lang/Object.<init>:()V, "

TEST_F(LoweringTest, AccessMethodsAreNumberedByFirstUseAndNamedByOperation) {
    compileFine("class A { private int x; private static long y; private void m(int i, Object o) { }\n"
                "class B { int f() { m(1, null); y = 2; x = 1; x += 1; x++; int i = x++; i = --x; return x; } } }");
    EXPECT_THAT(outlineOf("A").methods,
                ElementsAre("<init>:()V", "private m:(ILjava/lang/Object;)V",
                            "final synthetic access$171:(ILjava/lang/Object;)V",
                            "static final synthetic access$249:(J)J", "final synthetic access$349:(I)I",
                            "final synthetic access$356:(I)I", "final synthetic access$371:()I",
                            "final synthetic access$375:()I", "final synthetic access$376:()I",
                            "final synthetic access$377:()I"));
    EXPECT_EQ(code("A", "access$171"), "aload_0, iload_1, aload_2, invokespecial A.m:(ILjava/lang/Object;)V, return");
    EXPECT_EQ(code("A", "access$249"), "lload_0, dup2, putstatic A.y:J, lreturn");
    EXPECT_EQ(code("A", "access$371"), "aload_0, getfield A.x:I, ireturn");
    EXPECT_EQ(code("A", "access$356"), "aload_0, dup, getfield A.x:I, iload_1, iadd, dup_x1, putfield A.x:I, ireturn");
    EXPECT_EQ(code("A", "access$377"), "aload_0, dup, getfield A.x:I, dup_x1, iconst_1, iadd, putfield A.x:I, ireturn");
    std::string all = code("A$B", "f");
    EXPECT_THAT(all, testing::StartsWith("aload_0, getfield A$B.this0:LA;, iconst_1, aconst_null, invokevirtual "
                                         "A.access$171:(ILjava/lang/Object;)V, ldc2_w 2L, invokestatic "
                                         "A.access$249:(J)J, pop2, aload_0, getfield A$B.this0:LA;, iconst_1, "
                                         "invokevirtual A.access$349:(I)I, pop, "));
}

TEST_F(LoweringTest, CapturedVariablesComeFirst) {
    compileFine("class A { void m(final int n, final String s) {\n"
                "class L { int k = 5; L(int own) { k += n; } String f() { return s; } int g() { return n; } }\n"
                "new L(3); } }");
    ClassOutline l = outlineOf("A$1$L");
    EXPECT_THAT(l.fields, ElementsAre("final synthetic val$n:I", "final synthetic val$s:Ljava/lang/String;",
                                      "final synthetic this0:LA;", "k:I"));
    EXPECT_THAT(l.methods, Contains("<init>:(ILjava/lang/String;LA;I)V"));
    EXPECT_THAT(l.innerClasses, ElementsAre("A$1$L=A.L"));
    EXPECT_EQ(code("A$1$L", "<init>"),
              SUPER "aload_0, iload_1, putfield A$1$L.val$n:I, aload_0, aload_2, putfield "
                    "A$1$L.val$s:Ljava/lang/String;, aload_0, aload_3, putfield A$1$L.this0:LA;, aload_0, iconst_5, "
                    "putfield A$1$L.k:I, aload_0, dup, getfield A$1$L.k:I, aload_0, getfield A$1$L.val$n:I, iadd, "
                    "putfield A$1$L.k:I, return");
    EXPECT_EQ(code("A", "m"), "new A$1$L, dup, iload_1, aload_2, aload_0, iconst_3, invokespecial "
                              "A$1$L.<init>:(ILjava/lang/String;LA;I)V, pop, return");
}

TEST_F(LoweringTest, FlagsOfClassesAndConstructors) {
    compileFine("class A { private A() { } protected class P { private P() { } } private static class S { }\n"
                "/** @deprecated */ public abstract static class D { protected D() { } } interface I { int f(); }\n"
                "static final class F { static Object f() { return new A(); } } }");
    EXPECT_EQ(outlineOf("A$P").flags, "public");
    EXPECT_THAT(outlineOf("A$P").methods, ElementsAre("<init>:(LA;)V"));
    EXPECT_EQ(outlineOf("A$S").flags, "");
    EXPECT_THAT(outlineOf("A$S").methods, ElementsAre("<init>:()V"));
    EXPECT_EQ(outlineOf("A$D").flags, "public abstract deprecated");
    EXPECT_THAT(outlineOf("A$D").methods, ElementsAre("protected <init>:()V"));
    EXPECT_EQ(outlineOf("A$I").flags, "interface");
    EXPECT_EQ(outlineOf("A$F").flags, "final");
    ClassOutline a = outlineOf("A");
    EXPECT_THAT(a.methods, ElementsAre("private <init>:()V", "synthetic <init>:(LA;)V"));
    EXPECT_THAT(a.innerClasses,
                ElementsAre("static final A$F=A.F", "interface A$I=A.I", "public static abstract A$D=A.D",
                            "private static A$S=A.S", "protected A$P=A.P"));
    EXPECT_EQ(code("A$F", "f"), "new A, dup, aconst_null, invokespecial A.<init>:(LA;)V, areturn");
}

TEST_F(LoweringTest, MembersOfMembersAreListedWithTheClassesAroundThem) {
    compileFine("class A { class B { class C { } } C2 c; } class C2 { void f(A.B.C c) { Object o = new A.B.C[1]; } }");
    EXPECT_THAT(outlineOf("A$B").innerClasses, ElementsAre("A$B=A.B", "A$B$C=A$B.C"));
    EXPECT_THAT(outlineOf("A$B$C").innerClasses, ElementsAre("A$B=A.B", "A$B$C=A$B.C"));
    EXPECT_THAT(outlineOf("C2").innerClasses, ElementsAre("A$B=A.B", "A$B$C=A$B.C"));
}

TEST_F(LoweringTest, LocalAndAnonymousClassesAreNumberedInTheOrderOfTheSource) {
    compileFine(
        "class A { Object a = new Object() { }; void m() { class L { Object o = new Object() { }; }\n"
        "Object o = new Object() { class M { } void n() { class L { } } }; }\n"
        "static class N { Object b = new Object() { }; { class L { } } } static Object c = new Object() { }; }");
    for (const char* name : {"A$1", "A$1$L", "A$2", "A$3", "A$3$M", "A$2$L", "A$4", "A$3$L", "A$5"})
        EXPECT_NE(output(std::string(name) + ".class"), nullptr) << name;
    EXPECT_THAT(outlineOf("A$5").fields, ElementsAre());
    EXPECT_THAT(outlineOf("A$4").fields, ElementsAre("final synthetic this0:LA$N;"));
    EXPECT_THAT(outlineOf("A").innerClasses, Contains("static A$5=A.5"));
}

TEST_F(LoweringTest, AccessMethodsOfASubclassInAnotherSourceHaveOtherNames) {
    compileFine("class A { private int x; class I { int f() { return x; } } }");
    compile("B", "class B extends A { private int x; class J { int f() { return x; } } class C extends B {\n"
                 "private int y; class K { int g() { return y; } } } }");
    EXPECT_THAT(reporter.said, ElementsAre());
    EXPECT_THAT(outlineOf("A").methods, Contains("final synthetic access$171:()I"));
    EXPECT_THAT(outlineOf("B").methods, Contains("final synthetic access$0171:()I"));
    EXPECT_THAT(outlineOf("B$C").methods, Contains("final synthetic access$0271:()I"));
}

TEST_F(LoweringTest, NamesOfTheSourceAreNotTakenForHiddenOnes) {
    // In methods they are in nobody's way; as members and parameters they are.
    compileFine("class A { int x; class B { int f(final int this0) { final int val$y = x; return new Object() {\n"
                "int g() { return this0 + val$y + x; } }.g(); } } }");
    compile("C", "class C {\n"
                 "class B { int this0; }\n"
                 "class D { D(int this0) { } }\n"
                 "void f(final int x) { class L { String val$x; int g() { return x; } } }\n"
                 "private int x; void access$171() { } void access$171(int i) { } class E { int g() { return x; } } }");
    EXPECT_THAT(reporter.said, ElementsAre("5:21 duplicate definition of method access$171() in class C",
                                           "2:15 duplicate definition of variable this0 in class C.B",
                                           "3:17 duplicate definition of variable this0 in constructor C$D(C, int)",
                                           "4:40 duplicate definition of variable val$x in class C.L"));
}

} // namespace
} // namespace tarn
