#include "syntax/tree_builder.h"

#include "semantic/context.h"
#include "syntax/nesting.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tarn {

namespace {

int heightOf(const Tree* tree) {
    return tree != nullptr ? tree->height : 0;
}
int heightOf(Trees trees) {
    int height = 0;
    for (const Tree* tree : trees) height = std::max<int>(height, tree->height);
    return height;
}
/// Lists of builders that are gone.
std::vector<std::unique_ptr<TreeBuffer>>& spareBuffers() {
    static std::vector<std::unique_ptr<TreeBuffer>> spare;
    return spare;
}

/// The greatest of the heights of trees and lists of trees.
template <class... Children>
int highest(const Children&... children) {
    int height = 0;
    ((height = std::max(height, heightOf(children))), ...);
    return height;
}

} // namespace

TreeBuilder::TreeBuilder(Arena& arena)
    : arena_(arena), limit_(nestingLimit()), buffers_(std::exchange(spareBuffers(), {})) {
    for (const auto& buffer : buffers_) recycle(buffer.get());
}

/// The lists, which have grown to what sources need, are good for the next source.
TreeBuilder::~TreeBuilder() {
    spareBuffers() = std::move(buffers_);
}

// Lists

TreeBuffer* TreeBuilder::newList() {
    if (freeBuffers_.empty()) {
        buffers_.push_back(std::make_unique<TreeBuffer>());
        buffers_.back()->reserve(32);
        return buffers_.back().get();
    }
    TreeBuffer* list = freeBuffers_.back();
    freeBuffers_.pop_back();
    return list;
}

TreeBuffer* TreeBuilder::append(TreeBuffer* list, Tree* tree) {
    list->push_back(tree);
    return list;
}

Tree* TreeBuilder::single(TreeBuffer* list) {
    if (list->size() != 1) return nullptr;
    Tree* element = list->front();
    recycle(list);
    return element;
}

void TreeBuilder::recycle(TreeBuffer* list) {
    list->clear();
    freeBuffers_.push_back(list);
}

Trees TreeBuilder::toTrees(TreeBuffer* list) {
    if (list == nullptr) return {};
    Trees trees = arena_.copyArray<Tree*>(*list);
    recycle(list);
    return trees;
}

// Recording of nodes

/// `node`, which stands on trees of the height `below`, or the Erroneous tree if that is too high.
Tree* TreeBuilder::bounded(Tree* node, int below) {
    if (below >= limit_) [[unlikely]] {
        reportTooDeep(node->pos);
        lastTag = treetag::ERRONEOUS;
        return Tree::erroneous();
    }
    node->height = static_cast<std::uint16_t>(below + 1);
    return node;
}

Tree* TreeBuilder::expression(Tree* node, int below) {
    recordExpression(node->pos, node->tag);
    return bounded(node, below);
}

Tree* TreeBuilder::statement(Tree* node, int below) {
    recordOther(node->pos, node->tag);
    return bounded(node, below);
}

/// Others rely on the class of a definition. It may exceed the limit a little: what it stands in is replaced instead.
Tree* TreeBuilder::definition(Tree* node, int below) {
    recordOther(node->pos, node->tag);
    node->height = static_cast<std::uint16_t>(std::min<int>(below + 1, std::numeric_limits<std::uint16_t>::max()));
    return node;
}

/// The name in a package clause or import, which is a NamedTree also if it was too deep.
Tree* TreeBuilder::named(Tree* tree) {
    return tree != Tree::erroneous() ? tree : arena_.make<Ident>(lastPos, names().error);
}

// Expressions

Tree* TreeBuilder::arrayInit(int pos, TreeBuffer* elems, Tree* elemtype) {
    Trees list = toTrees(elems);
    return expression(arena_.make<ArrayInit>(pos, list, elemtype), highest(list, elemtype));
}

Tree* TreeBuilder::apply(int pos, Tree* meth, TreeBuffer* args) {
    Trees list = toTrees(args);
    return expression(arena_.make<Apply>(pos, meth, list), highest(meth, list));
}

Tree* TreeBuilder::assign(int pos, int tag, Tree* lhs, Tree* rhs) {
    return expression(arena_.make<Assignop>(pos, tag, lhs, rhs), highest(lhs, rhs));
}

Tree* TreeBuilder::binary(int pos, int tag, Tree* lhs, Tree* rhs) {
    return expression(arena_.make<Binary>(pos, tag, lhs, rhs), highest(lhs, rhs));
}

