#include "codegen/opcodes.h"
#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/fold.h"
#include "semantic/resolve.h"
#include "syntax/tree_expressions.h"

#include <algorithm>

// Attribution of operators, assignments, casts, conditionals and arrays. A constant expression gets a constant as its
// type.

namespace tarn {

using namespace attribution;
using namespace typetag;

namespace {

/// The operand's type; the error type for a void one, which is reported.
Type* attrOperand(Tree* operand, Env* env, int pkind = VAL) {
    Type* type = operand->attr(env, pkind, anythingType);
    return checkNonVoid(operand->pos, type)->tag == VOID ? errType : type;
}

bool isNumber(const Type* type) {
    return type->tag != ERROR && type->tag <= DOUBLE;
}

} // namespace

Type* Literal::attr(Env*, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    return type = checkAssignable(pos, value, pt);
}

// ---- operators

Type* Unary::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    bool assigns = tag >= treetag::PREINC;
    Type* operand = attrOperand(arg, env, assigns ? VAR : VAL);
    if (operand->tag == ERROR) return type = errType;
    Symbol* found = resolve::findOperator(pos, tag, env, operand, nullptr);
    if (found->kind != MTH) return type = errType;
    operator_ = static_cast<OperatorSymbol*>(found);
    Type* result = operator_->type->resType();
    if (operand->isConstant()) result = fold1(operand, operator_->opcode, result);
    return type = checkAssignable(pos, result, pt);
}

Type* Binary::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* left = attrOperand(lhs, env);
    Type* right = attrOperand(rhs, env);
    if (left->tag == ERROR || right->tag == ERROR) return type = errType;
    Symbol* found = resolve::findOperator(pos, tag, env, left, right);
    if (found->kind != MTH) return type = errType;
    operator_ = static_cast<OperatorSymbol*>(found);
    Type* result = operator_->type->resType();
    int opcode = operator_->opcode;
    if (left->isConstant() && right->isConstant()) {
        result = fold2(pos, left, right, opcode, result);
        if (result->isConstant()) lhs->type = rhs->type = nullptr;
        left = withoutValue(left);
        right = withoutValue(right);
    }
    if ((opcode == op::IF_ACMPEQ || opcode == op::IF_ACMPNE) && !isCastable(left, right) && !isCastable(right, left))
        reportError(pos, messages::cannotCompare, left, right);
    return type = checkAssignable(pos, result, pt);
}

Type* Assignop::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* target = withoutValue(lhs->attr(env, VAR, anythingType));
    if (tag == treetag::ASSIGN) {
        rhs->attr(env, VAL, target);
        return type = checkAssignable(pos, target, pt);
    }
    Type* right = attrOperand(rhs, env);
    if (target->tag != ERROR && right->tag != ERROR) {
        Symbol* found = resolve::findOperator(pos, tag, env, target, right);
        if (found->kind == MTH) {
            operator_ = static_cast<OperatorSymbol*>(found);
            Type* result = operator_->type->resType();
            if (!isCastable(result, target)) checkAssignable(rhs->pos, result, target);
        }
    }
    return type = checkAssignable(pos, target, pt);
}

Type* TypeOp::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* value = expr->attr(env, VAL, anythingType);
    Type* target = attrTypeTree(clazz, env);
    bool castable = isCastable(value, target);
    if (tag == treetag::TYPECAST) {
        if (!castable) {
            reportError(pos, messages::cannotCast, value, target);
            return type = errType;
        }
        if (value->isConstant() && target->tag != ERROR) target = coerceConstant(value, target);
        return type = checkAssignable(pos, target, pt);
    }
    if (target->tag == ERROR) return type = errType;
    if (!castable || (target->tag != CLASS && target->tag != ARRAY)) {
        reportError(pos, messages::cannotCompare, value, target);
        return type = errType;
    }
    return type = checkAssignable(pos, context().booleanType, pt);
}

// ---- conditionals

