#pragma once

#include "classfile/byte_buffer.h"
#include "store/store.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Bytes written down piece by piece, numbers with the high byte first.
class Assembled {
public:
    Assembled& u1(std::uint32_t value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    Assembled& u2(std::uint32_t value) { return u1(value >> 8).u1(value); }
    Assembled& u4(std::uint32_t value) { return u2(value >> 16).u2(value); }
    Assembled& text(std::string_view text) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        return *this;
    }
    Assembled& add(const Bytes& more) {
        bytes.insert(bytes.end(), more.begin(), more.end());
        return *this;
    }

    Bytes bytes;
};

/// Puts a class file together by hand: the pool grows as entries are asked for, the rest is given as bytes.
class ClassBytes {
public:
    ClassBytes(std::string_view name, std::string_view super) {
        thisClass = cls(name);
        superClass = super.empty() ? 0 : cls(super);
    }

    std::uint32_t raw(const Assembled& entry, std::uint32_t slots = 1) {
        pool.add(entry.bytes);
        poolCount += slots;
        return poolCount - slots;
    }
    std::uint32_t utf8(std::string_view text) {
        return raw(Assembled().u1(1).u2(static_cast<std::uint32_t>(text.size())).text(text));
    }
    std::uint32_t cls(std::string_view name) {
        std::uint32_t index = utf8(name);
        return raw(Assembled().u1(7).u2(index));
    }
    std::uint32_t integer(std::uint32_t value) { return raw(Assembled().u1(3).u4(value)); }
    std::uint32_t floating(std::uint32_t bits) { return raw(Assembled().u1(4).u4(bits)); }
    std::uint32_t longInteger(std::uint32_t high, std::uint32_t low) {
        return raw(Assembled().u1(5).u4(high).u4(low), 2);
    }
    std::uint32_t doubleFloating(std::uint32_t high, std::uint32_t low) {
        return raw(Assembled().u1(6).u4(high).u4(low), 2);
    }
    std::uint32_t string(std::string_view text) {
        std::uint32_t index = utf8(text);
        return raw(Assembled().u1(8).u2(index));
    }
    std::uint32_t member(std::uint32_t tag, std::uint32_t owner, std::string_view name, std::string_view descriptor) {
        std::uint32_t nameIndex = utf8(name);
        std::uint32_t typeIndex = utf8(descriptor);
        std::uint32_t pair = raw(Assembled().u1(12).u2(nameIndex).u2(typeIndex));
        return raw(Assembled().u1(tag).u2(owner).u2(pair));
    }

    /// An attribute of that body; to be put into one of the lists.
    Bytes attribute(std::string_view name, const Bytes& body) {
        std::uint32_t index = utf8(name);
        return Assembled().u2(index).u4(static_cast<std::uint32_t>(body.size())).add(body).bytes;
    }
    void field(std::uint32_t flags, std::string_view name, std::string_view descriptor,
               const std::vector<Bytes>& attributes = {}) {
        fields.push_back(memberInfo(flags, name, descriptor, attributes));
    }
    void method(std::uint32_t flags, std::string_view name, std::string_view descriptor,
                const std::vector<Bytes>& attributes = {}) {
        methods.push_back(memberInfo(flags, name, descriptor, attributes));
    }

    [[nodiscard]] Bytes build() const {
        Assembled file;
        file.u4(0xCAFEBABE).u2(minor).u2(major).u2(poolCount).add(pool.bytes);
        file.u2(flags).u2(thisClass).u2(superClass).u2(static_cast<std::uint32_t>(interfaces.size()));
        for (std::uint32_t i : interfaces) file.u2(i);
        for (const auto* list : {&fields, &methods, &attributes}) {
            file.u2(static_cast<std::uint32_t>(list->size()));
            for (const Bytes& each : *list) file.add(each);
        }
        return file.bytes;
    }

    std::uint32_t major = 45;
    std::uint32_t minor = 3;
    std::uint32_t flags = 1;
    std::uint32_t thisClass;
    std::uint32_t superClass;
    Assembled pool;
    std::uint32_t poolCount = 1;
    std::vector<std::uint32_t> interfaces;
    std::vector<Bytes> fields;
    std::vector<Bytes> methods;
    std::vector<Bytes> attributes;

private:
    Bytes memberInfo(std::uint32_t memberFlags, std::string_view name, std::string_view descriptor,
                     const std::vector<Bytes>& list) {
        std::uint32_t nameIndex = utf8(name);
        std::uint32_t typeIndex = utf8(descriptor);
        Assembled info;
        info.u2(memberFlags).u2(nameIndex).u2(typeIndex).u2(static_cast<std::uint32_t>(list.size()));
        for (const Bytes& each : list) info.add(each);
        return info.bytes;
    }
};

} // namespace tarn
