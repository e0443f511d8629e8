#include "class_outline.h"

#include <cstddef>
#include <cstdint>

namespace tarn {
namespace {

class Outliner {
public:
    explicit Outliner(const Bytes& bytes) : bytes_(bytes) { readPool(); }

    ClassOutline read() {
        unsigned flags = take2();
        at_ += 4;
        at_ += 2 * take2();
        readMembers(result_.fields);
        readMembers(result_.methods);
        bool deprecated = readAttributes("Deprecated");
        result_.flags = flagTexts(flags) + (deprecated ? "deprecated " : "");
        if (!result_.flags.empty()) result_.flags.pop_back();
        return result_;
    }

private:
    [[nodiscard]] unsigned u1(std::size_t at) const { return bytes_.at(at); }
    [[nodiscard]] unsigned u2(std::size_t at) const { return u1(at) << 8 | u1(at + 1); }
    [[nodiscard]] std::size_t u4(std::size_t at) const { return std::size_t{u2(at)} << 16 | u2(at + 2); }
    unsigned take2() {
        at_ += 2;
        return u2(at_ - 2);
    }

    void readPool() {
        unsigned count = u2(8);
        at_ = 10;
        pool_.assign(count, 0);
        for (unsigned i = 1; i < count; i++) {
            pool_[i] = at_;
            unsigned tag = u1(at_);
            bool wide = tag == 5 || tag == 6;
            at_ += tag == 1 ? 3 + u2(at_ + 1) : wide ? 9 : tag == 7 || tag == 8 ? 3 : 5;
            if (wide) i++;
        }
    }

    [[nodiscard]] std::string utf8(unsigned index) const {
        std::size_t at = pool_.at(index);
        auto text = bytes_.begin() + static_cast<std::ptrdiff_t>(at) + 3;
        return {text, text + static_cast<std::ptrdiff_t>(u2(at + 1))};
    }
    [[nodiscard]] std::string className(unsigned index) const { return utf8(u2(pool_.at(index) + 1)); }

    static std::string flagTexts(unsigned flags) {
        const char* const names[] = {"public",   "private",   "protected", "static",    "final",   "synchronized",
                                     "volatile", "transient", "native",    "interface", "abstract"};
        std::string text;
        for (unsigned i = 0; i < std::size(names); i++)
            if ((flags >> i & 1) != 0) text += std::string(names[i]) + " ";
        return text;
    }

    void readMembers(std::vector<std::string>& members) {
        for (unsigned left = take2(); left > 0; left--) {
            std::string text = flagTexts(take2());
            unsigned name = take2();
            unsigned descriptor = take2();
            if (readAttributes("Synthetic")) text += "synthetic ";
            members.push_back(text + utf8(name) + ":" + utf8(descriptor));
        }
    }

    /// Whether one of the attributes has that name.
    bool readAttributes(const std::string& wanted) {
        bool found = false;
        for (unsigned left = take2(); left > 0; left--) {
            std::string name = utf8(take2());
            std::size_t end = at_ + 4 + u4(at_);
            at_ += 4;
            found = found || name == wanted;
            if (name == "InnerClasses") readInnerClasses();
            at_ = end;
        }
        return found;
    }

    void readInnerClasses() {
        for (unsigned left = take2(); left > 0; left--) {
            std::string inner = className(take2());
            std::string outer = className(take2());
            std::string name = utf8(take2());
            result_.innerClasses.push_back(flagTexts(take2()) + inner + "=" + outer + "." + name);
        }
    }

    const Bytes& bytes_;
    std::size_t at_ = 0;
    std::vector<std::size_t> pool_;
    ClassOutline result_;
};

} // namespace

ClassOutline outline(const Bytes& classFile) {
    return Outliner(classFile).read();
}

} // namespace tarn
