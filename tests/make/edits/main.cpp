// Takes generated programs through random edits, makes each after every edit, and holds the class files against those
// of a build from nothing: whatever was changed, and however earlier runs ended, none may be out of date.
//
//   edits TARN CLASSES SCRATCH [PROGRAMS [EDITS [FIRST]]]
//
// CLASSES is the class library; without it the exit status is 77. Program number n and its edits are the same on every
// machine. A program at which a fault was found is left in SCRATCH, and its log is printed.

#include "class_names.h"
#include "program.h"
#include "tool_run.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <set>
#include <sys/stat.h>

namespace tarn::edits {

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void setDate(const fs::path& path, std::time_t date) {
    const timespec times[] = {{.tv_sec = date}, {.tv_sec = date}};
    ::utimensat(AT_FDCWD, path.c_str(), times, 0);
}

/// One program on disk, with what was made of it.
class Project {
public:
    Project(const std::string& tool, const std::string& library, fs::path place, std::uint64_t number)
        : tool_(tool), library_(library), place_(std::move(place)), random_(number * 1000003 + 17) {
        besideSources_ = random_.oneIn(4);
        out_ = besideSources_ ? place_ / "src" : place_ / "out";
    }

    /// Whether there was no fault.
    bool run(int edits);

private:
    using Roots = std::vector<std::string>;

    bool findGoodProgram();
    bool step();
    std::string playTricks();
    void runOddly(const Roots& roots);
    bool check(const Roots& roots);
    bool mend(const Program& before);
    Run make(const Roots& roots, const std::vector<std::string>& options = {}, const Harm& harm = {});
    Run build(const Roots& roots);
    Roots chooseRoots();
    Roots allRoots();
    void sync(const std::string& only = "");
    bool agrees(const Roots& roots, const Run& made, const Run& built);
    bool differs(const Roots& roots);
    std::set<std::string> reachedFrom(const Roots& roots);
    bool fail(const std::string& what, const std::string& details);
    void note(const std::string& text) { log_ += text + "\n"; }
    std::vector<fs::path> files(const fs::path& below, const std::string& extension);
    int removeLeftovers();

    const std::string& tool_;
    const std::string& library_;
    fs::path place_;
    fs::path out_;
    Random random_;
    Program program_{random_};
    Texts onDisk_;
    std::map<std::string, std::time_t> dates_;
    std::time_t clock_ = 900000000;
    bool besideSources_ = false; ///< class files go beside their sources
    bool isPartial_ = false;     ///< what is made is not everything
    std::string log_;
};

// ---- files

std::vector<fs::path> Project::files(const fs::path& below, const std::string& extension) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(below))
        if (entry.path().extension() == extension) found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

/// Brings the sources up to the program; if `only` is given, those of that path alone.
void Project::sync(const std::string& only) {
    Texts texts = program_.render();
    for (auto at = onDisk_.begin(); at != onDisk_.end();) {
        bool isGone = !texts.contains(at->first);
        if (isGone) fs::remove(place_ / "src" / at->first);
        at = isGone ? onDisk_.erase(at) : std::next(at);
    }
    for (const auto& [path, text] : texts) {
        auto known = onDisk_.find(path);
        if (known != onDisk_.end() && (known->second == text || (!only.empty() && path != only))) continue;
        fs::path file = place_ / "src" / path;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        setDate(file, clock_ += 2);
        onDisk_[path] = text;
    }
}

/// Deletes the class files of classes that are no more; how many.
int Project::removeLeftovers() {
    std::set<std::string> defined;
    for (const auto& [path, text] : onDisk_) defined.merge(definedClasses(path, text));
    int removed = 0;
    for (const fs::path& file : files(out_, ".class")) {
        if (defined.contains(withoutNumbers(file.lexically_relative(out_).replace_extension().string()))) continue;
        fs::remove(file);
        removed++;
    }
    return removed;
}

// ---- runs

Project::Roots Project::allRoots() {
    Roots roots = {"-p"};
    if (random_.oneIn(3)) {
        roots = {"-s"};
        for (const auto& [path, text] : onDisk_) roots.push_back((place_ / "src" / path).string());
        return roots;
    }
    for (const std::string& package : Program::packages()) roots.push_back(package.empty() ? "." : package);
    return roots;
}

Project::Roots Project::chooseRoots() {
    Roots roots = allRoots();
    for (std::size_t keep = 1 + random_.below(3); roots.size() > keep + 1;)
        roots.erase(roots.begin() + 1 + static_cast<std::ptrdiff_t>(random_.below(roots.size() - 1)));
    return roots;
}

Run Project::make(const Roots& roots, const std::vector<std::string>& options, const Harm& harm) {
    std::vector<std::string> command = {tool_, "-classpath", out_.string() + ":" + library_, "-sourcepath",
                                        (place_ / "src").string()};
    if (!besideSources_) command.insert(command.end(), {"-d", out_.string()});
    command.insert(command.end(), options.begin(), options.end());
    command.insert(command.end(), roots.begin(), roots.end());
    return runTool(command, out_.string(), harm);
}

