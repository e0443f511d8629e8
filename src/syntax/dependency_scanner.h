#pragma once

#include "runtime/arena.h"
#include "syntax/class_numbers.h"
#include "syntax/tree_factory.h"

#include <vector>

namespace tarn {

/// Builds no trees but, while the same grammar runs over a source, collects what the make engine needs to know of it.
///
/// The names of classes are those that a compile gives them, so that they can be compared with the class files written.
/// Until the first class begins, identifiers and qualified names are built, for the package clause and the imports.
class DependencyScanner final : public TreeFactory {
public:
    DependencyScanner();

    Name* packageName;          ///< "." for the unnamed package
    std::vector<Name*> imports; ///< package or class that precedes the last "." of each import, in order
    std::vector<Name*> classes; ///< flat names of the classes defined, in the order in which they end

    Tree* arrayInit(int pos, TreeBuffer* elems, Tree* elemtype) override;
    Tree* apply(int pos, Tree* meth, TreeBuffer* args) override;
    Tree* assign(int pos, int tag, Tree* lhs, Tree* rhs) override;
    Tree* binary(int pos, int tag, Tree* lhs, Tree* rhs) override;
    Tree* block(int pos, TreeBuffer* stats) override;
    Tree* blockWithEnd(int pos, int endPos, std::uint32_t flags, TreeBuffer* stats) override;
    Tree* breakStat(int pos, Name* label) override;
    Tree* caseLabel(int pos, Tree* pat, TreeBuffer* stats) override;
    void enterClass(int pos, Name* name, bool isLocal) override;
    Tree* classDef(int pos, Name* name, std::uint32_t flags, Tree* extending, TreeBuffer* implementing,
                   Tree* body) override;
    Tree* conditional(int pos, int tag, Tree* cond, Tree* thenpart, Tree* elsepart) override;
    Tree* continueStat(int pos, Name* label) override;
    Tree* doLoop(int pos, Tree* body, Tree* cond) override;
    Tree* exec(int pos, Tree* expr) override;
    Tree* forLoop(int pos, TreeBuffer* init, Tree* cond, TreeBuffer* step, Tree* body) override;
    Tree* methodDef(int pos, int tag, Name* name, std::uint32_t flags, Tree* restype, TreeBuffer* params,
                    TreeBuffer* thrown, Tree* body) override;
    Tree* ident(int pos, Name* name) override;
    Tree* importDecl(int pos, Tree* tree) override;
    Tree* labelled(int pos, Name* label, Tree* body) override;
    Tree* literal(int pos, int tag, ConstantType* value) override;
    Tree* newClass(int pos, Tree* encl, Tree* clazz, TreeBuffer* args, Tree* def) override;
    Tree* newArray(int pos, Tree* elemtype, TreeBuffer* dims) override;
    Tree* packageDecl(int pos, Tree* pid) override;
    Tree* returnStat(int pos, Tree* expr) override;
    Tree* select(int pos, Tree* selected, Name* name) override;
    Tree* self(int pos, int tag, Tree* encl) override;
    Tree* indexed(int pos, Tree* indexed, Tree* index) override;
    Tree* switchStat(int pos, Tree* selector, TreeBuffer* cases) override;
    Tree* synchronizedStat(int pos, Tree* lock, Tree* body) override;
    Tree* throwStat(int pos, Tree* expr) override;
    Tree* compilationUnit(TreeBuffer* defs, const StoreRef& source) override;
    Tree* tryStat(int pos, Tree* body, TreeBuffer* catchers, Tree* finalizer) override;
    Tree* basicType(int pos, Name* name) override;
    Tree* typeOp(int pos, int tag, Tree* expr, Tree* clazz) override;
    Tree* unary(int pos, int tag, Tree* arg) override;
    Tree* typeArray(int pos, Tree* elemtype) override;
    Tree* varDef(int pos, Name* name, std::uint32_t flags, Tree* vartype, Tree* init) override;
    Tree* whileLoop(int pos, Tree* cond, Tree* body) override;
    TreeBuffer* newList() override;
    TreeBuffer* append(TreeBuffer* list, Tree* tree) override;
    Tree* single(TreeBuffer* list) override;
    ConstantType* stringConstant(int tag, Name* text) override;
    ConstantType* intConstant(int tag, std::int32_t value) override;
    ConstantType* longConstant(int tag, std::int64_t value) override;
    ConstantType* floatConstant(int tag, float value) override;
    ConstantType* doubleConstant(int tag, double value) override;

private:
    [[nodiscard]] bool isBuilding() const { return numbers_.isOutside() && !firstClassSeen_; }
    void nameClasses();
    Tree* expression(int pos, int tag);
    Tree* other(int pos, int tag);

    Arena arena_; ///< of the names built
    ClassNumbers numbers_;
    std::vector<std::size_t> ended_; ///< indices in `numbers_` of what ended of the outermost class that is open
    bool firstClassSeen_ = false;
};

} // namespace tarn
