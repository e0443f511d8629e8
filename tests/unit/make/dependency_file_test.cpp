#include "make/dependency_file.h"

#include "runtime/failure.h"
#include "store/directory_store.h"
#include "store/memory_store.h"
#include "store/path_list.h"
#include "unit/make/dependency_bytes.h"
#include "unit/make/recorded_reports.h"
#include "unit/store/scratch_directory.h"
#include "unit/store/zip_writer.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>

namespace tarn {
namespace {

using test::DependencyBytes;
using test::samplePackage;
using test::WRITE_DATE;

/// Memory that claims to have been written at a date of its own.
class DatedStore final : public Store {
public:
    DatedStore(Bytes bytes, Date date) : bytes_(std::move(bytes)), date_(date) {}

    [[nodiscard]] bool equals(const Store& other) const override { return this == &other; }
    [[nodiscard]] std::uint32_t hashCode() const override { return 0; }
    [[nodiscard]] std::string toString() const override { return "memory"; }
    [[nodiscard]] Date date() const override { return date_; }
    [[nodiscard]] std::string name() const override { return "memory"; }
    [[nodiscard]] std::string path() const override { return "memory"; }
    [[nodiscard]] std::optional<std::string> canonicalPath() const override { return "memory"; }
    [[nodiscard]] std::optional<std::string> parent() const override { return std::nullopt; }
    [[nodiscard]] bool isDirectory() const override { return false; }
    Bytes read() override { return bytes_; }
    std::size_t readInto(std::span<std::uint8_t> buffer) override {
        std::copy_n(bytes_.begin(), std::min(bytes_.size(), buffer.size()), buffer.begin());
        return bytes_.size();
    }
    void write(std::span<const std::uint8_t>) override {}
    std::optional<std::vector<std::string>> list() override { return std::nullopt; }
    StoreRef lookup(std::string_view) override { return nullptr; }
    StoreRef file(std::string_view) override { return nullptr; }
    StoreRef create(std::string_view) override { return nullptr; }
    StoreRef makeDirectory(std::string_view) override { return nullptr; }
    void close() override {}

private:
    Bytes bytes_;
    Date date_;
};

class DependencyFile : public testing::Test {
protected:
    bool read(const Bytes& bytes, bool forMaking = false, Date date = WRITE_DATE, std::string_view name = "a.b") {
        DatedStore store(bytes, date);
        return readStore(store, forMaking, name);
    }
    bool readStore(Store& store, bool forMaking = false, std::string_view name = "a.b") {
        package = &graph.newPackage(Name::fromString(name));
        return files.read(*package, store, forMaking);
    }
    ClassNode& node(std::string_view name) { return graph.classNode(Name::fromString(name)); }

