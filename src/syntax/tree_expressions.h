#pragma once

#include "syntax/tree.h"

namespace tarn {

class Arena;
class ClassDef;
class ConstantType;
class MethodSymbol;
class OperatorSymbol;
struct TypeList;

// The nodes of names, types and expressions.

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

class TypeArray final : public Tree {
public:
    TypeArray(int pos_, Tree* elemtype_) : Tree(pos_, treetag::TYPEARRAY), elemtype(elemtype_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* elemtype;
};

class Literal final : public Tree {
public:
    Literal(int pos_, int tag_, ConstantType* value_) : Tree(pos_, tag_), value(value_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    ConstantType* value;
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

/// A KnownType for each type, in `arena`: a `throws` clause that is made up.
Trees knownTypes(Arena& arena, int pos, TypeList* types);

/// Whether the qualifier needs no evaluation when a constant is selected: a class or package name, `this` or `super`,
/// or for a static constant also a name of one part. Only then the constant is part of a constant expression.
bool isPlainSelection(const Select* select);

} // namespace tarn
