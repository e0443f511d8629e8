#include "classlib/old_class.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace tarn::classlib::test {

namespace {

[[noreturn]] void fail(const std::string& text) {
    throw std::runtime_error(text);
}

class OldReader {
public:
    OldReader(const std::vector<std::uint8_t>& file, OldClass& result) : file_(file), result_(result) {}

    void read() {
        if (number(4) != 0xCAFEBABE || number(2) != 3 || number(2) != 45) fail("not a class file of version 45.3");
        readPool();
        unsigned flags = flagsWithin(0x631);
        bool isInterface = (flags & 0x200) != 0;
        if (isInterface ? (flags & 0x430) != 0x400 : (flags & 0x410) == 0x410)
            fail("class flags that contradict each other");
        result_.name = className();
        std::string line = "class " + hex(flags) + " " + result_.name;
        if (std::string super = optionalClassName(); !super.empty()) line += " extends " + super;
        for (unsigned i = number(2), n = i; i > 0; i--) line += (i == n ? " implements " : ",") + className();
        std::size_t classLine = result_.lines.size();
        result_.lines.push_back(line);
        readMembers("field ", 0xDF);
        readMembers("method ", 0x53F);
        for (unsigned left = number(2); left > 0; left--) readClassAttribute(result_.lines[classLine]);
        if (at_ != file_.size()) fail("bytes behind the end");
        for (std::size_t i = 1; i < pool_.size(); i++)
            if (pool_[i].tag != 0 && !pool_[i].used) fail("pool entry " + std::to_string(i) + " is not used");
    }

private:
    struct Entry {
        unsigned tag = 0;
        std::string text;
        std::uint64_t value = 0;
        bool used = false;
    };

    std::uint64_t number(std::size_t size) {
        std::uint64_t value = 0;
        for (; size > 0; size--) value = value << 8 | file_.at(at_++);
        return value;
    }

    static std::string hex(unsigned value) {
        char text[16];
        std::snprintf(text, sizeof text, "%x", value);
        return text;
    }

    void readPool() {
        pool_.resize(number(2));
        for (std::size_t i = 1; i < pool_.size(); i++) {
            Entry& entry = pool_[i];
            entry.tag = static_cast<unsigned>(number(1));
            switch (entry.tag) {
            case 1:
                for (std::size_t left = number(2); left > 0; left--) entry.text += static_cast<char>(number(1));
                break;
            case 3:
            case 4: entry.value = number(4); break;
            case 5:
            case 6:
                entry.value = number(8);
                i++;
                break;
            case 7:
            case 8: entry.value = number(2); break;
            default: fail("pool tag " + std::to_string(entry.tag));
            }
        }
    }

    Entry& entry(std::uint64_t index, unsigned tag) {
        Entry& found = pool_.at(index);
        if (found.tag != tag) fail("pool entry of another kind");
        found.used = true;
        return found;
    }

    std::string utf8() { return entry(number(2), 1).text; }

    std::string className(std::uint64_t index) {
        std::string name = entry(entry(index, 7).value, 1).text;
        result_.references.insert(name);
        return name;
    }
    std::string className() { return className(number(2)); }
    std::string optionalClassName() {
        std::uint64_t index = number(2);
        return index == 0 ? "" : className(index);
    }

    unsigned flagsWithin(unsigned mask) {
        auto flags = static_cast<unsigned>(number(2));
        if ((flags & ~mask) != 0) fail("flags " + hex(flags));
        return flags;
    }

    void readMembers(const std::string& kind, unsigned mask) {
        std::set<std::string> seen;
        for (unsigned left = static_cast<unsigned>(number(2)); left > 0; left--) {
            unsigned flags = flagsWithin(mask);
            if ((flags & 7) != 1 && (flags & 7) != 4) fail("a member that is neither public nor protected");
            std::string name = utf8(), descriptor = utf8();
            if (!seen.insert(name + descriptor).second) fail("the member " + name + " twice");
            addReferences(descriptor);
            std::string line = kind + hex(flags) + " " + name + " " + descriptor;
            for (unsigned attributes = static_cast<unsigned>(number(2)); attributes > 0; attributes--)
                line += memberAttribute(kind, flags);
            result_.lines.push_back(line);
        }
    }

    std::string memberAttribute(const std::string& kind, unsigned flags) {
        std::string name = utf8();
        std::size_t length = number(4), end = at_ + length;
        std::string line;
        if (name == "ConstantValue" && kind == "field " && (flags & 0x18) == 0x18)
            line = " = " + constant(number(2));
        else if (name == "Exceptions" && kind == "method ")
            for (unsigned i = static_cast<unsigned>(number(2)), n = i; i > 0; i--)
                line += (i == n ? " throws " : ",") + className();
        else if (name == "Deprecated")
            line = " deprecated";
        else
            fail("attribute " + name + " of a member");
        if (at_ != end) fail("attribute " + name + " with a wrong length");
        return line;
    }

    std::string constant(std::uint64_t index) {
        Entry& value = pool_.at(index);
        value.used = true;
        if (value.tag == 8) return "\"" + entry(value.value, 1).text + "\"";
        return value.tag == 3 ? std::to_string(static_cast<std::int32_t>(value.value))
                              : hex(value.tag) + ":" + hex(static_cast<unsigned>(value.value));
    }

    void addReferences(const std::string& descriptor) {
        for (std::size_t i = 0; i < descriptor.size(); i++) {
            if (descriptor[i] != 'L') continue;
            std::size_t end = descriptor.find(';', i);
            if (end == std::string::npos) fail("descriptor " + descriptor);
            result_.references.insert(descriptor.substr(i + 1, end - i - 1));
            i = end;
        }
    }

    void readClassAttribute(std::string& classLine) {
        std::string name = utf8();
        std::size_t length = number(4), end = at_ + length;
        if (name == "Deprecated")
            classLine += " deprecated";
        else if (name == "InnerClasses")
            for (unsigned left = static_cast<unsigned>(number(2)); left > 0; left--) {
                std::string inner = className(), outer = className(), simple = utf8();
                result_.lines.push_back("inner " + hex(flagsWithin(0x61F)) + " " + inner + " = " + simple + " of " +
                                        outer);
            }
        else
            fail("attribute " + name + " of a class");
        if (at_ != end) fail("attribute " + name + " with a wrong length");
    }

    const std::vector<std::uint8_t>& file_;
    OldClass& result_;
    std::size_t at_ = 0;
    std::vector<Entry> pool_;
};

} // namespace

OldClass::OldClass(const std::vector<std::uint8_t>& file) {
    OldReader(file, *this).read();
}

std::map<std::string, OldClass> readClosedArchive(const Archive& archive) {
    std::map<std::string, OldClass> classes;
    for (const auto& [path, file] : archive) {
        try {
            OldClass read(file);
            if (read.name + ".class" != path) fail("it holds " + read.name);
            classes.emplace(read.name, std::move(read));
        } catch (const std::exception& failure) {
            fail(path + ": " + failure.what());
        }
    }
    for (const auto& [name, read] : classes)
        for (const std::string& reference : read.references)
            if (!classes.contains(reference)) fail(name + " names " + reference + ", which is not there");
    return classes;
}

} // namespace tarn::classlib::test
