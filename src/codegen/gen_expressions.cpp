#include "codegen/gen.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "eval/eval_item.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "syntax/tree_expressions.h"

#include <algorithm>

namespace tarn {

void Tree::genLoad() {
    gen()->load(type);
}

void Tree::genDrop() {
    Item* item = gen();
    if (item->kind != Item::Kind::VOID) item->drop(type);
}

namespace codegen {

void genLoadAs(Tree* tree, Type* type) {
    Item* item = tree->gen()->coerce(tree->type, type);
    item->load(type);
    if (context().options.evaluating) eval::castLoaded(*item, type);
}

Origin genLoadAny(Tree* tree, Type* type) {
    Item* item = tree->gen()->coerce(tree->type, type);
    item->load(type);
    return tree->type->tag == typetag::NULLTYPE ? Origin::NONE : item->origin();
}

} // namespace codegen

namespace {

Item* constantOf(const Tree* tree) {
    return items::immediate(tree->type->constValue());
}

// Names

/// A constant that is reached through an expression: what that does is done, and then the value is at hand.
Item* genConstantBehind(const Select* tree) {
    Emitter& out = emitter();
    if (tree->sym->isStatic()) {
        tree->selected->gen()->discard(tree->selected->type);
    } else {
        tree->selected->genLoad();
        out.checkNotNull();
    }
    return items::immediate(tree->sym->type->constValue());
}

/// The field `TYPE` of the wrapper class of a primitive type.
Item* genPrimitiveClass(int pos, const Type* type) {
    Name* boxName = context().boxOfTag[type->tag];
    ClassSymbol* box = nullptr;
    try {
        box = context().classReader->load(boxName);
    } catch (const ClassNotFound& failure) {
        reportError(pos, messages::cannotAccess, "class", boxName, failure.what());
        return nullptr;
    }
    Name* fieldName = Name::fromBytes("TYPE");
    Symbol* field = resolve::accessSym(resolve::resolveField(box, fieldName), pos, box, nullptr, fieldName);
    if (field->kind != VAR) return nullptr;
    return items::staticItem()->member(pos, field, box);
}

/// `Class.forName` of the name of a class or array type.
Item* genNamedClass(int pos, Type* type) {
    Context& current = context();
    Name* methodName = Name::fromBytes("forName");
    Type* arguments[] = {current.stringType};
    Types argumentTypes(arguments);
    Symbol* method = resolve::accessSym(resolve::resolveMethod(current.classClass, methodName, current.stringType), pos,
                                        current.classClass, &argumentTypes, methodName);
    if (method->kind != MTH) return nullptr;
    std::string text = ClassFile::xClassName(type)->toUtf();
    std::replace(text.begin(), text.end(), '/', '.');
    emitter().emitConstant(current.stringConstant(typetag::CLASS, Name::fromBytes(text)), false);
    items::staticItem()->member(pos, method, current.classClass)->invoke();
    return items::stackItem();
}

Item* genClassLiteral(int pos, Type* type) {
    bool named = type->tag == typetag::CLASS || type->tag == typetag::ARRAY;
    Item* item = named ? genNamedClass(pos, type) : genPrimitiveClass(pos, type);
    if (item != nullptr) return item;
    // An error was reported, so this class gets no file.
    emitter().emitop(op::ACONST_NULL);
    return items::stackItem();
}

// Arrays

constexpr int ARRAY_OF_CLASS = 0;
constexpr int ARRAY_OF_ARRAY = 1;

/// The operand of `newarray` for an element type, or one of the two marks above.
int arrayCode(const Type* element) {
    switch (element->tag) {
    case typetag::BOOLEAN: return 4;
    case typetag::CHAR: return 5;
    case typetag::FLOAT: return 6;
    case typetag::DOUBLE: return 7;
    case typetag::BYTE: return 8;
    case typetag::SHORT: return 9;
    case typetag::INT: return 10;
    case typetag::LONG: return 11;
    case typetag::CLASS: return ARRAY_OF_CLASS;
    case typetag::ARRAY: return ARRAY_OF_ARRAY;
    default: throw InternalError("tcode " + std::to_string(element->tag));
    }
}

/// An array of that type; the lengths of its first `dimensions` dimensions are on the stack.
Item* makeArray(Type* type, int dimensions) {
    Emitter& out = emitter();
    Type* element = type->elemType();
    int code = arrayCode(element);
    if (code == ARRAY_OF_CLASS || (code == ARRAY_OF_ARRAY && dimensions == 1)) {
        out.emitop2(op::ANEWARRAY, out.poolClass(element));
    } else if (code == ARRAY_OF_ARRAY) {
        out.emitop(op::MULTIANEWARRAY, 1 - dimensions);
        out.emit2(out.poolClass(type));
        out.emit1(dimensions);
    } else {
        out.emitop1(op::NEWARRAY, code);
    }
    return items::stackItem();
}

// Calls

void genArguments(Trees args, Types formals) {
    for (std::size_t i = 0; i < args.size(); i++) codegen::genLoadAs(args[i], formals[i]);
}

/// Whether calls of this method are to leave no code.
bool isExcluded(const Apply* call) {
    Name* exclude = context().options.exclude;
    if (exclude == nullptr || call->type->tag != typetag::VOID) return false;
    if (call->meth->tag != treetag::IDENT && call->meth->tag != treetag::SELECT) return false;
    const Symbol* owner = static_cast<const NamedTree*>(call->meth)->sym->owner;
    return owner->kind == TYP && static_cast<const ClassSymbol*>(owner)->flatName == exclude;
}

} // namespace

Item* Literal::gen() {
    return items::immediate(value);
}

Item* Ident::gen() {
    if (type->isConstant()) return constantOf(this);
    if (type->tag == typetag::NULLTYPE) {
        emitter().emitop(op::ACONST_NULL);
        return items::stackItem();
    }
    if (sym->kind == TYP) return items::staticItem();
    bool evaluating = context().options.evaluating;
    if (sym->owner->kind == MTH)
        return evaluating ? eval::variable(pos, sym) : items::local(pos, static_cast<VarSymbol*>(sym)->adr);
    require(sym->owner->kind == TYP, "gen");
    if (evaluating && !sym->isStatic()) return eval::instanceMember(pos, sym);
    Item* qualifier = sym->isStatic() ? items::staticItem() : items::thisItem();
    return qualifier->member(pos, sym, nullptr);
}

Item* Self::gen() {
    if (encl != nullptr && context().options.evaluating) return eval::enclosingInstance(pos, encl->type->tsym);
    require(encl == nullptr, "gen");
    if (sym != nullptr) return items::superItem()->member(pos, sym, static_cast<ClassSymbol*>(sym->owner));
    return tag == treetag::SUPER ? items::superItem() : items::thisItem();
}

Item* Select::gen() {
    if (name == names().class_) return genClassLiteral(pos, selected->type);
    if (type->isConstant()) return constantOf(this);
    if (sym->kind == VAR && sym->type->isConstant() && !isPlainSelection(this)) return genConstantBehind(this);
    if (sym->kind == TYP) return items::staticItem();
    if (sym == context().lengthVar) {
        Item* array = selected->gen();
        if (array->origin() != Origin::ORDINARY) return array->member(pos, sym, nullptr);
        array->load(selected->type);
        emitter().emitop(op::ARRAYLENGTH);
        return items::stackItem();
    }
    Item* object = selected->gen();
    if (object->origin() != Origin::ORDINARY) eval::checkNotHidden(this);
    return object->member(pos, sym, selected->type->tsym);
}

Item* Apply::gen() {
    if (isExcluded(this)) return items::voidItem();
    Item* method = meth->gen();
    genArguments(args, *meth->type->argTypes());
    method->invoke();
    return type->tag == typetag::VOID ? items::voidItem() : items::stackItem();
}

Item* NewClass::gen() {
    if (context().options.evaluating) eval::checkCreation(this);
    require(encl == nullptr && def == nullptr, "gen");
    Emitter& out = emitter();
    out.emitop2(op::NEW, out.poolClass(type));
    out.emitop(op::DUP);
    Item* method = items::stackItem()->member(pos, constructor, static_cast<ClassSymbol*>(constructor->owner));
    genArguments(args, *constructor->type->argTypes());
    method->invoke();
    return items::stackItem();
}

Item* NewArray::gen() {
    for (Tree* dimension : dims) dimension->genLoad();
    return makeArray(type, static_cast<int>(dims.size()));
}

Item* ArrayInit::gen() {
    Emitter& out = emitter();
    Type* element = type->elemType();
    out.emitInt(static_cast<int>(elems.size()));
    makeArray(type, 1);
    for (std::size_t i = 0; i < elems.size(); i++) {
        out.emitop(op::DUP);
        out.emitInt(static_cast<int>(i));
        codegen::genLoadAs(elems[i], element);
        items::indexedItem()->store(element);
    }
    return items::stackItem();
}

Item* Indexed::gen() {
    Item* array = indexed->gen();
    array->load(indexed->type);
    index->genLoad();
    return array->indexed();
}

Item* TypeOp::gen() {
    if (type->isConstant()) return constantOf(this);
    Item* item = expr->gen();
    if (item->origin() != Origin::ORDINARY && expr->type->tag != typetag::NULLTYPE)
        if (Item* result = eval::typeOperation(this, item)) return result;
    if (tag == treetag::TYPECAST) return item->coerce(expr->type, type);
    item->load(expr->type);
    emitter().emitop2(op::INSTANCEOF, emitter().poolClass(clazz->type));
    return items::stackItem();
}

} // namespace tarn
