#pragma once

#include "syntax/tree.h"

namespace tarn {

class Bits;
class MethodDef;
class Try;
struct Chain;

// The nodes of statements, in this order: plain ones, those that jump, those that can be left, and `try`.

class Block : public Tree {
public:
    Block(int pos_, int endPos_, std::uint32_t flags_, Trees stats_)
        : Tree(pos_, treetag::BLOCK), endPos(endPos_), flags(flags_), stats(stats_) {}
    /// Ends where its last statement stands.
    Block(int pos_, Trees stats_) : Block(pos_, stats_.empty() ? pos_ : stats_.back()->pos, 0, stats_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    int endPos; ///< of the closing brace
    std::uint32_t flags;
    Trees stats;
    Env* env = nullptr;
};

class Exec final : public Tree {
public:
    Exec(int pos_, Tree* expr_) : Tree(pos_, treetag::EXEC), expr(expr_) {}
    Exec(int pos_, Tree* expr_, Type* type_) : Exec(pos_, expr_) { type = type_; }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr;
};

/// The Try and Synchronized statements that a jump leaves, the outermost first.
struct TryList {
    Try* head;
    TryList* tail;
};

class Jump : public Tree {
public:
    using Tree::Tree;
    /// Emits the calls of the finally subroutines that the jump leaves, the innermost first.
    void genFinalizers();
    /// Whether there are any.
    [[nodiscard]] bool leavesFinalizer() const;

    TryList* finalizers = nullptr;

protected:
    /// Emits the jump behind those calls, and gives its chain.
    Chain* genLeave();
};

class Break final : public Jump {
public:
    Break(int pos_, Name* label_) : Jump(pos_, treetag::BREAK), label(label_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;            ///< null if there is none
    Tree* target = nullptr; ///< the LoopTree jumped out of
};

class Continue final : public Jump {
public:
    Continue(int pos_, Name* label_) : Jump(pos_, treetag::CONTINUE), label(label_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;
    Tree* target = nullptr; ///< the loop
};

class Return final : public Jump {
public:
    Return(int pos_, Tree* expr_) : Jump(pos_, treetag::RETURN), expr(expr_) {}
    Return(int pos_, Tree* expr_, Type* type_) : Return(pos_, expr_) { type = type_; }
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr; ///< null if there is none
    MethodDef* method = nullptr;
};

class Throw final : public Jump {
public:
    Throw(int pos_, Tree* expr_) : Jump(pos_, treetag::THROW), expr(expr_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* expr;
    Env* env = nullptr; ///< of the statement
};

/// What `break` (and `continue`) can leave.
class LoopTree : public Tree {
public:
    using Tree::Tree;

    Chain* exit = nullptr; ///< pending jumps of `break`, while the statement is generated
    Chain* cont = nullptr; ///< pending jumps of `continue`
};

class Labelled final : public LoopTree {
public:
    Labelled(int pos_, Name* label_, Tree* body_) : LoopTree(pos_, treetag::LABELLED), label(label_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Name* label;
    Tree* body;
};

class WhileLoop final : public LoopTree {
public:
    WhileLoop(int pos_, Tree* cond_, Tree* body_) : LoopTree(pos_, treetag::WHILELOOP), cond(cond_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* cond;
    Tree* body;
};

class DoLoop final : public LoopTree {
public:
    DoLoop(int pos_, Tree* body_, Tree* cond_) : LoopTree(pos_, treetag::DOLOOP), body(body_), cond(cond_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* body;
    Tree* cond;
};

class ForLoop final : public LoopTree {
public:
    ForLoop(int pos_, Trees init_, Tree* cond_, Trees step_, Tree* body_)
        : LoopTree(pos_, treetag::FORLOOP), init(init_), cond(cond_), step(step_), body(body_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Trees init;
    Tree* cond; ///< null if there is none
    Trees step;
    Tree* body;
    Env* env = nullptr;
};

class Case final : public Tree {
public:
    Case(int pos_, Tree* pat_, Trees stats_) : Tree(pos_, treetag::CASE), pat(pat_), stats(stats_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* pat; ///< null for `default`
    Trees stats;
    int value = 0; ///< of the label
};

class Switch final : public LoopTree {
public:
    Switch(int pos_, Tree* selector_, Trees cases_)
        : LoopTree(pos_, treetag::SWITCH), selector(selector_), cases(cases_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    Tree* selector;
    Trees cases;
    Env* env = nullptr; ///< of the cases
};

class Try : public Tree {
public:
    Try(int pos_, Tree* body_, Trees catchers_, Tree* finalizer_)
        : Tree(pos_, treetag::TRY), body(body_), catchers(catchers_), finalizer(finalizer_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;

    [[nodiscard]] bool hasFinalizer() const { return finalizer != nullptr; }
    /// Emits the call of the finally subroutine, if there is one and this point can be reached.
    void genFinalizerCall();
    /// Emits what the subroutine does.
    virtual void genFinalizerBody();

    Tree* body;
    Trees catchers;            ///< MethodDefs of tag CATCH
    Tree* finalizer;           ///< null if there is none
    Chain* jsrChain = nullptr; ///< pending calls of the finally subroutine
    bool reachable = false;    ///< control can get into the body
    int startPc = 0;           ///< range of the body
    int endPc = 0;
    Bits* startUnset = nullptr; ///< the assignment sets at the start and the end of the body, while it is generated
    Bits* endUnset = nullptr;
    Bits* endSet = nullptr;

protected:
    void genTry();
    Type* attrTry(Env* env, Type* pt);

private:
    Chain* genCatchers(Chain* exit);
    void genCatchAll();
    void genSubroutine(Chain* exit);
};

/// Built on Try: no catchers, and an empty block as finalizer.
class Synchronized final : public Try {
public:
    Synchronized(int pos_, Tree* lock_, Tree* body_, Block* emptyFinalizer);
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    void genFinalizerBody() override;

    Tree* lock;
    int lockVar = 0; ///< variable index
};

} // namespace tarn
