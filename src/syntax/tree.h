#pragma once

#include "runtime/arena.h"
#include "runtime/bits.h"
#include "semantic/symbol.h"
#include "store/store.h"
#include "syntax/name.h"
#include "syntax/well_known_names.h"

#include <cstdint>
#include <memory>
#include <span>

namespace tarn {

class Block;
class ClassDef;
class CompilationUnit;
class Item;
class MethodDef;
class Tree;
class Try;
class VarDef;
struct Chain;
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

class Ident : public NamedTree {
public:
    Ident(int pos_, Name* name_) : NamedTree(pos_, treetag::IDENT, name_) {}
    Ident(int pos_, Name* name_, Symbol* sym_);
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
};

/// A primitive type or void; behaves as an Ident, and only lowering tells the two apart.
class BasicTypeIdent final : public Ident {
public:
    using Ident::Ident;
};

/// The name of a type in a declaration that is made up, be it a class or not: nothing is searched for.
class KnownType final : public Ident {
public:
    KnownType(int pos_, Type* type_);
    Type* attr(Env* env, int pkind, Type* pt) override;
};

class Select final : public NamedTree {
public:
    Select(int pos_, Name* name_, Tree* selected_) : NamedTree(pos_, treetag::SELECT, name_), selected(selected_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] Name* fullName() const override;

    Tree* selected;
};

/// A declaration with modifiers.
class Def : public NamedTree {
public:
    Def(int pos_, int tag_, Name* name_, std::uint32_t flags_) : NamedTree(pos_, tag_, name_), flags(flags_) {}

    std::uint32_t flags;
    Env* env = nullptr; ///< of the declaration, set on entry
};

class VarDef final : public Def {
public:
    VarDef(int pos_, Name* name_, std::uint32_t flags_, Tree* vartype_, Tree* init_)
        : Def(pos_, treetag::VARDEF, name_, flags_), vartype(vartype_), init(init_) {}
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] VarSymbol* variable() const { return static_cast<VarSymbol*>(sym); }

    Tree* vartype;
    Tree* init; ///< null if there is none
};

/// A method, a constructor (`restype` null), or a catch clause (tag CATCH, one parameter, no result type).
class MethodDef final : public Def {
public:
    /// A body that is no block is wrapped into one, which is made in `arena`.
    MethodDef(Arena& arena, int pos_, int tag_, Name* name_, std::uint32_t flags_, Tree* restype_, Trees params_,
              Trees thrown_, Tree* body_);
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] MethodSymbol* method() const { return static_cast<MethodSymbol*>(sym); }

    /// Inserts the initializers of the class behind the super call of a constructor.
    void normalizeMethod(Tree* initializers);
    /// Generates the body, with wide jumps if `fatcode`.
    void genMethod(bool fatcode);
    /// Reports what of the final fields an initializer leaves unassigned here.
    void checkFinals();
    /// Generates a catch clause of that statement.
    void genCatch(const Try* statement);

    Tree* restype;
    Trees params; ///< VarDefs
    Trees thrown;
    Block* body;                      ///< null if there is none
    MethodSymbol* selfCall = nullptr; ///< the constructor that the first statement of a constructor calls

private:
    void attrBody(Env* env, Type* pt);
    void addSelfCall();
    void enterSignature(Env* outer, MethodSymbol* m);
    void enterCatchClause(Env* outer);
};

class ClassDef final : public Def {
public:
    ClassDef(int pos_, Name* name_, std::uint32_t flags_, Tree* extending_, Trees implementing_, Block* body_)
        : Def(pos_, treetag::CLASSDEF, name_, flags_)
        , extending(extending_)
        , implementing(implementing_)
        , body(body_) {}
    void enter(Env* env) override;
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] ClassSymbol* classSymbol() const { return static_cast<ClassSymbol*>(sym); }

    /// Generates the class and writes its file; `outputDirectory` may be null (beside the source).
    void genClass(const StoreRef& outputDirectory);
    /// Sorts the members: initializers and field initializers become code of constructors and of `<clinit>`.
    void normalizeDefs();
    /// Completion, step by step: settles the supertypes; enters the members.
    void enterClauses(ClassSymbol* c);
    void enterMembers();
    void addDefaultConstructor();
    /// Whether this is the body of a creation; its name is a number then.
    [[nodiscard]] bool isAnonymous() const {
        return name == nullptr || (name->length > 0 && name->byteAt(0) >= '0' && name->byteAt(0) <= '9');
    }
    /// Where the class goes; null if the file cannot be made. Throws IoFailure.
    StoreRef outFile(const StoreRef& outputDirectory);
    /// Puts a definition in front of all others of the body.
    void prepend(Arena& arena, Tree* def);

    Tree* extending; ///< null if there is no clause
    Trees implementing;
    Block* body;
    /// Of a local or anonymous class: its number among the local (or the anonymous) classes of the unit in the order in
    /// which their bodies begin, from 1 on. 0 for all others and for classes that were not parsed. It gives the class
    /// its name, so that the name does not depend on the order of attribution.
    int number = 0;
    Scope* localScope = nullptr; ///< set between the start of the completion and the end of the attribution
    MethodSymbol* clinit = nullptr;
    bool brokenCycle = false; ///< a cycle through its own clauses was found, and its supertypes replaced
};

