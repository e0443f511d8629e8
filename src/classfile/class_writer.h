#pragma once

#include "classfile/byte_buffer.h"
#include "semantic/symbol.h"

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace tarn {

class ClassFile;
class Code;
class ConstantPool;
class NameAndType;
class Store;

/// Turns a generated class into the bytes of a class file, after the Java Virtual Machine Specification, version 45.3.
///
/// The pool stands first in the file and is known last, since all the rest puts entries into it. So the rest is
/// assembled in a body, the pool behind the head, and the body is copied behind the pool. Only the `InnerClasses`
/// attribute comes later still: it lists the classes that writing the pool came upon.
///
/// The format counts nearly everything in 16 bits; a class that needs more fails with `ClassFile::limitExceeded`, and
/// nothing has been written then.
class ClassWriter {
public:
    explicit ClassWriter(ClassFile& file);

    /// Writes the class, which has its pool and its methods their code, with one write. Throws IoFailure. The methods
    /// have no code any more afterwards.
    void write(ClassSymbol* c, Store& out);

private:
    struct InnerEntry {
        int inner;
        int outer;
        int name;
        std::uint32_t flags;
    };

    void writeBody(ClassSymbol* c);
    void collectMembers(const ClassSymbol* c);
    std::size_t writeClassAttributes(const ClassSymbol* c);
    void writeField(const VarSymbol* field);
    void writeMethod(MethodSymbol* method);
    void writeMember(const Symbol* symbol);
    void writeDeprecated(const Symbol* symbol);
    void writeSynthetic(const Symbol* symbol);
    void writeExceptions(const TypeList* thrown);
    void writeCode(const Code& code);
    void writeLines(const Code& code);
    void writeVariables(const Code& code);
    void writePool();
    void writeSymbolEntry(Symbol* symbol);
    void writeMemberEntry(const Symbol* symbol);
    void writeTypeEntry(Type* type);
    void enterInner(ClassSymbol* c);
    void writeInnerClasses(std::size_t classAttributes);
    void startAttribute(Name* name, std::size_t size);
    void putCount(std::size_t count, const char* what);
    void putIndex(PoolEntry* entry);
    Name* slashed(const Name* text);

    ClassFile& file_;
    ConstantPool* pool_ = nullptr; ///< of the class being written
    ByteBuffer body_;
    ByteBuffer head_;
    ByteBuffer* out_ = nullptr; ///< the one of the two that is written

    std::vector<VarSymbol*> fields_; ///< of the class, newest first
    std::vector<MethodSymbol*> methods_;
    std::unordered_set<const Name*> innerSeen_; ///< flat names of the classes in `innerEntries_`
    std::vector<InnerEntry> innerEntries_;
    int innerAttribute_ = 0; ///< pool index of the attribute's name; 0 while there is no entry
    std::vector<std::uint8_t> slashed_;

    Name* const codeName_;
    Name* const constantValueName_;
    Name* const deprecatedName_;
    Name* const exceptionsName_;
    Name* const innerClassesName_;
    Name* const lineNumbersName_;
    Name* const localVariablesName_;
    Name* const sourceFileName_;
    Name* const syntheticName_;
};

} // namespace tarn