Tree* TreeBuilder::conditional(int pos, int tag, Tree* cond, Tree* thenpart, Tree* elsepart) {
    Tree* node = arena_.make<Conditional>(pos, tag, cond, thenpart, elsepart);
    int below = highest(cond, thenpart, elsepart);
    return tag == treetag::CONDITIONAL ? expression(node, below) : statement(node, below);
}

Tree* TreeBuilder::ident(int pos, Name* name) {
    Tree* node = arena_.make<Ident>(pos, name);
    recordName(pos, node->tag);
    return node;
}

Tree* TreeBuilder::basicType(int pos, Name* name) {
    Tree* node = arena_.make<BasicTypeIdent>(pos, name);
    recordType(pos, node->tag);
    return node;
}

Tree* TreeBuilder::select(int pos, Tree* selected, Name* name) {
    Tree* node = arena_.make<Select>(pos, name, selected);
    record(pos, node->tag);
    return bounded(node, selected->height);
}

Tree* TreeBuilder::typeArray(int pos, Tree* elemtype) {
    recordType(pos, treetag::TYPEARRAY);
    return bounded(arena_.make<TypeArray>(pos, elemtype), elemtype->height);
}

Tree* TreeBuilder::literal(int pos, int tag, ConstantType* value) {
    return expression(arena_.make<Literal>(pos, tag, value), 0);
}

Tree* TreeBuilder::newClass(int pos, Tree* encl, Tree* clazz, TreeBuffer* args, Tree* def) {
    Trees list = toTrees(args);
    if (def != nullptr) anonymousClasses_.push_back(def);
    Tree* node = arena_.make<NewClass>(pos, encl, clazz, list, static_cast<ClassDef*>(def));
    return expression(node, highest(encl, clazz, list, def));
}

Tree* TreeBuilder::newArray(int pos, Tree* elemtype, TreeBuffer* dims) {
    Trees list = toTrees(dims);
    return expression(arena_.make<NewArray>(pos, elemtype, list), highest(elemtype, list));
}

Tree* TreeBuilder::self(int pos, int tag, Tree* encl) {
    return expression(arena_.make<Self>(pos, tag, encl), highest(encl));
}

Tree* TreeBuilder::indexed(int pos, Tree* indexed, Tree* index) {
    isType = false;
    record(pos, treetag::INDEXED);
    return bounded(arena_.make<Indexed>(pos, indexed, index), highest(indexed, index));
}

Tree* TreeBuilder::typeOp(int pos, int tag, Tree* expr, Tree* clazz) {
    return expression(arena_.make<TypeOp>(pos, tag, expr, clazz), highest(expr, clazz));
}

Tree* TreeBuilder::unary(int pos, int tag, Tree* arg) {
    return expression(arena_.make<Unary>(pos, tag, arg), highest(arg));
}

// Statements

Tree* TreeBuilder::block(int pos, TreeBuffer* stats) {
    Trees list = toTrees(stats);
    return statement(arena_.make<Block>(pos, list), highest(list));
}

Tree* TreeBuilder::blockWithEnd(int pos, int endPos, std::uint32_t flags, TreeBuffer* stats) {
    Trees list = toTrees(stats);
    return statement(arena_.make<Block>(pos, endPos, flags, list), highest(list));
}

Tree* TreeBuilder::breakStat(int pos, Name* label) {
    return statement(arena_.make<Break>(pos, label), 0);
}

Tree* TreeBuilder::caseLabel(int pos, Tree* pat, TreeBuffer* stats) {
    Trees list = toTrees(stats);
    return definition(arena_.make<Case>(pos, pat, list), highest(pat, list));
}

Tree* TreeBuilder::continueStat(int pos, Name* label) {
    return statement(arena_.make<Continue>(pos, label), 0);
}

Tree* TreeBuilder::doLoop(int pos, Tree* body, Tree* cond) {
    return statement(arena_.make<DoLoop>(pos, body, cond), highest(body, cond));
}

Tree* TreeBuilder::exec(int pos, Tree* expr) {
    return statement(arena_.make<Exec>(pos, expr), highest(expr));
}

Tree* TreeBuilder::forLoop(int pos, TreeBuffer* init, Tree* cond, TreeBuffer* step, Tree* body) {
    Trees inits = toTrees(init);
    Trees steps = toTrees(step);
    return statement(arena_.make<ForLoop>(pos, inits, cond, steps, body), highest(inits, cond, steps, body));
}

