#include "make/change_detection.h"

#include "classfile/constant_pool.h"
#include "semantic/context.h"
#include "semantic/scope.h"

#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>

namespace tarn {
namespace {

/// The hash of a text: for each byte, times 1664525 and plus the byte, as a signed one.
std::uint32_t hashOf(std::string_view text) {
    std::uint32_t hash = 0;
    for (char c : text) hash = hash * 1664525u + static_cast<std::uint32_t>(static_cast<signed char>(c));
    return hash;
}

std::int32_t print(std::string_view descriptor, std::string_view name, std::uint32_t flags) {
    return static_cast<std::int32_t>(hashOf(descriptor) + hashOf(name) + flags);
}

std::int32_t withValue(std::int32_t base, std::uint32_t low, std::uint32_t high) {
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(base) * 1664525u + low) * 1664525u + high);
}

class Fingerprint : public testing::Test {
protected:
    VarSymbol* field(std::string_view name, Type* type, std::uint32_t flags) {
        auto* v = context.arena.make<VarSymbol>();
        v->init(flags, VAR, Name::fromString(name), type, owner);
        return v;
    }
    MethodSymbol* method(std::string_view name, Type* type, std::uint32_t flags) {
        auto* m = context.arena.make<MethodSymbol>();
        m->init(flags, MTH, Name::fromString(name), type, owner);
        return m;
    }
    ClassSymbol* classNamed(std::string_view name) {
        return context.newClass(0, Name::fromString(name), context.rootPackage);
    }

    Context context;
    ClassSymbol* owner = classNamed("a.B");
};

TEST_F(Fingerprint, OfAFieldCoversNameTypeAndFlags) {
    EXPECT_EQ(print("I", "count", 0), memberFingerprint(field("count", context.intType, 0)));
    EXPECT_EQ(
        print("[La/C;", "all", flag::PRIVATE | flag::STATIC),
        memberFingerprint(field("all", context.arrayType(classNamed("a.C")->type), flag::PRIVATE | flag::STATIC)));
    std::int32_t plain = memberFingerprint(field("x", context.intType, flag::PUBLIC));
    EXPECT_EQ(plain, memberFingerprint(field("x", context.intType, flag::PUBLIC | flag::TRANSIENT)));
    for (std::uint32_t seen : {flag::PRIVATE, flag::PROTECTED, flag::STATIC, flag::FINAL, flag::VOLATILE})
        EXPECT_NE(plain, memberFingerprint(field("x", context.intType, flag::PUBLIC | seen)));
}

TEST_F(Fingerprint, OfAConstantCoversItsValue) {
    struct Row {
        const char* descriptor;
        Type* type;
        std::uint32_t low;
        std::uint32_t high;
    };
    auto ofDouble = std::bit_cast<std::uint64_t>(1.5);
    std::int32_t textHash = static_cast<std::int32_t>(hashOf("hello"));
    std::uint32_t textHigh = textHash < 0 ? 0xFFFFFFFF : 0;
    for (const Row& row : {Row{"I", context.intConstant(typetag::INT, 7), 7, 0},
                           Row{"I", context.intConstant(typetag::INT, -1), 0xFFFFFFFF, 0xFFFFFFFF},
                           Row{"C", context.intConstant(typetag::CHAR, 0xFFFF), 0xFFFF, 0},
                           Row{"Z", context.intConstant(typetag::BOOLEAN, 1), 1, 0},
                           Row{"J", context.longConstant(typetag::LONG, 0x123456789), 0x23456789, 1},
                           Row{"F", context.floatConstant(typetag::FLOAT, -1.0F), 0xBF800000, 0xFFFFFFFF},
                           Row{"D", context.doubleConstant(typetag::DOUBLE, 1.5), static_cast<std::uint32_t>(ofDouble),
                               static_cast<std::uint32_t>(ofDouble >> 32)},
                           Row{"Ljava/lang/String;", context.stringConstant(typetag::CLASS, Name::fromString("hello")),
                               static_cast<std::uint32_t>(textHash), textHigh}}) {
        std::uint32_t flags = flag::STATIC | flag::FINAL;
        EXPECT_EQ(withValue(print(row.descriptor, "K", flags), row.low, row.high),
                  memberFingerprint(field("K", row.type, flags)))
            << row.descriptor;
    }
}

