#include "targets.h"

#include "driver/properties.h"
#include "expressions.h"
#include "runtime/failure.h"
#include "store/archive_store.h"
#include "store/encoding.h"
#include "unit/store/zip_writer.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace tarn::fuzz {

std::string saveFolder;

namespace {

namespace fs = std::filesystem;

void writeFile(const fs::path& path, const std::string& text) {
    if (path.has_parent_path()) fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace

void save(const std::vector<File>& files) {
    if (saveFolder.empty()) return;
    for (const File& file : files) writeFile(fs::path(saveFolder) / file.name, file.text);
}

const Program& goodProgram(const Corpus& corpus, Random& random) {
    for (;;) {
        const Program& program = random.oneOf(corpus.programs);
        if (!program.classes.empty()) return program;
    }
}

namespace {

constexpr std::string_view ENCODINGS[] = {"UTF8",    "8859_1", "SJIS",       "EUCJIS",        "Unicode",
                                          "Cp1252",  "JIS",    "UnicodeBig", "UnicodeLittle", "GB2312",
                                          "KSC5601", "Big5",   "CNS11643",   "MacSymbol",     "nonsense"};

Compilation randomCompilation(const Corpus& corpus, Random& random) {
    Compilation compilation{.classPath = corpus.library};
    compilation.options.debugInfo = random.oneIn(3);
    compilation.options.obfuscate = random.oneIn(6);
    compilation.options.trackDependencies = random.oneIn(3);
    if (random.oneIn(8)) compilation.encoding = ENCODINGS[random.below(std::size(ENCODINGS))];
    return compilation;
}

// ---- sources

/// What compiles without an error must be classes that can be read.
void runSources(const Corpus& corpus, Random& random) {
    Compilation compilation = randomCompilation(corpus, random);
    compilation.sources = goodProgram(corpus, random).sources;
    std::string& text = random.oneOf(compilation.sources).text;
    if (random.below(5) != 0) mutateTokens(random, text, corpus.sources);
    if (random.oneIn(4)) mutateBytes(random, text);
    save(compilation.sources);
    Outcome outcome = compile(compilation);
    if (outcome.errors == 0) save(outcome.classes);
    if (outcome.errors == 0) readBack(outcome.classes, corpus.library);
}

// ---- class files

/// One class of a program, or of the library that it is compiled against, is garbled; then one of its sources is
/// compiled again. Whatever that gives, it may not bring down the compiler.
void runClassFiles(const Corpus& corpus, Random& random) {
    const Program& program = goodProgram(corpus, random);
    const ClassFiles& classes = program.classes;
    ClassFiles garbled;
    for (std::size_t count = 1 + random.below(3); count != 0; --count) {
        const ClassFiles& from = random.oneIn(2) ? classes : corpus.libraryFiles;
        garbled.push_back(random.oneOf(from));
        if (random.oneIn(5))
            garbled.back().text = random.oneOf(from).text;
        else
            mutateBytes(random, garbled.back().text);
    }
    save(garbled);
    tryToRead(garbled.front(), corpus.library);
    Compilation compilation = randomCompilation(corpus, random);
    compilation.sources = {random.oneOf(program.sources)};
    compilation.classPath.insert(compilation.classPath.begin(), {placeOf(garbled), placeOf(classes)});
    save(compilation.sources);
    compile(compilation);
}

// ---- archives

std::string archiveOf(const Corpus& corpus, Random& random) {
    test::ZipWriter writer;
    for (const Program& program : corpus.programs)
        if (random.oneIn(8))
            for (const File& file : program.classes)
                writer.add({.name = file.name, .contents = file.text, .deflated = random.oneIn(2)});
    writer.add({.name = "java/lang/", .contents = ""});
    for (const File& file : corpus.libraryFiles)
        if (random.below(4) != 0) writer.add({.name = file.name, .contents = file.text, .deflated = random.oneIn(2)});
    return writer.finish(random.oneIn(4) ? "a comment" : "");
}

void readEverything(ArchiveStore& archive) {
    for (const char* prefix : {"", "java/lang/", "java/"})
        require(archive.findPrefix(prefix) || archive.listPrefix(prefix).empty(), "lists what it does not have");
    for (int i = 0; i < archive.memberCount(); ++i) {
        try {
            std::string_view name = archive.member(i).name;
            int found = archive.find(name); // of two members with one name it may be the other
            require(found >= 0 && archive.member(found).name == name, "does not find what it has");
            archive.readMember(i);
        } catch (const IoFailure&) { // the member is broken
        }
    }
}

void runArchives(const Corpus& corpus, Random& random) {
    std::string bytes = archiveOf(corpus, random);
    std::string tail = bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 60 + random.below(2000)));
    bytes.resize(bytes.size() - tail.size());
    if (random.oneIn(3)) mutateBytes(random, bytes);
    if (random.below(3) != 0) mutateBytes(random, tail); // the directory, where most of the meaning is
    std::string path = fs::temp_directory_path() / ("tarn-fuzz-" + std::to_string(::getpid()) + ".zip");
    writeFile(path, bytes + tail);
    save({{"archive.zip", bytes + tail}});
    auto archive = std::make_shared<ArchiveStore>(path);
    ::unlink(path.c_str()); // it is open
    readEverything(*archive);
    Compilation compilation = randomCompilation(corpus, random);
    compilation.sources = {random.oneOf(corpus.sources)};
    compilation.classPath = {archive};
    save(compilation.sources);
    compile(compilation);
}

// ---- properties

void runProperties(const Corpus&, Random& random) {
    std::string text = "# of some use\nuser.name=Nobody\nuser.home : /home\nkey\\ with\\:signs=\\u00e4\\t\\\n  more\n"
                       "! also a comment\n300=%1 %2 not found in %3\nempty=\nalone\n\\u0041=\\uD83D\\uDE00\r\nx\ty\f=z";
    for (std::size_t count = random.below(20); count != 0; --count) mutateBytes(random, text);
    save({{"a.properties", text}});
    Properties properties = Properties::parse(text);
    require(properties.size() <= text.size(), "more properties than the text can hold");
    const std::string* name = properties.find("user.name");
    require(name == nullptr || name->size() <= 3 * text.size(), "a value longer than the text");
}

// ---- encodings

/// The text of a source, or nothing if it is malformed. In memory of exactly its size, so that a look beyond shows.
std::optional<Bytes> decoded(const Bytes& source, std::string_view encoding) {
    auto exact = std::make_unique<std::uint8_t[]>(source.size());
    std::copy(source.begin(), source.end(), exact.get());
    try {
        return decodeSource({exact.get(), source.size()}, std::string(encoding));
    } catch (const IoFailure&) {
        return std::nullopt;
    }
}

/// Mostly bytes that mean something to the sets of several bytes.
Bytes randomText(Random& random) {
    constexpr std::uint8_t TELLING[] = {0x1A, 0x1B, '$',  '(',  '@',  'B',  'I',  'J',  0x0E,
                                        0x80, 0x81, 0x8E, 0x8F, 0xA0, 0xA1, 0xBF, 0xC0, 0xE0,
                                        0xED, 0xEF, 0xF0, 0xF4, 0xF8, 0xFC, 0xFD, 0xFE, 0xFF};
    Bytes text(random.below(24));
    for (std::uint8_t& byte : text)
        byte = random.oneIn(2) ? TELLING[random.below(std::size(TELLING))] : static_cast<std::uint8_t>(random.next());
    return text;
}

/// The text is ASCII, and a source that is cut is where the whole one begins.
void runEncodings(const Corpus&, Random& random) {
    Bytes source = randomText(random);
    std::string_view encoding = ENCODINGS[random.below(std::size(ENCODINGS))];
    std::optional<Bytes> whole = decoded(source, encoding);
    if (!whole) return;
    require(std::all_of(whole->begin(), whole->end(), [](std::uint8_t byte) { return byte < 0x80; }), "no ASCII");
    while (!source.empty()) {
        source.pop_back();
        std::optional<Bytes> start = decoded(source, encoding);
        require(start && start->size() <= whole->size() && std::equal(start->begin(), start->end(), whole->begin()),
                "a cut source means something else");
    }
}

constexpr Target TARGETS[] = {{"sources", runSources},        {"classes", runClassFiles},
                              {"archives", runArchives},      {"properties", runProperties},
                              {"encodings", runEncodings},    {"dependencies", runDependencies},
                              {"expressions", runExpressions}};

} // namespace

std::span<const Target> targets() {
    return TARGETS;
}

} // namespace tarn::fuzz
