#pragma once

#include "store/store.h"
#include "syntax/tree.h"

#include <cstdint>
#include <vector>

namespace tarn {

class ConstantType;

/// A growing list of trees, recycled by its factory once it was turned into a node's children.
using TreeBuffer = std::vector<Tree*>;

/// What the parser builds with: one operation per construct. The parser takes no decision from a node; it reads the
/// four fields below, which every operation sets as the construct demands, so that a factory may build nothing at all.
class TreeFactory {
public:
    virtual ~TreeFactory() = default;

    // Lists are passed by pointer and given back to the factory; null stands for an empty list, and is the list of a
    // factory that builds nothing. Trees are null for what the construct leaves out, and again if nothing is built.
    virtual Tree* arrayInit(int pos, TreeBuffer* elems, Tree* elemtype) = 0;
    virtual Tree* apply(int pos, Tree* meth, TreeBuffer* args) = 0;
    virtual Tree* assign(int pos, int tag, Tree* lhs, Tree* rhs) = 0;
    virtual Tree* binary(int pos, int tag, Tree* lhs, Tree* rhs) = 0;
    virtual Tree* block(int pos, TreeBuffer* stats) = 0;
    virtual Tree* blockWithEnd(int pos, int endPos, std::uint32_t flags, TreeBuffer* stats) = 0;
    virtual Tree* breakStat(int pos, Name* label) = 0;
    virtual Tree* caseLabel(int pos, Tree* pat, TreeBuffer* stats) = 0;
    /// Told when a class's body begins; `name` is null for an anonymous class. A `classDef` with the same name follows
    /// for each, innermost first.
    virtual void enterClass(int pos, Name* name, bool isLocal) = 0;
    virtual Tree* classDef(int pos, Name* name, std::uint32_t flags, Tree* extending, TreeBuffer* implementing,
                           Tree* body) = 0;
    virtual Tree* conditional(int pos, int tag, Tree* cond, Tree* thenpart, Tree* elsepart) = 0;
    virtual Tree* continueStat(int pos, Name* label) = 0;
    virtual Tree* doLoop(int pos, Tree* body, Tree* cond) = 0;
    virtual Tree* exec(int pos, Tree* expr) = 0;
    virtual Tree* forLoop(int pos, TreeBuffer* init, Tree* cond, TreeBuffer* step, Tree* body) = 0;
    virtual Tree* methodDef(int pos, int tag, Name* name, std::uint32_t flags, Tree* restype, TreeBuffer* params,
                            TreeBuffer* thrown, Tree* body) = 0;
    virtual Tree* ident(int pos, Name* name) = 0;
    virtual Tree* importDecl(int pos, Tree* tree) = 0;
    virtual Tree* labelled(int pos, Name* label, Tree* body) = 0;
    virtual Tree* literal(int pos, int tag, ConstantType* value) = 0;
    virtual Tree* newClass(int pos, Tree* encl, Tree* clazz, TreeBuffer* args, Tree* def) = 0;
    virtual Tree* newArray(int pos, Tree* elemtype, TreeBuffer* dims) = 0;
    virtual Tree* packageDecl(int pos, Tree* pid) = 0;
    virtual Tree* returnStat(int pos, Tree* expr) = 0;
    virtual Tree* select(int pos, Tree* selected, Name* name) = 0;
    virtual Tree* self(int pos, int tag, Tree* encl) = 0;
    virtual Tree* indexed(int pos, Tree* indexed, Tree* index) = 0;
    virtual Tree* switchStat(int pos, Tree* selector, TreeBuffer* cases) = 0;
    virtual Tree* synchronizedStat(int pos, Tree* lock, Tree* body) = 0;
    virtual Tree* throwStat(int pos, Tree* expr) = 0;
    virtual Tree* compilationUnit(TreeBuffer* defs, const StoreRef& source) = 0;
    virtual Tree* tryStat(int pos, Tree* body, TreeBuffer* catchers, Tree* finalizer) = 0;
    virtual Tree* basicType(int pos, Name* name) = 0;
    virtual Tree* typeOp(int pos, int tag, Tree* expr, Tree* clazz) = 0;
    virtual Tree* unary(int pos, int tag, Tree* arg) = 0;
    virtual Tree* typeArray(int pos, Tree* elemtype) = 0;
    virtual Tree* varDef(int pos, Name* name, std::uint32_t flags, Tree* vartype, Tree* init) = 0;
    virtual Tree* whileLoop(int pos, Tree* cond, Tree* body) = 0;
    virtual TreeBuffer* newList() = 0;
    virtual TreeBuffer* append(TreeBuffer* list, Tree* tree) = 0;
    /// The element of a list that has exactly one, and the list is given back with it; else null, and the list stays.
    virtual Tree* single(TreeBuffer* list) = 0;
    virtual ConstantType* stringConstant(int tag, Name* text) = 0;
    virtual ConstantType* intConstant(int tag, std::int32_t value) = 0;
    virtual ConstantType* longConstant(int tag, std::int64_t value) = 0;
    virtual ConstantType* floatConstant(int tag, float value) = 0;
    virtual ConstantType* doubleConstant(int tag, double value) = 0;

    /// Reports that the source is nested too deep at that position; the first call only.
    void reportTooDeep(int pos);

    bool isExpr = false; ///< the last term can stand as an expression
    bool isType = false; ///< it can stand as a type
    int lastTag = 0;     ///< tag and position of the last construct; 0 if it is erroneous
    int lastPos = 0;

    bool wantsCode = true; ///< if not, the parser may pass over a body in which no class is defined

protected:
    void record(int pos, int tag) {
        lastTag = tag;
        lastPos = pos;
    }
    void recordExpression(int pos, int tag) {
        isExpr = true;
        isType = false;
        record(pos, tag);
    }
    void recordType(int pos, int tag) {
        isExpr = false;
        isType = true;
        record(pos, tag);
    }
    /// A name, which may turn out to be either.
    void recordName(int pos, int tag) {
        isExpr = isType = true;
        record(pos, tag);
    }
    /// A statement or declaration.
    void recordOther(int pos, int tag) {
        isExpr = isType = false;
        record(pos, tag);
    }

private:
    bool tooDeepReported_ = false;
};

} // namespace tarn
