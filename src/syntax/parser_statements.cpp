#include "syntax/parser.h"

#include "driver/reporter.h"
#include "semantic/flags.h"
#include "syntax/nesting.h"

namespace tarn {

/// Parses a statement or a declaration and appends what it gives: nothing for `;`, several nodes for a declaration of
/// several variables.
TreeBuffer* Parser::blockStatement(TreeBuffer* list) {
    Nesting nesting(*this);
    if (nesting.isTooDeep()) {
        giveUp();
        return list;
    }
    switch (token()) {
    case Token::SEMICOLON: step(); return list;
    case Token::LBRACE: return factory_.append(list, block(0));
    case Token::IF: return factory_.append(list, ifStatement());
    case Token::FOR: return factory_.append(list, forStatement());
    case Token::WHILE: return factory_.append(list, whileStatement());
    case Token::DO: return factory_.append(list, doStatement());
    case Token::TRY: return factory_.append(list, tryStatement());
    case Token::SWITCH: return factory_.append(list, switchStatement());
    case Token::SYNCHRONIZED: return factory_.append(list, synchronizedStatement());
    case Token::RETURN: return factory_.append(list, returnStatement());
    case Token::THROW: return factory_.append(list, throwStatement());
    case Token::BREAK: return factory_.append(list, breakStatement());
    case Token::CONTINUE: return factory_.append(list, continueStatement());
    case Token::ELSE: syntaxError(pos(), messages::elseWithoutIf); return list;
    case Token::FINALLY: syntaxError(pos(), messages::finallyWithoutTry); return list;
    case Token::CATCH: syntaxError(pos(), messages::catchWithoutTry); return list;
    case Token::CLASS:
    case Token::INTERFACE: return factory_.append(list, classOrInterface(0));
    case Token::FINAL: return finalDeclaration(list);
    case Token::ABSTRACT: return abstractDeclaration(list);
    default: return declarationOrExpression(list);
    }
}

TreeBuffer* Parser::finalDeclaration(TreeBuffer* list) {
    std::uint32_t mods = modifiers();
    if (atClass()) return factory_.append(list, classOrInterface(mods));
    list = declarators(list, mods, type());
    accept(Token::SEMICOLON);
    return list;
}

TreeBuffer* Parser::abstractDeclaration(TreeBuffer* list) {
    std::uint32_t mods = modifiers();
    if (atClass()) return factory_.append(list, classOrInterface(mods));
    report(pos(), messages::tokenExpected, "'class'");
    return list;
}

/// A label, a declaration of local variables, or an expression statement: only what follows the first term tells.
TreeBuffer* Parser::declarationOrExpression(TreeBuffer* list) {
    Position start = pos();
    Name* label = token() == Token::IDENTIFIER ? scanner_.name : nullptr;
    Tree* t = term(TYPE_OR_EXPR);
    bool isLabel = label != nullptr && factory_.lastTag == treetag::IDENT && factory_.isExpr && token() == Token::COLON;
    if (isLabel) {
        step();
        Tree* body = labelledBody();
        return factory_.append(list, factory_.labelled(start, label, body));
    }
    if (token() == Token::IDENTIFIER && factory_.isType) {
        list = declarators(list, 0, t);
    } else {
        checkStatement();
        list = factory_.append(list, factory_.exec(start, t));
    }
    accept(Token::SEMICOLON);
    return list;
}

/// Whether the last term is broken, so that something was reported about it already: it is erroneous, or a syntax error
/// ended it.
bool Parser::isBroken() const {
    return factory_.lastTag == treetag::ERRONEOUS || scanner_.pos == scanner_.errorPos;
}

/// Whether the last term can be an expression; reports if not, but nothing more about a broken one.
bool Parser::checkExprOrDecl() {
    if (factory_.isExpr || isBroken()) return true;
    report(factory_.lastPos, factory_.isType ? messages::malformedDeclaration : messages::malformedExpression);
    return false;
}

/// Reports a last term that cannot stand as a statement.
void Parser::checkStatement() {
    if (!checkExprOrDecl()) return;
    int tag = factory_.lastTag;
    bool isStatement = (tag >= treetag::ASSIGN && tag <= treetag::MOD_ASG) ||
                       (tag >= treetag::PREINC && tag <= treetag::POSTDEC) || tag == treetag::APPLY ||
                       tag == treetag::NEWCLASS;
    if (!isStatement && !isBroken()) report(factory_.lastPos, messages::notAStatement);
}

// Compound statements; the keyword is the current token

Tree* Parser::ifStatement() {
    Position start = pos();
    step();
    Tree* cond = parExpression();
    Tree* thenpart = statement();
    Tree* elsepart = nullptr;
    if (token() == Token::ELSE) {
        step();
        elsepart = statement();
    }
    return factory_.conditional(start, treetag::IF, cond, thenpart, elsepart);
}

Tree* Parser::forStatement() {
    Position start = pos();
    step();
    accept(Token::LPAREN);
    TreeBuffer* init = forInit();
    accept(Token::SEMICOLON);
    Tree* cond = token() == Token::SEMICOLON ? nullptr : expression();
    accept(Token::SEMICOLON);
    TreeBuffer* update = forUpdate();
    accept(Token::RPAREN);
    Tree* body = statement();
    return factory_.forLoop(start, init, cond, update, body);
}

/// Neither this nor the update is held to be statements.
TreeBuffer* Parser::forInit() {
    TreeBuffer* list = factory_.newList();
    if (token() == Token::SEMICOLON) return list;
    if (token() == Token::FINAL) {
        step();
        return declarators(list, flag::FINAL, type());
    }
    Tree* t = term(TYPE_OR_EXPR);
    if (token() == Token::IDENTIFIER && factory_.isType) return declarators(list, 0, t);
    if (!checkExprOrDecl()) return list;
    return moreExpressions(factory_.append(list, t));
}

TreeBuffer* Parser::forUpdate() {
    TreeBuffer* list = factory_.newList();
    if (token() == Token::RPAREN) return list;
    return moreExpressions(factory_.append(list, expression()));
}

Tree* Parser::whileStatement() {
    Position start = pos();
    step();
    Tree* cond = parExpression();
    Tree* body = statement();
    return factory_.whileLoop(start, cond, body);
}

Tree* Parser::doStatement() {
    Position start = pos();
    step();
    Tree* body = statement();
    accept(Token::WHILE);
    Tree* cond = parExpression();
    accept(Token::SEMICOLON);
    return factory_.doLoop(start, body, cond);
}

Tree* Parser::tryStatement() {
    Position start = pos();
    step();
    Tree* body = requiredBlock();
    TreeBuffer* catchers = factory_.newList();
    Tree* finalizer = nullptr;
    bool isComplete = token() == Token::CATCH || token() == Token::FINALLY;
    while (token() == Token::CATCH) catchers = factory_.append(catchers, catchClause());
    if (token() == Token::FINALLY) {
        step();
        finalizer = requiredBlock();
    }
    if (!isComplete) report(start, messages::tryWithoutCatchOrFinally);
    return factory_.tryStat(start, body, catchers, finalizer);
}

Tree* Parser::catchClause() {
    Position start = pos();
    step();
    accept(Token::LPAREN);
    std::uint32_t flags = finalOpt();
    Tree* exception = formalParameter(flags, type());
    TreeBuffer* params = factory_.append(factory_.newList(), exception);
    accept(Token::RPAREN);
    Tree* body = requiredBlock();
    return factory_.methodDef(start, treetag::CATCH, nullptr, 0, nullptr, params, nullptr, body);
}

Tree* Parser::switchStatement() {
    Position start = pos();
    step();
    Tree* selector = parExpression();
    accept(Token::LBRACE);
    TreeBuffer* cases = switchCases();
    accept(Token::RBRACE);
    return factory_.switchStat(start, selector, cases);
}

TreeBuffer* Parser::switchCases() {
    TreeBuffer* cases = factory_.newList();
    while (token() == Token::CASE || token() == Token::DEFAULT) cases = factory_.append(cases, switchCase());
    return cases;
}

Tree* Parser::switchCase() {
    Position start = pos();
    bool hasPattern = token() == Token::CASE;
    step();
    Tree* pattern = hasPattern ? expression() : nullptr;
    accept(Token::COLON);
    TreeBuffer* stats = blockStatements();
    return factory_.caseLabel(start, pattern, stats);
}

Tree* Parser::synchronizedStatement() {
    Position start = pos();
    step();
    Tree* lock = parExpression();
    Tree* body = statement();
    return factory_.synchronizedStat(start, lock, body);
}

// Simple statements; the keyword is the current token

Tree* Parser::returnStatement() {
    Position start = pos();
    step();
    Tree* expr = token() == Token::SEMICOLON ? nullptr : expression();
    accept(Token::SEMICOLON);
    return factory_.returnStat(start, expr);
}

Tree* Parser::throwStatement() {
    Position start = pos();
    step();
    Tree* expr = expression();
    accept(Token::SEMICOLON);
    return factory_.throwStat(start, expr);
}

Tree* Parser::breakStatement() {
    Position start = pos();
    step();
    Name* label = labelOpt();
    accept(Token::SEMICOLON);
    return factory_.breakStat(start, label);
}

Tree* Parser::continueStatement() {
    Position start = pos();
    step();
    Name* label = labelOpt();
    accept(Token::SEMICOLON);
    return factory_.continueStat(start, label);
}

Name* Parser::labelOpt() {
    return token() == Token::IDENTIFIER ? ident() : nullptr;
}

// Bodies and blocks

/// The body of a compound statement: a block, but for a lone declaration, which attribution is to find and to reject.
Tree* Parser::statement() {
    Position start = pos();
    TreeBuffer* list = blockStatement(factory_.newList());
    int tag = factory_.lastTag;
    bool mayBeDeclaration = tag == treetag::VARDEF || tag == treetag::CLASSDEF || tag == treetag::ERRONEOUS;
    if (mayBeDeclaration) {
        if (Tree* only = factory_.single(list)) return only;
    }
    return factory_.block(start, list);
}

/// The body of a labelled statement: the statement itself.
Tree* Parser::labelledBody() {
    Position start = pos();
    TreeBuffer* list = blockStatement(factory_.newList());
    if (Tree* only = factory_.single(list)) return only;
    return factory_.block(start, list);
}

/// The body of a part of a `try`; any statement passes, with a warning.
Tree* Parser::requiredBlock() {
    if (token() == Token::LBRACE) return block(0);
    if (!gaveUp_) reportWarning(pos(), messages::obsoleteSyntaxBraceRequired);
    return labelledBody();
}

Tree* Parser::block(std::uint32_t flags) {
    Position start = pos();
    accept(Token::LBRACE);
    TreeBuffer* stats = blockStatements();
    Tree* t = factory_.blockWithEnd(start, pos(), flags, stats);
    if (token() == Token::CASE || token() == Token::DEFAULT)
        syntaxError(pos(), messages::labelOutsideOfSwitch, tokenName(token()));
    accept(Token::RBRACE);
    return t;
}

/// The body of a method or initializer, which is passed over if nobody wants it.
Tree* Parser::codeBlock(std::uint32_t flags) {
    bool isSkipped = !factory_.wantsCode && token() == Token::LBRACE && scanner_.skipBlock();
    if (!isSkipped) return block(flags);
    step();
    return nullptr;
}

TreeBuffer* Parser::blockStatements() {
    TreeBuffer* list = factory_.newList();
    while (token() != Token::RBRACE && token() != Token::CASE && token() != Token::DEFAULT &&
           token() != Token::END_OF_INPUT)
        list = blockStatement(list);
    return list;
}

} // namespace tarn
