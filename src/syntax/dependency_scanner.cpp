#include "syntax/dependency_scanner.h"

#include "syntax/name.h"
#include "syntax/tree_expressions.h"
#include "syntax/well_known_names.h"

#include <string>

namespace tarn {

DependencyScanner::DependencyScanner() : packageName(names().dot) {}

Tree* DependencyScanner::expression(int pos, int tag) {
    recordExpression(pos, tag);
    return nullptr;
}

Tree* DependencyScanner::other(int pos, int tag) {
    recordOther(pos, tag);
    return nullptr;
}

namespace {

/// The tag of a node with that name: a name that is missing makes it erroneous.
int tagFor(int tag, const Name* name) {
    return name == names().error ? static_cast<int>(treetag::ERRONEOUS) : tag;
}

} // namespace

// What is collected

Tree* DependencyScanner::packageDecl(int pos, Tree* pid) {
    if (pid != nullptr && pid->tag != treetag::ERRONEOUS) packageName = pid->fullName();
    return other(pos, treetag::PACKAGEDECL);
}

Tree* DependencyScanner::importDecl(int pos, Tree* tree) {
    Name* name = tree->fullName();
    int dot = name->lastIndexOf('.');
    if (dot >= 0) imports.push_back(name->subName(0, dot));
    return other(pos, treetag::IMPORT);
}

void DependencyScanner::enterClass(int, Name* name, bool isLocal) {
    numbers_.enter(name, isLocal);
}

/// Adds the names of the outermost class that has ended and of those in it. A local class is named after the outermost
/// class and its number, wherever it stands; a member after the class that it stands in. What stands in a class without
/// a name has none either.
void DependencyScanner::nameClasses() {
    std::vector<Name*> flatNames;
    for (const ClassNumbers::Class& c : numbers_.classes()) {
        bool isOutermost = c.outer < 0;
        Name* outer =
            isOutermost ? packageName : flatNames[c.isLocal ? std::size_t{0} : static_cast<std::size_t>(c.outer)];
        flatNames.push_back(nullptr);
        if (c.name == names().error || outer == nullptr || (isOutermost && c.name == nullptr)) continue;
        std::string flat;
        if (outer != names().dot) flat.append(outer->view()).append(isOutermost ? "." : "$");
        if (!isOutermost && c.isLocal) flat.append(std::to_string(c.number)).append(c.name != nullptr ? "$" : "");
        if (c.name != nullptr) flat.append(c.name->view());
        flatNames.back() = Name::fromBytes(flat);
    }
    for (std::size_t index : ended_)
        if (flatNames[index] != nullptr) classes.push_back(flatNames[index]);
    ended_.clear();
}

Tree* DependencyScanner::classDef(int pos, Name* name, std::uint32_t, Tree*, TreeBuffer*, Tree*) {
    ended_.push_back(numbers_.leave());
    if (numbers_.isOutside()) nameClasses();
    firstClassSeen_ = true;
    return other(pos, tagFor(treetag::CLASSDEF, name));
}

Tree* DependencyScanner::ident(int pos, Name* name) {
    recordName(pos, tagFor(treetag::IDENT, name));
    return isBuilding() ? arena_.make<Ident>(pos, name) : nullptr;
}

Tree* DependencyScanner::select(int pos, Tree* selected, Name* name) {
    record(pos, tagFor(treetag::SELECT, name));
    return isBuilding() && selected != nullptr ? arena_.make<Select>(pos, name, selected) : nullptr;
}

// What is not

Tree* DependencyScanner::arrayInit(int pos, TreeBuffer*, Tree*) {
    return expression(pos, treetag::ARRAYINIT);
}
Tree* DependencyScanner::apply(int pos, Tree*, TreeBuffer*) {
    return expression(pos, treetag::APPLY);
}
Tree* DependencyScanner::assign(int pos, int tag, Tree*, Tree*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::binary(int pos, int tag, Tree*, Tree*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::block(int pos, TreeBuffer*) {
    return other(pos, treetag::BLOCK);
}
Tree* DependencyScanner::blockWithEnd(int pos, int, std::uint32_t, TreeBuffer*) {
    return other(pos, treetag::BLOCK);
}
Tree* DependencyScanner::breakStat(int pos, Name*) {
    return other(pos, treetag::BREAK);
}
Tree* DependencyScanner::caseLabel(int pos, Tree*, TreeBuffer*) {
    return other(pos, treetag::CASE);
}
Tree* DependencyScanner::conditional(int pos, int tag, Tree*, Tree*, Tree*) {
    return tag == treetag::CONDITIONAL ? expression(pos, tag) : other(pos, tag);
}
Tree* DependencyScanner::continueStat(int pos, Name*) {
    return other(pos, treetag::CONTINUE);
}
Tree* DependencyScanner::doLoop(int pos, Tree*, Tree*) {
    return other(pos, treetag::DOLOOP);
}
Tree* DependencyScanner::exec(int pos, Tree*) {
    return other(pos, treetag::EXEC);
}
Tree* DependencyScanner::forLoop(int pos, TreeBuffer*, Tree*, TreeBuffer*, Tree*) {
    return other(pos, treetag::FORLOOP);
}
Tree* DependencyScanner::methodDef(int pos, int tag, Name* name, std::uint32_t, Tree*, TreeBuffer*, TreeBuffer*,
                                   Tree*) {
    return other(pos, tagFor(tag, name));
}
Tree* DependencyScanner::labelled(int pos, Name*, Tree*) {
    return other(pos, treetag::LABELLED);
}
Tree* DependencyScanner::literal(int pos, int tag, ConstantType*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::newClass(int pos, Tree*, Tree*, TreeBuffer*, Tree*) {
    return expression(pos, treetag::NEWCLASS);
}
Tree* DependencyScanner::newArray(int pos, Tree*, TreeBuffer*) {
    return expression(pos, treetag::NEWARRAY);
}
Tree* DependencyScanner::returnStat(int pos, Tree*) {
    return other(pos, treetag::RETURN);
}
Tree* DependencyScanner::self(int pos, int tag, Tree*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::indexed(int pos, Tree*, Tree*) {
    isType = false;
    record(pos, treetag::INDEXED);
    return nullptr;
}
Tree* DependencyScanner::switchStat(int pos, Tree*, TreeBuffer*) {
    return other(pos, treetag::SWITCH);
}
Tree* DependencyScanner::synchronizedStat(int pos, Tree*, Tree*) {
    return other(pos, treetag::SYNCHRONIZED);
}
Tree* DependencyScanner::throwStat(int pos, Tree*) {
    return other(pos, treetag::THROW);
}
Tree* DependencyScanner::compilationUnit(TreeBuffer*, const StoreRef&) {
    isExpr = isType = false;
    lastTag = treetag::TOPLEVEL;
    return nullptr;
}
Tree* DependencyScanner::tryStat(int pos, Tree*, TreeBuffer*, Tree*) {
    return other(pos, treetag::TRY);
}
Tree* DependencyScanner::basicType(int pos, Name* name) {
    recordType(pos, tagFor(treetag::IDENT, name));
    return nullptr;
}
Tree* DependencyScanner::typeOp(int pos, int tag, Tree*, Tree*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::unary(int pos, int tag, Tree*) {
    return expression(pos, tag);
}
Tree* DependencyScanner::typeArray(int pos, Tree*) {
    recordType(pos, treetag::TYPEARRAY);
    return nullptr;
}
Tree* DependencyScanner::varDef(int pos, Name* name, std::uint32_t, Tree*, Tree*) {
    return other(pos, tagFor(treetag::VARDEF, name));
}
Tree* DependencyScanner::whileLoop(int pos, Tree*, Tree*) {
    return other(pos, treetag::WHILELOOP);
}

TreeBuffer* DependencyScanner::newList() {
    return nullptr;
}
TreeBuffer* DependencyScanner::append(TreeBuffer* list, Tree*) {
    return list;
}
Tree* DependencyScanner::single(TreeBuffer*) {
    return nullptr;
}
ConstantType* DependencyScanner::stringConstant(int, Name*) {
    return nullptr;
}
ConstantType* DependencyScanner::intConstant(int, std::int32_t) {
    return nullptr;
}
ConstantType* DependencyScanner::longConstant(int, std::int64_t) {
    return nullptr;
}
ConstantType* DependencyScanner::floatConstant(int, float) {
    return nullptr;
}
ConstantType* DependencyScanner::doubleConstant(int, double) {
    return nullptr;
}

} // namespace tarn
