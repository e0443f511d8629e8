#pragma once

#include "semantic/symbol.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarn {

class ClassFile;
struct InnerClassRecord;

/// Parses one class file into a class symbol, after the Java Virtual Machine Specification for version 45.3.
///
/// The constant pool is indexed in one pass and decoded only as far as the class needs it; method bodies are skipped. A
/// class that is mentioned gets a symbol and is not read, so parsing never calls itself. The tables are kept for the
/// next file. Nothing in the file is trusted: whatever breaks the format ends in `ClassFile::error`.
class ClassReader {
public:
    explicit ClassReader(ClassFile& file);

    void read(ClassSymbol* c, std::span<const std::uint8_t> bytes);
    /// The body of an `InnerClasses` attribute; only within `read`.
    void readInnerClasses(ClassSymbol* c);

private:
    /// One index of the pool. What an index decodes to depends on who asks: the name of a class may be a descriptor
    /// too.
    struct Slot {
        std::uint32_t offset;        ///< of the tag; 0 if there is nothing at this index
        PoolEntry* entry = nullptr;  ///< decoded; null before
        PoolEntry* second = nullptr; ///< of a Utf8 the type as a descriptor, of a Class the flat name; null before
    };

    struct Member {
        std::uint32_t flags;
        Name* name;
        Type* type;
    };

    [[noreturn]] void fail(const std::string& message);
    [[noreturn]] void bad();
    [[noreturn]] void badSignature(std::span<const std::uint8_t> rest);

    void need(std::size_t count) {
        if (bytes_.size() - at_ < count) [[unlikely]]
            bad();
    }
    std::uint32_t nextShort();
    std::uint32_t nextInt();
    [[nodiscard]] std::uint32_t shortAt(std::size_t offset) const;
    [[nodiscard]] std::uint32_t intAt(std::size_t offset) const;
    [[nodiscard]] std::uint64_t longAt(std::size_t offset) const;

    void readVersion();
    void indexPool();
    void readOwnName(ClassSymbol* c);
    void readSupertypes(ClassSymbol* c);
    void readField(ClassSymbol* c);
    void readMethod(ClassSymbol* c);
    Member readMember();
    void readConstantValue(VarSymbol* field);
    TypeList* readExceptions();
    void readClassAttributes(ClassSymbol* c);
    void keepPool(ClassSymbol* c);
    template <class Visit>
    void readAttributes(std::uint32_t& flags, Visit visit);

    Slot& slot(std::uint32_t index, int tag);
    [[nodiscard]] int tagOf(std::uint32_t index) const;
    std::span<const std::uint8_t> text(std::uint32_t index);
    Name* utf8(std::uint32_t index);
    Name* className(std::uint32_t index);
    ClassSymbol* classAt(std::uint32_t index);
    Type* descriptor(std::uint32_t index);
    Name* dotted(std::span<const std::uint8_t> text);
    Name* flatName(std::span<const std::uint8_t> text);

    PoolEntry* decode(std::uint32_t index);
    PoolEntry* decodeClass(std::uint32_t index);
    PoolEntry* decodeMember(std::uint32_t index, int tag);
    PoolEntry* decodeNameAndType(std::uint32_t index);
    PoolEntry* decodeConstant(std::uint32_t index, int tag);

    Type* parseDescriptor(std::span<const std::uint8_t> text);
    Type* parseType(std::span<const std::uint8_t>& rest);

    ClassFile& file_;
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    std::vector<Slot> pool_;
    std::vector<Type*> arguments_;
    std::vector<std::uint8_t> dotted_;

    // Attributes are told by the identity of their names.
    Name* const code_;
    Name* const constantValue_;
    Name* const deprecated_;
    Name* const exceptions_;
    Name* const innerClasses_;
    Name* const sourceFile_;
    Name* const synthetic_;
};

} // namespace tarn