/// Packages whose classes are imported on demand. Their members are searched where they stand: most units import whole
/// packages and use a few classes of them.
struct PackageList {
    ClassSymbol* head;
    PackageList* tail;
};

class CompilationUnit final : public Tree {
public:
    /// `arena` owns all trees of the unit, this node included.
    CompilationUnit(Arena& arena_, Trees defs_, StoreRef source_)
        : Tree(0, treetag::TOPLEVEL), arena(arena_), defs(defs_), source(std::move(source_)) {}
    void enter(Env* env) override;
    void memberEnter(Env* env) override;
    void print(int precedence) override;
    /// Enters the unit, which needs no environment.
    void enter() { enter(nullptr); }
    /// Resolves the imports, once.
    void enterImports();
    /// Attributes the definitions, with the unit's source as the reporter's.
    void attribute();
    /// The full name of the source, by which the unit is found.
    Name* sourcePath();

    /// The flat name of a local or anonymous class within `enclClass`: that of the outermost class, "$", and then the
    /// definition's name if it begins with a digit, else the number of the local class, "$" and its name.
    Name* localClassName(const ClassDef& def, ClassSymbol* enclClass);
    /// The name of an anonymous class: the decimal text of its number.
    Name* anonymousName(const ClassDef& def);

    Arena& arena;
    Trees defs;
    StoreRef source;
    ClassSymbol* package = nullptr;
    Scope* starImports = nullptr;        ///< the member classes that on-demand imports bring
    PackageList* starPackages = nullptr; ///< the packages that on-demand imports name, last first, and java.lang
    Scope* namedImports = nullptr;       ///< what single-type imports bring
    Env* env = nullptr;
    int localClassCount = 1;      ///< the number for the next local class that was not parsed
    int anonymousClassCount = 1;  ///< the same for anonymous classes
    Trees anonymousClasses;       ///< the ClassDefs of those that were parsed, an inner one before its outer one
    bool hasInnerClasses = false; ///< a member, local or anonymous class was attributed

private:
    Name* sourcePath_ = nullptr; ///< null until asked for
};

