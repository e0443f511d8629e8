#pragma once

#include "runtime/arena.h"
#include "syntax/class_numbers.h"
#include "syntax/tree_factory.h"

#include <memory>
#include <vector>

namespace tarn {

class ClassDef;

/// Builds the trees of one unit in the unit's arena, which must outlive them. Constants are made by the current
/// context.
///
/// A node that would make its tree too high for the phases to come is reported once and replaced by the Erroneous tree;
/// declarations, switch cases and catch clauses keep their class even then.
class TreeBuilder : public TreeFactory {
public:
    explicit TreeBuilder(Arena& arena);
    ~TreeBuilder() override;
    TreeBuilder(const TreeBuilder&) = delete;
    TreeBuilder& operator=(const TreeBuilder&) = delete;

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
    Tree* bounded(Tree* node, int below);
    Tree* expression(Tree* node, int below);
    Tree* statement(Tree* node, int below);
    Tree* definition(Tree* node, int below);
    Tree* named(Tree* tree);
    Trees toTrees(TreeBuffer* list);
    void recycle(TreeBuffer* list);

    Arena& arena_;
    int limit_;                                        ///< greatest height of a tree
    std::vector<std::unique_ptr<TreeBuffer>> buffers_; ///< all lists ever made
    std::vector<TreeBuffer*> freeBuffers_;             ///< those not in use
    std::vector<Tree*> anonymousClasses_;              ///< that are complete
    ClassNumbers numbers_;
    std::vector<ClassDef*> classes_; ///< of the outermost class that is open, by index in `numbers_`; null until ended
};

} // namespace tarn
