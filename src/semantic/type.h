#pragma once

#include "classfile/pool_entry.h"

#include <cstdint>
#include <span>
#include <string>

namespace tarn {

class ClassSymbol;
class ConstantType;
class Name;
class Type;

/// Kinds of types. Their order is relied on: a tag of at most DOUBLE is numeric, and widening compares tags.
namespace typetag {
enum : std::uint8_t {
    ERROR = 0, ///< the answer to every failed attribution; fits everything, and everything fits it
    BYTE = 2,
    CHAR = 4,
    SHORT = 5,
    INT = 6,
    LONG = 7,
    FLOAT = 8,
    DOUBLE = 9,
    BOOLEAN = 10,
    CLASS = 11, ///< class or interface
    VOID = 12,
    ARRAY = 13,
    METHOD = 14,
    NULLTYPE = 15,
    ANYTHING = 19, ///< no expectation
    PACKAGE = 20,
};
} // namespace typetag
constexpr int TYPE_TAGS = 21;

/// The types of arguments. A pointer to one may be null where arguments may be absent altogether.
using Types = std::span<Type* const>;

/// An immutable list of types, used for what a method throws; null is the empty list. Lives in the context's arena.
struct TypeList {
    Type* head;
    TypeList* tail;

    /// `list` if it contains `type`, else `type` in front of `excl(list, type)`.
    static TypeList* incl(TypeList* list, Type* type);
    /// The list without the subtypes of `type`; shares the unchanged tail.
    static TypeList* excl(TypeList* list, Type* type);
    /// Whether `type` is a subtype of some member.
    static bool contains(TypeList* list, Type* type);
    /// Whether every member of `a` is contained in `b`.
    static bool subset(TypeList* a, TypeList* b);
    /// Same length, and the same members in order, by identity.
    static bool equal(TypeList* a, TypeList* b);
    /// The members of `a` that are contained in `b`, in order.
    static TypeList* intersect(TypeList* a, TypeList* b);
    /// What is contained in both lists: of a class and its superclass, one in each, the subclass.
    static TypeList* common(TypeList* a, TypeList* b);
    static int length(TypeList* list);
    /// The members joined by ", ".
    static std::string toString(TypeList* list);
};

/// The type of an expression, declaration or constant. Types are compared by identity: whatever could be built twice is
/// interned by the Universe, which owns all types for the run.
///
/// A compile-time constant is no value beside its type: it is itself a type (ConstantType) that carries the value and
/// answers all questions as its base type does, so folding maps types to types.
class Type : public PoolEntry {
public:
    [[nodiscard]] EntryKind entryKind() const final { return EntryKind::TYPE; }
    void init(int tag_, ClassSymbol* symbol, std::uint32_t hash_) {
        tag = static_cast<std::uint8_t>(tag_);
        tsym = symbol;
        hash = hash_;
    }
    /// Builds the symbol too: a public class of that name in the root package, without members.
    void init(int tag_, Name* name);

    /// How messages show the type: the flat name of the symbol; "int[]"; "(int) -> void". A constant prints as its
    /// base.
    [[nodiscard]] virtual std::string toString() const;
    [[nodiscard]] bool isConstant() const { return constant; }
    /// The constant of that tag with the same value, without narrowing; only on a constant.
    virtual ConstantType* coerce(int tag);
    /// The constant itself; only on a constant.
    ConstantType* constValue();
    virtual bool isSubType(Type* other);
    /// Subtyping, and for an int constant also whether its value fits a smaller type.
    virtual bool isAssignable(Type* other);
    /// Null except on a MethodType.
    [[nodiscard]] virtual const Types* argTypes() const { return nullptr; }
    [[nodiscard]] virtual Type* resType() const { return nullptr; }
    [[nodiscard]] virtual TypeList* thrown() const { return nullptr; }
    /// Null except on an ArrayType.
    [[nodiscard]] virtual Type* elemType() const { return nullptr; }

    std::uint8_t tag = 0;
    bool constant = false;       ///< this is a ConstantType
    std::uint32_t hash = 0;      ///< what the intern tables hash by
    ClassSymbol* tsym = nullptr; ///< never null once initialised; primitives and arrays have one too
    Name* descriptor = nullptr;  ///< see `signature`; null until it is asked for
};

class MethodType final : public Type {
public:
    [[nodiscard]] std::string toString() const override;
    bool isSubType(Type* other) override;
    [[nodiscard]] const Types* argTypes() const override { return &args; }
    [[nodiscard]] Type* resType() const override { return result; }
    [[nodiscard]] TypeList* thrown() const override { return thrownTypes; }

    Types args;
    Type* result = nullptr;
    TypeList* thrownTypes = nullptr;
    MethodType* next = nullptr; ///< in the bucket of the intern table
};

class ArrayType final : public Type {
public:
    [[nodiscard]] std::string toString() const override;
    bool isSubType(Type* other) override;
    [[nodiscard]] Type* elemType() const override { return element; }

