#include "classfile/class_reader.h"

#include "classfile/class_file.h"
#include "classfile/constant_pool.h"
#include "classfile/pool_tag.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/fold.h"
#include "semantic/scope.h"

#include <algorithm>
#include <bit>
#include <string>

namespace tarn {

namespace {

constexpr std::uint32_t MAGIC = 0xCAFEBABE;
constexpr std::uint32_t MAJOR = 45;
constexpr std::uint32_t MINOR = 3;

/// Symbols take more memory than the names in the file that call for them: one for each package that is part of a name,
/// one for each dimension of an array, each with a text of its own. These limits keep that in proportion and are far
/// from what programs have.
constexpr int DEEPEST_PACKAGE = 64;
constexpr std::size_t MOST_DIMENSIONS = 255;
constexpr std::size_t LONGEST_ARRAY_NAMES = 1 << 20;

} // namespace

ClassReader::ClassReader(ClassFile& file)
    : file_(file)
    , code_(Name::fromBytes("Code"))
    , constantValue_(Name::fromBytes("ConstantValue"))
    , deprecated_(Name::fromBytes("Deprecated"))
    , exceptions_(Name::fromBytes("Exceptions"))
    , innerClasses_(Name::fromBytes("InnerClasses"))
    , sourceFile_(Name::fromBytes("SourceFile"))
    , synthetic_(Name::fromBytes("Synthetic")) {}

void ClassReader::fail(const std::string& message) {
    file_.error(message);
    throw InternalError("a failure to read a class was ignored");
}

void ClassReader::bad() {
    fail("bad class file");
}

void ClassReader::badSignature(std::span<const std::uint8_t> rest) {
    fail("bad signature: " + dotted(rest.first(std::min<std::size_t>(rest.size(), 10)))->toString());
}

// ---- numbers, high byte first

std::uint32_t ClassReader::shortAt(std::size_t offset) const {
    return static_cast<std::uint32_t>(bytes_[offset] << 8 | bytes_[offset + 1]);
}

std::uint32_t ClassReader::intAt(std::size_t offset) const {
    return shortAt(offset) << 16 | shortAt(offset + 2);
}

std::uint64_t ClassReader::longAt(std::size_t offset) const {
    return std::uint64_t{intAt(offset)} << 32 | intAt(offset + 4);
}

std::uint32_t ClassReader::nextShort() {
    need(2);
    at_ += 2;
    return shortAt(at_ - 2);
}

std::uint32_t ClassReader::nextInt() {
    need(4);
    at_ += 4;
    return intAt(at_ - 4);
}

// ---- the class

void ClassReader::read(ClassSymbol* c, std::span<const std::uint8_t> bytes) {
    bytes_ = bytes;
    at_ = 0;
    if (c->members == nullptr || c->members == context().emptyScope) c->members = Scope::make(nullptr, c);
    readVersion();
    indexPool();
    c->flags = nextShort();
    readOwnName(c);
    readSupertypes(c);
    for (std::uint32_t count = nextShort(); count != 0; --count) readField(c);
    for (std::uint32_t count = nextShort(); count != 0; --count) readMethod(c);
    readClassAttributes(c);
    if (context().options.keepPool) keepPool(c);
}

void ClassReader::readVersion() {
    if (nextInt() != MAGIC) bad();
    std::uint32_t minor = nextShort();
    std::uint32_t major = nextShort();
    if (major == MAJOR && minor >= MINOR) return;
    fail("class file has wrong version " + std::to_string(major) + "." + std::to_string(minor) + ", should be " +
         std::to_string(MAJOR) + "." + std::to_string(MINOR));
}

void ClassReader::readOwnName(ClassSymbol* c) {
    std::uint32_t index = nextShort();
    Name* found = index == 0 ? nullptr : className(index);
    if (found == c->flatName) return;
    fail("class file: " + c->flatName->toString() +
         " contains wrong class: " + (found == nullptr ? "null" : found->toString()));
}

void ClassReader::readSupertypes(ClassSymbol* c) {
    std::uint32_t super = nextShort();
    c->superclass = super == 0 ? nullptr : classAt(super);
    std::uint32_t count = nextShort();
    need(2 * std::size_t{count});
    c->interfaces = context().arena.makeArray<ClassSymbol*>(count);
    for (ClassSymbol*& i : c->interfaces) i = classAt(nextShort());
    if (!c->isRootClass()) return;
    c->superclass = nullptr; // whatever the file says
    c->interfaces = {};
}

/// Takes the attributes of a class, field or method: sets the flags of the two that all have, and calls `visit(name,
/// length)` for the others. It gives false for one that is not known. Whatever it has read, the next one begins where
/// the length says.
template <class Visit>
void ClassReader::readAttributes(std::uint32_t& flags, Visit visit) {
    for (std::uint32_t count = nextShort(); count != 0; --count) {
        Name* name = utf8(nextShort());
        std::size_t size = nextInt();
        need(size);
        std::size_t end = at_ + size;
        if (name == deprecated_)
            flags |= flag::DEPRECATED;
        else if (!visit(name))
            file_.unknownAttribute(name);
        at_ = end;
    }
}

void ClassReader::readClassAttributes(ClassSymbol* c) {
    readAttributes(c->flags, [&](Name* name) {
        if (name == sourceFile_)
            c->sourceFile = utf8(nextShort());
        else if (name == innerClasses_)
            file_.readInnerClasses(c);
        else
            return false;
        return true;
    });
}

// ---- fields and methods

ClassReader::Member ClassReader::readMember() {
    std::uint32_t flags = nextShort();
    Name* name = utf8(nextShort());
    return {flags, name, descriptor(nextShort())};
}

void ClassReader::readField(ClassSymbol* c) {
    Member member = readMember();
    if (member.type->tag == typetag::METHOD) bad();
    auto* field = context().arena.make<VarSymbol>();
    field->init(member.flags, VAR, member.name, member.type, c);
    field->adr = -1;
    readAttributes(field->flags, [&](Name* name) {
        if (name == constantValue_)
            readConstantValue(field);
        else if (name == synthetic_)
            field->flags |= flag::SYNTHETIC;
        else
            return false;
        return true;
    });
    c->members->enter(field);
}

/// Only a final field is a constant: the machine gives any static field that value at first, but it may change.
void ClassReader::readConstantValue(VarSymbol* field) {
    std::uint32_t index = nextShort();
    int tag = tagOf(index);
    int declared = field->type->tag;
    bool isString = declared == typetag::CLASS && field->type->tsym->flatName == context().stringBase->tsym->flatName;
    bool isInt = declared <= typetag::INT || declared == typetag::BOOLEAN;
    bool fits = tag == pooltag::INTEGER  ? isInt
                : tag == pooltag::LONG   ? declared == typetag::LONG
                : tag == pooltag::FLOAT  ? declared == typetag::FLOAT
                : tag == pooltag::DOUBLE ? declared == typetag::DOUBLE
                                         : tag == pooltag::STRING && isString;
    if (!fits) bad();
    if (!field->isFinal()) return;
    auto* value = static_cast<ConstantType*>(decode(index));
    if (declared == typetag::BOOLEAN)
        field->type = context().intConstant(declared, value->intValue() & 1);
    else
        field->type = isString ? value : coerceConstant(value, field->type);
}

void ClassReader::readMethod(ClassSymbol* c) {
    Member member = readMember();
    if (member.type->tag != typetag::METHOD) bad();
    auto* method = context().arena.make<MethodSymbol>();
    method->init(member.flags, MTH, member.name, member.type, c);
    readAttributes(method->flags, [&](Name* name) {
        if (name == code_) return true;
        if (name == exceptions_)
            method->type = context().methodType(*member.type->argTypes(), member.type->resType(), readExceptions());
        else if (name == synthetic_)
            method->flags |= flag::SYNTHETIC;
        else
            return false;
        return true;
    });
    c->members->enter(method);
}

TypeList* ClassReader::readExceptions() {
    std::uint32_t count = nextShort();
    need(2 * std::size_t{count});
    TypeList* thrown = nullptr;
    while (count-- != 0) thrown = context().typeList(classAt(nextShort())->type, thrown);
    return thrown;
}

// ---- member classes

/// An entry without an outer class or a name is that of a local or anonymous class and tells nothing of use. Nor is an
/// entry believed whose outer class hasn't the shorter name: the language gives a member class the name of the class
/// around it and more, so that no chain of entries can lead back to where it began.
///
/// The entry of a local class may have both, but its name has a number in it, and nobody can name it as a member.
///
/// What others say of a member class may be from before it was changed: the files of the class itself and of the one
/// around it know better, and its source knows best.
void ClassReader::readInnerClasses(ClassSymbol* c) {
    std::uint32_t count = nextShort();
    need(8 * std::size_t{count});
    while (count-- != 0) {
        std::uint32_t inner = nextShort();
        std::uint32_t outer = nextShort();
        std::uint32_t simple = nextShort();
        std::uint32_t flags = nextShort();
        if (inner == 0 || outer == 0 || simple == 0) continue;
        Name* flat = className(inner);
        Name* name = utf8(simple);
        if (className(outer)->length >= flat->length || name->length == 0) continue;
        ClassSymbol* around = classAt(outer);
        bool isHearsay = flat != c->flatName && around->flatName != c->flatName;
        const ClassSymbol* known = context().findClass(flat);
        bool isFromSource = known != nullptr && known->sourcePath != nullptr;
        if (!(isHearsay || isFromSource) || context().innerClass(flat) == nullptr)
            context().innerClasses[flat] = {.outer = around, .name = name, .flags = flags};
        if (around->flatName != c->flatName) continue;
        ClassSymbol* member = classAt(inner);
        member->owner = c;
        if (flat == formFlatName(name, c)) c->members->enter(member->alias(name));
    }
}

// ---- the constant pool

void ClassReader::indexPool() {
    std::uint32_t count = nextShort();
    pool_.clear();
    pool_.push_back({.offset = 0});
    while (pool_.size() < count) {
        need(1);
        std::size_t offset = at_++;
        pool_.push_back({.offset = static_cast<std::uint32_t>(offset)});
        std::size_t size = 0;
        switch (auto tag = static_cast<std::int8_t>(bytes_[offset])) {
        case pooltag::UTF8:
        case pooltag::UNICODE: size = nextShort(); break;
        case pooltag::INTEGER:
        case pooltag::FLOAT:
        case pooltag::FIELD:
        case pooltag::METHOD:
        case pooltag::INTERFACE_METHOD:
        case pooltag::NAME_AND_TYPE: size = 4; break;
        case pooltag::LONG:
        case pooltag::DOUBLE:
            size = 8;
            pool_.push_back({.offset = 0});
            break;
        case pooltag::CLASS:
        case pooltag::STRING: size = 2; break;
        default: fail("bad constant pool tag: " + std::to_string(tag) + " at " + std::to_string(offset));
        }
        need(size);
        at_ += size;
    }
    if (count != 0) pool_.resize(count);
}

int ClassReader::tagOf(std::uint32_t index) const {
    if (index >= pool_.size() || pool_[index].offset == 0) return 0;
    return bytes_[pool_[index].offset];
}

/// The entry at the index, which must have that tag. Since every step of decoding names the tag that it wants, entries
/// cannot lead in a circle.
ClassReader::Slot& ClassReader::slot(std::uint32_t index, int tag) {
    int found = tagOf(index);
    if (found == pooltag::UNICODE) fail("can't read unicode strings in class files");
    if (found != tag) bad();
    return pool_[index];
}

std::span<const std::uint8_t> ClassReader::text(std::uint32_t index) {
    std::size_t offset = slot(index, pooltag::UTF8).offset;
    return bytes_.subspan(offset + 3, shortAt(offset + 1));
}

Name* ClassReader::utf8(std::uint32_t index) {
    Slot& s = slot(index, pooltag::UTF8);
    if (s.entry == nullptr) s.entry = Name::fromBytes(text(index));
    return static_cast<Name*>(s.entry);
}

Name* ClassReader::dotted(std::span<const std::uint8_t> text) {
    dotted_.assign(text.begin(), text.end());
    std::replace(dotted_.begin(), dotted_.end(), std::uint8_t{'/'}, std::uint8_t{'.'});
    return Name::fromBytes(dotted_);
}

/// The flat name of a class, which has slashes in the file and may not have an empty component.
Name* ClassReader::flatName(std::span<const std::uint8_t> text) {
    int depth = 0;
    bool afterSlash = true;
    for (std::uint8_t byte : text) {
        bool isSlash = byte == '/' || byte == '.';
        if (isSlash && (afterSlash || ++depth > DEEPEST_PACKAGE)) bad();
        afterSlash = isSlash;
    }
    if (afterSlash) bad();
    return dotted(text);
}

/// The flat name that a Class entry holds; arrays are not expected.
Name* ClassReader::className(std::uint32_t index) {
    Slot& s = slot(index, pooltag::CLASS);
    if (s.second == nullptr) {
        std::span<const std::uint8_t> name = text(shortAt(s.offset + 1));
        if (!name.empty() && name.front() == '[') bad();
        s.second = flatName(name);
    }
    return static_cast<Name*>(s.second);
}

ClassSymbol* ClassReader::classAt(std::uint32_t index) {
    return file_.nameClass(className(index));
}

/// The type whose descriptor is the text at the index.
Type* ClassReader::descriptor(std::uint32_t index) {
    Slot& s = slot(index, pooltag::UTF8);
    if (s.second == nullptr) s.second = parseDescriptor(text(index));
    return static_cast<Type*>(s.second);
}

// ---- the whole pool, for the make engine

void ClassReader::keepPool(ClassSymbol* c) {
    c->pool = file_.newPool();
    c->pool->entries.resize(1);
    for (std::uint32_t index = 1; index < pool_.size(); ++index) c->pool->entries.push_back(decode(index));
}

PoolEntry* ClassReader::decode(std::uint32_t index) {
    int tag = tagOf(index);
    if (tag == 0) return nullptr;
    Slot& s = pool_[index];
    if (s.entry != nullptr) return s.entry;
    switch (tag) {
    case pooltag::UTF8:
    case pooltag::UNICODE: return utf8(index); // which fails
    case pooltag::CLASS: return s.entry = decodeClass(index);
    case pooltag::FIELD:
    case pooltag::METHOD:
    case pooltag::INTERFACE_METHOD: return s.entry = decodeMember(index, tag);
    case pooltag::NAME_AND_TYPE: return s.entry = decodeNameAndType(index);
    default: return s.entry = decodeConstant(index, tag);
    }
}

/// An array becomes its type. A class becomes a symbol that only carries the name: what a pool speaks of needn't exist.
PoolEntry* ClassReader::decodeClass(std::uint32_t index) {
    std::span<const std::uint8_t> name = text(shortAt(pool_[index].offset + 1));
    if (!name.empty() && (name.front() == '[' || name.back() == ';')) {
        Type* type = parseDescriptor(name);
        if (type->tag == typetag::ARRAY) return type;
        if (type->tag != typetag::CLASS) bad();
        return context().newClass(0, type->tsym->flatName, type->tsym->owner);
    }
    Name* flat = className(index);
    return context().newClass(0, flat, file_.enterPackage(packagePart(flat)));
}

PoolEntry* ClassReader::decodeMember(std::uint32_t index, int tag) {
    std::size_t offset = pool_[index].offset;
    std::uint32_t owner = shortAt(offset + 1);
    std::size_t nameAndType = slot(shortAt(offset + 3), pooltag::NAME_AND_TYPE).offset;
    slot(owner, pooltag::CLASS);
    PoolEntry* ownerEntry = decode(owner);
    Symbol* ownerSymbol = ownerEntry->entryKind() == EntryKind::SYMBOL ? static_cast<Symbol*>(ownerEntry)
                                                                       : static_cast<Type*>(ownerEntry)->tsym;
    Name* name = utf8(shortAt(nameAndType + 1));
    Type* type = descriptor(shortAt(nameAndType + 3));
    bool isField = tag == pooltag::FIELD;
    if (isField == (type->tag == typetag::METHOD)) bad();
    Arena& arena = context().arena;
    Symbol* member = isField ? static_cast<Symbol*>(arena.make<VarSymbol>()) : arena.make<MethodSymbol>();
    member->init(0, isField ? VAR : MTH, name, type, ownerSymbol);
    return member;
}

PoolEntry* ClassReader::decodeNameAndType(std::uint32_t index) {
    std::size_t offset = pool_[index].offset;
    return context().arena.make<NameAndType>(utf8(shortAt(offset + 1)), dotted(text(shortAt(offset + 3))));
}

PoolEntry* ClassReader::decodeConstant(std::uint32_t index, int tag) {
    std::size_t offset = pool_[index].offset + 1;
    switch (tag) {
    case pooltag::INTEGER: return context().intConstant(typetag::INT, static_cast<std::int32_t>(intAt(offset)));
    case pooltag::FLOAT: return context().floatConstant(typetag::FLOAT, std::bit_cast<float>(intAt(offset)));
    case pooltag::LONG: return context().longConstant(typetag::LONG, static_cast<std::int64_t>(longAt(offset)));
    case pooltag::DOUBLE: return context().doubleConstant(typetag::DOUBLE, std::bit_cast<double>(longAt(offset)));
    case pooltag::STRING: return context().stringConstant(typetag::CLASS, utf8(shortAt(offset)));
    default: bad();
    }
}

// ---- descriptors

Type* ClassReader::parseDescriptor(std::span<const std::uint8_t> text) {
    std::span<const std::uint8_t> rest = text;
    Type* type = nullptr;
    if (!rest.empty() && rest.front() == '(') {
        rest = rest.subspan(1);
        arguments_.clear();
        while (!rest.empty() && rest.front() != ')') arguments_.push_back(parseType(rest));
        if (rest.empty()) badSignature(text);
        rest = rest.subspan(1);
        bool isVoid = !rest.empty() && rest.front() == 'V';
        if (isVoid) rest = rest.subspan(1);
        Type* result = isVoid ? context().voidType : parseType(rest);
        type = context().methodType(arguments_, result, nullptr);
    } else {
        type = parseType(rest);
    }
    if (!rest.empty()) badSignature(rest);
    return type;
}

/// The type at the start of `rest`, which moves behind it. `void` is no such type.
Type* ClassReader::parseType(std::span<const std::uint8_t>& rest) {
    std::size_t dimensions = 0;
    std::span<const std::uint8_t> text = rest;
    auto isDigit = [](std::uint8_t byte) { return byte >= '0' && byte <= '9'; };
    while (!rest.empty() && rest.front() == '[') {
        rest = rest.subspan(1);
        while (!rest.empty() && isDigit(rest.front())) rest = rest.subspan(1);
        ++dimensions;
    }
    if (rest.empty() || dimensions > MOST_DIMENSIONS) badSignature(text);
    Type* type = nullptr;
    switch (rest.front()) {
    case 'B': type = context().byteType; break;
    case 'C': type = context().charType; break;
    case 'D': type = context().doubleType; break;
    case 'F': type = context().floatType; break;
    case 'I': type = context().intType; break;
    case 'J': type = context().longType; break;
    case 'S': type = context().shortType; break;
    case 'Z': type = context().booleanType; break;
    case 'L': {
        auto end = std::find(rest.begin(), rest.end(), std::uint8_t{';'});
        if (end == rest.end() || end - rest.begin() == 1) badSignature(rest);
        auto size = static_cast<std::size_t>(end - rest.begin());
        if (size * dimensions > LONGEST_ARRAY_NAMES) badSignature(text);
        type = file_.nameClass(flatName(rest.subspan(1, size - 1)))->type;
        rest = rest.subspan(size);
        break;
    }
    default: badSignature(rest);
    }
    rest = rest.subspan(1);
    while (dimensions-- != 0) type = context().arrayType(type);
    return type;
}

} // namespace tarn
