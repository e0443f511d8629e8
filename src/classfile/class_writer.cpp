#include "classfile/class_writer.h"

#include "classfile/class_file.h"
#include "classfile/constant_pool.h"
#include "classfile/pool_tag.h"
#include "codegen/code.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "semantic/type.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <string>
#include <utility>

namespace tarn {

namespace {

constexpr std::size_t FIRST_BUFFER = 65536;
constexpr std::size_t LIMIT = 65535; ///< of all that the format counts in 16 bits
constexpr std::uint32_t LOW_FLAGS = 0xffff;
constexpr std::uint32_t ANY_DEPRECATED = flag::DEPRECATED | flag::SOURCE_DEPRECATED;

bool isDeprecated(const Symbol* symbol) {
    return (symbol->flags & ANY_DEPRECATED) != 0;
}

bool isSynthetic(const Symbol* symbol) {
    return (symbol->flags & flag::SYNTHETIC) != 0;
}

} // namespace

ClassWriter::ClassWriter(ClassFile& file)
    : file_(file)
    , body_(FIRST_BUFFER)
    , head_(FIRST_BUFFER)
    , codeName_(Name::fromBytes("Code"))
    , constantValueName_(Name::fromBytes("ConstantValue"))
    , deprecatedName_(Name::fromBytes("Deprecated"))
    , exceptionsName_(Name::fromBytes("Exceptions"))
    , innerClassesName_(Name::fromBytes("InnerClasses"))
    , lineNumbersName_(Name::fromBytes("LineNumberTable"))
    , localVariablesName_(Name::fromBytes("LocalVariableTable"))
    , sourceFileName_(Name::fromBytes("SourceFile"))
    , syntheticName_(Name::fromBytes("Synthetic")) {}

void ClassWriter::write(ClassSymbol* c, Store& out) {
    pool_ = c->pool;
    innerSeen_.clear();
    innerEntries_.clear();
    innerAttribute_ = 0;

    out_ = &body_;
    body_.clear();
    writeBody(c);
    std::size_t classAttributes = writeClassAttributes(c);

    out_ = &head_;
    head_.clear();
    head_.put4(0xCAFEBABE);
    head_.put2(3);
    head_.put2(45);
    writePool();
    classAttributes += head_.length();
    head_.append(body_.contents());
    if (innerAttribute_ != 0) writeInnerClasses(classAttributes);

    out.write(head_.contents());
    if (context().options.verbose) printlnProgress("[writing " + out.toString() + "]");
}

// ---- numbers that the format limits

/// Puts a count, or fails if it needs more than 16 bits.
void ClassWriter::putCount(std::size_t count, const char* what) {
    if (count > LIMIT) file_.limitExceeded(what);
    out_->put2(static_cast<std::uint32_t>(count));
}

/// Puts the entry's index. One that is too large is cut here, and the pool's size refused in the end.
void ClassWriter::putIndex(PoolEntry* entry) {
    out_->put2(static_cast<std::uint32_t>(pool_->put(entry)));
}

// ---- the class

namespace {

/// The access flags of a class of its own, which it has to the virtual machine, be it declared within another or not.
/// What else it was declared to be stands in `InnerClasses`.
std::uint32_t accessFlags(const ClassSymbol* c) {
    std::uint32_t flags = c->flags & (flag::PUBLIC | flag::FINAL | flag::INTERFACE | flag::ABSTRACT);
    return (c->flags & flag::PROTECTED) != 0 ? flags | flag::PUBLIC : flags;
}

} // namespace

void ClassWriter::writeBody(ClassSymbol* c) {
    out_->put2(accessFlags(c));
    putIndex(c);
    if (c->superclass != nullptr)
        putIndex(c->superclass);
    else
        out_->put2(0);
    putCount(c->interfaces.size(), "number of interfaces");
    for (ClassSymbol* i : c->interfaces) putIndex(i);

    collectMembers(c);
    putCount(fields_.size(), "number of fields");
    for (std::size_t i = fields_.size(); i-- != 0;) writeField(fields_[i]);
    putCount(methods_.size(), "number of methods");
    for (std::size_t i = methods_.size(); i-- != 0;) writeMethod(methods_[i]);
}

/// Members go into the file in the order of their declaration; their entries lead from the newest to the oldest.
void ClassWriter::collectMembers(const ClassSymbol* c) {
    fields_.clear();
    methods_.clear();
    for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling) {
        Symbol* member = entry->sym;
        switch (member->kind) {
        case VAR: fields_.push_back(static_cast<VarSymbol*>(member)); break;
        case MTH: methods_.push_back(static_cast<MethodSymbol*>(member)); break;
        case TYP: enterInner(static_cast<ClassSymbol*>(member)); break;
        default: throw InternalError("unexpected kind");
        }
    }
}

