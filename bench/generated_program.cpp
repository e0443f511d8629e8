#include "generated_program.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tarn::bench {

namespace {

constexpr int LINES_OF_CLASS = 200;
constexpr int CLASSES_OF_PACKAGE = 25;

std::string className(int number) {
    return "Unit" + std::to_string(number);
}
std::string packageName(int number) {
    return "gen.p" + std::to_string(number / CLASSES_OF_PACKAGE);
}

/// The text with `@` for the method's number, `#` for the class and `$` for another class that it uses.
std::string fill(const char* pattern, int method, int number, int other) {
    std::string text;
    for (const char* c = pattern; *c != 0; ++c) {
        if (*c == '@')
            text += std::to_string(method);
        else if (*c == '#')
            text += className(number);
        else if (*c == '$')
            text += className(other);
        else
            text += *c;
    }
    return text;
}

const char* const METHODS[] = {
    R"(
    /**
     * Sums what lies between the bounds, and counts the steps.
     */
    public int sum@(int from, int to) {
        int total = 0;
        for (int i = from; i < to; i++) {
            if (i % 3 == 0 || i % 5 == 0) {
                total += i * weight;
            } else {
                total -= table[i & 15];
            }
        }
        steps++;
        return total;
    }
)",
    R"(
    /** A line of text about the state. */
    public String describe@(String head, long amount) {
        String line = head + ": " + amount + " of " + name;
        if (amount > LIMIT) {
            line = line + '!';
        }
        return line.length() > 40 ? line.substring(0, 40) : line;
    }
)",
    R"(
    // Walks the chain until it ends or the count is used up.
    $ follow@($ start, int count) throws IllegalArgumentException {
        $ at = start;
        while (at != null && count > 0) {
            if (at.weight < 0) {
                throw new IllegalArgumentException("negative: " + at.weight);
            }
            at = at.next;
            count--;
        }
        return at;
    }
)",
    R"(
    protected double mix@(double a, float b, long c) {
        double result = a * b + c / 2.5;
        switch ((int) (c % 5)) {
        case 0:
            result = -result;
            break;
        case 1:
        case 2:
            result += SCALE;
            break;
        case 3:
            return a;
        default:
            result = Math.max(a, result);
        }
        return result;
    }
)",
    R"(
    void fill@(int[] cells, byte[] bytes, boolean flag) {
        int n = cells.length;
        try {
            for (int i = 0; i < n; i++) {
                cells[i] = (i << 3) ^ (bytes[i % bytes.length] & 0xff);
                bytes[i % bytes.length] += (byte) i;
            }
        } catch (ArithmeticException e) {
            steps = 0;
        } finally {
            weight = flag && n > 0 ? cells[0] : weight;
        }
    }
)",
    R"(
    synchronized boolean check@(Object other, char c) {
        if (other instanceof $) {
            $ that = ($) other;
            return that.weight == weight && name.indexOf(c) >= 0;
        }
        do {
            c++;
            table[c & 15] = c;
        } while (c < 'z' && table[c & 15] != 0);
        return other == null;
    }
)",
};

std::string generateClass(int number, int classes) {
    int first = number / CLASSES_OF_PACKAGE * CLASSES_OF_PACKAGE;
    int inPackage = std::min(CLASSES_OF_PACKAGE, classes - first);
    int other = first + (number - first + 7) % inPackage;
    std::string text = "package " + packageName(number) + ";\n\nimport java.util.*;\n";
    text += fill(R"(
/**
 * A class of a generated program: #.
 */
public class # {
    static final int LIMIT = 1000 + 24;
    static final double SCALE = 1.25;

    int weight = 1;
    int steps;
    private int[] table = new int[16];
    protected String name = "#";
    # next;

    public #(int weight, # next) {
        this.weight = weight;
        this.next = next;
    }
)",
                 0, number, other);
    int lines = 24;
    for (int method = 0; lines < LINES_OF_CLASS; ++method) {
        std::string body = fill(METHODS[static_cast<std::size_t>(method) % std::size(METHODS)], method, number, other);
        lines += static_cast<int>(std::count(body.begin(), body.end(), '\n'));
        text += body;
    }
    return text + "}\n";
}

} // namespace

std::vector<GeneratedSource> generateProgram(int lines) {
    int classes = std::max(1, lines / LINES_OF_CLASS);
    std::vector<GeneratedSource> sources;
    for (int number = 0; number < classes; ++number) {
        std::string path = packageName(number);
        std::replace(path.begin(), path.end(), '.', '/');
        sources.push_back({path + "/" + className(number) + ".java", generateClass(number, classes)});
    }
    return sources;
}

int countLines(const std::vector<GeneratedSource>& sources) {
    std::ptrdiff_t lines = 0;
    for (const GeneratedSource& source : sources) lines += std::count(source.text.begin(), source.text.end(), '\n');
    return static_cast<int>(lines);
}

std::vector<std::string> writeProgram(const std::vector<GeneratedSource>& sources, const std::string& directory) {
    std::vector<std::string> paths;
    for (const GeneratedSource& source : sources) {
        std::filesystem::path path = std::filesystem::path(directory) / source.path;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << source.text;
        paths.push_back(path.string());
    }
    return paths;
}

} // namespace tarn::bench
