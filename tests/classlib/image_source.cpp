#include "classlib/image_source.h"

#include <bit>
#include <cstring>
#include <zlib.h>

#include "classlib/byte_writer.h"

namespace tarn::classlib::test {

namespace {

/// Writes a class file with a pool that says everything anew each time.
class Assembler {
public:
    ByteVector assemble(const ClassSource& source) {
        body_.u2(source.flags);
        body_.u2(classEntry(source.name));
        body_.u2(source.superclass.empty() ? 0 : classEntry(source.superclass));
        body_.u2(static_cast<unsigned>(source.interfaces.size()));
        for (const std::string& interface : source.interfaces) body_.u2(classEntry(interface));
        members(source.fields, false);
        members(source.methods, true);
        body_.u2(2 + (source.since ? 1 : 0));
        signature();
        deprecated(source.since);
        nested(source.nested);
        ByteWriter file;
        file.u4(0xCAFEBABE);
        file.u4(61);
        file.u2(count_);
        file.append(pool_);
        file.append(body_);
        return file.release();
    }

private:
    unsigned utf8(const std::string& text) {
        pool_.u1(1);
        pool_.u2(static_cast<unsigned>(text.size()));
        pool_.text(text);
        return count_++;
    }

    unsigned reference(unsigned tag, const std::string& text) {
        unsigned name = utf8(text);
        pool_.u1(tag);
        pool_.u2(name);
        return count_++;
    }

    unsigned classEntry(const std::string& name) { return reference(7, name); }

    void attribute(const std::string& name, const ByteWriter& content) {
        body_.u2(utf8(name));
        body_.u4(static_cast<unsigned>(content.size()));
        body_.append(content);
    }

    void signature() {
        ByteWriter content;
        content.u2(utf8("<T:Ljava/lang/Object;>"));
        attribute("Signature", content);
    }

    void deprecated(const std::optional<std::string>& since) {
        if (!since) return;
        ByteWriter content;
        content.u2(2);
        content.u2(utf8("Ljava/lang/Marker;"));
        content.u2(1);
        content.u2(utf8("values"));
        content.u1('[');
        content.u2(2);
        content.u1('e');
        content.u4(0);
        content.u1('I');
        content.u2(0);
        content.u2(utf8("Ljava/lang/Deprecated;"));
        content.u2(since->empty() ? 1 : 2);
        content.u2(utf8("forRemoval"));
        content.u1('Z');
        content.u2(0);
        if (!since->empty()) {
            content.u2(utf8("since"));
            content.u1('s');
            content.u2(utf8(*since));
        }
        attribute("RuntimeVisibleAnnotations", content);
    }

    void constant(const MemberSource& member) {
        ByteWriter content;
        if (member.intConstant) {
            pool_.u1(3);
            pool_.u4(static_cast<std::uint32_t>(*member.intConstant));
            content.u2(count_++);
        } else if (member.stringConstant) {
            content.u2(reference(8, *member.stringConstant));
        } else {
            return;
        }
        attribute("ConstantValue", content);
    }

    void members(const std::vector<MemberSource>& members, bool areMethods) {
        body_.u2(static_cast<unsigned>(members.size()));
        for (const MemberSource& member : members) {
            bool hasCode = areMethods && (member.flags & 0x500) == 0;
            body_.u2(member.flags);
            body_.u2(utf8(member.name));
            body_.u2(utf8(member.descriptor));
            body_.u2(1 + hasCode + (member.intConstant || member.stringConstant) + !member.exceptions.empty() +
                     member.since.has_value());
            signature();
            if (hasCode) {
                ByteWriter code;
                code.text(std::string("\0\0\0\1\0\0\0\1\261\0\0\0\0", 13));
                attribute("Code", code);
            }
            constant(member);
            if (!member.exceptions.empty()) {
                ByteWriter content;
                content.u2(static_cast<unsigned>(member.exceptions.size()));
                for (const std::string& exception : member.exceptions) content.u2(classEntry(exception));
                attribute("Exceptions", content);
            }
            deprecated(member.since);
        }
    }

    void nested(const std::vector<NestedSource>& classes) {
        ByteWriter content;
        content.u2(static_cast<unsigned>(classes.size()));
        for (const NestedSource& entry : classes) {
            content.u2(classEntry(entry.name));
            content.u2(entry.outer.empty() ? 0 : classEntry(entry.outer));
            content.u2(entry.simpleName.empty() ? 0 : utf8(entry.simpleName));
            content.u2(entry.flags);
        }
        attribute("InnerClasses", content);
    }

    ByteWriter pool_;
    ByteWriter body_;
    unsigned count_ = 1;
};

/// Numbers in the byte order of the image.
class ImageWriter {
public:
    explicit ImageWriter(bool swapped) : big_((std::endian::native == std::endian::big) != swapped) {}

