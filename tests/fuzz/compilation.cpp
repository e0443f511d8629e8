#include "compilation.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "make/compiler.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "store/memory_store.h"

#include <algorithm>
#include <span>

namespace tarn::fuzz {

namespace {

/// A root of nodes in memory that answers to relative paths, as a directory does.
class MemoryPlace final : public Store {
public:
    explicit MemoryPlace(std::shared_ptr<ByteArrayStore> root) : root_(std::move(root)) {}

    [[nodiscard]] bool equals(const Store& other) const override { return this == &other; }
    [[nodiscard]] std::uint32_t hashCode() const override { return root_->hashCode(); }
    [[nodiscard]] std::string toString() const override { return root_->toString(); }
    [[nodiscard]] Date date() const override { return root_->date(); }
    [[nodiscard]] std::string name() const override { return root_->name(); }
    [[nodiscard]] std::string path() const override { return root_->path(); }
    [[nodiscard]] std::optional<std::string> canonicalPath() const override { return root_->canonicalPath(); }
    [[nodiscard]] std::optional<std::string> parent() const override { return root_->parent(); }
    [[nodiscard]] bool isDirectory() const override { return true; }
    Bytes read() override { return root_->read(); }
    std::size_t readInto(std::span<std::uint8_t> buffer) override { return root_->readInto(buffer); }
    void write(std::span<const std::uint8_t> contents) override { root_->write(contents); }
    std::optional<std::vector<std::string>> list() override { return root_->list(); }
    StoreRef lookup(std::string_view name) override {
        StoreRef place = root_;
        while (place) {
            if (!place->isDirectory()) return nullptr;
            std::size_t end = std::min(name.find('/'), name.size());
            if (name.substr(0, end) != ".") place = place->lookup(name.substr(0, end));
            if (end == name.size()) break;
            name.remove_prefix(end + 1);
        }
        return place;
    }
    StoreRef file(std::string_view name) override { return lookup(name); }
    StoreRef create(std::string_view name) override { return root_->create(name); }
    StoreRef makeDirectory(std::string_view name) override { return root_->makeDirectory(name); }
    void close() override {}

private:
    std::shared_ptr<ByteArrayStore> root_;
};

Bytes bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

void collect(ByteArrayStore& place, const std::string& path, ClassFiles& files) {
    std::vector<std::string> names = *place.list();
    for (const std::string& name : names) {
        StoreRef entry = place.lookup(name);
        if (entry->isDirectory()) {
            collect(static_cast<ByteArrayStore&>(*entry), path + name + "/", files);
        } else {
            Bytes bytes = entry->read();
            files.push_back({path + name, std::string(bytes.begin(), bytes.end())});
        }
    }
}

/// A context of its own, with nothing from the disk.
void prepare(Context& context, std::vector<StoreRef> classPath) {
    context.classPath = std::make_shared<const std::vector<StoreRef>>(std::move(classPath));
    context.outputDirectory = placeOf({});
}

std::string flatNameOf(const File& file) {
    std::string name = file.name.substr(0, file.name.size() - std::string_view(".class").size());
    std::replace(name.begin(), name.end(), '/', '.');
    return name;
}

} // namespace

StoreRef placeOf(const ClassFiles& files) {
    auto root = ByteArrayStore::root("memory");
    root->becomeDirectory();
    for (const File& file : files) {
        StoreRef place = root;
        std::size_t begin = 0;
        for (std::size_t slash; (slash = file.name.find('/', begin)) != std::string::npos; begin = slash + 1)
            place = place->makeDirectory(file.name.substr(begin, slash - begin));
        place->create(file.name.substr(begin))->write(bytesOf(file.text));
    }
    return std::make_shared<MemoryPlace>(root);
}

Outcome compile(const Compilation& compilation) {
    Context context;
    prepare(context, compilation.classPath);
    context.options = compilation.options;
    context.options.quiet = true;
    context.encoding = compilation.encoding;
    std::vector<StoreRef> sources;
    for (const File& file : compilation.sources) {
        sources.push_back(ByteArrayStore::root(file.name));
        sources.back()->write(bytesOf(file.text));
    }
    auto output = ByteArrayStore::root("out");
    output->becomeDirectory();
    ConsoleReporter reporter(compilation.encoding);
    Compiler().compile(sources, output, &reporter);
    setReporter(nullptr);
    Outcome outcome{.errors = reporter.errorCount()};
    collect(*output, "", outcome.classes);
    return outcome;
}

void readBack(const ClassFiles& classes, std::vector<StoreRef> classPath) {
    classPath.insert(classPath.begin(), placeOf(classes));
    Context context;
    prepare(context, std::move(classPath));
    ConsoleReporter reporter(std::nullopt);
    setReporter(&reporter);
    context.initUniverse();
    context.options.keepPool = true;
    for (const File& file : classes) {
        try {
            context.classReader->load(Name::fromString(flatNameOf(file)));
        } catch (const IoFailure& failure) {
            throw InternalError("cannot read back " + file.name + ": " + failure.what());
        }
    }
    setReporter(nullptr);
}

void tryToRead(const File& file, const std::vector<StoreRef>& classPath) {
    std::vector<StoreRef> places = classPath;
    places.insert(places.begin(), placeOf({file}));
    Context context;
    prepare(context, std::move(places));
    ConsoleReporter reporter(std::nullopt);
    setReporter(&reporter);
    try {
        context.initUniverse();
        context.options.keepPool = true;
        context.classReader->load(Name::fromString(flatNameOf(file)));
    } catch (const IoFailure& failure) {
        if (std::string_view(failure.what()).empty()) throw InternalError("a failure without a text");
    }
    setReporter(nullptr);
}

} // namespace tarn::fuzz