TEST_F(Fingerprint, OfAMethodCoversWhatItThrows) {
    Type* none[] = {context.intType};
    Type* first = classNamed("a.First")->type;
    Type* second = classNamed("a.Second")->type;
    auto thrown = [&](TypeList* list) {
        return memberFingerprint(method("f", context.methodType(none, context.voidType, list), flag::PUBLIC));
    };
    auto base = static_cast<std::uint32_t>(print("(I)V", "f", flag::PUBLIC));
    EXPECT_EQ(static_cast<std::int32_t>(base * 1664525u + 1), thrown(nullptr));
    EXPECT_EQ(static_cast<std::int32_t>(base * 1664525u + (1 ^ hashOf("a.First"))),
              thrown(context.typeList(first, nullptr)));
    EXPECT_EQ(thrown(context.typeList(first, context.typeList(second, nullptr))),
              thrown(context.typeList(second, context.typeList(first, nullptr))));
}

TEST_F(Fingerprint, IsTheSameFromSourceAndFromAClassFile) {
    Type* type = context.methodType({}, context.voidType, nullptr);
    EXPECT_EQ(memberFingerprint(method("f", type, flag::SOURCE_DEPRECATED)),
              memberFingerprint(method("f", type, flag::DEPRECATED)));
    EXPECT_NE(memberFingerprint(method("f", type, 0)), memberFingerprint(method("f", type, flag::DEPRECATED)));
    for (std::uint32_t unseen : {flag::SYNCHRONIZED, flag::NATIVE})
        EXPECT_EQ(memberFingerprint(method("f", type, 0)), memberFingerprint(method("f", type, unseen)));
    // Private names that are hidden differ from run to run.
    EXPECT_EQ(memberFingerprint(method("_$17", type, flag::PRIVATE)),
              memberFingerprint(method("_$4", type, flag::PRIVATE)));
    for (const char* other : {"_$", "_$1a", "$_17"})
        EXPECT_NE(memberFingerprint(method("_$17", type, flag::PRIVATE)),
                  memberFingerprint(method(other, type, flag::PRIVATE)));
    EXPECT_NE(memberFingerprint(method("_$17", type, 0)), memberFingerprint(method("_$4", type, 0)));
}

class Listed final : public ReferenceVisitor {
public:
    void visitClass(Name* flatName) override { text += "class " + flatName->toString() + "\n"; }
    void visitMember(Name* ofClass, const Symbol* member) override {
        text += ofClass->toString() + " has " + member->name->toString() + "\n";
    }
    void visitSite(Name* site, const Symbol* member) override {
        text += site->toString() + " finds " + member->name->toString() + "\n";
    }

    std::string text;
};

TEST_F(Fingerprint, ReferencesAreAllThatThePoolAndTheInlinedConstantsName) {
    ConstantPool pool;
    Type* args[] = {context.arrayType(classNamed("a.Arg")->type), context.intType};
    ClassSymbol* other = classNamed("a.Other");
    MethodSymbol* called = method("f", context.methodType(args, classNamed("a.Result")->type, nullptr), 0);
    called->owner = other;
    pool.put(Name::fromString("a.NoClass"));
    pool.put(called);
    pool.put(context.stringConstant(typetag::CLASS, Name::fromString("text")));
    pool.put(context.arrayType(classNamed("a.Element")->type));
    pool.put(classNamed("a.Named"));
    owner->pool = &pool;
    VarSymbol* constant = field("K", context.intConstant(typetag::INT, 1), flag::STATIC | flag::FINAL);
    constant->owner = classNamed("a.Constants");
    owner->addConstantRef(constant);
    Listed listed;
    visitReferences(owner, listed);
    EXPECT_EQ("class a.Result\nclass a.Arg\nclass a.Other\na.Other has f\nclass a.Element\nclass a.Named\n"
              "class a.Constants\na.Constants has K\n",
              listed.text);
}

} // namespace
} // namespace tarn
