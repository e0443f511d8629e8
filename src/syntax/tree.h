#pragma once

#include "syntax/name.h"
#include "syntax/well_known_names.h"

#include <cstdint>
#include <span>

namespace tarn {

class Item;
class Symbol;
class Tree;
class Type;
struct Env;

/// Children of a node, in the unit's arena; may be empty.
using Trees = std::span<Tree*>;

/// Kinds of nodes. Some classes serve several; the tag decides what a node does.
namespace treetag {
enum : std::uint8_t {
    ERRONEOUS = 0,
    IDENT = 1,
    SELECT = 2,
    VARDEF = 3,
    CONDITIONAL = 4, ///< c ? a : b
    APPLY = 5,
    INDEXED = 6,
    NEWCLASS = 7,
    NEWARRAY = 8,
    DOLOOP = 9,
    ARRAYINIT = 10,
    WHILELOOP = 11,
    FORLOOP = 12,
    RETURN = 13,
    THROW = 14,
    LABELLED = 15,
    CLASSDEF = 16,
    BLOCK = 17,
    TRY = 18,
    CASE = 19,
    SYNCHRONIZED = 20,
    SWITCH = 21,
    TYPEARRAY = 22,
    BREAK = 23,
    CONTINUE = 24,
    PACKAGEDECL = 25,
    IMPORT = 26,
    EXEC = 27,
    IF = 28, ///< a Conditional
    TOPLEVEL = 29,
    OR_OR = 30, ///< the first Binary
    AND_AND,
    EQ,
    NE,
    LT,
    GT,
    LE,
    GE,
    BITOR,
    BITXOR,
    BITAND,
    SHL,
    SHR,
    USHR,
    PLUS,
    MINUS,
    MUL,
    DIV,
    MOD = 48,    ///< the last Binary
    ASSIGN = 49, ///< the first Assignop
    BITOR_ASG,
    BITXOR_ASG,
    BITAND_ASG,
    SHL_ASG,
    SHR_ASG,
    USHR_ASG,
    PLUS_ASG,
    MINUS_ASG,
    MUL_ASG,
    DIV_ASG,
    MOD_ASG = 60, ///< the last Assignop
    TYPETEST = 61,
    TYPECAST = 62,
    METHODDEF = 65,
    CATCH = 66, ///< a MethodDef
    POS = 71,   ///< the first Unary
    NEG,
    NOT,
    COMPL,
    PREINC,
    PREDEC,
    POSTINC,
    POSTDEC = 78, ///< the last Unary of the source
    NONNULL = 79, ///< a Unary: an enclosing instance that is given by an expression, which must not be null
    THIS = 80,
    SUPER = 81,
    INT_LITERAL = 90,
    LONG_LITERAL,
    FLOAT_LITERAL,
    DOUBLE_LITERAL,
    CHAR_LITERAL,
    STRING_LITERAL = 95,
};
} // namespace treetag

/// A syntax tree node. Nodes only hold data; the phases are virtual operations whose bodies stand in the folder of the
/// phase (semantic/entry*.cpp, semantic/attr_*.cpp, codegen/gen_*.cpp, syntax/tree_print.cpp). A tree belongs to its
/// unit's arena and is rewritten in place by lowering.
class Tree {
public:
    Tree(int pos_, int tag_) : pos(pos_), tag(static_cast<std::uint8_t>(tag_)) {}
    virtual ~Tree() = default;

    /// First entry pass: makes the symbols of classes.
    virtual void enter(Env*) {}
    /// Member entry: imports, supertypes, fields and methods.
    virtual void memberEnter(Env*) {}
    /// Finds symbol and type. `pkind` is the mask of what may stand here, `pt` what the result must be assignable to;
    /// for a statement the result type of the method. Gives the type, which is also stored.
    virtual Type* attr(Env* env, int pkind, Type* pt);
    /// Emits code and gives the item that stands for the value.
    virtual Item* gen();
    /// `gen`, then loads the value onto the operand stack.
    void genLoad();
    /// `gen`, then drops the value.
    void genDrop();
    /// Writes source-like text, for looking at a tree.
    void print() { print(-3); }
    virtual void print(int precedence);
    /// The dotted name of an Ident or Select; null for all else.
    [[nodiscard]] virtual Name* fullName() const { return nullptr; }

    int pos;                  ///< position of the construct
    std::uint8_t tag;         ///< see treetag
    std::uint16_t height = 1; ///< levels of nodes from here down, as parsed; see syntax/nesting.h
    Type* type = nullptr;     ///< null until attributed

    /// What stands where a construct was too broken to build.
    static Tree* erroneous();
};

/// A node with a name; of tag ERRONEOUS if that is the error name.
class NamedTree : public Tree {
public:
    /// Erroneous if the name is missing.
    NamedTree(int pos_, int tag_, Name* name_)
        : Tree(pos_, name_ == names().error ? static_cast<int>(treetag::ERRONEOUS) : tag_), name(name_) {}
    [[nodiscard]] Name* fullName() const override { return name; }

    Name* name;
    Symbol* sym = nullptr;
};

/// The source text of an operator node's operator ("+", "=" less for a compound assignment); entered once.
Name* operatorName(int tag);

} // namespace tarn
