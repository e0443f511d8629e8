#include "semantic/universe.h"

#include "classfile/class_file.h"
#include "semantic/context.h"
#include "semantic/operators.h"
#include "semantic/scope.h"

#include <bit>
#include <cmath>
#include <limits>
#include <string>

namespace tarn {

using namespace typetag;

Type* errType = nullptr;
Type* anythingType = nullptr;
Symbol* errSymbol = nullptr;

// ---- construction

Universe* Universe::current = nullptr;

Universe::~Universe() {
    if (current == this) current = nullptr;
}

Universe::Universe() {
    current = this;
    emptyScope = Scope::make(nullptr, nullptr);
    rootPackage = newPackage(nullptr, nullptr);
    predefClass = arena.make<ClassSymbol>();
    predefClass->init(flag::PUBLIC, TYP, nullptr, nullptr, rootPackage);
    predefClass->type = classType(CLASS, predefClass);
    predefClass->members = Scope::make(nullptr, predefClass);
    emptyScope->owner = predefClass;

    byteType = primitive(BYTE, "byte", "Byte");
    shortType = primitive(SHORT, "short", "Short");
    charType = primitive(CHAR, "char", "Character");
    intType = primitive(INT, "int", "Integer");
    longType = primitive(LONG, "long", "Long");
    floatType = primitive(FLOAT, "float", "Float");
    doubleType = primitive(DOUBLE, "double", "Double");
    booleanType = primitive(BOOLEAN, "boolean", "Boolean");
    voidType = primitive(VOID, "void", "Void");
    arrayBase = primitive(CLASS, "Array");
    functionBase = primitive(CLASS, "<function>");
    stringBase = primitive(CLASS, "java.lang.String");
    nullType = primitive(NULLTYPE, "null");
    Type* failed = primitive(ERROR, "<any>");
    primitive(ANYTHING, "<anything>");

    errSymbol_ = arena.make<Symbol>();
    errSymbol_->init(flag::PUBLIC | flag::STATIC, ERR, names().error, failed, predefClass);
    makeCurrent();
    arrayMembers = Scope::make(nullptr, nullptr);
}

void Universe::makeCurrent() {
    current = this;
    errType = typeOfTag[ERROR];
    anythingType = typeOfTag[ANYTHING];
    errSymbol = errSymbol_;
}

Type* Universe::primitive(int tag, std::string_view name, std::string_view boxName) {
    auto* type = arena.make<Type>();
    type->init(tag, Name::fromBytes(name));
    auto at = static_cast<std::size_t>(tag);
    typeOfTag[at] = type;
    if (!boxName.empty()) boxOfTag[at] = Name::fromBytes("java.lang." + std::string(boxName));
    return type;
}

// ---- the second step

void Universe::initUniverse() {
    if (!initialized) {
        if (predefScope == nullptr) enterPredefinedTypes();
        loadWellKnownClasses();
        throwableList = typeList(throwableType, nullptr);
        makeArrayClass();
        enterLiteralNames();
        enterOperators();
        initialized = true;
    }
    if (context().options.evaluating && evaluatorContextClass == nullptr) {
        Type* type = nullptr;
        evaluatorContextClass = loadWellKnown("quillon.compiler.loader.IEvaluatorContext", type);
    }
}

void Universe::enterPredefinedTypes() {
    predefScope = predefClass->members;
    predefScope->owner = predefClass;
    for (Type* type : {byteType, shortType, charType, intType, longType, floatType, doubleType, booleanType, voidType,
                       anythingType, errType})
        predefScope->enter(type->tsym);
}

ClassSymbol* Universe::loadWellKnown(std::string_view flatName, Type*& type) {
    ClassSymbol* symbol = context().classReader->load(Name::fromBytes(flatName));
    type = symbol->type;
    return symbol;
}

void Universe::loadWellKnownClasses() {
    objectClass = loadWellKnown("java.lang.Object", objectType);
    classClass = loadWellKnown("java.lang.Class", classClassType);
    stringClass = loadWellKnown("java.lang.String", stringType);
    stringBase->tsym->superclass = stringClass;
    throwableClass = loadWellKnown("java.lang.Throwable", throwableType);
    errorClass = loadWellKnown("java.lang.Error", errorType);
    runtimeExceptionClass = loadWellKnown("java.lang.RuntimeException", runtimeExceptionType);
}

void Universe::makeArrayClass() {
    ClassSymbol* array = arrayBase->tsym;
    array->superclass = objectClass;
    arrayMembers->owner = array;
    arrayMembers->setNext(objectClass->members);
    array->members = arrayMembers;
    for (ArrayType* first : arrayTypes_) // those that the classes read so far have mentioned
        for (ArrayType* type = first; type != nullptr; type = type->next) type->tsym->superclass = objectClass;

    lengthVar = arena.make<VarSymbol>();
    lengthVar->init(flag::PUBLIC | flag::FINAL, VAR, names().length, intType, array);
    lengthVar->adr = -1;
    arrayMembers->enter(lengthVar);

    // Public and without exceptions, so that it can be called everywhere; it hides the protected one of Object.
    auto* clone = arena.make<MethodSymbol>();
    clone->init(flag::PUBLIC, MTH, Name::fromBytes("clone"), methodType({}, objectType, nullptr), objectClass);
    arrayMembers->enter(clone);
}

void Universe::enterLiteralNames() {
    auto enter = [this](Name* name, Type* type) {
        auto* symbol = arena.make<VarSymbol>();
        symbol->init(flag::PUBLIC | flag::STATIC | flag::FINAL, VAR, name, type, predefClass);
        symbol->adr = -1;
        predefScope->enter(symbol);
        return symbol;
    };
    nullSym = enter(names().null_, nullType);
    trueSym = enter(names().true_, intConstant(BOOLEAN, 1));
    falseSym = enter(names().false_, intConstant(BOOLEAN, 0));
}

void Universe::enterOperators() {
    auto typeOf = [this](int operand) {
        if (operand == OPERAND_STRING) return stringType;
        if (operand == OPERAND_OBJECT) return objectType;
        if (operand == ANYTHING) return anythingType;
        return typeOfTag[static_cast<std::size_t>(operand)];
    };
    for (const OperatorRow& row : operatorTable()) {
        Type* args[] = {typeOf(row.left), row.right == 0 ? nullptr : typeOf(row.right)};
        Types types(args, row.right == 0 ? 1 : 2);
        auto* symbol = arena.make<OperatorSymbol>();
        symbol->init(flag::PUBLIC | flag::STATIC, MTH, Name::fromBytes(row.name),
                     methodType(types, typeOf(row.result), nullptr), predefClass);
        symbol->opcode = row.opcode;
        predefScope->enter(symbol);
    }
}

// ---- makers

Types Universe::copyTypes(Types types) {
    return arena.copyArray<Type*>(types);
}

MethodType* Universe::methodType(Types args, Type* result, TypeList* thrown) {
    std::uint32_t hash = 0;
    for (const Type* arg : args) hash = hash * 41 + arg->hash;
    hash = result->hash * 41 + hash;
    MethodType*& bucket = methodTypes_[hash & 0x7ff];
    for (MethodType* known = bucket; known != nullptr; known = known->next)
        if (known->result == result && sameTypes(known->args, args) && TypeList::equal(known->thrownTypes, thrown))
            return known;
    auto* type = arena.make<MethodType>();
    type->init(METHOD, functionBase->tsym, hash);
    type->args = copyTypes(args);
    type->result = result;
    type->thrownTypes = thrown;
    type->next = bucket;
    bucket = type;
    return type;
}

ArrayType* Universe::arrayType(Type* element) {
    std::uint32_t hash = 0x10e1291U * 41 + element->hash;
    ArrayType*& bucket = arrayTypes_[hash & 0x1ff];
    for (ArrayType* known = bucket; known != nullptr; known = known->next)
        if (known->element == element) return known;
    auto* symbol = arena.make<ClassSymbol>();
    auto* type = arena.make<ArrayType>();
    static Name* const suffix = Name::fromBytes("__Array");
    Name* elementName = element->tsym->flatName;
    symbol->init(flag::PUBLIC, TYP, elementName == nullptr ? suffix : elementName->append(suffix), type, rootPackage);
    symbol->flatName = symbol->name;
    symbol->superclass = arrayBase->tsym->superclass;
    symbol->members = arrayMembers;
    type->init(ARRAY, symbol, hash);
    type->element = element;
    type->next = bucket;
    bucket = type;
    return type;
}

namespace {

/// The constant of a bucket's chain that satisfies `same`, or a new one at its head.
template <class Constant, class Value, class Same>
Constant* intern(Universe& universe, ConstantType*& bucket, int tag, Value value, std::uint32_t hash, Same same) {
    for (ConstantType* known = bucket; known != nullptr; known = known->next)
        if (known->tag == tag && same(static_cast<Constant*>(known)->value, value))
            return static_cast<Constant*>(known);
    auto* made = universe.arena.make<Constant>();
    made->init(tag, universe.typeOfTag[static_cast<std::size_t>(tag)]->tsym, hash);
    made->constant = true;
    made->value = value;
    made->next = bucket;
    bucket = made;
    return made;
}

bool sameInteger(std::int64_t a, std::int64_t b) {
    return a == b;
}
bool sameFloat(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}
bool sameDouble(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

IntConstant* Universe::intConstant(int tag, std::int32_t value) {
    auto unsignedTag = static_cast<std::uint32_t>(tag);
    std::uint32_t hash =
        (static_cast<std::uint32_t>(value) * 41 + static_cast<std::uint32_t>(value >> 10) + unsignedTag) & 0x3ff;
    return intern<IntConstant>(*this, constantTypes_[hash], tag, value, hash, sameInteger);
}

LongConstant* Universe::longConstant(int tag, std::int64_t value) {
    auto unsignedTag = static_cast<std::uint32_t>(tag);
    std::uint32_t hash =
        (static_cast<std::uint32_t>(value) * 41 + static_cast<std::uint32_t>(value >> 10) + unsignedTag) & 0x3ff;
    return intern<LongConstant>(*this, constantTypes_[hash], tag, value, hash, sameInteger);
}

// The language has one NaN. Which of its many patterns an operation gives depends on the processor, and must show
// neither in class files nor in fingerprints.

FloatConstant* Universe::floatConstant(int tag, float value) {
    if (std::isnan(value)) value = std::numeric_limits<float>::quiet_NaN();
    std::uint32_t hash = (std::bit_cast<std::uint32_t>(value) * 41 + static_cast<std::uint32_t>(tag)) & 0x3ff;
    return intern<FloatConstant>(*this, constantTypes_[hash], tag, value, hash, sameFloat);
}

DoubleConstant* Universe::doubleConstant(int tag, double value) {
    if (std::isnan(value)) value = std::numeric_limits<double>::quiet_NaN();
    auto bits = std::bit_cast<std::uint64_t>(value);
    std::uint32_t hash = (static_cast<std::uint32_t>(bits >> 32) * 1681 + static_cast<std::uint32_t>(bits) * 41 +
                          static_cast<std::uint32_t>(tag)) &
                         0x3ff;
    return intern<DoubleConstant>(*this, constantTypes_[hash], tag, value, hash, sameDouble);
}

StringConstant* Universe::stringConstant(int tag, Name* text) {
    auto* made = arena.make<StringConstant>();
    made->init(tag, stringBase->tsym, text->index);
    made->constant = true;
    made->value = text;
    return made;
}

StringConstant* Universe::joinedString(const ConstantType* left, const ConstantType* right) {
    auto* made = arena.make<StringConstant>();
    made->init(CLASS, stringBase->tsym, stringBase->hash);
    made->constant = true;
    made->left = left;
    made->right = right;
    return made;
}

Type* Universe::classType(int tag, ClassSymbol* symbol) {
    auto* type = arena.make<Type>();
    type->init(tag, symbol, symbol->flatName == nullptr ? 0 : symbol->flatName->index);
    return type;
}

TypeList* Universe::typeList(Type* head, TypeList* tail) {
    return arena.make<TypeList>(head, tail);
}

ClassSymbol* Universe::newClass(std::uint32_t flags, Name* flatName, Symbol* owner) {
    auto* symbol = arena.make<ClassSymbol>();
    symbol->init(flags, TYP, shortName(flatName), nullptr, owner);
    symbol->flatName = flatName;
    symbol->type = classType(CLASS, symbol);
    return symbol;
}

ClassSymbol* Universe::newPackage(Name* fullName, Symbol* owner) {
    auto* symbol = arena.make<ClassSymbol>();
    symbol->init(flag::PUBLIC, PCK, fullName == nullptr ? nullptr : shortName(fullName), nullptr, owner);
    symbol->flatName = fullName;
    symbol->type = classType(PACKAGE, symbol);
    return symbol;
}

} // namespace tarn
