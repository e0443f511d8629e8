#include "driver/reporter.h"
#include "semantic/type.h"
#include "syntax/name.h"
#include "syntax/operators.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// Writes a tree as text that looks like source, through the reporter's channel for progress; for looking at a tree. An
// operand is put in parentheses if it binds looser than the precedence that it is printed with.

namespace tarn {

namespace {

constexpr int ASSIGNMENT = -3;
constexpr int CONDITIONAL = -1;
constexpr int PREFIX = 10;
constexpr int POSTFIX = 11;
constexpr int INDENTATION_STEP = 3;

int indentation = 0; ///< of the line being written, in blanks

void write(std::string_view text) {
    printProgress(text);
}

void write(const Name* name) {
    if (name != nullptr) write(name->toString());
}

void writeIndentation() {
    write(std::string(static_cast<std::size_t>(indentation), ' '));
}

void open(int outer, int own) {
    if (outer > own) write("(");
}

void close(int outer, int own) {
    if (outer > own) write(")");
}

void printList(Trees trees) {
    bool isFirst = true;
    for (Tree* tree : trees) {
        if (!isFirst) write(", ");
        isFirst = false;
        tree->print();
    }
}

/// Each on a line of its own, one step deeper.
void printStatements(Trees trees) {
    indentation += INDENTATION_STEP;
    for (Tree* tree : trees) {
        writeIndentation();
        tree->print();
        write(";\n");
    }
    indentation -= INDENTATION_STEP;
}

/// `prefix` and the tree, if there is one.
void printOptional(std::string_view prefix, Tree* tree) {
    if (tree == nullptr) return;
    write(prefix);
    tree->print();
}

} // namespace

void Tree::print(int) {
    write("an AST");
}

// Expressions

void Ident::print(int) {
    write(name);
}

void Select::print(int) {
    selected->print(POSTFIX);
    write(".");
    write(name);
}

void Literal::print(int) {
    if (tag == treetag::STRING_LITERAL) {
        write("\"" + value->stringValue()->toAscii() + "\"");
    } else if (tag == treetag::CHAR_LITERAL) {
        write("'" + value->stringValue()->toAscii() + "'");
    } else {
        write(value->stringValue());
    }
}

void Self::print(int) {
    if (encl != nullptr) {
        encl->print(POSTFIX);
        write(".");
    }
    write(tag == treetag::THIS ? "this" : "super");
}

void Apply::print(int) {
    meth->print(POSTFIX);
    write("(");
    printList(args);
    write(")");
}

void Indexed::print(int) {
    indexed->print(POSTFIX);
    write("[");
    index->print();
    write("]");
}

void NewArray::print(int precedence) {
    open(precedence, PREFIX);
    write("new ");
    elemtype->print(POSTFIX);
    write("[]");
    close(precedence, PREFIX);
}

void NewClass::print(int precedence) {
    open(precedence, PREFIX);
    if (encl != nullptr) {
        encl->print(POSTFIX);
        write(".");
    }
    write("new ");
    clazz->print();
    write("(");
    printList(args);
    write(")");
    if (def != nullptr) {
        write(" ");
        def->body->Tree::print();
    }
    close(precedence, PREFIX);
}

void TypeArray::print(int) {
    elemtype->print(POSTFIX);
    write("[]");
}

void ArrayInit::print(int) {
    write("{");
    printList(elems);
    write("}");
}

void Unary::print(int precedence) {
    if (tag == treetag::NONNULL) return arg->print(precedence);
    bool isPostfix = tag == treetag::POSTINC || tag == treetag::POSTDEC;
    int own = isPostfix ? POSTFIX : PREFIX;
    open(precedence, own);
    if (isPostfix) {
        arg->print(own);
        write(" ");
        write(operatorName(tag));
    } else {
        write(operatorName(tag));
        write(" ");
        arg->print(own);
    }
    close(precedence, own);
}

void TypeOp::print(int precedence) {
    open(precedence, PREFIX);
    if (tag == treetag::TYPECAST) {
        write("(");
        clazz->print();
        write(")");
        expr->print(POSTFIX);
    } else {
        expr->print(PREFIX);
        write(" instanceof ");
        clazz->print(PREFIX);
    }
    close(precedence, PREFIX);
}

void Binary::print(int precedence) {
    int own = binaryOperators[tag - treetag::OR_OR].precedence;
    open(precedence, own);
    lhs->print(own);
    write(" ");
    write(operatorName(tag));
    write(" ");
    rhs->print(own);
    close(precedence, own);
}

void Assignop::print(int precedence) {
    open(precedence, ASSIGNMENT);
    lhs->print(ASSIGNMENT + 1);
    write(" ");
    write(operatorName(tag));
    write("= ");
    rhs->print(ASSIGNMENT + 1);
    close(precedence, ASSIGNMENT);
}

void Conditional::print(int precedence) {
    if (tag == treetag::IF) {
        write("if (");
        cond->print();
        write(") ");
        thenpart->print();
        printOptional(" else ", elsepart);
        return;
    }
    open(precedence, CONDITIONAL);
    cond->print(CONDITIONAL);
    write(" ? ");
    thenpart->print(CONDITIONAL);
    write(" : ");
    elsepart->print(CONDITIONAL);
    close(precedence, CONDITIONAL);
}

// Statements

void Block::print(int) {
    if (flags & flag::STATIC) write("static ");
    write("{\n");
    printStatements(stats);
    writeIndentation();
    write("}");
}

void Exec::print(int) {
    expr->print();
}

void Labelled::print(int) {
    write(label);
    write(": ");
    body->print();
}

void ForLoop::print(int) {
    write("for (");
    printList(init);
    write("; ");
    printOptional("", cond);
    write("; ");
    printList(step);
    write(") ");
    body->print();
}

void WhileLoop::print(int) {
    write("while (");
    cond->print();
    write(") ");
    body->print();
}

void DoLoop::print(int) {
    write("do ");
    body->print();
    write(" while (");
    cond->print();
    write(")");
}

void Switch::print(int) {
    write("switch (");
    selector->print();
    write(") {\n");
    for (Tree* tree : cases) tree->print();
    writeIndentation();
    write("}");
}

void Case::print(int) {
    writeIndentation();
    if (pat != nullptr) {
        printOptional("case ", pat);
    } else {
        write("default");
    }
    write(":\n");
    printStatements(stats);
}

void Try::print(int) {
    write("try ");
    body->print();
    for (Tree* catcher : catchers) printOptional(" catch", catcher);
    printOptional(" finally ", finalizer);
}

void Synchronized::print(int) {
    write("synchronized (");
    lock->print();
    write(") ");
    body->print();
}

void Return::print(int) {
    write("return ");
    printOptional("", expr);
}

void Throw::print(int) {
    printOptional("throw ", expr);
}

void Break::print(int) {
    write(label != nullptr ? "break " : "break");
    write(label);
}

void Continue::print(int) {
    write(label != nullptr ? "continue " : "continue");
    write(label);
}

// Declarations

void VarDef::print(int) {
    write(flagNames(flags));
    vartype->print();
    write(" ");
    write(name);
    printOptional(" = ", init);
}

void MethodDef::print(int) {
    write(flagNames(flags));
    printOptional("", restype);
    write(" ");
    write(name);
    write("(");
    printList(params);
    write(") ");
    printList(thrown);
    if (body != nullptr) {
        body->Tree::print();
    } else {
        write(";");
    }
}

void ClassDef::print(int) {
    bool isInterface = (flags & flag::INTERFACE) != 0;
    write(flagNames(flags & ~std::uint32_t{flag::INTERFACE}));
    write(isInterface ? "interface " : "class ");
    write(name);
    printOptional(" extends ", extending);
    if (!implementing.empty()) {
        write(isInterface ? " extends " : " implements ");
        printList(implementing);
    }
    write(" ");
    body->Tree::print();
}

void Import::print(int) {
    printOptional("import ", tree);
}

void PackageDecl::print(int) {
    printOptional("package ", pid);
}

void CompilationUnit::print(int) {
    for (Tree* def : defs) {
        def->print();
        write("\n");
    }
}

} // namespace tarn