    Type* element = nullptr;
    ArrayType* next = nullptr; ///< in the bucket of the intern table
};

/// A compile-time constant. Conversions between the numeric kinds are those of the language: floating to integer
/// truncates towards zero, NaN gives 0, and what is out of range gives the nearest value of the target.
class ConstantType : public Type {
public:
    [[nodiscard]] std::string toString() const override;
    ConstantType* coerce(int tag) override;
    [[nodiscard]] virtual std::int32_t intValue() const = 0;
    [[nodiscard]] virtual std::int64_t longValue() const = 0;
    [[nodiscard]] virtual float floatValue() const = 0;
    [[nodiscard]] virtual double doubleValue() const = 0;
    /// The text of Java's string conversion.
    [[nodiscard]] virtual Name* stringValue() const = 0;
    /// Same constant: identity, and for strings the same text.
    [[nodiscard]] virtual bool equals(const ConstantType* other) const { return this == other; }

    ConstantType* next = nullptr; ///< in the bucket of the intern table
};

/// A constant of tag BYTE, CHAR, SHORT, INT or BOOLEAN (0 and 1).
class IntConstant final : public ConstantType {
public:
    bool isAssignable(Type* other) override;
    [[nodiscard]] std::int32_t intValue() const override { return value; }
    [[nodiscard]] std::int64_t longValue() const override { return value; }
    [[nodiscard]] float floatValue() const override { return static_cast<float>(value); }
    [[nodiscard]] double doubleValue() const override { return value; }
    [[nodiscard]] Name* stringValue() const override;

    std::int32_t value = 0;
};

class LongConstant final : public ConstantType {
public:
    [[nodiscard]] std::int32_t intValue() const override { return static_cast<std::int32_t>(value); }
    [[nodiscard]] std::int64_t longValue() const override { return value; }
    [[nodiscard]] float floatValue() const override { return static_cast<float>(value); }
    [[nodiscard]] double doubleValue() const override { return static_cast<double>(value); }
    [[nodiscard]] Name* stringValue() const override;

    std::int64_t value = 0;
};

class FloatConstant final : public ConstantType {
public:
    [[nodiscard]] std::int32_t intValue() const override;
    [[nodiscard]] std::int64_t longValue() const override;
    [[nodiscard]] float floatValue() const override { return value; }
    [[nodiscard]] double doubleValue() const override { return value; }
    [[nodiscard]] Name* stringValue() const override;

    float value = 0;
};

class DoubleConstant final : public ConstantType {
public:
    [[nodiscard]] std::int32_t intValue() const override;
    [[nodiscard]] std::int64_t longValue() const override;
    [[nodiscard]] float floatValue() const override { return static_cast<float>(value); }
    [[nodiscard]] double doubleValue() const override { return value; }
    [[nodiscard]] Name* stringValue() const override;

    double value = 0;
};

/// A string constant: not interned, so each literal is an object (and a pool entry) of its own. The text is a name, in
/// class-file UTF-8; two constants are equal if they have the same one. The numeric values are internal errors.
///
/// One that was joined of two constants puts its text together when it is asked for, since the texts of all the steps
/// of a long concatenation would take the square of its length.
class StringConstant final : public ConstantType {
public:
    bool isAssignable(Type* other) override;
    [[nodiscard]] std::int32_t intValue() const override;
    [[nodiscard]] std::int64_t longValue() const override;
    [[nodiscard]] float floatValue() const override;
    [[nodiscard]] double doubleValue() const override;
    [[nodiscard]] Name* stringValue() const override { return value != nullptr ? value : join(); }
    [[nodiscard]] bool equals(const ConstantType* other) const override;

    mutable Name* value = nullptr;      ///< null until a joined text is asked for
    const ConstantType* left = nullptr; ///< the parts of a joined text, else null
    const ConstantType* right = nullptr;

private:
    Name* join() const;
};

/// Same length, and each of `a` a subtype of its counterpart in `b`.
bool isSubTypes(Types a, Types b);
/// Same length, same objects.
bool sameTypes(Types a, Types b);
/// Whether a cast between the types can be legal.
bool isCastable(Type* from, Type* to);
/// The type that a constant is a value of; any other type itself.
Type* withoutValue(Type* type);
/// The type of a declaration for values of that type: a constant gives away its value, null may be any object.
Type* declarableType(Type* type);
/// The common type of two branches; also merges the types of the statements of a block. Reports at `pos` if there is
/// none and gives the error type.
Type* conditionalType(int pos, Type* a, Type* b);
/// Whether an error was reported for the type or a part of it; false for null.
bool isErroneous(const Type* type);
bool isErroneous(Types types);
/// The types joined by ", ".
std::string toString(Types types);

/// The interned descriptor of the type, with slashes in class names ("(I[Ljava/lang/String;)V").
Name* signature(Type* type);
/// Words on the operand stack: 2 for long and double, 0 for void, else 1.
inline int widthOf(const Type* type) {
    if (type->tag == typetag::LONG || type->tag == typetag::DOUBLE) return 2;
    return type->tag == typetag::VOID ? 0 : 1;
}
int widthOf(Types types);

} // namespace tarn