Run Project::build(const Roots& roots) {
    fs::path ref = place_ / "ref";
    fs::remove_all(ref);
    fs::create_directories(ref);
    std::vector<std::string> command = {
        tool_, "-classpath", ref.string() + ":" + library_, "-sourcepath", (place_ / "src").string(),
        "-d",  ref.string()};
    if (besideSources_) { // the class files there must not be seen
        fs::copy(place_ / "src", ref, fs::copy_options::recursive);
        for (const fs::path& file : files(ref, ".class")) fs::remove(file);
        for (const fs::path& file : files(ref, ".dependency")) fs::remove(file);
        command[4] = ref.string();
    }
    Roots moved = roots;
    for (std::string& root : moved)
        if (besideSources_ && root[0] == '/') root = (ref / fs::path(root).lexically_relative(place_ / "src")).string();
    if (isPartial_) command.push_back("-nomakestable"); // only what the roots lead to
    command.insert(command.end(), moved.begin(), moved.end());
    return runTool(command, ref.string());
}

/// A run that is harmed, or that is asked for less than everything.
void Project::runOddly(const Roots& roots) {
    std::vector<std::string> options;
    Harm harm;
    switch (random_.below(8)) {
    case 0: options = {"-nocheckstable"}; break;
    case 1: options = {"-nomakestable"}; break;
    case 2: options = {"-nocompile"}; break;
    case 3: options = {"-rebuild"}; break;
    case 4: harm.largestFile = static_cast<long>(200 + random_.below(3000)); break;
    default:
        harm.killedAtWrite = static_cast<int>(random_.below(random_.oneIn(2) ? 10 : 100));
        harm.halfWritten = random_.oneIn(2);
        break;
    }
    Run run = make(random_.oneIn(2) ? roots : chooseRoots(), options, harm);
    note("  odd run " + (options.empty() ? std::string("with harm") : options[0]) + ", status " +
         std::to_string(run.status));
}

// ---- what people do to files

std::string Project::playTricks() {
    std::vector<fs::path> classes = files(out_, ".class");
    std::vector<fs::path> records = files(out_, ".dependency");
    std::vector<fs::path> sources = files(place_ / "src", ".java");
    const fs::path& source = random_.oneOf(sources);
    if (random_.oneIn(4)) return setDate(source, clock_ += 2), "touched " + source.filename().string();
    if (!classes.empty() && random_.oneIn(3)) {
        const fs::path& file = random_.oneOf(classes);
        setDate(file, std::time(nullptr) + static_cast<std::time_t>(random_.below(100)) * 2 - 200);
        return "touched " + file.filename().string();
    }
    if (!classes.empty() && random_.oneIn(2)) {
        std::string told = "deleted";
        for (std::size_t i = 1 + random_.below(4); i > 0; i--) {
            const fs::path& file = random_.oneOf(classes);
            fs::remove(file);
            told += " " + file.filename().string();
        }
        return told;
    }
    if (records.empty()) return "no trick";
    const fs::path& file = random_.oneOf(records);
    std::string told = file.filename().string();
    std::string text = readFile(file);
    switch (random_.below(5)) {
    case 0: fs::remove(file); return "deleted " + told;
    case 1: fs::resize_file(file, random_.below(text.size())); return "cut " + told;
    case 2:
        setDate(file, std::time(nullptr) + 3600 * static_cast<std::time_t>(random_.below(3)));
        return "dated " + told;
    case 3: text = readFile(random_.oneOf(records)); break;
    default: text += "x"; break;
    }
    std::ofstream(file, std::ios::binary) << text;
    return "garbled " + told;
}

// ---- steps

bool Project::findGoodProgram() {
    for (int i = 0; i < 40; i++) {
        fs::remove_all(place_);
        fs::create_directories(place_ / "src");
        fs::create_directories(out_);
        onDisk_.clear();
        program_ = Program(random_);
        sync();
        Run built = build(allRoots());
        if (built.ok()) return true;
        if (std::getenv("EDITS_SHOW") != nullptr) std::printf("%s\n", built.output.c_str());
    }
    return fail("no program that compiles", "");
}

bool Project::run(int edits) {
    if (!findGoodProgram() || !check(allRoots())) return false;
    for (int i = 0; i < edits; i++)
        if (!step()) return false;
    return true;
}

bool Project::step() {
    Program before = program_;
    std::string only;
    for (std::size_t i = random_.below(4); i > 0; i--) {
        note(program_.edit(random_));
        only = program_.editedPath();
    }
    if (!only.empty() && random_.oneIn(2))
        note("  in that file alone");
    else
        only.clear();
    sync(only);
    if (only.empty() ? random_.oneIn(2) : random_.oneIn(6)) note(playTricks());
    isPartial_ = random_.oneIn(3);
    Roots roots = isPartial_ ? chooseRoots() : allRoots();
    for (int odd = random_.oneIn(3) ? 1 + static_cast<int>(random_.below(2)) : 0; odd > 0; odd--) runOddly(roots);
    if (!check(roots)) return false;
    return mend(before);
}

