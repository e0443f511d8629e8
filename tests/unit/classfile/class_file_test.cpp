#include "classfile/class_file.h"

#include "unit/classfile/class_file_fixture.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

class LoadingTest : public ClassFileTest {
protected:
    /// A class with one field for each class that it mentions.
    void putMentioning(std::string_view name, std::string_view super, const std::vector<std::string>& mentioned) {
        ClassBytes c(name, super);
        int number = 0;
        for (const std::string& each : mentioned) c.field(1, "x" + std::to_string(number++), "L" + each + ";");
        put(name, c);
    }
    static ClassSymbol* mentioned(const ClassSymbol* c, int number) {
        return member(c, "x" + std::to_string(number))->type->tsym;
    }
};

TEST_F(LoadingTest, AMentionedClassThatIsMissingHurtsNobodyButItsUsers) {
    here.objectClass = load("java.lang.Object");
    putMentioning("C", "java/lang/Object", {"p/Missing"});
    ClassSymbol* c = load("C");
    ClassSymbol* missing = mentioned(c, 0);
    EXPECT_EQ(here.classReader->failureOf(missing), nullptr);
    ensureRead(missing);
    EXPECT_EQ(missing->reading, Reading::FAILED);
    EXPECT_EQ(missing->superclass, here.objectClass);
    EXPECT_EQ(membersOf(missing), "");
    ASSERT_NE(here.classReader->failureOf(missing), nullptr);
    EXPECT_EQ(here.classReader->failureOf(missing)->toString(), "file p/Missing.class not found");
    EXPECT_EQ(failure("p.Missing"), "file p/Missing.class not found");
    EXPECT_EQ(here.classReader->failureOf(c), nullptr);
    // It keeps its symbol, should it turn up.
    put("p/Missing", ClassBytes("p/Missing", "java/lang/Object"));
    EXPECT_EQ(load("p.Missing"), missing);
    EXPECT_EQ(here.classReader->failureOf(missing), nullptr);
}

TEST_F(LoadingTest, AMissingSupertypeFailsTheClassOnce) {
    here.objectClass = load("java.lang.Object");
    put("Good", ClassBytes("Good", "java/lang/Object"));
    ClassBytes c("C", "Gone");
    c.interfaces = {c.cls("AlsoGone")};
    put("C", c);
    EXPECT_EQ(failure("C"), "file Gone.class not found");
    EXPECT_EQ(failure("C"), "loaded");
    EXPECT_TRUE(load("C")->isSubClass(here.objectClass));
    EXPECT_EQ(failure("Good"), "loaded");
    EXPECT_NE(here.classReader->failureOf(load("C")), nullptr);
}

TEST_F(LoadingTest, CirclesOfSupertypesEnd) {
    put("A", ClassBytes("A", "B"));
    put("B", ClassBytes("B", "A"));
    EXPECT_EQ(failure("A"), "cyclic inheritance involving class B");
    put("Self", ClassBytes("Self", "Self"));
    EXPECT_EQ(failure("Self"), "cyclic inheritance involving class Self");
    ClassBytes i("I", "java/lang/Object");
    i.interfaces = {i.cls("J")};
    put("I", i);
    ClassBytes j("J", "java/lang/Object");
    j.interfaces = {j.cls("I")};
    put("J", j);
    EXPECT_EQ(failure("I"), "cyclic inheritance involving class J");
    EXPECT_FALSE(load("I")->isSubClass(load("A")));
}

TEST_F(LoadingTest, TheUnnamedPackageIsSearchedInTheOutputDirectoryFirst) {
    output->create("C.class")->write(ClassBytes("C", "java/lang/Object").build());
    ClassBytes onPath("C", "java/lang/Object");
    onPath.flags = 0x11;
    put("C", onPath);
    EXPECT_EQ(load("C")->flags, 1U);
    output->create("p/D.class")->write(ClassBytes("p/D", "java/lang/Object").build());
    EXPECT_EQ(failure("p.D"), "file p/D.class not found");
}

TEST_F(LoadingTest, KeepsClassesAndPackagesApart) {
    put("p/C", ClassBytes("p/C", "java/lang/Object"));
    load("p.C");
    EXPECT_EQ(failure("p"), "package and class with same name: p");
    EXPECT_THROW(here.classReader->enterPackage(Name::fromBytes("p.C")), ClassNotFound);
    // A class that was only mentioned gives way.
    putMentioning("D", "java/lang/Object", {"q"});
    ClassSymbol* q = mentioned(load("D"), 0);
    EXPECT_EQ(here.classReader->enterPackage(Name::fromBytes("q"))->kind, PCK);
    ensureRead(q);
    EXPECT_EQ(here.classReader->failureOf(q)->toString(), "package and class with same name: q");
}

} // namespace
} // namespace tarn
