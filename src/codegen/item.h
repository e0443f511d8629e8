#pragma once

#include <cstdint>

namespace tarn {

class ClassSymbol;
class CondItem;
class ConstantType;
class MethodSymbol;
class Symbol;
class Type;
struct Chain;

/// Where an object comes from that an expression of a stopped program deals with. All others come from ordinary code.
enum class Origin : std::uint8_t {
    ORDINARY, ///< made by ordinary code: a member of it is accessed by ordinary instructions
    HANDLE,   ///< a value handle of the stopped program, whose host gives access to what it stands for
    EITHER,   ///< one or the other, as is known at run time only
    NONE,     ///< no object: null, or a value that is never reached
};

/// Something that can be addressed during code generation: a value on the operand stack, a variable, a constant, a
/// condition that has not become a value, an assignment whose value may or may not be wanted.
///
/// Generating an expression gives an item instead of emitting the load at once, and the consumer decides: load it,
/// store into it, branch on it or drop it. That delay is what lets an assignment statement leave nothing on the stack,
/// a condition jump without materialising a boolean, and a constant be converted at compile time. What an item needs on
/// the stack (the object of a field, array and index of an element) has been emitted when it is made; an item is
/// consumed at most once, before the next expression is generated.
///
/// Items live until the statement that made them ends (`releaseItems`) and are recycled then.
class Item {
public:
    enum class Kind : std::uint8_t {
        VOID,      ///< no value
        STACK,     ///< a value on top of the stack
        INDEXED,   ///< an array reference and an index on the stack
        THIS,      ///< the receiver, in register 0
        SUPER,     ///< the receiver, with calls made non-virtual
        LOCAL,     ///< VariableItem
        STATIC,    ///< a class name used as a qualifier
        FIELD,     ///< MemberItem
        METHOD,    ///< MemberItem
        IMMEDIATE, ///< ImmediateItem
        ASSIGN,    ///< AssignItem
        COND,      ///< CondItem
    };

    constexpr explicit Item(Kind kind_) : kind(kind_) {}

    /// Puts the value, of that type, on the stack. Internal error for what has none.
    virtual void load(const Type* type);
    /// Takes a value of that type off the stack and assigns it. Internal error for what cannot be assigned.
    virtual void store(const Type* type);
    /// Copies what the item has on the stack, so that it can be consumed once more.
    virtual void duplicate(const Type* type);
    /// Takes what the item has on the stack away.
    virtual void drop(const Type* type);
    /// As `drop`, but with all effects that the evaluation of the value has, such as the failure of a null reference.
    virtual void discard(const Type* type);
    /// Copies a value of `width` words on top of the stack below what the item has there.
    virtual void stash(const Type* type, int width);
    virtual CondItem* mkCond();
    /// The value converted from type code `from` to `to`, which differ in no reference; `type` is its type before.
    virtual Item* coerce(const Type* type, int from, int to);
    /// The value converted from one type to another that it can be converted to.
    Item* coerce(Type* from, Type* to);
    /// Calls the method that the item stands for; the arguments are on the stack.
    virtual void invoke();
    /// The member of what this item stands for, reached through class `site` (null: the class being generated).
    virtual Item* member(int pos, Symbol* symbol, ClassSymbol* site);
    /// The element of the array that this item stood for when it was loaded; an index is on the stack above the array.
    virtual Item* indexed();
    /// Of the object that the item stands for.
    [[nodiscard]] virtual Origin origin() const { return Origin::ORDINARY; }

    Kind kind;

protected:
    ~Item() = default;
};

/// A local variable or parameter.
class VariableItem : public Item {
public:
    VariableItem() : Item(Kind::LOCAL) {}
    /// Adds a constant from -128 to 127 to an int variable, in place.
    virtual void incr(int amount) = 0;

    int pos = 0;

protected:
    ~VariableItem() = default;
};

/// One of the method being generated.
class LocalItem final : public VariableItem {
public:
    void load(const Type* type) override;
    void store(const Type* type) override;
    void incr(int amount) override;

