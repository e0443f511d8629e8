#include "expressions.h"

#include "eval/host_compiler.h"
#include "runtime/failure.h"
#include "store/memory_store.h"
#include "targets.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tarn::fuzz {

namespace {

constexpr std::string_view PREFIX = "quillon.compiler.loader";
constexpr int REQUESTS = 25;

constexpr auto LITERALS = std::to_array<std::string_view>(
    {"1", "0L", "2.5", "1f", "'x'", "\"text\"", "null", "true", "this", "super", "int[]"});
constexpr auto BINARY = std::to_array<std::string_view>(
    {"+", "-", "*", "<<", ">>>", "<", "==", "&&", "|", "=", "+=", "<<=", "/=", "^=", "instanceof ", "?1:"});
constexpr auto BEFORE =
    std::to_array<std::string_view>({"!", "-", "~", "++", "--", "(byte)", "(Object)", "(String)", "(long)", "new "});
constexpr auto BEHIND =
    std::to_array<std::string_view>({"++", "--", ".length", "[0]", "[1][i]", "()", ".class", ".toString()"});

/// A source in which most combinations of its names mean something.
constexpr std::string_view SUBJECT = R"(public class Subject {
    int f; static int g; long h; Subject next; int[] a; int[][] m; String k; Object o; static Subject s; final int K = 3;
    byte b; char c; short d; double e; float q; boolean t;
    class Inner {
        int f; int r; Inner next;
        void deep(final int x, final int[] a) {
            final Subject s = null;
            new Object() {
                int f, v;
                void run() {
                    int y = x + v;
                }
            };
        }
    }
    void stop(int x, long y, byte b, int[] z, Subject s, Object u) {
        int v = 1;
        char w = 2; double p = 3; boolean r = true; String l = null; Subject[] n = null;
    }
    static void other(int x) {
        int y = x;
    }
})";

constexpr std::string_view NAMES =
    "f g h next a m k o s K b c d e q t r x y z u v w p l n f x a s next v Subject Inner";

/// Makes expressions of the names that a source has, most of which mean something somewhere in it.
class Generator {
public:
    Generator(std::string_view text, Random& random) : random_(random) {
        for (std::size_t i = 0; i < text.size();) {
            std::size_t end = i;
            while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) end++;
            if (end > i && std::isalpha(static_cast<unsigned char>(text[i])) != 0)
                names_.emplace_back(text.substr(i, end - i));
            i = end + 1;
        }
    }

    std::string make(int depth) {
        if (depth == 0 || random_.oneIn(4)) return simple();
        switch (random_.below(8)) {
        case 0: return std::string(random_.oneOf(BEFORE)) + make(depth - 1);
        case 1: return make(depth - 1) + std::string(random_.oneOf(BEHIND));
        case 2: return make(depth - 1) + "." + name();
        case 3: return simple() + "[" + make(depth - 1) + "]";
        case 4: return "(" + make(depth - 1) + "?" + make(depth - 1) + ":" + make(depth - 1) + ")";
        case 5: return name() + "(" + make(depth - 1) + "," + make(depth - 1) + ")";
        default: return "(" + make(depth - 1) + ")" + std::string(random_.oneOf(BINARY)) + make(depth - 1);
        }
    }

private:
    std::string name() { return names_.empty() ? "x" : random_.oneOf(names_); }
    std::string simple() { return random_.oneIn(4) ? std::string(random_.oneOf(LITERALS)) : name(); }

    Random& random_;
    std::vector<std::string> names_;
};

/// The Java side of expressions.
const ClassFiles& support(const Corpus& corpus) {
    static const ClassFiles classes = [&] {
        Compilation compilation{.classPath = corpus.library};
        for (const File& file : corpus.sources)
            if (file.name.starts_with("quillon/compiler/loader/")) compilation.sources.push_back(file);
        Outcome outcome = compile(compilation);
        require(outcome.errors == 0 && outcome.classes.size() == 3, "the support of expressions does not compile");
        return outcome.classes;
    }();
    return classes;
}

class Session {
public:
    Session(const Corpus& corpus, const File& source) : text_(source.text) {
        path_ = corpus.library;
        path_.insert(path_.begin(), placeOf(support(corpus)));
        source_ = ByteArrayStore::root(source.name);
        source_->write(Bytes(text_.begin(), text_.end()));
    }

    /// Sources of the program are there as classes only.
    void open(const ClassFiles& classes) {
        path_.insert(path_.begin(), placeOf(classes));
        host_.setClassPath(std::make_shared<const std::vector<StoreRef>>(path_));
        for (goodLine_ = lineCount(); goodLine_ > 0 && !evaluates(goodLine_, "1"); goodLine_--) continue;
    }

    int lineCount() const { return 1 + static_cast<int>(std::count(text_.begin(), text_.end(), '\n')); }

    bool evaluates(int line, const std::string& expression) {
        auto file = ByteArrayStore::root("file");
        auto failure = host_.evaluate(PREFIX, "Expression", *file, line, source_, expression);
        if (failure) {
            require(!failure->empty(), "a failure without a text");
            return false;
        }
        Bytes bytes = file->read();
        File made{"quillon/compiler/loader/Expression.class", std::string(bytes.begin(), bytes.end())};
        save({made});
        readBack({made}, path_);
        return true;
    }

    void symbolAt(int position) { host_.symbolAt(source_, position); }

    /// What was asked in between changes nothing.
    void close() { require(goodLine_ == 0 || evaluates(goodLine_, "1"), "an expression is not evaluated any more"); }

private:
    std::string text_;
    std::vector<StoreRef> path_;
    std::shared_ptr<ByteArrayStore> source_;
    HostCompiler host_;
    int goodLine_ = 0;
};

std::string randomExpression(Generator& generator, const Corpus& corpus, Random& random) {
    std::string text = generator.make(static_cast<int>(random.below(5)));
    if (random.oneIn(5)) mutateTokens(random, text, corpus.sources);
    if (random.oneIn(8)) mutateBytes(random, text);
    return text;
}

} // namespace

void runExpressions(const Corpus& corpus, Random& random) {
    const Program& program = goodProgram(corpus, random);
    bool isSubject = random.oneIn(2);
    File source =
        isSubject ? File{"Subject.java", std::string(SUBJECT)} : program.sources[random.below(program.sources.size())];
    if (random.oneIn(5)) mutateTokens(random, source.text, corpus.sources);
    save({source});
    Generator generator(isSubject ? NAMES : std::string_view(source.text), random);
    Session session(corpus, source);
    session.open(program.classes);
    for (int i = 0; i < REQUESTS; i++) {
        int line = static_cast<int>(random.below(static_cast<std::size_t>(session.lineCount()) + 2));
        std::string expression = randomExpression(generator, corpus, random);
        save({{"request.txt", std::to_string(line) + " " + expression}});
        session.evaluates(line, expression);
        if (random.oneIn(10)) session.symbolAt((line << 10) + static_cast<int>(random.below(60)));
    }
    session.close();
}

} // namespace tarn::fuzz
