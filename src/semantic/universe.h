#pragma once

#include "runtime/arena.h"
#include "semantic/symbol.h"
#include "semantic/type.h"
#include "syntax/well_known_names.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tarn {

class Scope;

/// What exists before any source is read: the primitive and pseudo types, the well-known classes, the tables that
/// intern types, and a predefined class whose members are `null`, `true`, `false`, the primitive type names and the
/// operators.
///
/// Operators are methods of that class, so an operator expression is resolved by the same overload search as a call,
/// and the symbol that wins carries the bytecode. Made in two steps, since the well-known classes can be loaded only
/// after the class path is set: construction, and `initUniverse` when a compile starts.
class Universe {
public:
    Universe();
    Universe(const Universe&) = delete;
    Universe& operator=(const Universe&) = delete;
    virtual ~Universe();

    /// Makes this the universe that `universe()`, `errType`, `anythingType` and `errSymbol` stand for, as the
    /// constructor does.
    void makeCurrent();

    /// Loads the well-known classes and enters the operators; does nothing the second time. Throws ClassNotFound if a
    /// class cannot be had; `initialized` stays false then.
    void initUniverse();

    // Makers of what lives as long as the run.
    MethodType* methodType(Types args, Type* result, TypeList* thrown);
    ArrayType* arrayType(Type* element);
    IntConstant* intConstant(int tag, std::int32_t value);
    LongConstant* longConstant(int tag, std::int64_t value);
    FloatConstant* floatConstant(int tag, float value);
    DoubleConstant* doubleConstant(int tag, double value);
    StringConstant* stringConstant(int tag, Name* text);
    /// The two as texts, one behind the other.
    StringConstant* joinedString(const ConstantType* left, const ConstantType* right);
    /// A plain type of that tag and symbol.
    Type* classType(int tag, ClassSymbol* symbol);
    TypeList* typeList(Type* head, TypeList* tail);
    /// A class symbol of that flat name and owner, with its type; no members, in no table.
    ClassSymbol* newClass(std::uint32_t flags, Name* flatName, Symbol* owner);
    /// A package symbol of that full name (null for the root package); in no table.
    ClassSymbol* newPackage(Name* fullName, Symbol* owner);
    /// A copy of the types that lives as long as the run.
    Types copyTypes(Types types);

    /// Where the operator of a node's tag for the tags of two operands (0 for no second one) is remembered; null at
    /// first. The operands are primitive or, with the tag CLASS, strings.
    Symbol*& operatorOf(int treeTag, int left, int right) {
        return operators_[static_cast<std::size_t>((treeTag * OPERAND_TAGS + left) * OPERAND_TAGS + right)];
    }

    Arena arena; ///< owns symbols, types, scopes and environments that outlive a unit

    std::array<Type*, TYPE_TAGS> typeOfTag{}; ///< by tag; for CLASS the pseudo type "java.lang.String"
    std::array<Name*, TYPE_TAGS> boxOfTag{};  ///< flat name of the wrapper class of a primitive tag, else null
    Scope* emptyScope = nullptr;              ///< members of a class symbol that has no scope of its own
    ClassSymbol* rootPackage = nullptr;       ///< without a name; also the unnamed package of sources
    ClassSymbol* predefClass = nullptr;       ///< has no name
    Type* byteType = nullptr;
    Type* shortType = nullptr;
    Type* charType = nullptr;
    Type* intType = nullptr;
    Type* longType = nullptr;
    Type* floatType = nullptr;
    Type* doubleType = nullptr;
    Type* booleanType = nullptr;
    Type* voidType = nullptr;
    Type* arrayBase = nullptr;    ///< pseudo type whose symbol has the members of any array
    Type* functionBase = nullptr; ///< pseudo type whose symbol is that of every method type
    Type* stringBase = nullptr;   ///< pseudo type whose symbol is that of every string constant
    Type* nullType = nullptr;
    ClassSymbol* objectClass = nullptr;
    ClassSymbol* classClass = nullptr;
    ClassSymbol* stringClass = nullptr;
    ClassSymbol* throwableClass = nullptr;
    ClassSymbol* errorClass = nullptr;
    ClassSymbol* runtimeExceptionClass = nullptr;
    Type* objectType = nullptr;
    Type* classClassType = nullptr; ///< of java.lang.Class
    Type* stringType = nullptr;
    Type* throwableType = nullptr;
    Type* errorType = nullptr; ///< of java.lang.Error; the type of failed attribution is `errType`
    Type* runtimeExceptionType = nullptr;
    VarSymbol* nullSym = nullptr;
    VarSymbol* trueSym = nullptr;
    VarSymbol* falseSym = nullptr;
    ClassSymbol* evaluatorContextClass = nullptr; ///< only while expressions are evaluated for a host
    TypeList* throwableList = nullptr;
    VarSymbol* lengthVar = nullptr; ///< the `length` of arrays
    Scope* arrayMembers = nullptr;
    Scope* predefScope = nullptr; ///< members of `predefClass`
    bool initialized = false;

    /// The universe made last; the current context's, but set already while that context is being constructed.
    static Universe* current;

private:
    Symbol* errSymbol_ = nullptr;

    Type* primitive(int tag, std::string_view name, std::string_view boxName = {});
    void enterPredefinedTypes();
    void loadWellKnownClasses();
    void makeArrayClass();
    void enterLiteralNames();
    void enterOperators();
    ClassSymbol* loadWellKnown(std::string_view flatName, Type*& type);

    static constexpr int OPERAND_TAGS = typetag::CLASS + 1;
    static constexpr int OPERATOR_TREES = 80; ///< tags of operator nodes are below
    std::array<Symbol*, static_cast<std::size_t>(OPERATOR_TREES* OPERAND_TAGS* OPERAND_TAGS)> operators_{};
    std::array<ArrayType*, 512> arrayTypes_{};
    std::array<MethodType*, 2048> methodTypes_{};
    std::array<ConstantType*, 1024> constantTypes_{};
};

inline Universe& universe() {
    return *Universe::current;
}

/// Of the universe that is current.
extern Type* errType;      ///< tag ERROR, printed "<any>"
extern Type* anythingType; ///< tag ANYTHING, printed "<anything>"
extern Symbol* errSymbol;  ///< what a failed search becomes after its report

} // namespace tarn