/// Makes, and builds from nothing, and compares.
bool Project::check(const Roots& roots) {
    Run built = build(roots);
    if (random_.below(5) != 0) removeLeftovers();
    Run made = make(roots);
    if (!agrees(roots, made, built) && removeLeftovers() != 0) {
        note("  leftovers were in the way");
        made = make(roots);
    }
    note("  status " + std::to_string(made.status) + " " + std::to_string(built.status));
    if (!agrees(roots, made, built)) {
        std::string details = "ROOTS";
        for (const std::string& root : roots) details += " " + root;
        return fail("out of date", details + "\nMADE\n" + made.output + "BUILT\n" + built.output);
    }
    if (!made.ok()) return true;
    Run again = make(roots);
    if (!again.ok() || again.output.find("compiling") != std::string::npos)
        return fail("a second run compiles", again.output);
    return true;
}

/// Goes on with a program that compiles.
bool Project::mend(const Program& before) {
    isPartial_ = false;
    sync();
    if (build(allRoots()).ok()) return true;
    program_ = before;
    note("undone");
    sync();
    return check(allRoots());
}

bool Project::agrees(const Roots& roots, const Run& made, const Run& built) {
    if (isPartial_ && !built.ok()) return true; // at fault may be what only a compile from nothing comes upon
    return made.ok() == built.ok() && (!built.ok() || !differs(roots));
}

/// Whether a class that the roots lead to is not as it has to be.
bool Project::differs(const Roots& roots) {
    bool found = false;
    std::set<std::string> concerned = isPartial_ ? reachedFrom(roots) : std::set<std::string>();
    for (const fs::path& file : files(place_ / "ref", ".class")) {
        fs::path name = file.lexically_relative(place_ / "ref");
        fs::path ours = out_ / name;
        if (isPartial_ && !concerned.contains(name.replace_extension().string())) continue;
        if (fs::exists(ours) && readFile(ours) == readFile(file)) continue;
        note("  differs: " + ours.string());
        found = true;
    }
    return found;
}

/// The classes of the roots, and those that they name, and so on.
std::set<std::string> Project::reachedFrom(const Roots& roots) {
    std::set<std::string> wanted;
    for (const auto& [path, text] : onDisk_) {
        std::string directory = fs::path(path).parent_path().string();
        std::string package = directory.empty() ? "." : directory;
        std::replace(package.begin(), package.end(), '/', '.');
        bool isRoot = std::any_of(roots.begin(), roots.end(), [&](const std::string& root) {
            return root == package || root == (place_ / "src" / path).string();
        });
        if (isRoot) wanted.merge(definedClasses(path, text));
    }
    std::set<std::string> reached;
    while (!wanted.empty()) {
        std::string name = wanted.extract(wanted.begin()).value();
        std::string bytes = readFile(place_ / "ref" / (name + ".class"));
        if (bytes.empty() || !reached.insert(name).second) continue;
        for (const std::string& other : namedClasses(bytes))
            if (!reached.contains(other)) wanted.insert(other);
    }
    return reached;
}

bool Project::fail(const std::string& what, const std::string& details) {
    std::printf("%s\nFAULT in %s: %s\n%s\n", log_.c_str(), place_.c_str(), what.c_str(), details.c_str());
    return false;
}

int runAll(const std::vector<std::string>& arguments) {
    auto number = [&](std::size_t at, int other) {
        return arguments.size() > at ? std::atoi(arguments[at].c_str()) : other;
    };
    if (!fs::exists(arguments[1])) return 77;
    ::unsetenv("CLASSPATH");
    ::unsetenv("SOURCEPATH");
    const std::string tool = fs::absolute(arguments[0]).string();
    const std::string library = fs::absolute(arguments[1]).string();
    int faults = 0;
    int programs = number(3, 1);
    for (int i = number(5, 0), end = i + programs; i < end; i++) {
        fs::path place = fs::absolute(arguments[2]) / std::to_string(i);
        bool isGood = Project(tool, library, place, static_cast<std::uint64_t>(i)).run(number(4, 100));
        std::fflush(stdout);
        if (isGood) fs::remove_all(place);
        faults += !isGood;
    }
    std::printf("%d programs, %d with a fault\n", programs, faults);
    return faults == 0 ? 0 : 1;
}

} // namespace

} // namespace tarn::edits

int main(int count, char** arguments) {
    if (count < 4) {
        std::puts("usage: edits TARN CLASSES SCRATCH [PROGRAMS [EDITS [FIRST]]]");
        return 2;
    }
    return tarn::edits::runAll({arguments + 1, arguments + count});
}