Tree* TreeBuilder::labelled(int pos, Name* label, Tree* body) {
    return statement(arena_.make<Labelled>(pos, label, body), highest(body));
}

Tree* TreeBuilder::returnStat(int pos, Tree* expr) {
    return statement(arena_.make<Return>(pos, expr), highest(expr));
}

Tree* TreeBuilder::switchStat(int pos, Tree* selector, TreeBuffer* cases) {
    Trees list = toTrees(cases);
    return statement(arena_.make<Switch>(pos, selector, list), highest(selector, list));
}

Tree* TreeBuilder::synchronizedStat(int pos, Tree* lock, Tree* body) {
    auto* finalizer = arena_.make<Block>(pos, Trees());
    return statement(arena_.make<Synchronized>(pos, lock, body, finalizer), highest(lock, body));
}

Tree* TreeBuilder::throwStat(int pos, Tree* expr) {
    return statement(arena_.make<Throw>(pos, expr), highest(expr));
}

Tree* TreeBuilder::tryStat(int pos, Tree* body, TreeBuffer* catchers, Tree* finalizer) {
    Trees list = toTrees(catchers);
    return statement(arena_.make<Try>(pos, body, list, finalizer), highest(body, list, finalizer));
}

Tree* TreeBuilder::whileLoop(int pos, Tree* cond, Tree* body) {
    return statement(arena_.make<WhileLoop>(pos, cond, body), highest(cond, body));
}

// Declarations

void TreeBuilder::enterClass(int, Name* name, bool isLocal) {
    if (numbers_.isOutside()) classes_.clear();
    numbers_.enter(name, isLocal);
    classes_.push_back(nullptr);
}

Tree* TreeBuilder::classDef(int pos, Name* name, std::uint32_t flags, Tree* extending, TreeBuffer* implementing,
                            Tree* body) {
    Trees interfaces = toTrees(implementing);
    if (body->tag != treetag::BLOCK) body = arena_.make<Block>(pos, Trees());
    auto* node = arena_.make<ClassDef>(pos, name, flags, extending, interfaces, static_cast<Block*>(body));
    classes_[numbers_.leave()] = node;
    if (numbers_.isOutside())
        for (std::size_t i = 0; i < classes_.size(); i++) classes_[i]->number = numbers_.classes()[i].number;
    return definition(node, highest(extending, interfaces, body));
}

Tree* TreeBuilder::methodDef(int pos, int tag, Name* name, std::uint32_t flags, Tree* restype, TreeBuffer* params,
                             TreeBuffer* thrown, Tree* body) {
    Trees parameters = toTrees(params);
    Trees exceptions = toTrees(thrown);
    Tree* node = arena_.make<MethodDef>(arena_, pos, tag, name, flags, restype, parameters, exceptions, body);
    return definition(node, highest(restype, parameters, exceptions, body));
}

Tree* TreeBuilder::varDef(int pos, Name* name, std::uint32_t flags, Tree* vartype, Tree* init) {
    return definition(arena_.make<VarDef>(pos, name, flags, vartype, init), highest(vartype, init));
}

Tree* TreeBuilder::importDecl(int pos, Tree* tree) {
    return definition(arena_.make<Import>(pos, named(tree)), highest(tree));
}

Tree* TreeBuilder::packageDecl(int pos, Tree* pid) {
    return definition(arena_.make<PackageDecl>(pos, named(pid)), highest(pid));
}

Tree* TreeBuilder::compilationUnit(TreeBuffer* defs, const StoreRef& source) {
    auto* unit = arena_.make<CompilationUnit>(arena_, toTrees(defs), source);
    unit->localClassCount = numbers_.nextLocal();
    unit->anonymousClassCount = numbers_.nextAnonymous();
    unit->anonymousClasses = arena_.copyArray<Tree*>(anonymousClasses_);
    isExpr = isType = false;
    lastTag = treetag::TOPLEVEL;
    return unit;
}

// Constants

ConstantType* TreeBuilder::stringConstant(int tag, Name* text) {
    return context().stringConstant(tag, text);
}
ConstantType* TreeBuilder::intConstant(int tag, std::int32_t value) {
    return context().intConstant(tag, value);
}
ConstantType* TreeBuilder::longConstant(int tag, std::int64_t value) {
    return context().longConstant(tag, value);
}
ConstantType* TreeBuilder::floatConstant(int tag, float value) {
    return context().floatConstant(tag, value);
}
ConstantType* TreeBuilder::doubleConstant(int tag, double value) {
    return context().doubleConstant(tag, value);
}

} // namespace tarn