namespace {

bool isSmall(const Type* type) {
    return type->tag == BYTE || type->tag == SHORT || type->tag == CHAR;
}

/// Whether `value` is an int constant that fits the type of `other`, one of byte, short and char.
bool takesTypeOf(Type* value, Type* other) {
    return value->isConstant() && value->tag == INT && isSmall(other) && value->isAssignable(withoutValue(other));
}

/// The type of `c ? a : b` with two numbers (Java language specification, "conditional operator").
Type* commonNumber(Type* a, Type* b) {
    if (a->tag == b->tag || takesTypeOf(b, a)) return withoutValue(a);
    if (takesTypeOf(a, b)) return withoutValue(b);
    int lower = std::min(a->tag, b->tag);
    int higher = std::max(a->tag, b->tag);
    if (lower == BYTE && higher == SHORT) return context().shortType;
    return context().typeOfTag[static_cast<std::size_t>(std::max<int>(higher, INT))];
}

/// Two numbers in a place for a number: promoted with each other first, then held to the place.
Type* numberFor(Type* common, Conditional* tree, Type* pt) {
    Type* a = checkAssignable(tree->thenpart->pos, tree->thenpart->type, pt);
    Type* b = checkAssignable(tree->elsepart->pos, tree->elsepart->type, pt);
    if (a->tag == ERROR || b->tag == ERROR) return errType;
    return common->isAssignable(pt) ? common : pt;
}

Type* attrBranch(Tree* branch, Env* env, Type* pt) {
    Type* type = branch->attr(env, VAL, pt);
    return checkNonVoid(branch->pos, type)->tag == VOID ? branch->type = errType : type;
}

Type* attrChoice(Conditional* tree, Env* env, Type* pt) {
    bool forNumber = isNumber(pt);
    Type* a = attrBranch(tree->thenpart, env, forNumber ? anythingType : pt);
    Type* b = attrBranch(tree->elsepart, env, forNumber ? anythingType : pt);
    if (a->tag == ERROR || b->tag == ERROR) return errType;
    bool constant = tree->cond->type->isConstant() && a->isConstant() && b->isConstant();
    Type* chosen = constant && tree->cond->type->constValue()->intValue() == 1 ? a : b;
    if (isNumber(a) && isNumber(b)) {
        Type* common = commonNumber(a, b);
        if (constant) return checkAssignable(tree->pos, chosen->coerce(common->tag), pt);
        return forNumber ? numberFor(common, tree, pt) : checkAssignable(tree->pos, common, pt);
    }
    if (forNumber) {
        a = checkAssignable(tree->thenpart->pos, a, pt);
        b = checkAssignable(tree->elsepart->pos, b, pt);
    }
    if (a->tag == ERROR || b->tag == ERROR) return errType;
    if (constant) return chosen;
    // The type of one branch if the other fits it; else that of the place, which both were held to.
    if (a->isSubType(b)) return withoutValue(b);
    if (b->isSubType(a)) return withoutValue(a);
    Type* merged = conditionalType(tree->elsepart->pos, conditionalType(tree->thenpart->pos, pt, a), b);
    return merged->tag == ERROR ? merged : withoutValue(merged);
}

Type* attrIf(Conditional* tree, Env* env, Type* pt) {
    Type* result = conditionalType(tree->thenpart->pos, pt, attribution::attrBody(tree->thenpart, env, pt));
    if (tree->elsepart == nullptr) return result;
    return conditionalType(tree->elsepart->pos, result, attribution::attrBody(tree->elsepart, env, pt));
}

} // namespace

Type* Conditional::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* test = cond->attr(env, VAL, context().booleanType);
    type = tag == treetag::IF ? attrIf(this, env, pt) : attrChoice(this, env, pt);
    if (test->tag == ERROR) type = errType;
    return type;
}

// ---- arrays

namespace {

constexpr int MAX_DIMENSIONS = 255; // JVM specification, "limitations"

Type* makeArrayType(int pos, Type* element) {
    if (element->tag == ERROR) return errType;
    int dimensions = 1;
    for (const Type* type = element; type->tag == ARRAY; type = type->elemType()) ++dimensions;
    if (dimensions <= MAX_DIMENSIONS) return context().arrayType(element);
    reportError(pos, messages::tooLarge, "array type", "255 dimensions");
    return errType;
}

} // namespace

Type* NewArray::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* made = attrTypeTree(elemtype, env);
    for (Tree* dim : dims) {
        dim->attr(env, VAL, context().intType);
        made = makeArrayType(pos, made);
    }
    return type = checkAssignable(pos, made, pt);
}

Type* ArrayInit::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Type* element = anythingType;
    if (elemtype != nullptr) {
        Type* array = attrTypeTree(elemtype, env);
        element = array->tag == ARRAY ? array->elemType() : errType;
    } else if (pt->tag == ARRAY) {
        element = pt->elemType();
    } else if (pt->tag == ERROR) {
        element = errType;
    }
    Type* merged = element;
    for (Tree* elem : elems) {
        Type* found = elem->attr(env, VAL, element);
        if (element == anythingType) merged = conditionalType(elem->pos, merged, found);
    }
    if (merged->tag == ERROR) return type = errType;
    Type* made = context().arrayType(withoutValue(merged));
    // Without a type of its own it can only stand for an array, not for an object that an array is.
    if (elemtype == nullptr && pt->tag != ARRAY) {
        reportError(pos, messages::incompatibleTypes, made, pt);
        return type = errType;
    }
    return type = checkAssignable(pos, made, pt);
}

Type* Indexed::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAR, pkind)) return type = errType;
    Type* array = indexed->attr(env, VAL, anythingType);
    index->attr(env, VAL, context().intType);
    if (array->tag == ARRAY) return type = checkAssignable(pos, array->elemType(), pt);
    if (array->tag == NULLTYPE)
        reportError(pos, messages::nullDereferenced);
    else if (array->tag != ERROR)
        reportError(pos, messages::arrayTypeRequired, array);
    return type = errType;
}

Type* TypeArray::attr(Env* env, int pkind, Type*) {
    if (!checkKind(pos, TYP, pkind)) return type = errType;
    Type* element = attrTypeTree(elemtype, env);
    return type = makeArrayType(pos, element);
}

} // namespace tarn
