#include "classfile/class_file.h"

#include "driver/reporter.h"
#include "semantic/type.h"
#include "store/null_store.h"
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

TEST_F(LoadingTest, ReadsSupertypesAndNothingElse) {
    put("I", ClassBytes("I", "java/lang/Object"));
    ClassBytes base("Base", "java/lang/Object");
    base.interfaces = {base.cls("I")};
    put("Base", base);
    putMentioning("C", "Base", {"Other"});
    putMentioning("Other", "Further", {"C"});
    put("Further", ClassBytes("Further", "java/lang/Object"));

    ClassSymbol* c = load("C");
    EXPECT_EQ(c->superclass->superclass, load("java.lang.Object"));
    EXPECT_EQ(c->superclass->interfaces[0]->reading, Reading::DONE);
    ClassSymbol* other = mentioned(c, 0);
    EXPECT_EQ(other->reading, Reading::NAMED);
    EXPECT_EQ(other->superclass, nullptr);

    ensureRead(other);
    EXPECT_EQ(other->reading, Reading::DONE);
    EXPECT_EQ(other->superclass->flatName->toString(), "Further");
    EXPECT_EQ(mentioned(other, 0), c);
    EXPECT_EQ(load("Other"), other);
}

TEST_F(LoadingTest, SubtypingReadsWhatWasOnlyMentioned) {
    here.objectClass = load("java.lang.Object");
    here.objectType = here.objectClass->type;
    ClassBytes runnable("Runnable", "java/lang/Object");
    runnable.flags = 0x601;
    put("Runnable", runnable);
    ClassBytes base("Base", "java/lang/Object");
    base.interfaces = {base.cls("Runnable")};
    put("Base", base);
    put("Derived", ClassBytes("Derived", "Base"));
    ClassBytes last("Last", "java/lang/Object");
    last.flags = 0x11;
    put("Last", last);
    putMentioning("C", "java/lang/Object", {"Derived", "Base", "Runnable", "Last"});

    ClassSymbol* c = load("C");
    Type* derived = mentioned(c, 0)->type;
    Type* base_ = mentioned(c, 1)->type;
    Type* runnable_ = mentioned(c, 2)->type;
    Type* last_ = mentioned(c, 3)->type;
    EXPECT_FALSE(c->type->isSubType(base_));
    EXPECT_EQ(base_->tsym->reading, Reading::NAMED) << "what has not been read is no superclass of what has";
    EXPECT_TRUE(derived->isSubType(runnable_));
    EXPECT_TRUE(derived->isSubType(base_));
    EXPECT_FALSE(base_->isSubType(derived));
    EXPECT_FALSE(isCastable(last_, runnable_)) << "a final class";
    EXPECT_TRUE(isCastable(c->type, runnable_));
}

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

TEST_F(LoadingTest, InterfacesThatShareSupertypesAreWalkedOnce) {
    here.objectClass = load("java.lang.Object");
    // Sixty steps with two ways each.
    for (int step = 0; step < 60; ++step)
        for (const char* side : {"a", "b"}) {
            std::string name = side + std::to_string(step);
            ClassBytes c(name, "java/lang/Object");
            c.flags = 0x601;
            if (step > 0) c.interfaces = {c.cls("a" + std::to_string(step - 1)), c.cls("b" + std::to_string(step - 1))};
            put(name, c);
        }
    EXPECT_TRUE(load("a59")->isSubClass(load("b0")));
    EXPECT_FALSE(load("a59")->isSubClass(load("b59")));
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

TEST_F(LoadingTest, ASourceIsNoClass) {
    put("p/S.java", Bytes{'x'});
    EXPECT_EQ(failure("p.S"), "file p/S.class not found");
    EXPECT_EQ(here.findClass(Name::fromBytes("p.S")), nullptr);
}

TEST_F(LoadingTest, AFailureToReadIsAMissingClass) {
    path->makeDirectory("D.class"); // a directory cannot be read
    EXPECT_EQ(failure("D"), "not readable: path/D.class");
}

TEST_F(LoadingTest, GrowsItsBufferForALargeFile) {
    ClassBytes c("Large", "java/lang/Object");
    for (int i = 0; i < 5000; ++i) c.field(1, "field" + std::to_string(i), "I");
    put("Large", c);
    EXPECT_EQ(member(load("Large"), "field4999")->type, here.intType);
    EXPECT_EQ(failure("java.lang.Object"), "loaded");
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

TEST_F(LoadingTest, PackagesAreEnteredWithThoseAround) {
    ClassSymbol* inner = here.classReader->enterPackage(Name::fromBytes("a.b.c"));
    EXPECT_EQ(inner->name->toString(), "c");
    EXPECT_EQ(inner->owner, here.classReader->enterPackage(Name::fromBytes("a.b")));
    EXPECT_EQ(here.classReader->enterPackage(nullptr), here.rootPackage);
}

TEST_F(LoadingTest, ListsTheClassesOfAPackage) {
    StoreRef directory = path->makeDirectory("p");
    for (const char* file : {"A.class", "B.class", "B.java", "A.class.old", "readme"})
        directory->create(file)->write({});
    put("p/Known", ClassBytes("p/Known", "java/lang/Object"));
    load("p.Known");
    putMentioning("D", "java/lang/Object", {"p/Mentioned"});
    load("D");

    ClassSymbol* p = here.classReader->enterPackage(Name::fromBytes("p"));
    EXPECT_TRUE(here.classReader->fillPackage(p));
    EXPECT_EQ(membersOf(p), "A B Known ");
    Symbol* a = member(p, "A");
    EXPECT_EQ(a->kind, NONE);
    EXPECT_EQ(a->fullName()->toString(), "p.A");

    ClassSymbol* nowhere = here.classReader->enterPackage(Name::fromBytes("nowhere"));
    EXPECT_FALSE(here.classReader->fillPackage(nowhere));
    EXPECT_TRUE(here.classReader->fillPackage(nowhere));
    EXPECT_EQ(membersOf(nowhere), "");
}

/// Collects what is printed.
class Collector final : public Reporter {
public:
    void print(std::string_view more) override { text += more; }
    void println(std::string_view more) override { (text += more) += "\n"; }
    void error(const StoreRef&, int, const Message&) override {}
    void warning(const StoreRef&, int, const Message&) override {}
    [[nodiscard]] int errorCount() const override { return 0; }
    [[nodiscard]] int warningCount() const override { return 0; }
    std::string text;
};

TEST_F(LoadingTest, TellsWhereItLooksAndWhatItLoads) {
    Collector collector;
    setReporter(&collector);
    here.options.verbose = true;
    here.options.printsearch = true;
    load("java.lang.Object");
    setReporter(nullptr);
    std::size_t time = collector.text.find_last_of(' ') + 1;
    EXPECT_EQ(collector.text.substr(0, time), "looking for java/lang/Object.class\n"
                                              " in ByteArrayStore[path]\n"
                                              "[loading path/java/lang/Object.class ");
    EXPECT_TRUE(collector.text.ends_with("ms]\n"));
}

} // namespace
} // namespace tarn
