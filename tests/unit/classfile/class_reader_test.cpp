#include "classfile/constant_pool.h"
#include "unit/classfile/class_file_fixture.h"

#include <gtest/gtest.h>

#include <bit>

namespace tarn {
namespace {

class ReaderTest : public ClassFileTest {};

TEST_F(ReaderTest, TakesFilesOfItsOwnVersionOnly) {
    struct Row {
        std::uint32_t major;
        std::uint32_t minor;
        const char* outcome;
    };
    const Row rows[] = {
        {45, 3, "loaded"},
        {45, 65535, "loaded"},
        {45, 2, "class file has wrong version 45.2, should be 45.3"},
        {46, 0, "class file has wrong version 46.0, should be 45.3"},
        {46, 3, "class file has wrong version 46.3, should be 45.3"},
    };
    int number = 0;
    for (const Row& row : rows) {
        std::string name = "V" + std::to_string(number++);
        ClassBytes c(name, "java/lang/Object");
        c.major = row.major;
        c.minor = row.minor;
        put(name, c);
        EXPECT_EQ(failure(name), row.outcome);
    }
}

TEST_F(ReaderTest, RefusesAFileOfAnotherClass) {
    put("p/C.class", ClassBytes("p/D", "java/lang/Object").build());
    EXPECT_EQ(failure("p.C"), "class file: p.C contains wrong class: p.D");
    EXPECT_EQ(here.findClass(Name::fromBytes("p.C")), nullptr);
    // It is looked for again once it has been put right.
    put("p/C", ClassBytes("p/C", "java/lang/Object"));
    EXPECT_EQ(failure("p.C"), "loaded");
}

TEST_F(ReaderTest, MakesConstantsOfFinalFields) {
    ClassBytes c("C", "java/lang/Object");
    auto constant = [&](std::uint32_t index) {
        return std::vector<Bytes>{c.attribute("ConstantValue", Assembled().u2(index).bytes)};
    };
    c.field(0x18, "z", "Z", constant(c.integer(1)));
    c.field(0x18, "b", "B", constant(c.integer(0xFFFFFF80)));
    c.field(0x18, "c", "C", constant(c.integer(0xFFFF)));
    c.field(0x18, "s", "S", constant(c.integer(7)));
    c.field(0x10, "i", "I", constant(c.integer(0x80000000)));
    c.field(0x18, "j", "J", constant(c.longInteger(0x80000000, 1)));
    c.field(0x18, "f", "F", constant(c.floating(0x40490FDB)));
    c.field(0x18, "d", "D", constant(c.doubleFloating(0xBFF80000, 0)));
    c.field(0x18, "t", "Ljava/lang/String;", constant(c.string("h\xC3\xA9")));
    c.field(0x18, "fNaN", "F", constant(c.floating(0xFFC00001)));
    c.field(0x18, "dNaN", "D", constant(c.doubleFloating(0xFFF80000, 1)));
    c.field(0x8, "variable", "I", constant(c.integer(5)));
    put("C", c);

    ClassSymbol* read = load("C");
    auto value = [&](std::string_view name) { return member(read, name)->type->constValue(); };
    EXPECT_EQ(member(read, "z")->type, here.intConstant(typetag::BOOLEAN, 1));
    EXPECT_EQ(member(read, "b")->type, here.intConstant(typetag::BYTE, -128));
    EXPECT_EQ(member(read, "c")->type, here.intConstant(typetag::CHAR, 65535));
    EXPECT_EQ(member(read, "s")->type, here.intConstant(typetag::SHORT, 7));
    EXPECT_EQ(member(read, "i")->type, here.intConstant(typetag::INT, INT32_MIN));
    EXPECT_EQ(value("j")->longValue(), INT64_MIN + 1);
    EXPECT_EQ(value("f")->floatValue(), 3.14159274F);
    EXPECT_EQ(value("d")->doubleValue(), -1.5);
    EXPECT_EQ(value("t")->stringValue(), Name::fromBytes("h\xC3\xA9"));
    EXPECT_EQ(member(read, "t")->type->tag, typetag::CLASS);
    EXPECT_EQ(member(read, "variable")->type, here.intType);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(value("fNaN")->floatValue()), 0x7FC00000U) << "there is only one NaN";
    EXPECT_EQ(std::bit_cast<std::uint64_t>(value("dNaN")->doubleValue()), 0x7FF8000000000000U);
}

TEST_F(ReaderTest, RefusesAConstantOfAnotherType) {
    struct Row {
        const char* name;
        const char* descriptor;
        std::uint32_t (*constant)(ClassBytes&);
    };
    const Row rows[] = {
        {"A", "I", [](ClassBytes& c) { return c.string("text"); }},
        {"B", "J", [](ClassBytes& c) { return c.integer(1); }},
        {"C", "Ljava/lang/Object;", [](ClassBytes& c) { return c.string("text"); }},
        {"D", "Ljava/lang/String;", [](ClassBytes& c) { return c.integer(1); }},
        {"E", "[I", [](ClassBytes& c) { return c.integer(1); }},
        {"F", "F", [](ClassBytes& c) { return c.cls("x"); }},
        {"G", "I", [](ClassBytes&) { return 0U; }},
        {"H", "I", [](ClassBytes&) { return 4711U; }},
    };
    for (const Row& row : rows) {
        ClassBytes c(row.name, "java/lang/Object");
        std::uint32_t index = row.constant(c);
        c.field(0x18, "x", row.descriptor, {c.attribute("ConstantValue", Assembled().u2(index).bytes)});
        put(row.name, c);
        EXPECT_EQ(failure(row.name), "bad class file") << row.name;
    }
}

/// Keeps the names of the attributes that it is told of.
class Curious final : public ClassFile {
public:
    void unknownAttribute(Name* name) override { seen += name->toString() + " "; }
    std::string seen;
};

TEST_F(ReaderTest, SkipsUnknownAttributesByTheirLength) {
    auto reader = std::make_unique<Curious>();
    Curious& curious = *reader;
    here.classReader = std::move(reader);
    ClassBytes c("C", "java/lang/Object");
    Bytes junk{1, 2, 3, 4, 5};
    c.field(0, "x", "I", {c.attribute("OnField", junk), c.attribute("Synthetic", {}), c.attribute("Empty", {})});
    c.method(0, "m", "()V", {c.attribute("Code", junk), c.attribute("OnMethod", junk), c.attribute("Deprecated", {})});
    c.attributes = {c.attribute("OnClass", junk), c.attribute("Deprecated", {})};
    put("C", c);

    ClassSymbol* read = load("C");
    EXPECT_EQ(curious.seen, "OnField Empty OnMethod OnClass ");
    EXPECT_EQ(member(read, "x")->flags, flag::SYNTHETIC);
    EXPECT_EQ(member(read, "m")->flags, flag::DEPRECATED);
    EXPECT_EQ(read->flags, 1U | flag::DEPRECATED);
}

TEST_F(ReaderTest, RefusesBadSignatures) {
    struct Row {
        const char* descriptor;
        bool isMethod;
        const char* message;
    };
    const Row rows[] = {
        {"", false, "bad signature: "},
        {"Q", false, "bad signature: Q"},
        {"Lp/Unending", false, "bad signature: Lp.Unendin"},
        {"L;", false, "bad signature: L;"},
        {"II", false, "bad signature: I"},
        {"V", false, "bad signature: V"},
        {"[V", false, "bad signature: V"},
        {"[", false, "bad signature: ["},
        {"(I", true, "bad signature: (I"},
        {"()", true, "bad signature: "},
        {"(V)V", true, "bad signature: V)V"},
        {"((I)V)V", true, "bad signature: (I)V)V"},
        {"()VV", true, "bad signature: V"},
        {"()V", false, "bad class file"},
        {"I", true, "bad class file"},
        {"Lp//X;", false, "bad class file"},
        {"L/p/X;", false, "bad class file"},
        {"Lp/;", false, "bad class file"},
    };
    int number = 0;
    for (const Row& row : rows) {
        std::string name = "S" + std::to_string(number++);
        ClassBytes c(name, "java/lang/Object");
        if (row.isMethod)
            c.method(0, "m", row.descriptor);
        else
            c.field(0, "x", row.descriptor);
        put(name, c);
        EXPECT_EQ(failure(name), row.message) << row.descriptor;
    }
}

TEST_F(ReaderTest, NamesABadTagAndItsPlace) {
    struct Row {
        const char* name;
        std::uint32_t tag;
        const char* message;
    };
    // The two entries of "java/lang/Object" and those of a name of one letter go before: 10 + (4 + 3) + (19 + 3).
    const Row rows[] = {{"A", 0, "bad constant pool tag: 0 at 39"},
                        {"B", 13, "bad constant pool tag: 13 at 39"},
                        {"C", 255, "bad constant pool tag: -1 at 39"}};
    for (const Row& row : rows) {
        ClassBytes c(row.name, "java/lang/Object");
        c.raw(Assembled().u1(row.tag).u4(0));
        put(row.name, c);
        EXPECT_EQ(failure(row.name), row.message);
    }
}

TEST_F(ReaderTest, EntersMemberClasses) {
    put("p/Out", [] {
        ClassBytes c("p/Out", "java/lang/Object");
        Assembled entries;
        entries.u2(5);
        entries.u2(c.cls("p/Out$In")).u2(c.thisClass).u2(c.utf8("In")).u2(0x9);
        entries.u2(c.cls("p/Out$1")).u2(0).u2(0).u2(0);                              // anonymous
        entries.u2(c.cls("p/Out$1$L")).u2(c.thisClass).u2(0).u2(0);                  // local
        entries.u2(c.cls("q/Far$Away")).u2(c.cls("q/Far")).u2(c.utf8("Away")).u2(0); // of another class
        entries.u2(c.thisClass).u2(c.cls("p/Out$In")).u2(c.utf8("Odd")).u2(0);       // inside out
        c.attributes = {c.attribute("InnerClasses", entries.bytes)};
        return c;
    }());
    put("p/Out$In", ClassBytes("p/Out$In", "java/lang/Object"));

    ClassSymbol* out = load("p.Out");
    EXPECT_EQ(membersOf(out), "In ");
    Symbol* in = member(out, "In");
    EXPECT_EQ(in, load("p.Out$In"));
    EXPECT_EQ(in->owner, out);
    EXPECT_EQ(in->kind, TYP);
    const InnerClassRecord* record = here.innerClass(Name::fromBytes("p.Out$In"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->outer, out);
    EXPECT_EQ(record->name->toString(), "In");
    EXPECT_EQ(record->flags, 0x9U);
    EXPECT_NE(here.innerClass(Name::fromBytes("q.Far$Away")), nullptr);
    EXPECT_EQ(here.innerClass(Name::fromBytes("p.Out$1")), nullptr);
    EXPECT_EQ(here.innerClass(Name::fromBytes("p.Out")), nullptr);
    EXPECT_EQ(printName(Name::fromBytes("p.Out$In")), "p.Out.In");
}

TEST_F(ReaderTest, KeepsThePoolWhenAsked) {
    ClassBytes c("C", "java/lang/Object");
    std::uint32_t text = c.string("s");
    std::uint32_t method = c.member(10, c.cls("p/D"), "m", "([Lp/E;)Lp/F;");
    std::uint32_t field = c.member(9, c.thisClass, "x", "I");
    std::uint32_t array = c.cls("[[Lp/G;");
    std::uint32_t wide = c.longInteger(0, 9);
    put("C", c);
    here.options.keepPool = true;
    ConstantPool* pool = load("C")->pool;

    ASSERT_NE(pool, nullptr);
    EXPECT_EQ(pool->count(), static_cast<int>(c.poolCount));
    EXPECT_EQ(pool->entries[0], nullptr);
    EXPECT_EQ(static_cast<StringConstant*>(pool->entries[text])->value, Name::fromBytes("s"));
    auto* m = dynamic_cast<MethodSymbol*>(pool->entries[method]);
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->owner->fullName()->toString(), "p.D");
    EXPECT_EQ(m->type->toString(), "(p.E[]) -> p.F");
    auto* x = dynamic_cast<VarSymbol*>(pool->entries[field]);
    ASSERT_NE(x, nullptr);
    EXPECT_EQ(x->owner->fullName()->toString(), "C");
    EXPECT_EQ(static_cast<Type*>(pool->entries[array])->toString(), "p.G[][]");
    EXPECT_EQ(pool->entries[wide], here.longConstant(typetag::LONG, 9));
    EXPECT_EQ(pool->entries[wide + 1], nullptr) << "the last index is the second one of a long";

    // What only descriptors name becomes an entry too.
    std::string classes;
    for (Symbol* entry = pool->buildIndex()->elems; entry != nullptr; entry = entry->sibling)
        if (entry->sym->kind == TYP) classes = entry->sym->fullName()->toString() + " " + classes;
    EXPECT_EQ(classes, "C java.lang.Object p.D p.F p.E p.G ");
}

TEST_F(ReaderTest, RefusesPoolEntriesThatReferToTheWrongKind) {
    struct Row {
        const char* name;
        Assembled entry;
    };
    const Row rows[] = {
        {"A", Assembled().u1(7).u2(5)},        // a class that is its own name
        {"B", Assembled().u1(8).u2(5)},        // a string of itself
        {"C", Assembled().u1(12).u2(5).u2(5)}, // a pair of itself
        {"D", Assembled().u1(9).u2(5).u2(5)},  // a field of itself
        {"E", Assembled().u1(10).u2(2).u2(2)}, // a method without a pair
        {"F", Assembled().u1(7).u2(0)},        {"G", Assembled().u1(7).u2(4711)},
    };
    here.options.keepPool = true;
    for (const Row& row : rows) {
        ClassBytes c(row.name, "java/lang/Object");
        ASSERT_EQ(c.raw(row.entry), 5U);
        put(row.name, c);
        EXPECT_EQ(failure(row.name), "bad class file") << row.name;
    }
    for (bool isUsed : {false, true}) {
        here.options.keepPool = !isUsed;
        ClassBytes c("U", "java/lang/Object");
        std::uint32_t unicode = c.raw(Assembled().u1(2).u2(2).u2('x'));
        if (isUsed) c.superClass = c.raw(Assembled().u1(7).u2(unicode));
        put("U", c);
        EXPECT_EQ(failure("U"), "can't read unicode strings in class files");
    }
}

// ---- hostile files

/// A class with something of everything that the reader looks into.
ClassBytes richClass() {
    ClassBytes c("p/C", "java/lang/Object");
    c.interfaces = {c.cls("p/I")};
    std::uint32_t constant = c.longInteger(1, 2);
    c.field(0x18, "j", "J",
            {c.attribute("ConstantValue", Assembled().u2(constant).bytes), c.attribute("Synthetic", {})});
    c.field(0x18, "s", "Ljava/lang/String;", {c.attribute("ConstantValue", Assembled().u2(c.string("text")).bytes)});
    Bytes thrown = Assembled().u2(1).u2(c.cls("p/X")).bytes;
    c.method(1, "m", "([[Lp/D;IJ)[Z", {c.attribute("Code", {0, 0}), c.attribute("Exceptions", thrown)});
    c.member(11, c.cls("p/E"), "n", "(D)V");
    c.floating(0x3F800000);
    Bytes inner = Assembled().u2(1).u2(c.cls("p/C$In")).u2(c.thisClass).u2(c.utf8("In")).u2(1).bytes;
    c.attributes = {c.attribute("SourceFile", Assembled().u2(c.utf8("C.java")).bytes),
                    c.attribute("InnerClasses", inner), c.attribute("Deprecated", {})};
    return c;
}

class HostileClassFile : public ::testing::TestWithParam<bool> {
protected:
    /// What reading these bytes as `p.C` comes to. Anything but a class or a ClassNotFound fails the test.
    static std::string outcome(const Bytes& contents) {
        Context here;
        auto path = ByteArrayStore::root("path");
        path->create("p/C.class")->write(contents);
        path->create("p/I.class")->write(ClassBytes("p/I", "").build());
        path->create("java/lang/Object.class")->write(ClassBytes("java/lang/Object", "").build());
        here.classPath = std::make_shared<std::vector<StoreRef>>(std::vector<StoreRef>{path});
        here.options.keepPool = GetParam();
        try {
            ClassSymbol* c = here.classReader->load(Name::fromBytes("p.C"));
            if (c->pool != nullptr) c->pool->buildIndex();
            std::string shown;
            for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling) {
                if (entry->sym->kind == TYP) ensureRead(static_cast<ClassSymbol*>(entry->sym));
                shown += entry->sym->toString() + entry->sym->location();
                if (entry->sym->type != nullptr) shown += entry->sym->type->toString();
            }
            return "loaded " + shown;
        } catch (const ClassNotFound& failure) {
            return failure.what();
        }
    }
};