    void word(std::uint32_t value) { number(value, 4); }
    void doubleWord(std::uint64_t value) { number(value, 8); }
    void add(const ByteVector& bytes) { out_.insert(out_.end(), bytes.begin(), bytes.end()); }
    void byte(unsigned value) { out_.push_back(static_cast<std::uint8_t>(value)); }
    [[nodiscard]] std::size_t size() const { return out_.size(); }
    [[nodiscard]] const ByteVector& bytes() const { return out_; }

private:
    void number(std::uint64_t value, int size) {
        for (int i = 0; i < size; i++) byte(static_cast<unsigned>(value >> 8 * (big_ ? size - 1 - i : i)));
    }

    bool big_;
    ByteVector out_;
};

class Strings {
public:
    std::uint32_t add(const std::string& text) {
        auto offset = static_cast<std::uint32_t>(bytes_.size());
        bytes_.insert(bytes_.end(), text.begin(), text.end());
        bytes_.push_back(0);
        return offset;
    }
    [[nodiscard]] const ByteVector& bytes() const { return bytes_; }

private:
    ByteVector bytes_{0};
};

ByteVector compress(const ResourceSource& resource, Strings& strings, bool swapped) {
    uLongf size = compressBound(static_cast<uLong>(resource.content.size()));
    ByteVector content(size);
    ::compress(content.data(), &size, resource.content.data(), static_cast<uLong>(resource.content.size()));
    content.resize(size);
    ImageWriter out(swapped);
    out.word(0xCAFEFAFA);
    out.doubleWord(content.size());
    out.doubleWord(resource.content.size());
    out.word(strings.add(resource.compression == Compression::ZIP ? "zip" : "brand-new"));
    out.word(0xFFFFFFFF);
    out.byte(1);
    out.add(content);
    return out.bytes();
}

void attribute(ByteVector& locations, unsigned kind, std::uint32_t value) {
    locations.push_back(static_cast<std::uint8_t>(kind << 3 | 3));
    for (int shift = 24; shift >= 0; shift -= 8) locations.push_back(static_cast<std::uint8_t>(value >> shift));
}

} // namespace

ByteVector modernClass(const ClassSource& source) {
    return Assembler().assemble(source);
}

ByteVector runtimeImage(const std::vector<ResourceSource>& resources, bool swapped) {
    Strings strings;
    ByteVector locations, contents;
    std::vector<std::uint32_t> offsets;
    for (const ResourceSource& resource : resources) {
        ByteVector stored =
            resource.compression == Compression::NONE ? resource.content : compress(resource, strings, swapped);
        std::size_t slash = resource.name.rfind('/'), dot = resource.name.rfind('.');
        offsets.push_back(static_cast<std::uint32_t>(locations.size()));
        attribute(locations, 1, strings.add(resource.module));
        attribute(locations, 2, strings.add(slash == std::string::npos ? "" : resource.name.substr(0, slash)));
        attribute(locations, 3, strings.add(resource.name.substr(slash + 1, dot - slash - 1)));
        attribute(locations, 4, strings.add(resource.name.substr(dot + 1)));
        attribute(locations, 5, static_cast<std::uint32_t>(contents.size()));
        if (resource.compression != Compression::NONE)
            attribute(locations, 6, static_cast<std::uint32_t>(stored.size()));
        attribute(locations, 7, static_cast<std::uint32_t>(resource.content.size()));
        attribute(locations, 9, 77); // of a kind that does not exist yet
        locations.push_back(0);
        contents.insert(contents.end(), stored.begin(), stored.end());
    }
    ImageWriter out(swapped);
    out.word(0xCAFEDADA);
    out.word(1 << 16);
    out.word(0);
    auto count = static_cast<std::uint32_t>(resources.size());
    out.word(count);
    out.word(count);
    out.word(static_cast<std::uint32_t>(locations.size()));
    out.word(static_cast<std::uint32_t>(strings.bytes().size()));
    for (std::uint32_t i = 0; i < count; i++) out.word(0);
    for (std::uint32_t offset : offsets) out.word(offset);
    out.add(locations);
    out.add(strings.bytes());
    out.add(contents);
    return out.bytes();
}

ByteVector imageOf(const std::vector<ClassSource>& classes) {
    std::vector<ResourceSource> resources;
    for (const ClassSource& source : classes)
        resources.push_back({"java.base", source.name + ".class", modernClass(source)});
    return runtimeImage(resources);
}

void patchWord(ByteVector& image, std::size_t offset, std::uint32_t value) {
    std::memcpy(image.data() + offset, &value, sizeof value);
}

} // namespace tarn::classlib::test