class Unary final : public Tree {
public:
    Unary(int pos_, int tag_, Tree* arg_) : Tree(pos_, tag_), arg(arg_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* arg;
    OperatorSymbol* operator_ = nullptr;
};

class Binary final : public Tree {
public:
    Binary(int pos_, int tag_, Tree* lhs_, Tree* rhs_) : Tree(pos_, tag_), lhs(lhs_), rhs(rhs_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* lhs;
    Tree* rhs;
    OperatorSymbol* operator_ = nullptr;
};

class Assignop final : public Tree {
public:
    Assignop(int pos_, int tag_, Tree* lhs_, Tree* rhs_) : Tree(pos_, tag_), lhs(lhs_), rhs(rhs_) {}
    Assignop(int pos_, int tag_, Tree* lhs_, Tree* rhs_, Type* type_) : Assignop(pos_, tag_, lhs_, rhs_) {
        type = type_;
    }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* lhs;
    Tree* rhs;
    OperatorSymbol* operator_ = nullptr; ///< null for the plain assignment
    MethodSymbol* setter = nullptr; ///< of a lowered one whose variable has access methods: `lhs` selects the getter
};

/// A cast or an `instanceof`.
class TypeOp final : public Tree {
public:
    TypeOp(int pos_, int tag_, Tree* expr_, Tree* clazz_) : Tree(pos_, tag_), expr(expr_), clazz(clazz_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr;
    Tree* clazz;
};

/// c ? a : b, or an `if` statement (whose else part may be null).
class Conditional final : public Tree {
public:
    Conditional(int pos_, int tag_, Tree* cond_, Tree* thenpart_, Tree* elsepart_)
        : Tree(pos_, tag_), cond(cond_), thenpart(thenpart_), elsepart(elsepart_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* cond;
    Tree* thenpart;
    Tree* elsepart;

private:
    Item* genIf();
};

class Exec final : public Tree {
public:
    Exec(int pos_, Tree* expr_) : Tree(pos_, treetag::EXEC), expr(expr_) {}
    Exec(int pos_, Tree* expr_, Type* type_) : Exec(pos_, expr_) { type = type_; }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr;
};

class Case final : public Tree {
public:
    Case(int pos_, Tree* pat_, Trees stats_) : Tree(pos_, treetag::CASE), pat(pat_), stats(stats_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* pat; ///< null for `default`
    Trees stats;
    int value = 0; ///< of the label
};

class Try : public Tree {
public:
    Try(int pos_, Tree* body_, Trees catchers_, Tree* finalizer_)
        : Tree(pos_, treetag::TRY), body(body_), catchers(catchers_), finalizer(finalizer_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    [[nodiscard]] bool hasFinalizer() const { return finalizer != nullptr; }
    /// Emits the call of the finally subroutine, if there is one and this point can be reached.
    void genFinalizerCall();
    /// Emits what the subroutine does.
    virtual void genFinalizerBody();

    Tree* body;
    Trees catchers;            ///< MethodDefs of tag CATCH
    Tree* finalizer;           ///< null if there is none
    Chain* jsrChain = nullptr; ///< pending calls of the finally subroutine
    bool reachable = false;    ///< control can get into the body
    int startPc = 0;           ///< range of the body
    int endPc = 0;
    Bits* startUnset = nullptr; ///< the assignment sets at the start and the end of the body, while it is generated
    Bits* endUnset = nullptr;
    Bits* endSet = nullptr;

protected:
    void genTry();
    Type* attrTry(Env* env, Type* pt);

private:
    Chain* genCatchers(Chain* exit);
    void genCatchAll();
    void genSubroutine(Chain* exit);
};

/// Built on Try: no catchers, and an empty block as finalizer.
class Synchronized final : public Try {
public:
    Synchronized(int pos_, Tree* lock_, Tree* body_, Block* emptyFinalizer);
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    void genFinalizerBody() override;

    Tree* lock;
    int lockVar = 0; ///< variable index
};

class Block : public Tree {
public:
    Block(int pos_, int endPos_, std::uint32_t flags_, Trees stats_)
        : Tree(pos_, treetag::BLOCK), endPos(endPos_), flags(flags_), stats(stats_) {}
    /// Ends where its last statement stands.
    Block(int pos_, Trees stats_) : Block(pos_, stats_.empty() ? pos_ : stats_.back()->pos, 0, stats_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    int endPos; ///< of the closing brace
    std::uint32_t flags;
    Trees stats;
    Env* env = nullptr;
};

class ArrayInit final : public Tree {
public:
    ArrayInit(int pos_, Trees elems_, Tree* elemtype_)
        : Tree(pos_, treetag::ARRAYINIT), elems(elems_), elemtype(elemtype_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Trees elems;
    Tree* elemtype; ///< the array type of `new T[] {...}`; null in nested and variable initializers
};

class TypeArray final : public Tree {
public:
    TypeArray(int pos_, Tree* elemtype_) : Tree(pos_, treetag::TYPEARRAY), elemtype(elemtype_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* elemtype;
};

class NewArray final : public Tree {
public:
    NewArray(int pos_, Tree* elemtype_, Trees dims_)
        : Tree(pos_, treetag::NEWARRAY), elemtype(elemtype_), dims(dims_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* elemtype; ///< in `new int[3][]` the tree of int[]
    Trees dims;
};

class NewClass final : public Tree {
public:
    NewClass(int pos_, Tree* encl_, Tree* clazz_, Trees args_, ClassDef* def_)
        : Tree(pos_, treetag::NEWCLASS), encl(encl_), clazz(clazz_), args(args_), def(def_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* encl; ///< the qualifier of `outer.new C()`, or null
    Tree* clazz;
    Trees args;
    ClassDef* def; ///< the body of an anonymous class, or null
    Symbol* constructor = nullptr;
};

class Indexed final : public Tree {
public:
    Indexed(int pos_, Tree* indexed_, Tree* index_) : Tree(pos_, treetag::INDEXED), indexed(indexed_), index(index_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* indexed;
    Tree* index;
};

class Apply final : public Tree {
public:
    Apply(int pos_, Tree* meth_, Trees args_) : Tree(pos_, treetag::APPLY), meth(meth_), args(args_) {}
    Apply(int pos_, Tree* meth_, Trees args_, Type* type_) : Apply(pos_, meth_, args_) { type = type_; }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* meth;
    Trees args;
};

class PackageDecl final : public Tree {
public:
    PackageDecl(int pos_, Tree* pid_) : Tree(pos_, treetag::PACKAGEDECL), pid(pid_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* pid;
};

class Import final : public Tree {
public:
    Import(int pos_, Tree* tree_) : Tree(pos_, treetag::IMPORT), tree(tree_) {}
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* tree; ///< a Select named "*" for an import on demand
};

/// `this` or `super`, by tag.
class Self final : public Tree {
public:
    Self(int pos_, int tag_, Tree* encl_) : Tree(pos_, tag_), encl(encl_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* encl;            ///< the qualifier, or null
    Symbol* sym = nullptr; ///< the constructor called, as callee of a constructor call
};

class Literal final : public Tree {
public:
    Literal(int pos_, int tag_, ConstantType* value_) : Tree(pos_, tag_), value(value_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    ConstantType* value;
};

/// The Try and Synchronized statements that a jump leaves, the outermost first.
struct TryList {
    Try* head;
    TryList* tail;
};

class Jump : public Tree {
public:
    using Tree::Tree;
    /// Emits the calls of the finally subroutines that the jump leaves, the innermost first.
    void genFinalizers();
    /// Whether there are any.
    [[nodiscard]] bool leavesFinalizer() const;

