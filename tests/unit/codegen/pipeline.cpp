#include "pipeline.h"

#include "classfile/class_file.h"
#include "unit/classfile/class_bytes.h"

namespace tarn {

namespace {

constexpr std::uint32_t PUBLIC = 1;
constexpr std::uint32_t STATIC = 8;

void putLibrary(ByteArrayStore& path) {
    // A store in memory takes a path for the name of an entry, so a class is there once for who lists its package.
    auto put = [&](const std::string& name, const ClassBytes& c) {
        path.create(name + ".class")->write(c.build());
        std::size_t slash = name.rfind('/');
        path.makeDirectory(name.substr(0, slash))->create(name.substr(slash + 1) + ".class")->write(c.build());
    };
    auto constructor = [](ClassBytes& c) { c.method(PUBLIC, "<init>", "()V"); };

    ClassBytes object("java/lang/Object", "");
    constructor(object);
    object.method(PUBLIC, "toString", "()Ljava/lang/String;");
    object.method(PUBLIC, "getClass", "()Ljava/lang/Class;");
    put("java/lang/Object", object);

    ClassBytes c("java/lang/Class", "java/lang/Object");
    c.method(PUBLIC | STATIC, "forName", "(Ljava/lang/String;)Ljava/lang/Class;");
    put("java/lang/Class", c);

    ClassBytes string("java/lang/String", "java/lang/Object");
    for (const char* type : {"Ljava/lang/Object;", "[C", "Z", "C", "I", "J", "F", "D"})
        string.method(PUBLIC | STATIC, "valueOf", std::string("(") + type + ")Ljava/lang/String;");
    string.method(PUBLIC, "concat", "(Ljava/lang/String;)Ljava/lang/String;");
    put("java/lang/String", string);

    ClassBytes integer("java/lang/Integer", "java/lang/Object");
    integer.field(PUBLIC | STATIC, "TYPE", "Ljava/lang/Class;");
    put("java/lang/Integer", integer);

    const char* const failures[][2] = {
        {"Throwable", "Object"}, {"Error", "Throwable"}, {"Exception", "Throwable"}, {"RuntimeException", "Exception"}};
    for (const auto& [name, super] : failures) {
        ClassBytes failure(std::string("java/lang/") + name, std::string("java/lang/") + super);
        constructor(failure);
        put(std::string("java/lang/") + name, failure);
    }

    // A public class with what it inherits from a hidden one.
    ClassBytes hidden("p/Hidden", "java/lang/Object");
    hidden.flags = 0;
    constructor(hidden);
    hidden.field(PUBLIC, "field", "I");
    hidden.method(PUBLIC, "method", "()V");
    hidden.method(PUBLIC | STATIC, "shared", "()V");
    put("p/Hidden", hidden);
    ClassBytes shown("p/Shown", "p/Hidden");
    constructor(shown);
    put("p/Shown", shown);
}

/// What is at a path of directories.
StoreRef find(const StoreRef& directory, std::string_view path) {
    std::size_t slash = path.find('/');
    if (slash == std::string_view::npos) return directory->lookup(path);
    StoreRef inner = directory->lookup(path.substr(0, slash));
    return inner == nullptr ? nullptr : find(inner, path.substr(slash + 1));
}

} // namespace

PipelineTest::PipelineTest() {
    putLibrary(*path);
    context_.classPath = std::make_shared<std::vector<StoreRef>>(std::vector<StoreRef>{path});
    context_.options.quiet = true;
    out->becomeDirectory();
}

void PipelineTest::compile(std::string_view name, std::string_view text) {
    StoreRef source = ByteArrayStore::root("src")->create(std::string(name) + ".java");
    source->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    StoreRef sources[] = {source};
    Compiler().compile(sources, out, &reporter);
}

StoreRef PipelineTest::output(std::string_view path_) {
    return find(out, path_);
}

std::map<std::string, Disassembly> PipelineTest::methodsOf(const std::string& members,
                                                           const std::vector<std::string>& expectedMessages,
                                                           const std::string& others) {
    reporter.said.clear();
    for (const char* name : {"A", "Runner"}) context_.classes.erase(Name::fromBytes(name));
    out->becomeDirectory();
    compile("A", others + "class A {" + members + "}");
    EXPECT_EQ(reporter.said, expectedMessages) << members;
    StoreRef file = output("A.class");
    if (file == nullptr) {
        ADD_FAILURE() << "no class file for " << members;
        return {};
    }
    return disassemble(file->read());
}

} // namespace tarn