TEST_P(HostileClassFile, IsRefusedWhenCutAtAnyLength) {
    Bytes whole = richClass().build();
    ASSERT_TRUE(outcome(whole).starts_with("loaded "));
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(outcome(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), "bad class file")
            << size;
}

TEST_P(HostileClassFile, DoesNoHarmWithAnyByteChanged) {
    Bytes whole = richClass().build();
    int refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (std::uint8_t change : {0x01, 0x80, 0xFF}) {
            Bytes changed = whole;
            changed[at] ^= change;
            if (!outcome(changed).starts_with("loaded ")) ++refused;
        }
    }
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(Pool, HostileClassFile, ::testing::Bool(),
                         [](const auto& parameter) { return parameter.param ? "Kept" : "Dropped"; });

TEST(HostileClassFileSize, StaysInProportion) {
    Context here;
    std::uint32_t before = Name::fromBytes("before the hostile files")->index;
    auto path = ByteArrayStore::root("path");
    here.classPath = std::make_shared<std::vector<StoreRef>>(std::vector<StoreRef>{path});
    auto failure = [&](std::string_view name, const Bytes& contents) -> std::string {
        path->create(std::string(name) + ".class")->write(contents);
        try {
            here.classReader->load(Name::fromBytes(name));
            return "loaded";
        } catch (const ClassNotFound& notFound) {
            return notFound.what();
        }
    };
    auto withField = [](std::string_view name, const std::string& descriptor) {
        ClassBytes c(name, "");
        c.field(0, "x", descriptor);
        return c.build();
    };
    EXPECT_EQ(failure("A", withField("A", std::string(60000, '[') + "I")), "bad signature: [[[[[[[[[[");
    EXPECT_EQ(failure("B", withField("B", std::string(255, '[') + "L" + std::string(60000, 'x') + ";")),
              "bad signature: [[[[[[[[[[");
    EXPECT_EQ(failure("C", withField("C", std::string(255, '[') + "I")), "loaded");
    std::string deep = "x";
    for (int i = 0; i < 30000; ++i) deep += "/x";
    EXPECT_EQ(failure("D", withField("D", "L" + deep + ";")), "bad class file");
    // Counts that promise much more than there is.
    Bytes counted = ClassBytes("E", "").build();
    counted[8] = counted[9] = 0xFF;
    EXPECT_NE(failure("E", counted), "loaded");
    // Names are stored one behind the other, so the offset of a new one tells how much text there is.
    EXPECT_LT(Name::fromBytes("after the hostile files")->index - before, 1U << 20);
}

} // namespace
} // namespace tarn