    int adr = 0; ///< variable index
    LocalItem* link = nullptr;

private:
    void emitAccess(int opcode, int firstShort, const Type* type) const;
    void checkFinal() const;
};

/// A compile-time constant.
class ImmediateItem final : public Item {
public:
    ImmediateItem() : Item(Kind::IMMEDIATE) {}
    void load(const Type* type) override;
    CondItem* mkCond() override;
    Item* coerce(const Type* type, int from, int to) override;
    using Item::coerce;

    ConstantType* value = nullptr;
    ImmediateItem* link = nullptr;
};

/// An assignment not yet completed: the value is on the stack, above what `lhs` has there.
class AssignItem final : public Item {
public:
    AssignItem() : Item(Kind::ASSIGN) {}
    void load(const Type* type) override;
    void duplicate(const Type* type) override;
    void drop(const Type* type) override;
    void stash(const Type* type, int width) override;
    Item* member(int pos, Symbol* symbol, ClassSymbol* site) override;
    Item* indexed() override;
    [[nodiscard]] Origin origin() const override { return valueOrigin; }

    Item* lhs = nullptr;
    Origin valueOrigin = Origin::ORDINARY; ///< of what is assigned
    AssignItem* link = nullptr;
};

/// A condition as pending jumps: what `opcode` tests is on the stack, and jumps for both outcomes may wait already.
class CondItem final : public Item {
public:
    CondItem() : Item(Kind::COND) {}
    void load(const Type* type) override;
    void duplicate(const Type* type) override;
    void drop(const Type* type) override;
    void stash(const Type* type, int width) override;
    CondItem* mkCond() override { return this; }

    [[nodiscard]] bool isTrue() const;
    [[nodiscard]] bool isFalse() const;
    /// Jumps if the condition holds; gives all jumps that are taken then. The other outcome goes on here.
    Chain* jumpTrue();
    /// Jumps if the condition does not hold.
    Chain* jumpFalse();
    /// The opposite condition; takes the place of this one.
    CondItem* negate();

    Chain* trueJumps = nullptr;
    Chain* falseJumps = nullptr;
    int opcode = 0; ///< the jump that is taken if the condition holds; ALWAYS or NEVER if that is known
    CondItem* link = nullptr;
};

/// A field or method.
class MemberItem final : public Item {
public:
    MemberItem() : Item(Kind::FIELD) {}
    void load(const Type* type) override;
    void store(const Type* type) override;
    void duplicate(const Type* type) override;
    void drop(const Type* type) override;
    void discard(const Type* type) override;
    void stash(const Type* type, int width) override;
    void invoke() override;

    int pos = 0;
    Symbol* symbol = nullptr;
    ClassSymbol* site = nullptr; ///< through which it is reached; null for the class being generated
    bool nonvirtual = false;
    bool selfQualified = false;     ///< reached through `this` or a plain name
    MethodSymbol* setter = nullptr; ///< of a variable that `symbol` reads and this method assigns; else null
    MemberItem* link = nullptr;

private:
    void emitAccess(int instanceOpcode, int staticOpcode, int delta);
    [[nodiscard]] int trackedField() const;
};

/// What makes items. In an expression of a stopped program `thisItem` and `superItem` are the frame's variable `this`,
/// and a local variable of the generated code is an error (see eval/eval_item.h).
namespace items {

Item* voidItem();
Item* stackItem();
Item* indexedItem();
Item* thisItem();
Item* superItem();
Item* staticItem();

ImmediateItem* immediate(ConstantType* value);
LocalItem* local(int pos, int adr);
AssignItem* assign(Item* lhs, Origin valueOrigin = Origin::ORDINARY);
CondItem* cond(int opcode, Chain* trueJumps = nullptr, Chain* falseJumps = nullptr);
MemberItem* member(int pos, Symbol* symbol, ClassSymbol* site, bool nonvirtual = false, bool selfQualified = false);

} // namespace items

/// Ends the life of all items: a statement is complete.
void releaseItems();

} // namespace tarn
