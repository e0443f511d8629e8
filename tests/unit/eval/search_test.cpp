#include "evaluation.h"

#include "semantic/symbol.h"
#include "syntax/position.h"

#include <cctype>
#include <sstream>

namespace tarn {
namespace {

// ---- by line

// Behind "//" stand the variables that are visible in the line, of all that the source declares; "-" stands for a line
// that is no place for an expression. The first blank after a line's end is not looked at.
const char* const scopes = R"(package p;                          // -
                                                                  // -
public abstract class Subject {                                   // field
    int field;                                                    // field
                                                                  // field
    abstract void none(int param);                                // -
                                                                  // -
    native int nothing();                                         // -
    static {                                                      //
        int inStatic = 1;                                         // inStatic
    }                                                             // inStatic
    void method(final int param, boolean test,                    // field param test other
                Object other) {                                   // field param test other
        if (test)                                                 // field param test other
            { int yes = 1;                                        // field param test other yes
            }                                                     // field param test other yes
        else                                                      // field param test other yes
            { int no = 1; }                                       // field param test other no
        do {                                                      // field param test other
            int inDo = 1;                                         // field param test other inDo
        } while (test);                                           // field param test other inDo
        while (test) {                                            // field param test other
            int inWhile = 1;                                      // field param test other inWhile
        }                                                         // field param test other inWhile
        for (int index = 0;                                       // field param test other index
             index < 2;                                           // field param test other index
             index++) {                                           // field param test other index
            int inFor = 1;                                        // field param test other index inFor
        }                                                         // field param test other index inFor
        label:                                                    // field param test other
            for (;;) { int labelled = 1; break label; }           // field param test other labelled
        try {                                                     // field param test other
            int inTry = 1;                                        // field param test other inTry
        } catch (RuntimeException caught) {                       // field param test other caught
            int inCatch = 1;                                      // field param test other caught inCatch
        } catch (Error caught) {                                  // field param test other caught
            int late = 1;                                         // field param test other caught late
        } finally {                                               // field param test other
            int last = 1;                                         // field param test other last
        }                                                         // field param test other last
        switch (param) {                                          // field param test other
        case 1:                                                   // field param test other
            int inCase = 1;                                       // field param test other inCase
        default:                                                  // field param test other inCase
            inCase = 2;                                           // field param test other inCase
        }                                                         // field param test other inCase
        synchronized (this) {                                     // field param test other
            int locked = 1;                                       // field param test other locked
        }                                                         // field param test other locked
        class Local {                                             // field param member
            int member;                                           // field param member
            void deep() {                                         // field param member
                int inner = param;                                // field param member inner
            }                                                     // field param member inner
        }                                                         // field param member inner
        other = new Object() {                                    // field param test other
            int own;                                              // field param own
            public int more() {                                 // field param own
                int hash = 1;                                     // field param own hash
                return new Object() {                             // field param own hash
                    int innermost = 2;                            // field param own innermost
                }.innermost;                                      // field param own innermost
            }                                                     // field param own hash
        };                                                        // field param own hash
        int behind = 1;                                           // field param test other behind
    }                                                             // field param test other behind
                                                                  // field param test other behind
    int another = 2;                                              // field
}                                                                 // field
)";

/// The variables of the source are the words behind "//", of all lines.
std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

class EvalSearchTest : public EvaluationTest {};

TEST_F(EvalSearchTest, EachLineSeesWhatIsInScopeThere) {
    setSource(scopes);
    std::vector<std::string> expected;
    std::vector<std::string> names;
    std::istringstream lines(scopes);
    for (std::string line; std::getline(lines, line);) {
        expected.push_back(line.substr(line.find("//") + 2));
        for (const std::string& word : wordsOf(expected.back()))
            if (word != "-" && std::find(names.begin(), names.end(), word) == names.end()) names.push_back(word);
    }
    for (std::size_t i = 0; i < expected.size(); i++) {
        std::string seen;
        for (const std::string& name : names) {
            std::string failure = evaluate(static_cast<int>(i) + 1, name);
            if (failure.empty()) seen += (seen.empty() ? "" : " ") + name;
            if (failure.ends_with("not a valid line for an expression")) seen = "-";
        }
        auto sorted = [](std::string text) {
            std::vector<std::string> words = wordsOf(text);
            std::sort(words.begin(), words.end());
            return words;
        };
        EXPECT_EQ(sorted(seen), sorted(expected[i])) << "line " << i + 1;
    }
}

// ---- by position

// A name behind "@" is found at each of its characters and just behind it, one behind "#" is not.
const char* const names = R"(package p;
class #Subject extends @Base implements @Runner, @Marker {
    @Base #field = @make(@CONST, @other), #other;
    int[] #array = { @CONST, @CONST + 1 };
    @Base[] #list;
    static final int #CONST = 1;
    #Base #make(int #a, @Base #b) throws @Failure { return @b; }
    public void #run() {
        int #i = 0, #j = 1;
        boolean #z = true;
        if (@z) @i = @j; else @j = @i;
        @i = @z ? @i : @j;
        @make(@i + @j * @array[@i], @other).@member = -@i;
        @list = new @Base[@i];
        @other = new #Base(@j);
        do @i++; while (@z);
        while (@z) { --@j; }
        for (int #k = @i; @k < @j; @k++) @i += @k;
        for (@i = 0, @j = 1; @z; @i++, @j++) ;
        here: while (@z) break here;
        try { @i <<= @j; } catch (@RuntimeException #e) { throw @e; } finally { @j ^= ~@i; }
        switch (@i) { case @CONST: @j = 0; default: @i = 0; }
        synchronized (@other) { @z = !@z; }
        @z = @other instanceof @Base && @z;
        @other = (@Base) @field.@self;
        @Base #late = @list[@array[0]].@self;
        if (@z) return;
        new Object() { int #x = #CONST; };
    }
}
interface #Marker { }
class #Base { int #member; @Base #self; #Base(int #n) { this.@member = @n; } #Base() { } #Base #make(int #a, @Base #b) throws @Failure { return @self; } }
class #Failure extends @RuntimeException { }
interface #Runner extends @Marker { void #run(); #Marker #all(@Base #b); }
)";

struct Marked {
    std::string name;
    int position;
    bool isFound;
};

/// Takes the marks out of the text.
std::vector<Marked> readMarks(const std::string& text, std::string& plain) {
    std::vector<Marked> marks;
    int line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] == '@' || text[i] == '#') {
            std::size_t end = i + 1;
            while (std::isalnum(static_cast<unsigned char>(text[end])) != 0) end++;
            int column = static_cast<int>(plain.size() - lineStart) + 1;
            marks.push_back({text.substr(i + 1, end - i - 1), (line << 10) + column, text[i] == '@'});
            continue;
        }
        plain += text[i];
        if (text[i] != '\n') continue;
        line++;
        lineStart = plain.size();
    }
    return marks;
}

