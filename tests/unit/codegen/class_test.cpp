#include "pipeline.h"

#include "classfile/class_file.h"
#include "classfile/constant_pool.h"
#include "semantic/scope.h"

#include <gmock/gmock.h>

#include <set>

namespace tarn {
namespace {

using testing::ElementsAre;

#define SUPER "aload_0, invokespecial java/lang/Object.<init>:()V, "

using ClassTest = PipelineTest;

TEST_F(ClassTest, ConstantsNeedCodeOnlyInObjects) {
    auto methods = methodsOf("static final int a = 1; static final String s = \"x\"; final long b = 2; int c;");
    EXPECT_EQ(methods.count("<clinit>"), 0U);
    // no virtual machine takes the value of a field in an object from an attribute
    EXPECT_EQ(methods["<init>"].code, SUPER "aload_0, ldc2_w 2L, putfield A.b:J, return");
}

TEST_F(ClassTest, ClassWithAFaultGetsNoFileAndItsOtherMethodsAreStillChecked) {
    compile("A", "class A {\n"
                 "int f() { }\n"
                 "void g() { int x; x++; }\n"
                 "}");
    EXPECT_THAT(reporter.said,
                ElementsAre("2:11 method does not return a value", "3:19 variable x might not have been initialized"));
    EXPECT_EQ(output("A.class"), nullptr);
}

TEST_F(ClassTest, WhatOutgrowsAClassFileIsReported) {
    std::string text = "class A { static int x;\nstatic void code() {\n";
    for (int i = 0; i < 10'000; i++) text += "x = x + 1;\n"; // 8 bytes each
    text += "}\nstatic void locals(boolean c) { if (c) {\n";
    for (int i = 0; i < 32'768; i++) text += "long x" + std::to_string(i) + ";";
    text += "} } }";
    compile("A", text);
    EXPECT_THAT(
        reporter.said,
        ElementsAre("2:13 method code() is too large; a class file allows for 65535 bytes of code",
                    "10004:13 method locals(boolean) is too large; a class file allows for 65535 words of local "
                    "variables"));
    EXPECT_EQ(output("A.class"), nullptr);
}

/// Keeps the pool that a class hands over to the make engine.
class PoolCatcher final : public ClassFile {
public:
    explicit PoolCatcher(const ConstantPool*& caught) : caught_(caught) {}
    void classEntered(ClassSymbol*, ClassSymbol* clone) override { caught_ = clone->pool; }

private:
    const ConstantPool*& caught_;
};

TEST_F(ClassTest, PoolKeepsReferencesForTheMakeEngine) {
    const ConstantPool* pool = nullptr;
    context_.classReader = std::make_unique<PoolCatcher>(pool);
    context_.options.trackDependencies = true;
    compile("A", "class A extends p.Shown { Integer[] field; void m() { Error e = null; } }");
    EXPECT_THAT(reporter.said, ElementsAre());
    ASSERT_NE(pool, nullptr);
    std::set<std::string> references;
    for (const PoolEntry* entry : pool->entries) {
        if (const auto* c = dynamic_cast<const ClassSymbol*>(entry)) references.insert(c->flatName->toString());
        if (const auto* array = dynamic_cast<const ArrayType*>(entry)) references.insert(array->toString());
    }
    EXPECT_THAT(references, ElementsAre("A", "java.lang.Error", "java.lang.Integer[]", "p.Shown"));
}

} // namespace
} // namespace tarn
