#include "classfile/constant_pool.h"
#include "codegen/code.h"
#include "unit/classfile/class_file_fixture.h"

#include <gtest/gtest.h>

#include <functional>

namespace tarn {
namespace {

class WriterTest : public ClassFileTest {
protected:
    WriterTest() { object = load("java.lang.Object"); }
    ~WriterTest() override { Code::recycle(); }

    /// A public class of the unnamed package as the generator leaves it: with a pool, and without members.
    ClassSymbol* makeClass(std::string_view flatName) {
        ClassSymbol* c = here.newClass(flag::PUBLIC, Name::fromBytes(flatName), here.rootPackage);
        c->superclass = object;
        c->members = Scope::make(nullptr, c);
        c->pool = here.classReader->newPool();
        return c;
    }
    VarSymbol* addField(ClassSymbol* c, std::uint32_t flags, std::string_view name, Type* type) {
        auto* field = here.arena.make<VarSymbol>();
        field->init(flags, VAR, Name::fromBytes(name), type, c);
        c->members->enter(field);
        return field;
    }
    MethodSymbol* addMethod(ClassSymbol* c, std::uint32_t flags, std::string_view name, TypeList* thrown = nullptr) {
        auto* method = here.arena.make<MethodSymbol>();
        method->init(flags, MTH, Name::fromBytes(name), here.methodType({}, here.voidType, thrown), c);
        c->members->enter(method);
        return method;
    }
    /// A body that does nothing but return.
    static Code* addCode(MethodSymbol* method) {
        method->code = Code::take(method, false);
        method->code->bytes = {0xB1, 0xEE, 0xEE}; // with room behind the end
        method->code->cp = 1;
        method->code->maxLocals = 1;
        return method->code;
    }
    Bytes write(ClassSymbol* c) {
        auto out = ByteArrayStore::root("C.class");
        here.classReader->writeClass(c, out);
        EXPECT_EQ(out->date(), 1) << "written once";
        return out->read();
    }
    std::string failureToWrite(ClassSymbol* c) {
        auto out = ByteArrayStore::root("C.class");
        try {
            here.classReader->writeClass(c, out);
            return "written";
        } catch (const IoFailure& failure) {
            EXPECT_EQ(out->date(), 0) << "nothing is written";
            return failure.what();
        }
    }
    /// Reads it again as a class of its own name, with its pool.
    ClassSymbol* readBack(ClassSymbol* c) {
        Bytes written = write(c);
        put(c->flatName->toString() + ".class", written);
        here.options.keepPool = true;
        return load(c->flatName->toString());
    }