TEST_F(EvalSearchTest, NamesAreFoundWhereTheyStand) {
    std::string plain;
    std::vector<Marked> marks = readMarks(names, plain);
    setSource(plain);
    for (const Marked& mark : marks) {
        int length = static_cast<int>(mark.name.size());
        for (int offset : {0, length - 1, length}) {
            const Symbol* found = host.symbolAt(source, mark.position + offset);
            std::string name = found == nullptr || found->name == nullptr ? "" : found->name->toString();
            std::string where = mark.name + " at " + std::to_string(lineOf(mark.position)) + ":" +
                                std::to_string(columnOf(mark.position)) + "+" + std::to_string(offset);
            if (!mark.isFound && offset == length) continue; // another name may begin there
            EXPECT_EQ(name, mark.isFound ? mark.name : "") << where;
        }
    }
}

TEST_F(EvalSearchTest, SymbolsTellWhatTheyAre) {
    setSource("class Subject { int f; void m(long f) { f++; this.f = m2(); } int m2() { return 1; } }");
    auto at = [&](const char* text) {
        std::string plain = "class Subject { int f; void m(long f) { f++; this.f = m2(); } int m2() { return 1; } }";
        return host.symbolAt(source, 1024 + static_cast<int>(plain.find(text)) + 1);
    };
    EXPECT_EQ(at("f++")->owner->kind, MTH);
    EXPECT_EQ(at("f = ")->owner->kind, TYP);
    EXPECT_EQ(at("m2()")->toString(), "method m2()");
    EXPECT_EQ(at("class"), nullptr);
    EXPECT_EQ(host.symbolAt(source, 0), nullptr);
    EXPECT_EQ(host.symbolAt(source, (99 << 10) + 1), nullptr);
    EXPECT_EQ(host.symbolAt(ByteArrayStore::root("nowhere"), 1025), nullptr);
}

} // namespace
} // namespace tarn