/// Gives the offset of the number of attributes in the body: `InnerClasses`, which comes last, counts there too.
std::size_t ClassWriter::writeClassAttributes(const ClassSymbol* c) {
    std::size_t count = out_->length();
    out_->put2((c->sourceFile != nullptr ? 1U : 0U) + (isDeprecated(c) ? 1U : 0U));
    if (c->sourceFile != nullptr) {
        startAttribute(sourceFileName_, 2);
        putIndex(c->sourceFile);
    }
    writeDeprecated(c);
    return count;
}

void ClassWriter::startAttribute(Name* name, std::size_t size) {
    putIndex(name);
    out_->put4(static_cast<std::uint32_t>(size));
}

void ClassWriter::writeDeprecated(const Symbol* symbol) {
    if (isDeprecated(symbol)) startAttribute(deprecatedName_, 0);
}

void ClassWriter::writeSynthetic(const Symbol* symbol) {
    if (isSynthetic(symbol)) startAttribute(syntheticName_, 0);
}

// ---- fields and methods

void ClassWriter::writeMember(const Symbol* symbol) {
    out_->put2(symbol->flags & LOW_FLAGS);
    putIndex(ClassFile::memberName(symbol));
    putIndex(signature(symbol->type));
}

void ClassWriter::writeField(const VarSymbol* field) {
    bool isConstant = field->type->isConstant();
    writeMember(field);
    out_->put2((isConstant ? 1U : 0U) + (isSynthetic(field) ? 1U : 0U) + (isDeprecated(field) ? 1U : 0U));
    if (isConstant) {
        startAttribute(constantValueName_, 2);
        putIndex(field->type->constValue());
    }
    writeSynthetic(field);
    writeDeprecated(field);
}

void ClassWriter::writeMethod(MethodSymbol* method) {
    const TypeList* thrown = method->type->thrown();
    writeMember(method);
    out_->put2((method->code != nullptr ? 1U : 0U) + (thrown != nullptr ? 1U : 0U) + (isSynthetic(method) ? 1U : 0U) +
               (isDeprecated(method) ? 1U : 0U));
    if (method->code != nullptr) {
        writeCode(*method->code);
        method->code = nullptr;
    }
    if (thrown != nullptr) writeExceptions(thrown);
    writeSynthetic(method);
    writeDeprecated(method);
}

void ClassWriter::writeExceptions(const TypeList* thrown) {
    std::size_t count = 0;
    for (const TypeList* list = thrown; list != nullptr; list = list->tail) ++count;
    startAttribute(exceptionsName_, 2 + 2 * count);
    putCount(count, "number of thrown exceptions");
    for (; thrown != nullptr; thrown = thrown->tail) putIndex(thrown->head->tsym);
}

void ClassWriter::writeCode(const Code& code) {
    auto size = static_cast<std::size_t>(code.cp);
    auto catches = static_cast<std::size_t>(code.catchCount);
    auto lines = static_cast<std::size_t>(code.lineCount);
    auto variables = static_cast<std::size_t>(code.varCount);
    if (size > LIMIT) file_.limitExceeded("code size");
    startAttribute(codeName_, 12 + size + 8 * catches + (lines != 0 ? 8 + 4 * lines : 0) +
                                  (variables != 0 ? 8 + 10 * variables : 0));
    putCount(static_cast<std::size_t>(code.maxStack), "stack size");
    putCount(static_cast<std::size_t>(code.maxLocals), "number of local variables");
    out_->put4(static_cast<std::uint32_t>(size));
    out_->append({code.bytes.data(), size});
    putCount(catches, "number of exception handlers");
    for (std::size_t i = 0; i < catches; ++i) {
        out_->put2(code.catchStart[i]);
        out_->put2(code.catchEnd[i]);
        out_->put2(code.catchHandler[i]);
        out_->put2(code.catchType[i]);
    }
    out_->put2((lines != 0 ? 1U : 0U) + (variables != 0 ? 1U : 0U));
    if (lines != 0) writeLines(code);
    if (variables != 0) writeVariables(code);
}