    ClassSymbol* object;
};

void expectSame(const Bytes& written, const Assembled& expected) {
    ASSERT_EQ(written.size(), expected.bytes.size());
    for (std::size_t at = 0; at < written.size(); ++at)
        ASSERT_EQ(int{written[at]}, int{expected.bytes[at]}) << "at " << at;
}

Assembled& utf8(Assembled& to, std::string_view text) {
    return to.u1(1).u2(static_cast<std::uint32_t>(text.size())).text(text);
}

TEST_F(WriterTest, WritesASmallClass) {
    ClassSymbol* c = makeClass("C");
    c->sourceFile = Name::fromBytes("C.java");
    c->flags |= flag::SOURCE_DEPRECATED;
    addField(c, flag::STATIC | flag::FINAL, "K", here.intConstant(typetag::SHORT, 7));
    MethodSymbol* m = addMethod(c, flag::SYNTHETIC, "m");
    addCode(m)->markLine(0, 3);
    m->code->maxStack = 2;
    m->code->addCatch(0, 1, 0, c->pool->put(here.throwableClass = load("java.lang.Object")));

    // The catch type came first, then the rest as it was asked for, then the names of the two classes.
    Assembled file;
    file.u4(0xCAFEBABE).u2(3).u2(45).u2(17);
    file.u1(7).u2(15);              // 1
    file.u1(7).u2(16);              // 2
    utf8(file, "K");                // 3
    utf8(file, "S");                // 4
    utf8(file, "ConstantValue");    // 5
    file.u1(3).u4(7);               // 6
    utf8(file, "m");                // 7
    utf8(file, "()V");              // 8
    utf8(file, "Code");             // 9
    utf8(file, "LineNumberTable");  // 10
    utf8(file, "Synthetic");        // 11
    utf8(file, "SourceFile");       // 12
    utf8(file, "C.java");           // 13
    utf8(file, "Deprecated");       // 14
    utf8(file, "java/lang/Object"); // 15
    utf8(file, "C");                // 16
    file.u2(1).u2(2).u2(1).u2(0);
    file.u2(1);
    file.u2(0x18).u2(3).u2(4).u2(1);
    file.u2(5).u4(2).u2(6);
    file.u2(1);
    file.u2(0).u2(7).u2(8).u2(2);
    file.u2(9).u4(12 + 1 + 8 + 8 + 4).u2(2).u2(1).u4(1).u1(0xB1);
    file.u2(1).u2(0).u2(1).u2(0).u2(1);
    file.u2(1).u2(10).u4(6).u2(1).u2(0).u2(3);
    file.u2(11).u4(0);
    file.u2(2).u2(12).u4(2).u2(13);
    file.u2(14).u4(0);
    expectSame(write(c), file);
    EXPECT_EQ(m->code, nullptr);
}

TEST_F(WriterTest, ListsInnerClassesBehindThoseAroundThem) {
    ClassSymbol* c = makeClass("C");
    ClassSymbol* outer = here.newClass(0, Name::fromBytes("p.O"), here.rootPackage);
    ClassSymbol* middle = here.newClass(0, Name::fromBytes("p.O$M"), outer);
    ClassSymbol* inner = here.newClass(0, Name::fromBytes("p.O$M$1"), middle);
    here.innerClasses[middle->flatName] = {.outer = outer, .name = Name::fromBytes("M"), .flags = 9};
    here.innerClasses[inner->flatName] = {.outer = middle, .name = Name::fromBytes("1"), .flags = 0};
    c->pool->put(inner); // as code that uses it does

    Assembled file;
    file.u4(0xCAFEBABE).u2(3).u2(45).u2(14);
    file.u1(7).u2(4);               // 1
    file.u1(7).u2(10);              // 2
    file.u1(7).u2(11);              // 3
    utf8(file, "p/O$M$1");          // 4
    utf8(file, "InnerClasses");     // 5
    file.u1(7).u2(12);              // 6: p.O$M
    file.u1(7).u2(13);              // 7: p.O
    utf8(file, "M");                // 8
    utf8(file, "1");                // 9
    utf8(file, "C");                // 10
    utf8(file, "java/lang/Object"); // 11
    utf8(file, "p/O$M");            // 12
    utf8(file, "p/O");              // 13
    file.u2(1).u2(2).u2(3).u2(0).u2(0).u2(0);
    file.u2(1).u2(5).u4(18).u2(2);
    file.u2(6).u2(7).u2(8).u2(9);
    file.u2(1).u2(6).u2(9).u2(0);
    expectSame(write(c), file);
}

TEST_F(WriterTest, WhatItWritesReadsBackTheSame) {
    put("E", ClassBytes("E", "java/lang/Object"));
    ClassSymbol* c = makeClass("C");
    c->flags = flag::PUBLIC | flag::ABSTRACT | flag::DEPRECATED;
    Name* text = Name::fromBytes("a\xC0\x80z");
    addField(c, flag::FINAL, "z", here.intConstant(typetag::BOOLEAN, 1));
    addField(c, flag::FINAL, "j", here.longConstant(typetag::LONG, INT64_MIN + 5));
    addField(c, flag::FINAL, "f", here.floatConstant(typetag::FLOAT, -0.0F));
    addField(c, flag::FINAL, "d", here.doubleConstant(typetag::DOUBLE, 1e300));
    addField(c, flag::FINAL, "s", here.stringConstant(typetag::CLASS, text));
    addField(c, flag::PRIVATE | flag::SYNTHETIC | flag::DEPRECATED, "a", here.arrayType(here.arrayType(c->type)));
    TypeList* thrown = here.typeList(load("E")->type, here.typeList(object->type, nullptr));
    addMethod(c, flag::ABSTRACT | flag::SYNTHETIC, "m", thrown);

    ClassSymbol* read = readBack(c);
    EXPECT_EQ(read->flags, c->flags);
    EXPECT_EQ(membersOf(read), "z j f d s a m ");
    for (const char* name : {"z", "j", "f", "d"}) EXPECT_EQ(member(read, name)->type, member(c, name)->type) << name;
    EXPECT_EQ(member(read, "s")->type->constValue()->stringValue(), text);
    EXPECT_EQ(member(read, "a")->flags, flag::PRIVATE | flag::SYNTHETIC | flag::DEPRECATED);
    EXPECT_EQ(member(read, "a")->type->toString(), "C[][]");
    EXPECT_EQ(member(read, "m")->type->toString(), "() -> void throws java.lang.Object, E");
    EXPECT_EQ(read->sourceFile, nullptr);
}

TEST_F(WriterTest, SortsLocalVariablesByTheirStart) {
    ClassSymbol* c = makeClass("C");
    Code* code = addCode(addMethod(c, 0, "m"));
    struct Row {
        const char* name;
        int start;
        int end;
        int at;
    };
    const Row rows[] = {{"e", 9, 11, 5}, {"b", 3, 20, 2}, {"d", 7, 8, 4}, {"a", 0, 20, 1}, {"c", 4, 6, 3}};
    for (const Row& row : rows) {
        auto* local = here.arena.make<VarSymbol>();
        local->init(0, VAR, Name::fromBytes(row.name), here.intType, nullptr);
        code->varSymbols.push_back(local);
        code->varRegister.push_back(static_cast<std::uint16_t>(row.at));
        code->varStart.push_back(static_cast<std::uint16_t>(row.start));
        code->varEnd.push_back(static_cast<std::uint16_t>(row.end));
        ++code->varCount;
    }
    Bytes file = write(c);
    // The table is the last thing in the file but for the number of class attributes.
    std::size_t at = file.size() - 2 - 50;
    auto next = [&] {
        at += 2;
        return file[at - 2] << 8 | file[at - 1];
    };
    std::string seen;
    int previousName = 0;
    for (int i = 0; i < 5; ++i) {
        int start = next();
        int length = next();
        int name = next();
        EXPECT_GT(name, previousName) << "names come to the pool as they are written";
        previousName = name;
        next();
        seen += std::to_string(start) + "+" + std::to_string(length) + "@" + std::to_string(next()) + " ";
    }
    EXPECT_EQ(seen, "0+20@1 3+17@2 4+2@3 7+1@4 9+2@5 ");
}

TEST_F(WriterTest, RefusesWhatTheFormatCannotCount) {
    struct Row {
        const char* message;
        std::function<void(ClassSymbol*)> outgrow;
    };
    const Row rows[] = {
        {"written", [this](ClassSymbol* c) { addCode(addMethod(c, 0, std::string(65535, 'm'))); }},
        {"length of a name or string exceeded", [this](ClassSymbol* c) { addMethod(c, 0, std::string(65536, 'm')); }},
        {"length of a name or string exceeded",
         [this](ClassSymbol* c) {
             c->pool->put(here.stringConstant(typetag::CLASS, Name::fromBytes(std::string(65536, 's'))));
         }},
        {"constant pool size exceeded",
         [this](ClassSymbol* c) {
             for (int i = 0; i < 65531; ++i) c->pool->put(here.intConstant(typetag::INT, i));
         }},
        {"written",
         [this](ClassSymbol* c) {
             // With index 0, two entries for the classes and two for their names, these are 65535.
             for (int i = 0; i < 65530; ++i) c->pool->put(here.intConstant(typetag::INT, i));
         }},
        {"number of fields exceeded",
         [this](ClassSymbol* c) {
             for (int i = 0; i < 65536; ++i) addField(c, 0, "x", here.intType);
         }},
        {"number of methods exceeded",
         [this](ClassSymbol* c) {
             for (int i = 0; i < 65536; ++i) addMethod(c, 0, "m");
         }},
        {"number of interfaces exceeded",
         [this](ClassSymbol* c) {
             c->interfaces = here.arena.makeArray<ClassSymbol*>(65536);
             for (ClassSymbol*& i : c->interfaces) i = c;
         }},
        {"code size exceeded",
         [this](ClassSymbol* c) {
             Code* code = addCode(addMethod(c, 0, "m"));
             code->bytes.assign(65536, 0);
             code->cp = 65536;
         }},
        {"number of line numbers exceeded",
         [this](ClassSymbol* c) {
             Code* code = addCode(addMethod(c, 0, "m"));
             code->lineStart.assign(65536, 0);
             code->lineNumber.assign(65536, 1);
             code->lineCount = 65536;
         }},
        {"number of thrown exceptions exceeded",
         [this](ClassSymbol* c) {
             TypeList* thrown = nullptr;
             for (int i = 0; i < 65536; ++i) thrown = here.typeList(c->type, thrown);
             addMethod(c, 0, "m", thrown);
         }},
    };
    for (const Row& row : rows) {
        ClassSymbol* c = makeClass("C");
        row.outgrow(c);
        EXPECT_EQ(failureToWrite(c), row.message);
        here.classReader->freePool(c->pool);
    }
    // The writer is none the worse for it.
    EXPECT_EQ(failureToWrite(makeClass("C")), "written");
}

} // namespace
} // namespace tarn
