#pragma once

#include "codegen/tree_maker.h"
#include "syntax/tree_expressions.h"

#include <deque>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarn {

/// Where in a unit lowering stands: a class, and whether the code is in a constructor of it. Lives in the unit's arena.
struct Place {
    Place* outer = nullptr; ///< where the class is declared; null for a top-level class
    ClassDef* tree = nullptr;
    ClassSymbol* c = nullptr;
    MethodDef* constructor = nullptr; ///< null outside of constructors
    bool inSelfCall = false;          ///< among the arguments of this(...) or super(...): there is no object yet
};

/// Rewrites a unit whose classes are nested into one of plain classes.
///
/// The trees are attributed before and after. What lowering makes carries its symbols from the start, and what it takes
/// over keeps those that attribution has found, so that no name is searched for in a place where it may mean something
/// else. The symbols stay those of the source, too: a member class is a member of the class around it for whoever looks
/// at it afterwards. What they gain is the synthetic members, in the order in which the class file lists all members.
///
/// One object lowers any number of units, one at a time. Errors are reported against the current source.
class Lowering {
public:
    /// Lowers a unit that was attributed without errors. Its definitions are then the top-level classes and behind them
    /// the inner ones, the innermost first, which is the order of their class files.
    void lower(CompilationUnit* unit);

private:
    // A captured variable of a local class: the variable, and the field that holds the copy.
    struct Captured {
        VarSymbol* variable;
        VarSymbol* field;
    };
    // What lowering adds to a class.
    struct ClassInfo {
        Place* place = nullptr;
        std::size_t number = 0;          ///< of an inner class, among those that were moved
        VarSymbol* outerField = nullptr; ///< `this0`; null until needed
        bool storesFirst = false;        ///< the hidden fields are needed while the superclass's constructor runs
        std::vector<Captured> captured;  ///< oldest first
        std::vector<MethodDef*> constructors;
    };
    // The hidden parameters of a constructor.
    struct Parameters {
        VarSymbol* outer = nullptr;
        std::vector<std::pair<VarSymbol*, VarSymbol*>> captured; ///< variable and parameter, in order of need
    };
    // A call of a constructor of a local class, which gets the captured variables once all are known.
    struct PendingCall {
        Tree* call; ///< NewClass, or Apply of this(...) or super(...)
        ClassSymbol* callee;
        Place* place;
        std::vector<Tree*> values;
    };
    // An access method of a member: what it does (the tag of an operation), and on a value of which type.
    struct AccessMethod {
        int op;
        Type* operand; ///< null if there is none
        MethodSymbol* symbol;
    };
    // A private or protected member, and the class whose access methods reach it.
    struct Accessed {
        Symbol* member;
        ClassSymbol* host;
        int number;
        std::vector<AccessMethod> methods; ///< in order of first use
    };
    // A constructor by which other classes of the unit call a private one.
    struct AccessConstructor {
        MethodSymbol* target;
        MethodSymbol* symbol;
    };

    // lower_classes.cpp
    void reset(CompilationUnit* unit);
    Tree* translateTop(Tree* tree);
    void translateClass(ClassDef* tree, Place* outer);
    void translateMethod(MethodDef* tree, Place* place);
    void finishClass(ClassDef* tree);
    void findEarlyStores();
    void addHiddenFields(ClassDef* tree, ClassInfo& info);
    void finishConstructor(MethodDef* tree, ClassInfo& info);
    void enterMember(ClassSymbol* c, Symbol* made);
    void enterMemberClasses();
    void orderMembers(ClassDef* tree);

    // lower_trees.cpp
    /// The statement, or null if it was a class.
    Tree* translateStat(Tree* tree, Place* place);
    /// The expression; a call of an access method, if the variable cannot be reached otherwise.
    Tree* translateExpr(Tree* tree, Place* place);
    Trees translateStats(Trees stats, Place* place);
    void translateExprs(Trees exprs, Place* place);
    /// As `translateStat`, where there has to be a statement.
    Tree* translateSingleStat(Tree* tree, Place* place);
    void translateTry(Try* tree, Place* place);
    Tree* translateAssignment(Assignop* tree, Place* place);
    Tree* translateUnary(Unary* tree, Place* place);

    // lower_names.cpp: names, `this`, captured variables
    Tree* translateVariable(Tree* tree, Place* place, int op, Type* operand);
    Tree* translateIdent(Ident* tree, Place* place, int op, Type* operand);
    Tree* translateSelect(Select* tree, Place* place, int op, Type* operand);
    Tree* translateSelf(Self* tree, Place* place);
    /// The instance of the enclosing class `k`.
    Tree* outerThis(Place* place, const ClassSymbol* k);
    Tree* ownOuterThis(Place* place);
    /// The value of the variable, which may be one of a class further out.
    Tree* captured(Place* place, VarSymbol* v);
    /// The field of `holder` that holds the variable.
    VarSymbol* capture(ClassSymbol* holder, VarSymbol* v);
    VarSymbol* outerField(ClassSymbol* c);
    VarSymbol* outerParameter(MethodDef* constructor);
    VarSymbol* capturedParameter(MethodDef* constructor, VarSymbol* v);

    // lower_calls.cpp: calls of constructors
    Tree* translateApply(Apply* tree, Place* place);
    Tree* translateSelfCall(Apply* tree, Self* callee, Place* place);
    Tree* translateNewClass(NewClass* tree, Place* place);
    void collectValues();
    void passValues();

    // lower_access.cpp: members that another class of the unit has no access to
    /// The member selected from the qualifier by way of an access method of `host`: a callee for a method, a call
    /// (without its operand) for a variable.
    Tree* access(Tree* qualifier, Symbol* member, ClassSymbol* host, int op, Type* operand);
    MethodSymbol* accessMethod(Symbol* member, ClassSymbol* host, int op, Type* operand);
    /// The access method that assigns to the field of which `getter` is the one that reads it.
    MethodSymbol* setterBeside(const Symbol* getter);
    MethodSymbol* accessConstructor(MethodSymbol* constructor);
    Trees accessArguments(Trees args, const Symbol* accessConstructor);
    Accessed& accessed(Symbol* member, ClassSymbol* host);
    void addAccessMethods(ClassDef* tree);
    Tree* makeAccessMethod(const Accessed& accessed, const AccessMethod& method, ClassDef* tree);
    Tree* makeAccessConstructor(MethodSymbol* made, MethodSymbol* target, ClassDef* tree);

    TreeMaker make_;
    std::vector<Tree*> movedClasses_; ///< inner classes taken out of their place, as their translation ended
    std::unordered_map<ClassSymbol*, ClassInfo> classes_; ///< every class of the unit
    std::unordered_map<MethodDef*, Parameters> parameters_;
    std::deque<PendingCall> pendingCalls_;
    std::deque<Accessed> accessed_; ///< by number
    std::vector<AccessConstructor> accessConstructors_;
};

} // namespace tarn
