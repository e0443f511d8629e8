#pragma once

#include "codegen/item.h"

namespace tarn {

class Name;
class NewClass;
class Select;
class TypeOp;
struct Env;

/// A variable of the stopped frame, by its name: `$context.getField(name)` gives its value handle.
class EvalItem final : public VariableItem {
public:
    void load(const Type* type) override;
    void store(const Type* type) override;
    void incr(int amount) override;
    Item* member(int pos, Symbol* symbol, ClassSymbol* site) override;
    Item* indexed() override;
    [[nodiscard]] Origin origin() const override { return Origin::HANDLE; }

    /// Puts the value handle of the variable on the stack.
    void handle();

    Name* name = nullptr;
    EvalItem* link = nullptr; ///< see Recycled
};

/// A value handle on top of the stack, of a field or an array element: a place that can be read and written.
class EvalValueItem final : public Item {
public:
    EvalValueItem() : Item(Kind::STACK) {}
    void load(const Type* type) override;
    void store(const Type* type) override;
    void duplicate(const Type* type) override;
    void drop(const Type* type) override;
    void stash(const Type* type, int width) override;
    /// Reports: methods of the stopped program can't be called.
    void invoke() override;
    Item* member(int pos, Symbol* symbol, ClassSymbol* site) override;
    Item* indexed() override;
    [[nodiscard]] Origin origin() const override { return Origin::HANDLE; }

    int pos = 0;
    EvalValueItem* link = nullptr;
};

/// What `getObjectValue` gave, on top of the stack: a handle of an object, whose fields and elements have handles
/// again. As a value it is like any other on the stack.
class EvalObjectItem final : public Item {
public:
    EvalObjectItem() : Item(Kind::STACK) {}
    Item* member(int pos, Symbol* symbol, ClassSymbol* site) override;
    Item* indexed() override;
    [[nodiscard]] Origin origin() const override { return objectOrigin; }

    int pos = 0;
    Origin objectOrigin = Origin::HANDLE;
    EvalObjectItem* link = nullptr;

private:
    void checkHandle() const;
};

/// What generation does differently while an expression of a stopped program is compiled. Its `eval` method has the
/// frame in register 1; what would be a local variable or a field in ordinary code is a call on a handle there.
///
/// Objects of the stopped program are never touched by ordinary code, since what stands for them is a handle. For the
/// verifier it is an Object, so it gets a `checkcast` where ordinary code takes it: the host gives a String as itself,
/// and nothing else can pass.
namespace eval {

Item* frameVariable(int pos, Name* name);
/// A local variable or parameter of the source; one of a method around the class in which the program stopped is found
/// in the copy that the class keeps.
Item* variable(int pos, Symbol* symbol);
/// A member by its simple name: of `this`, or of the enclosing instance that has it.
Item* instanceMember(int pos, Symbol* symbol);
/// The instance of a class around the place. It is reached through the hidden fields of inner classes.
Item* enclosingInstance(int pos, const ClassSymbol* c);
/// Whether the static member belongs to the stopped program. All do but those of `EvalSupport`.
bool isRemoteStatic(const Symbol* symbol);
Item* staticMember(int pos, const Symbol* symbol);
/// The object on top of the stack.
Item* loadedObject(int pos, Origin origin);
/// The value of `c ? a : b` on the stack.
Item* choice(int pos, const Type* type, Origin a, Origin b);
/// Makes what was just loaded fit for ordinary code, which takes a `type`.
void castLoaded(const Item& item, Type* type);
/// A cast whose operand `item` may be a handle, as what it gives is then; null if ordinary code serves. The
/// instructions are those of ordinary code for tests too: the host sees to it that they go by the object behind a
/// handle.
Item* typeOperation(TypeOp* tree, Item* item);
/// Reports a field that is hidden where the host looks for it: handles go by names, and an object's is searched from
/// the class that it was read or cast as. Behind `super` and a cast to a superclass, which does nothing, that is
/// another class than the expression's.
void checkNotHidden(const Select* tree);
/// Reports a creation that would need an instance or a variable of the stopped program.
void checkCreation(const NewClass* tree);
/// Ends the life of all items of this file.
void releaseItems();

/// Where the program has stopped, while code for it is generated.
class ScopedPlace {
public:
    explicit ScopedPlace(Env* env);
    ~ScopedPlace();
    ScopedPlace(const ScopedPlace&) = delete;
    ScopedPlace& operator=(const ScopedPlace&) = delete;

private:
    Env* previous_;
};

} // namespace eval
} // namespace tarn
