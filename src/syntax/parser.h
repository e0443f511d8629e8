#pragma once

#include "driver/messages.h"
#include "syntax/name.h"
#include "syntax/position.h"
#include "syntax/scanner.h"
#include "syntax/token.h"
#include "syntax/tree_factory.h"

#include <cstdint>
#include <string_view>

namespace tarn {

/// Recursive descent over the tokens of one source. Each construct is handed to a factory, which builds trees or
/// collects what it is after.
///
/// There is one grammar for types and expressions: a term is parsed in a mode that says what may stand there, and the
/// factory's `isExpr` and `isType` say what it turned out to be. So a declaration and an expression statement are told
/// apart afterwards, by those flags and the next token, without backtracking and with one token of lookahead. No
/// decision is taken from a node, since a factory may give none.
///
/// A syntax error is reported where it is found, tokens are skipped up to the end of the statement or to a class, and
/// parsing goes on; it always reaches the end of the source. At most one error is reported per token that it is stuck
/// at. Source that is nested too deep is reported once, and the rest of it counts as empty.
class Parser {
public:
    /// Reads `scanner` from its current token on; both must outlive the parser, and the current source of the reporter
    /// must be that of the scanner.
    Parser(Scanner& scanner, TreeFactory& factory);

    /// Parses a whole source: its package clause, imports and classes, in order. The list comes from the factory.
    TreeBuffer* compilationUnit();
    /// Parses one expression and stops behind it.
    Tree* expression() { return term(EXPR); }

private:
    /// What a term may be, as a set of bits; without any, only a name.
    enum Mode : int { NAME = 0, TYPE = 1, EXPR = 2, TYPE_OR_EXPR = 3 };

    /// One or more levels of recursion, for as long as it lives.
    class Nesting {
    public:
        explicit Nesting(Parser& parser, int levels = 1) : parser_(parser), levels_(levels) {
            parser_.depth_ += levels;
        }
        ~Nesting() { parser_.depth_ -= levels_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
        [[nodiscard]] bool isTooDeep() const { return parser_.depth_ > parser_.depthLimit_; }

    private:
        Parser& parser_;
        int levels_;
    };

    // Tokens and errors
    [[nodiscard]] Token token() const { return scanner_.token; }
    [[nodiscard]] Position pos() const { return scanner_.pos; }
    void step() { scanner_.nextToken(); }
    void accept(Token kind) {
        if (token() == kind) {
            step();
        } else {
            expected(kind);
        }
    }
    void expected(Token kind);
    Name* ident();
    void report(Position at, MessageId message, std::string_view argument = {});
    void syntaxError(Position at, MessageId message, std::string_view argument = {});
    void skip();
    Tree* erroneous();
    Tree* giveUp();

    // Terms
    Tree* term(int mode);
    Tree* term1(int mode);
    Tree* term2(int mode);
    Tree* term3(int mode);
    Tree* type() { return term(TYPE); }
    Tree* parExpression();
    Tree* assignmentRest(Tree* lhs);
    Tree* conditionalRest(Tree* cond);
    Tree* binaryRest(Tree* first);
    Tree* typeTest(Tree* expr);
    Tree* prefixTerm();
    Tree* primary(int mode);
    Tree* literal();
    Tree* self(int tag, Tree* encl);
    Tree* superWithQualifier(Tree* encl, Position start);
    Tree* suffixes(Tree* t, Position start, int mode);
    Tree* dotSuffix(Tree* t, Position start);
    Tree* indexSuffix(Tree* t, Position start, int mode);
    Tree* classLiteral(Tree* t);
    Tree* typeOrName(int mode);
    bool nameEnd(Tree*& t, Position start);
    Tree* typeOrNameStart(int mode);
    Tree* parenthesised(int mode);
    [[nodiscard]] bool atCastOperand() const;
    Tree* creator();
    Tree* arrayCreator(Position start, Tree* elemtype);
    Tree* innerCreator(Tree* outer);
    Tree* classBodyOpt();
    TreeBuffer* arguments();
    Tree* arrayInitializer(Tree* elemtype);
    Tree* variableInitializer();
    Tree* bracketsOpt(Tree* t);

    // Operators
    Tree* makeBinop(Position at, Token op, Tree* lhs, Tree* rhs);
    Tree* makeAssignment(Position at, Token op, Tree* lhs, Tree* rhs);
    Tree* makePreop(Position at, Token op, Tree* arg);
    Tree* makePostop(Position at, Token op, Tree* arg);

    // Statements
    TreeBuffer* blockStatement(TreeBuffer* list);
    TreeBuffer* finalDeclaration(TreeBuffer* list);
    TreeBuffer* abstractDeclaration(TreeBuffer* list);
    TreeBuffer* declarationOrExpression(TreeBuffer* list);
    Tree* ifStatement();
    Tree* forStatement();
    Tree* whileStatement();
    Tree* doStatement();
    Tree* tryStatement();
    Tree* catchClause();
    Tree* switchStatement();
    Tree* synchronizedStatement();
    Tree* returnStatement();
    Tree* throwStatement();
    Tree* breakStatement();
    Tree* continueStatement();
    Name* labelOpt();
    Tree* statement();
    Tree* labelledBody();
    Tree* requiredBlock();
    Tree* block(std::uint32_t flags);
    Tree* codeBlock(std::uint32_t flags);
    TreeBuffer* blockStatements();
    TreeBuffer* switchCases();
    Tree* switchCase();
    TreeBuffer* forInit();
    TreeBuffer* forUpdate();
    TreeBuffer* moreExpressions(TreeBuffer* list);
    [[nodiscard]] bool isBroken() const;
    bool checkExprOrDecl();
    void checkStatement();

    // Declarations
    std::uint32_t modifiers();
    Tree* packageDeclaration();
    Tree* importDeclaration();
    TreeBuffer* typeDeclaration(TreeBuffer* list);
    [[nodiscard]] bool atClass() const { return token() == Token::CLASS || token() == Token::INTERFACE; }
    Tree* classOrInterface(std::uint32_t mods);
    Tree* classDeclaration(std::uint32_t mods);
    Tree* interfaceDeclaration(std::uint32_t mods);
    TreeBuffer* types();
    Tree* classBody(Name* name, bool isInterface);
    TreeBuffer* classMember(TreeBuffer* list, Name* className, bool isInterface);
    TreeBuffer* fieldOrMethod(TreeBuffer* list, std::uint32_t mods, Name* className, bool isInterface);
    Tree* methodRest(Position at, Name* name, Tree* restype, std::uint32_t mods);
    TreeBuffer* formalParameters();
    std::uint32_t finalOpt();
    Tree* formalParameter(std::uint32_t flags, Tree* type);
    TreeBuffer* declarators(TreeBuffer* list, std::uint32_t flags, Tree* type);
    TreeBuffer* variableDeclarators(TreeBuffer* list, Position at, bool requireInit, Tree* type, std::uint32_t flags,
                                    Name* name);
    Tree* variableDeclarator(Position at, bool requireInit, Tree* type, std::uint32_t flags, Name* name);

    Scanner& scanner_;
    TreeFactory& factory_;
    bool inCode_ = false; ///< in a method's body, an initializer or a field; else directly in a class or at top level
    bool gaveUp_ = false; ///< nested too deep: the rest of the source is not looked at, and nothing more is reported
    int depth_ = 0;       ///< levels of recursion, see nesting.h
    int depthLimit_;
};

} // namespace tarn