    Context context;
    test::RecordedReports reports;
    Graph graph;
    DependencyFiles files{graph};
    PackageNode* package = nullptr;
};

using DependencyFileHostile = DependencyFile;

std::string list(std::span<Name* const> names) {
    std::string text;
    for (const Name* name : names) text += name->toString() + " ";
    return text;
}

TEST_F(DependencyFile, EveryFieldReachesTheGraph) {
    ASSERT_TRUE(read(samplePackage().bytes));
    EXPECT_FALSE(package->stable);
    EXPECT_TRUE(package->keepImps && package->keepRefs && !package->fresh && !package->library);
    ASSERT_EQ(2u, package->sources.size());
    const SourceNode& source = *package->sources.find(Name::fromString("Outer.java"));
    EXPECT_EQ(6'249'999'000, source.date);
    EXPECT_EQ("a.b", source.packageName->toString());
    EXPECT_EQ("a.b.Outer$In a.b.Outer ", list(source.defs));
    EXPECT_EQ("java.util ", list(source.imports));
    EXPECT_EQ(0, package->sources.find(Name::fromString("Gone.java"))->date);

    ASSERT_EQ(3u, package->classes.size());
    const ClassNode& outer = node("a.b.Outer");
    EXPECT_EQ(&outer, package->classes.find(outer.name));
    EXPECT_EQ(6'249'999'500, outer.date);
    EXPECT_EQ(6'249'999'000, outer.sourceDate);
    EXPECT_EQ("Outer.java", outer.sourceName->toString());
    EXPECT_EQ(0x89ABCDEF, static_cast<std::uint32_t>(outer.fprint));
    EXPECT_TRUE(outer.impsCached && outer.refsCached && !outer.defsCached);
    ASSERT_EQ(3u, outer.imps.size());
    EXPECT_EQ("a.Base", outer.superclass->name->toString());
    EXPECT_EQ(outer.superclass, outer.imps.find(Name::fromString("a.Base")));
    EXPECT_EQ(6'249'000'000, outer.superclass->date);
    EXPECT_EQ(17, outer.superclass->fprint);
    EXPECT_EQ(-1, outer.superclass->varrefs.find(Name::fromString("count"))->fprint);
    EXPECT_EQ(5, outer.superclass->funrefs.find(Name::fromString("run"))->fprint);
    ASSERT_EQ(1u, outer.interfaces.size());
    EXPECT_EQ("java.lang.Runnable", outer.interfaces[0]->name->toString());
    EXPECT_TRUE(node("a.b.Outer$In").impsCached && !node("a.b.Outer$In").refsCached);
    EXPECT_EQ(nullptr, node("a.b.Alien").sourceName);
    EXPECT_FALSE(node("a.b.Alien").impsCached);
}

TEST_F(DependencyFile, WhatIsKeptDependsOnThePromiseAndOnTheOptions) {
    struct Row {
        unsigned stable;
        bool forMaking;
        bool nocheckstable;
        const char* line;
        bool isStable;
        bool keepsImports;
    };
    for (const Row& row :
         {Row{0, false, false, "not stable", false, true}, Row{0, true, true, "not stable", false, true},
          Row{1, false, false, "stable", true, true}, Row{1, false, true, "stable", true, false},
          Row{1, true, false, "was stable", false, true}, Row{2, true, false, "stable", false, true}}) {
        context.options.verbose = true;
        context.options.nocheckstable = row.nocheckstable;
        reports.text.clear();
        ASSERT_TRUE(read(samplePackage(row.stable).bytes, row.forMaking));
        EXPECT_EQ("  reading memory (" + std::string(row.line) + ")\n", reports.text);
        EXPECT_EQ(row.isStable, package->stable);
        EXPECT_EQ(row.keepsImports, package->keepImps);
        EXPECT_EQ(row.keepsImports, node("a.b.Outer").impsCached);
        EXPECT_EQ(row.keepsImports, !node("a.b.Outer").imps.empty());
        EXPECT_TRUE(node("a.b.Outer").supersCached && node("a.b.Outer").superclass != nullptr);
    }
}

TEST_F(DependencyFile, AClockThatWasMovedIsTakenOutInQuartersOfAnHour) {
    struct Row {
        Date fileIsLaterBy;
        Date offset;
    };
    for (const Row& row : {Row{0, 0}, Row{224, 0}, Row{225, 450}, Row{-224, 0}, Row{-225, -450}, Row{1800, 1800},
                           Row{-1801, -1800}, Row{674, 450}, Row{675, 900}}) {
        ASSERT_TRUE(read(samplePackage().bytes, false, static_cast<Date>(WRITE_DATE) + row.fileIsLaterBy));
        EXPECT_EQ(row.offset, package->dateOffset);
        const ClassNode& outer = node("a.b.Outer");
        EXPECT_EQ(6'249'999'500 + row.offset, outer.date);
        EXPECT_EQ(6'249'999'000 + row.offset, outer.sourceDate);
        EXPECT_EQ(6'249'000'000 + row.offset, outer.superclass->date);
        EXPECT_EQ(0, outer.interfaces[0]->date) << "never checked stays so";
        EXPECT_EQ(0, node("a.b.Alien").sourceDate);
        EXPECT_EQ(6'249'999'000, package->sources.find(Name::fromString("Outer.java"))->date);
    }
}

TEST_F(DependencyFile, WhatIsWrittenIsTheFormatByteForByte) {
    ASSERT_TRUE(read(samplePackage().bytes));
    auto root = ByteArrayStore::root("out");
    root->becomeDirectory();
    package->stable = true;
    files.write(*package, root);
    StoreRef written = root->lookup("a")->lookup("b")->lookup("a.b.dependency");
    ASSERT_TRUE(written);
    Bytes bytes = written->read();
    Bytes expected = samplePackage(1).bytes;
    ASSERT_EQ(expected.size(), bytes.size());
    constexpr std::size_t DATE_AT = 1 + 5 + 1;
    std::copy_n(bytes.begin() + DATE_AT, 8, expected.begin() + DATE_AT); // the time of writing
    EXPECT_EQ(expected, bytes);
}

TEST_F(DependencyFile, TheFileOfTheUnnamedPackageHasANameOfItsOwn) {
    test::ScratchDirectory directory;
    graph.newPackage(graph.unnamedPackage);
    files.write(*graph.findPackage(graph.unnamedPackage), std::make_shared<DirectoryStore>(directory.path()));
    std::string contents = directory.get("UnnamedPackage.dependency");
    ASSERT_EQ(1u + 3 + 1 + 8 + 2 + 2, contents.size());
    EXPECT_EQ(std::string("\4\0\1.\0", 5), contents.substr(0, 5));
}

TEST_F(DependencyFile, WhatIsTooBigForTheFormatIsLeftOut) {
    PackageNode& big = graph.newPackage(Name::fromString("big"));
    Name* longName = Name::fromString(std::string(65536, 'x'));
    SourceNode& source = graph.sourceOfRecord(Name::fromString("Big.java"));
    source.date = 5;
    source.imports = {&longName, 1};
    big.sources.put(graph.arena, &source);
    auto addClass = [&](const std::string& name, bool withRefs, int varrefs, Name* funref) {
        ClassNode& c = node(name);
        c.date = 7;
        c.impsCached = true;
        c.refsCached = withRefs;
        auto* import = graph.arena.make<ImportRecord>(ImportRecord{.name = Name::fromString("a.Base"), .date = 6});
        auto add = [&](NodeTable<DefRecord>& refs, Name* ref) {
            refs.put(graph.arena, graph.arena.make<DefRecord>(DefRecord{ref, 1}));
        };
        for (int i = 0; i < varrefs; i++) add(import->varrefs, Name::fromString("f" + std::to_string(i)));
        if (funref != nullptr) add(import->funrefs, funref);
        c.imps.put(graph.arena, import);
        c.superclass = import;
        big.classes.put(graph.arena, &c);
    };
    addClass("big.Most", true, 65535, Name::fromString(std::string(65535, 'x')));
    addClass("big.Refs", true, 65536, nullptr);
    addClass("big.Name", true, 0, longName);
    addClass("big.Unused", false, 65536, longName);
    addClass("big." + longName->toString(), true, 0, nullptr);
    auto root = ByteArrayStore::root("out");
    root->becomeDirectory();
    files.write(big, root);
    StoreRef file = root->lookup("big")->lookup("big.dependency");
    ASSERT_TRUE(readStore(*file, false, "big"));
    EXPECT_EQ(0, package->sources.find(source.name)->date);
    std::string known;
    for (const ClassNode* c : package->classes.nodes())
        known += c->name->toString() + (c->refsCached ? " refs, " : c->impsCached ? " imports, " : ", ");
    EXPECT_EQ("big.Most refs, big.Refs, big.Name, big.Unused imports, ", known);
}

TEST_F(DependencyFile, FilesLargerThanTheBufferAreReadWhole) {
    DependencyBytes file;
    file.u8(4).name("a.b").u8(0).u64(WRITE_DATE).u16(0).u16(20000);
    for (int i = 0; i < 20000; i++) file.name("a.b.C" + std::to_string(i)).u64(1).u32(0).name("").u64(0).u16(0);
    ASSERT_TRUE(read(file.bytes));
    EXPECT_EQ(20000u, package->classes.size());
    EXPECT_EQ(&node("a.b.C19999"), package->classes.find(node("a.b.C19999").name));
    ASSERT_TRUE(read(samplePackage().bytes));
    EXPECT_EQ(3u, package->classes.size());
}

TEST_F(DependencyFile, AStablePackageInAnArchiveWithoutSourcesIsALibrary) {
    DependencyBytes library;
    library.u8(4).name("a.b").u8(1).u64(static_cast<std::uint64_t>(LIBRARY_DATE)).u16(0).u16(1);
    library.name("a.b.C").u64(9).u32(7).name("").u64(0).u16(1).u16(0).u8(0).name("a.D").u8(1).u64(9).u32(8);
    auto text = [](const Bytes& bytes) { return std::string(bytes.begin(), bytes.end()); };
    test::ScratchDirectory directory;
    std::string path =
        directory.put("lib.zip", test::ZipWriter()
                                     .add({.name = "a/b/a.b.dependency", .contents = text(library.bytes)})
                                     .add({.name = "x", .contents = text(samplePackage(1).bytes)})
                                     .finish());
    PathList places = parsePathList(path);
    StoreRef member = search(places, "a/b/a.b.dependency");
    ASSERT_TRUE(readStore(*member));
    EXPECT_TRUE(package->library && package->stable && !node("a.b.C").impsCached);
    ASSERT_TRUE(readStore(*member, true));
    EXPECT_TRUE(!package->library && !package->stable && node("a.b.C").impsCached);
    ASSERT_TRUE(readStore(*search(places, "x")));
    EXPECT_FALSE(package->library) << "it has sources";
    ASSERT_TRUE(read(library.bytes));
    EXPECT_FALSE(package->library) << "it is in no archive";
}

TEST_F(DependencyFileHostile, FailuresAreToldInTheWarning) {
    Bytes version = samplePackage().bytes;
    version[0] = 3;
    Bytes trailing = samplePackage().bytes;
    trailing.push_back(0);
    DependencyBytes alien;
    alien.u8(4).name("a.b").u8(0).u64(0).u16(0).u16(1).name("a.c.X").u64(0).u32(0).name("").u64(0).u16(0);
    DependencyBytes deeper;
    deeper.u8(4).name("a.b").u8(0).u64(0).u16(0).u16(1).name("a.b.c.X").u64(0).u32(0).name("").u64(0).u16(0);
    DependencyBytes twice;
    twice.u8(4).name("a.b").u8(0).u64(0).u16(2);
    for (int i = 0; i < 2; i++) twice.name("S.java").u64(0).u16(0).u16(0);
    twice.u16(0);
    DependencyBytes unknown;
    unknown.u8(4).name("a.b").u8(0).u64(0).u16(1).name("S.java").u64(1).u16(1).name("a.b.S").u16(0).u16(0);
    auto superclasses = [](unsigned first, unsigned second) {
        DependencyBytes file;
        file.u8(4).name("a.b").u8(0).u64(0).u16(0).u16(1).name("a.b.C").u64(1).u32(0).name("").u64(0);
        file.u16(2).u16(0).u8(0).name("a.A").u8(first).u64(1).u32(0).name("a.B").u8(second).u64(1).u32(0);
        return file.bytes;
    };
    struct Row {
        const Bytes bytes;
        const char* name;
        const char* cause;
    };
    for (const Row& row :
         {Row{version, "a.b", "bad format version"}, Row{samplePackage().bytes, "a.c", "contains wrong package a.b"},
          Row{trailing, "a.b", "corrupted file"}, Row{alien.bytes, "a.b", "corrupted file"},
          Row{deeper.bytes, "a.b", "corrupted file"}, Row{twice.bytes, "a.b", "corrupted file"},
          Row{unknown.bytes, "a.b", "corrupted file"}, Row{superclasses(1, 1), "a.b", "corrupted file"},
          Row{superclasses(0, 0), "a.b", "corrupted file"}, Row{Bytes(), "a.b", "corrupted file"},
          Row{Bytes(3'000'000, 7), "a.b", "bad format version"}}) {
        reports.text.clear();
        EXPECT_FALSE(read(row.bytes, false, 0, row.name));
        EXPECT_EQ("warning error reading dependency file for package " + std::string(row.name) + ": " + row.cause +
                      "\n",
                  reports.text);
        EXPECT_TRUE(graph.classes.empty() && graph.sources.empty()) << row.cause;
    }
    EXPECT_TRUE(read(superclasses(0, 1)));
}

TEST_F(DependencyFileHostile, AFileCutAnywhereLeavesNoTrace) {
    Bytes whole = samplePackage(1).bytes;
    for (std::size_t length = 0; length < whole.size(); length++) {
        EXPECT_FALSE(read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)))) << length;
        context.options.nocheckstable = length % 2 == 0;
        EXPECT_TRUE(graph.classes.empty() && graph.sources.empty()) << length;
        EXPECT_TRUE(package->classes.empty() && !package->stable);
    }
}

TEST_F(DependencyFileHostile, AnyByteMayBeChanged) {
    Bytes whole = samplePackage(1).bytes;
    for (std::size_t at = 0; at < whole.size(); at++) {
        for (int value : {0, 1, 0x7F, 0xFF, whole[at] ^ 1, whole[at] ^ 0x80}) {
            Bytes changed = whole;
            changed[at] = static_cast<std::uint8_t>(value);
            std::size_t classes = graph.classes.size();
            context.options.nocheckstable = value % 2 == 0;
            bool failed = !read(changed);
            EXPECT_TRUE(!failed || graph.classes.size() == classes) << at;
        }
    }
}

TEST_F(DependencyFileHostile, CountsThatTheFileCannotHoldTakeNoMemory) {
    DependencyBytes file;
    file.u8(4).name("a.b").u8(0).u64(0).u16(0xFFFF).name("S.java").u64(1).u16(0xFFFF);
    EXPECT_FALSE(read(file.bytes));
}

TEST_F(DependencyFileHostile, ADirectoryInPlaceOfTheFileIsAWarning) {
    test::ScratchDirectory directory;
    DirectoryStore store(directory.path());
    EXPECT_FALSE(readStore(store));
    EXPECT_EQ("warning error reading dependency file for package a.b: is a directory\n", reports.text);
}

TEST_F(DependencyFileHostile, WhatCannotBeWrittenIsAnErrorAndLeavesNothingHalf) {
    ASSERT_TRUE(read(samplePackage().bytes));
    test::ScratchDirectory directory;
    directory.put("a", "a file where a directory is wanted");
    auto place = std::make_shared<DirectoryStore>(directory.path());
    context.options.verbose = true;
    EXPECT_THROW(files.write(*package, place), MakeAbort);
    EXPECT_EQ("  writing null (not stable)\nerror error writing dependency file for package a.b: cannot create\n",
              reports.text);
}

TEST_F(DependencyFileHostile, AFullDiskIsAnErrorAndLeavesNothingHalf) {
    ASSERT_TRUE(read(samplePackage().bytes));
    test::ScratchDirectory directory;
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    auto* ignored = ::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {100, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THROW(files.write(*package, std::make_shared<DirectoryStore>(directory.path())), MakeAbort);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, ignored);
    EXPECT_EQ("error error writing dependency file for package a.b: File too large\n", reports.text);
    EXPECT_FALSE(DirectoryStore(directory / "a/b/a.b.dependency").exists());
}

} // namespace
} // namespace tarn
