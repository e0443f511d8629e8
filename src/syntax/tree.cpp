#include "syntax/tree.h"

#include "runtime/failure.h"
#include "semantic/universe.h"
#include "syntax/operators.h"
#include "syntax/position.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <array>
#include <charconv>
#include <vector>

namespace tarn {

Type* Tree::attr(Env*, int, Type*) {
    require(tag == treetag::ERRONEOUS, "attr");
    return type = errType;
}

Item* Tree::gen() {
    throw InternalError("gen");
}

Tree* Tree::erroneous() {
    static Tree shared(NO_POSITION, treetag::ERRONEOUS);
    return &shared;
}

bool isPlainSelection(const Select* select) {
    const Tree* qualifier = select->selected;
    if (qualifier->tag == treetag::THIS || qualifier->tag == treetag::SUPER) return true;
    if (qualifier->tag != treetag::IDENT && qualifier->tag != treetag::SELECT) return false;
    const Symbol* sym = static_cast<const NamedTree*>(qualifier)->sym;
    if (sym == nullptr || sym->kind != VAR) return true;
    return qualifier->tag == treetag::IDENT && select->sym->isStatic(); // else it may be null
}

Ident::Ident(int pos_, Name* name_, Symbol* sym_) : Ident(pos_, name_) {
    sym = sym_;
    type = sym_->type;
}

KnownType::KnownType(int pos_, Type* type_) : Ident(pos_, type_->tsym->name, type_->tsym) {}

Trees knownTypes(Arena& arena, int pos, TypeList* types) {
    Trees trees = arena.makeArray<Tree*>(static_cast<std::size_t>(TypeList::length(types)));
    for (Tree*& tree : trees) {
        tree = arena.make<KnownType>(pos, types->head);
        types = types->tail;
    }
    return trees;
}

/// A qualified name can be as long as its source, so that it is put together in one go.
Name* Select::fullName() const {
    std::vector<Name*> backwards{name};
    Tree* qualifier = selected;
    for (; qualifier->tag == treetag::SELECT; qualifier = static_cast<Select*>(qualifier)->selected) {
        backwards.push_back(names().dot);
        backwards.push_back(static_cast<Select*>(qualifier)->name);
    }
    Name* first = qualifier->fullName();
    if (first == nullptr) return nullptr;
    backwards.push_back(names().dot);
    backwards.push_back(first);
    return Name::concat(std::vector<Name*>(backwards.rbegin(), backwards.rend()));
}

MethodDef::MethodDef(Arena& arena, int pos_, int tag_, Name* name_, std::uint32_t flags_, Tree* restype_, Trees params_,
                     Trees thrown_, Tree* body_)
    : Def(pos_, tag_, name_, flags_), restype(restype_), params(params_), thrown(thrown_), body(nullptr) {
    if (body_ == nullptr) return;
    if (body_->tag == treetag::BLOCK) {
        body = static_cast<Block*>(body_);
    } else {
        Tree* statement[] = {body_};
        body = arena.make<Block>(body_->pos, arena.copyArray<Tree*>(statement));
    }
}

Synchronized::Synchronized(int pos_, Tree* lock_, Tree* body_, Block* emptyFinalizer)
    : Try(pos_, body_, {}, emptyFinalizer), lock(lock_) {
    tag = treetag::SYNCHRONIZED;
}

namespace {

Name* decimalName(int number) {
    char text[12];
    char* end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return Name::fromBytes({text, static_cast<std::size_t>(end - text)});
}

} // namespace

Name* CompilationUnit::localClassName(const ClassDef& def, ClassSymbol* enclClass) {
    Name* outermost = enclClass->outermostClass()->flatName;
    Name* separator = Name::fromBytes("$");
    if (def.isAnonymous()) return Name::concat(std::array{outermost, separator, def.name});
    Name* number = decimalName(def.number != 0 ? def.number : localClassCount++);
    return Name::concat(std::array{outermost, separator, number, separator, def.name});
}

Name* CompilationUnit::anonymousName(const ClassDef& def) {
    return decimalName(def.number != 0 ? def.number : anonymousClassCount++);
}

// The compound assignments stand in the order of the operators that they apply.
static_assert(treetag::MOD_ASG - treetag::BITOR_ASG == treetag::MOD - treetag::BITOR);

Name* operatorName(int tag) {
    if (tag == treetag::ASSIGN) return names().empty;
    if (tag >= treetag::BITOR_ASG && tag <= treetag::MOD_ASG) tag += treetag::BITOR - treetag::BITOR_ASG;
    if (tag >= treetag::OR_OR && tag <= treetag::MOD) return spellingOf(binaryOperators[tag - treetag::OR_OR].token);
    require(tag >= treetag::POS && tag <= treetag::POSTDEC, "operatorName");
    return spellingOf(unaryOperators[tag - treetag::POS].token);
}

} // namespace tarn