void ClassWriter::writeLines(const Code& code) {
    auto count = static_cast<std::size_t>(code.lineCount);
    startAttribute(lineNumbersName_, 2 + 4 * count);
    putCount(count, "number of line numbers");
    for (std::size_t i = 0; i < count; ++i) {
        out_->put2(code.lineStart[i]);
        out_->put2(code.lineNumber[i]);
    }
}

namespace {

/// Sorts the rows of a table from `low` to `high` by the start of their ranges. Rows with equal starts come out in the
/// order that just this partition gives them, which the class files of a version have in common.
void sortByStart(std::vector<std::uint16_t>& rows, const std::vector<std::uint16_t>& starts, int low, int high) {
    auto startOf = [&](int at) { return starts[rows[static_cast<std::size_t>(at)]]; };
    while (low < high) {
        int i = low;
        int j = high;
        std::uint16_t pivot = startOf(low + (high - low) / 2);
        do {
            while (startOf(i) < pivot) ++i;
            while (startOf(j) > pivot) --j;
            if (i > j) break;
            std::swap(rows[static_cast<std::size_t>(i++)], rows[static_cast<std::size_t>(j--)]);
        } while (i <= j);
        // The smaller part recursively, so that the depth stays logarithmic.
        bool lowIsSmaller = j - low < high - i;
        if (lowIsSmaller) {
            sortByStart(rows, starts, low, j);
            low = i;
        } else {
            sortByStart(rows, starts, i, high);
            high = j;
        }
    }
}

} // namespace

void ClassWriter::writeVariables(const Code& code) {
    auto count = static_cast<std::size_t>(code.varCount);
    startAttribute(localVariablesName_, 2 + 10 * count);
    putCount(count, "number of local variable ranges");
    std::vector<std::uint16_t> rows(count);
    std::iota(rows.begin(), rows.end(), std::uint16_t{0});
    sortByStart(rows, code.varStart, 0, code.varCount - 1);
    for (std::size_t row : rows) {
        const VarSymbol* variable = code.varSymbols[row];
        out_->put2(code.varStart[row]);
        out_->put2(static_cast<std::uint32_t>(code.varEnd[row] - code.varStart[row]));
        putIndex(variable->name);
        putIndex(signature(variable->type));
        out_->put2(code.varRegister[row]);
    }
}

// ---- the constant pool

/// Writing an entry puts those that it consists of behind the rest, so the pool grows while it is written.
void ClassWriter::writePool() {
    std::size_t countAt = out_->length();
    out_->put2(0);
    for (std::size_t i = 1; i < pool_->entries.size() && i <= LIMIT; ++i) {
        PoolEntry* entry = pool_->entries[i];
        if (entry == nullptr) continue; // behind a long or double
        switch (entry->entryKind()) {
        case EntryKind::NAME: {
            auto* name = static_cast<Name*>(entry);
            out_->put1(pooltag::UTF8);
            putCount(name->length, "length of a name or string");
            out_->append(name->view());
            break;
        }
        case EntryKind::NAME_AND_TYPE: {
            auto* pair = static_cast<NameAndType*>(entry);
            out_->put1(pooltag::NAME_AND_TYPE);
            putIndex(pair->name);
            putIndex(pair->signature);
            break;
        }
        case EntryKind::SYMBOL: writeSymbolEntry(static_cast<Symbol*>(entry)); break;
        case EntryKind::TYPE: writeTypeEntry(static_cast<Type*>(entry)); break;
        }
    }
    if (pool_->entries.size() > LIMIT) file_.limitExceeded("constant pool size");
    out_->patch2(countAt, static_cast<std::uint32_t>(pool_->entries.size()));
}