    TryList* finalizers = nullptr;

protected:
    /// Emits the jump behind those calls, and gives its chain.
    Chain* genLeave();
};

class Throw final : public Jump {
public:
    Throw(int pos_, Tree* expr_) : Jump(pos_, treetag::THROW), expr(expr_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr;
    Env* env = nullptr; ///< of the statement
};

class Return final : public Jump {
public:
    Return(int pos_, Tree* expr_) : Jump(pos_, treetag::RETURN), expr(expr_) {}
    Return(int pos_, Tree* expr_, Type* type_) : Return(pos_, expr_) { type = type_; }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr; ///< null if there is none
    MethodDef* method = nullptr;
};

class Break final : public Jump {
public:
    Break(int pos_, Name* label_) : Jump(pos_, treetag::BREAK), label(label_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;            ///< null if there is none
    Tree* target = nullptr; ///< the LoopTree jumped out of
};

class Continue final : public Jump {
public:
    Continue(int pos_, Name* label_) : Jump(pos_, treetag::CONTINUE), label(label_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;
    Tree* target = nullptr; ///< the loop
};

/// What `break` (and `continue`) can leave.
class LoopTree : public Tree {
public:
    using Tree::Tree;

    Chain* exit = nullptr; ///< pending jumps of `break`, while the statement is generated
    Chain* cont = nullptr; ///< pending jumps of `continue`
};

class Switch final : public LoopTree {
public:
    Switch(int pos_, Tree* selector_, Trees cases_)
        : LoopTree(pos_, treetag::SWITCH), selector(selector_), cases(cases_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* selector;
    Trees cases;
    Env* env = nullptr; ///< of the cases
};

class Labelled final : public LoopTree {
public:
    Labelled(int pos_, Name* label_, Tree* body_) : LoopTree(pos_, treetag::LABELLED), label(label_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;
    Tree* body;
};

class ForLoop final : public LoopTree {
public:
    ForLoop(int pos_, Trees init_, Tree* cond_, Trees step_, Tree* body_)
        : LoopTree(pos_, treetag::FORLOOP), init(init_), cond(cond_), step(step_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Trees init;
    Tree* cond; ///< null if there is none
    Trees step;
    Tree* body;
    Env* env = nullptr;
};

class WhileLoop final : public LoopTree {
public:
    WhileLoop(int pos_, Tree* cond_, Tree* body_) : LoopTree(pos_, treetag::WHILELOOP), cond(cond_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* cond;
    Tree* body;
};

class DoLoop final : public LoopTree {
public:
    DoLoop(int pos_, Tree* body_, Tree* cond_) : LoopTree(pos_, treetag::DOLOOP), body(body_), cond(cond_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* body;
    Tree* cond;
};

/// Whether the qualifier needs no evaluation when a constant is selected: a class or package name, `this` or `super`,
/// or for a static constant also a name of one part. Only then the constant is part of a constant expression.
bool isPlainSelection(const Select* select);

/// A KnownType for each type, in `arena`: a `throws` clause that is made up.
Trees knownTypes(Arena& arena, int pos, TypeList* types);

/// The source text of an operator node's operator ("+", "=" less for a compound assignment); entered once.
Name* operatorName(int tag);

} // namespace tarn