void ClassWriter::writeSymbolEntry(Symbol* symbol) {
    switch (symbol->kind) {
    case TYP: {
        auto* c = static_cast<ClassSymbol*>(symbol);
        out_->put1(pooltag::CLASS);
        putIndex(slashed(c->flatName));
        enterInner(c);
        break;
    }
    case MTH:
        out_->put1(symbol->owner->isInterface() ? pooltag::INTERFACE_METHOD : pooltag::METHOD);
        writeMemberEntry(symbol);
        break;
    case VAR:
        out_->put1(pooltag::FIELD);
        writeMemberEntry(symbol);
        break;
    default: throw InternalError("writePool " + symbol->toString());
    }
}

void ClassWriter::writeMemberEntry(const Symbol* symbol) {
    putIndex(symbol->owner);
    putIndex(context().arena.make<NameAndType>(ClassFile::memberName(symbol), signature(symbol->type)));
}

void ClassWriter::writeTypeEntry(Type* type) {
    if (!type->isConstant()) {
        out_->put1(pooltag::CLASS);
        putIndex(slashed(ClassFile::xClassName(type)));
        return;
    }
    auto* constant = type->constValue();
    switch (type->tag) {
    case typetag::LONG:
        out_->put1(pooltag::LONG);
        out_->put8(static_cast<std::uint64_t>(constant->longValue()));
        break;
    case typetag::FLOAT:
        out_->put1(pooltag::FLOAT);
        out_->put4(std::bit_cast<std::uint32_t>(constant->floatValue()));
        break;
    case typetag::DOUBLE:
        out_->put1(pooltag::DOUBLE);
        out_->put8(std::bit_cast<std::uint64_t>(constant->doubleValue()));
        break;
    case typetag::CLASS:
        out_->put1(pooltag::STRING);
        putIndex(constant->stringValue());
        break;
    default: out_->put1(pooltag::INTEGER); out_->put4(static_cast<std::uint32_t>(constant->intValue()));
    }
}

Name* ClassWriter::slashed(const Name* text) {
    std::string_view from = text->view();
    slashed_.assign(from.begin(), from.end());
    std::replace(slashed_.begin(), slashed_.end(), std::uint8_t{'.'}, std::uint8_t{'/'});
    return Name::fromBytes(slashed_);
}

// ---- inner classes

/// Lists the class if it is an inner one, behind the classes around it. Its own file says so, if no other has yet.
void ClassWriter::enterInner(ClassSymbol* c) {
    if (c->flatName->indexOf('$') < static_cast<int>(c->flatName->length)) ensureRead(c);
    const InnerClassRecord* record = context().innerClass(c->flatName);
    if (record == nullptr || !innerSeen_.insert(c->flatName).second) return;
    if (innerAttribute_ == 0) innerAttribute_ = pool_->put(innerClassesName_);
    enterInner(record->outer);
    innerEntries_.push_back({.inner = pool_->put(c),
                             .outer = pool_->put(record->outer),
                             .name = pool_->put(record->name),
                             .flags = record->flags});
}

void ClassWriter::writeInnerClasses(std::size_t classAttributes) {
    std::span<const std::uint8_t> written = out_->contents();
    out_->patch2(classAttributes,
                 static_cast<std::uint32_t>(written[classAttributes] << 8 | written[classAttributes + 1]) + 1);
    out_->put2(static_cast<std::uint32_t>(innerAttribute_));
    out_->put4(static_cast<std::uint32_t>(8 * innerEntries_.size() + 2));
    putCount(innerEntries_.size(), "number of inner classes");
    for (const InnerEntry& entry : innerEntries_) {
        out_->put2(static_cast<std::uint32_t>(entry.inner));
        out_->put2(static_cast<std::uint32_t>(entry.outer));
        out_->put2(static_cast<std::uint32_t>(entry.name));
        out_->put2(entry.flags);
    }
}

} // namespace tarn
