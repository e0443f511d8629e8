#include "syntax/parser.h"

#include "runtime/failure.h"
#include "semantic/flags.h"
#include "semantic/type.h"
#include "syntax/operators.h"
#include "syntax/well_known_names.h"

#include <array>
#include <cstddef>

// Terms, from the loosest binding to the tightest: assignment (term), conditional (term1), binary operators and
// `instanceof` (term2), and the unary operators and primaries (term3). What a mode allows only matters for the first
// operand: as soon as an operator follows, the term is an expression.

namespace tarn {

namespace {

int infixTag(Token token) {
    return infixTags[static_cast<std::size_t>(token)];
}

bool isAssignment(Token token) {
    return infixTag(token) >= treetag::ASSIGN;
}

int precedenceOf(Token token) {
    return binaryPrecedence[static_cast<std::size_t>(token)];
}

bool isPrefixOperator(Token token) {
    switch (token) {
    case Token::PLUS:
    case Token::MINUS:
    case Token::NOT:
    case Token::TILDE:
    case Token::INCREMENT:
    case Token::DECREMENT: return true;
    default: return false;
    }
}

/// Whether it is a primitive type or `void`.
bool isPrimitive(Token token) {
    return token >= Token::BOOLEAN && token <= Token::VOID;
}

} // namespace

// Operators to nodes

Tree* Parser::makeBinop(Position at, Token op, Tree* lhs, Tree* rhs) {
    int tag = infixTag(op);
    require(tag >= treetag::OR_OR && tag <= treetag::MOD, "makeBinop");
    return factory_.binary(at, tag, lhs, rhs);
}

Tree* Parser::makeAssignment(Position at, Token op, Tree* lhs, Tree* rhs) {
    int tag = infixTag(op);
    require(tag >= treetag::ASSIGN && tag <= treetag::MOD_ASG, "makeAssignment");
    return factory_.assign(at, tag, lhs, rhs);
}

Tree* Parser::makePreop(Position at, Token op, Tree* arg) {
    for (const OperatorInfo& info : unaryOperators)
        if (info.token == op) return factory_.unary(at, info.tag, arg);
    throw InternalError("makePreop");
}

Tree* Parser::makePostop(Position at, Token op, Tree* arg) {
    require(op == Token::INCREMENT || op == Token::DECREMENT, "makePostop");
    return factory_.unary(at, op == Token::INCREMENT ? treetag::POSTINC : treetag::POSTDEC, arg);
}

// Levels

Tree* Parser::term(int mode) {
    Tree* t = term1(mode);
    if (isAssignment(token()) && (mode & EXPR) && factory_.isExpr) return assignmentRest(t);
    return t;
}

Tree* Parser::assignmentRest(Tree* lhs) {
    Nesting nesting(*this);
    if (nesting.isTooDeep()) return giveUp();
    Position at = pos();
    Token op = token();
    step();
    Tree* rhs = term(EXPR);
    return makeAssignment(at, op, lhs, rhs);
}

inline Tree* Parser::term1(int mode) {
    Tree* t = term2(mode);
    if (token() == Token::QUESTION && (mode & EXPR) && factory_.isExpr) return conditionalRest(t);
    return t;
}

Tree* Parser::conditionalRest(Tree* cond) {
    Nesting nesting(*this);
    if (nesting.isTooDeep()) return giveUp();
    Position at = pos();
    step();
    Tree* thenpart = expression();
    accept(Token::COLON);
    Tree* elsepart = term1(EXPR);
    return factory_.conditional(at, treetag::CONDITIONAL, cond, thenpart, elsepart);
}

inline Tree* Parser::term2(int mode) {
    Tree* t = term3(mode);
    if (precedenceOf(token()) >= 0 && (mode & EXPR) && factory_.isExpr) return binaryRest(t);
    return t;
}

/// Operator precedence with two stacks. Equal precedence reduces at once, so that the pending operators bind ever
/// tighter and there are never more of them than levels of precedence. Nodes get the position of the operator read
/// last. `instanceof` is complete as soon as its type is read, and never pending.
Tree* Parser::binaryRest(Tree* first) {
    std::array<Token, 10> operators;
    std::array<Tree*, 11> operands;
    std::size_t top = 0;
    operands[0] = first;
    Position at = NO_POSITION;
    while (precedenceOf(token()) >= 0) {
        if (token() == Token::INSTANCEOF) {
            operands[top] = typeTest(operands[top]);
        } else {
            operators[top] = token();
            if (token() == Token::MINUS) scanner_.negativeLiteral = false;
            at = pos();
            step();
            operands[++top] = term3(EXPR);
        }
        while (top > 0 && precedenceOf(operators[top - 1]) >= precedenceOf(token())) {
            top--;
            operands[top] = makeBinop(at, operators[top], operands[top], operands[top + 1]);
        }
    }
    return operands[0];
}

/// What stands behind an expression that is tested; `instanceof` is the current token.
Tree* Parser::typeTest(Tree* expr) {
    Position at = pos();
    step();
    Tree* clazz = type();
    return factory_.typeOp(at, treetag::TYPETEST, expr, clazz);
}

Tree* Parser::term3(int mode) {
    Nesting nesting(*this);
    if (nesting.isTooDeep()) [[unlikely]]
        return giveUp();
    if ((mode & EXPR) && isPrefixOperator(token())) return prefixTerm();
    Position start = pos();
    Tree* t = primary(mode);
    return suffixes(t, start, mode);
}

Tree* Parser::prefixTerm() {
    if (token() == Token::MINUS) scanner_.negativeLiteral = true;
    Position at = pos();
    Token op = token();
    step();
    Tree* arg = term3(EXPR);
    return makePreop(at, op, arg);
}

Tree* Parser::parExpression() {
    accept(Token::LPAREN);
    Tree* t = expression();
    accept(Token::RPAREN);
    return t;
}

// Primaries

Tree* Parser::primary(int mode) {
    Token kind = token();
    if (kind == Token::IDENTIFIER || isPrimitive(kind)) return typeOrName(mode);
    if (!(mode & EXPR)) {
        syntaxError(pos(), messages::illegalStartOfType);
        return erroneous();
    }
    switch (kind) {
    case Token::LPAREN: return parenthesised(mode);
    case Token::NEW: step(); return creator();
    case Token::THIS: return self(treetag::THIS, nullptr);
    case Token::SUPER: return self(treetag::SUPER, nullptr);
    case Token::CHAR_LITERAL:
    case Token::STRING_LITERAL:
    case Token::INT_LITERAL:
    case Token::LONG_LITERAL:
    case Token::FLOAT_LITERAL:
    case Token::DOUBLE_LITERAL: return literal();
    case Token::NULL_LITERAL:
    case Token::TRUE_LITERAL:
    case Token::FALSE_LITERAL: {
        Tree* t = factory_.ident(pos(), scanner_.name);
        step();
        return t;
    }
    default: syntaxError(pos(), messages::illegalStartOfExpression); return erroneous();
    }
}

Tree* Parser::literal() {
    int tag = 0;
    ConstantType* value = nullptr;
    switch (token()) {
    case Token::INT_LITERAL:
        tag = treetag::INT_LITERAL;
        value = factory_.intConstant(typetag::INT, static_cast<std::int32_t>(scanner_.longValue));
        break;
    case Token::LONG_LITERAL:
        tag = treetag::LONG_LITERAL;
        value = factory_.longConstant(typetag::LONG, scanner_.longValue);
        break;
    case Token::FLOAT_LITERAL:
        tag = treetag::FLOAT_LITERAL;
        value = factory_.floatConstant(typetag::FLOAT, static_cast<float>(scanner_.doubleValue));
        break;
    case Token::DOUBLE_LITERAL:
        tag = treetag::DOUBLE_LITERAL;
        value = factory_.doubleConstant(typetag::DOUBLE, scanner_.doubleValue);
        break;
    case Token::CHAR_LITERAL:
        tag = treetag::CHAR_LITERAL;
        value = factory_.intConstant(typetag::CHAR, static_cast<std::int32_t>(scanner_.longValue));
        break;
    case Token::STRING_LITERAL:
        tag = treetag::STRING_LITERAL;
        value = factory_.stringConstant(typetag::CLASS, scanner_.stringValue);
        break;
    default: throw InternalError("literal");
    }
    Tree* t = factory_.literal(pos(), tag, value);
    step();
    return t;
}

/// `this` or `super`, which is the current token.
Tree* Parser::self(int tag, Tree* encl) {
    Tree* t = factory_.self(pos(), tag, encl);
    step();
    return t;
}

/// A qualified `super` can only be called.
Tree* Parser::superWithQualifier(Tree* encl, Position start) {
    Tree* t = self(treetag::SUPER, encl);
    if (token() != Token::LPAREN) report(start, messages::illegalQualifierForSuper);
    return t;
}

/// A name with its qualifiers, or a primitive type, up to a class literal, `this`, `super` or `new` behind a dot.
Tree* Parser::typeOrName(int mode) {
    Position start = pos();
    Tree* t = typeOrNameStart(mode);
    while (token() == Token::DOT) {
        step();
        if ((mode & EXPR) && nameEnd(t, start)) break;
        if (factory_.isExpr) {
            Position at = pos();
            t = factory_.select(at, t, ident());
        } else {
            syntaxError(start, messages::basicTypeDereferenced);
        }
    }
    // A bracket may begin a class literal such as int[].class, so that the primitive type is let through.
    bool mayBeClassLiteral = (mode & EXPR) && token() == Token::LBRACKET;
    if (!factory_.isExpr && !(mode & TYPE) && !mayBeClassLiteral) {
        syntaxError(start, messages::illegalStartOfType);
        return factory_.ident(start, names().error);
    }
    if (!factory_.isType && !(mode & EXPR)) {
        syntaxError(start, messages::illegalStartOfExpression);
        return factory_.basicType(start, names().error);
    }
    return t;
}

/// Adds to `t` the keyword that stands behind its dot, with what belongs to it. False if there is none that may.
bool Parser::nameEnd(Tree*& t, Position start) {
    switch (token()) {
    case Token::CLASS: t = classLiteral(t); return true;
    case Token::THIS: t = self(treetag::THIS, t); return true;
    case Token::SUPER: t = superWithQualifier(t, start); return true;
    case Token::NEW:
        step();
        t = innerCreator(t);
        return true;
    default: return false;
    }
}

Tree* Parser::typeOrNameStart(int mode) {
    Position at = pos();
    Token kind = token();
    if (kind == Token::IDENTIFIER) {
        Name* name = scanner_.name;
        step();
        return factory_.ident(at, name);
    }
    if (isPrimitive(kind)) {
        Name* name = scanner_.name;
        step();
        return factory_.basicType(at, name);
    }
    if (mode & EXPR) {
        syntaxError(at, messages::illegalStartOfExpression);
        return factory_.ident(at, names().error);
    }
    if (mode & TYPE) {
        syntaxError(at, messages::illegalStartOfType);
        return factory_.basicType(at, names().error);
    }
    return factory_.ident(at, ident());
}

/// `t.class`, where the keyword is the current token or missing.
Tree* Parser::classLiteral(Tree* t) {
    t = factory_.select(pos(), t, names().class_);
    factory_.isType = false;
    factory_.isExpr = true;
    accept(Token::CLASS);
    return t;
}

/// A parenthesised expression or type, which leaves no node, or a cast.
Tree* Parser::parenthesised(int mode) {
    Position start = pos();
    accept(Token::LPAREN);
    Tree* t = term(mode | TYPE);
    accept(Token::RPAREN);
    if (!factory_.isType || !atCastOperand()) return t;
    Tree* operand = term3(EXPR);
    return factory_.typeOp(start, treetag::TYPECAST, operand, t);
}

/// Whether a type in parentheses is a cast, by the token behind it. A name followed by a sign is an operand of it.
bool Parser::atCastOperand() const {
    if (isPrimitive(token())) return true; // as in (Object) int.class
    switch (token()) {
    case Token::IDENTIFIER:
    case Token::CHAR_LITERAL:
    case Token::STRING_LITERAL:
    case Token::INT_LITERAL:
    case Token::LONG_LITERAL:
    case Token::FLOAT_LITERAL:
    case Token::DOUBLE_LITERAL:
    case Token::LPAREN:
    case Token::NOT:
    case Token::TILDE:
    case Token::NEW:
    case Token::SUPER:
    case Token::THIS:
    case Token::NULL_LITERAL:
    case Token::TRUE_LITERAL:
    case Token::FALSE_LITERAL: return true;
    case Token::PLUS:
    case Token::MINUS:
    case Token::INCREMENT:
    case Token::DECREMENT: return !factory_.isExpr;
    default: return false;
    }
}

// Suffixes

Tree* Parser::suffixes(Tree* t, Position start, int mode) {
    for (;;) {
        bool isExpression = (mode & EXPR) && factory_.isExpr;
        switch (token()) {
        case Token::DOT:
            if (!isExpression) return t;
            step();
            t = dotSuffix(t, start);
            break;
        case Token::LBRACKET:
            t = indexSuffix(t, start, mode);
            if (factory_.isType && (mode & TYPE)) return t;
            break;
        case Token::LPAREN: {
            if (!isExpression) return t;
            Position at = pos();
            t = factory_.apply(at, t, arguments());
            break;
        }
        case Token::INCREMENT:
        case Token::DECREMENT:
            if (!isExpression) return t;
            t = makePostop(pos(), token(), t);
            step();
            break;
        default: return t;
        }
    }
}

Tree* Parser::dotSuffix(Tree* t, Position start) {
    if (token() == Token::NEW) {
        step();
        return innerCreator(t);
    }
    if (token() == Token::SUPER) return superWithQualifier(t, start);
    Position at = pos();
    return factory_.select(at, t, ident());
}

/// Brackets behind a term: an array type, the class literal of one, or an index. Afterwards `isType` is set if it is an
/// array type.
Tree* Parser::indexSuffix(Tree* t, Position start, int mode) {
    Position at = pos();
    step();
    if (token() == Token::RBRACKET && factory_.isType) {
        step();
        t = bracketsOpt(factory_.typeArray(at, t));
        if (token() == Token::DOT && (mode & EXPR)) {
            step();
            return classLiteral(t);
        }
        if (!(mode & TYPE)) {
            report(start, messages::illegalStartOfExpression);
            t = factory_.ident(start, names().error); // so that no more is said about it
            factory_.isExpr = false;
        }
        return t;
    }
    bool isMisplacedType = factory_.isType && !factory_.isExpr && !(mode & TYPE);
    if (isMisplacedType) {
        syntaxError(start, messages::illegalStartOfType);
        t = factory_.ident(start, names().error);
    }
    if (mode & EXPR) t = factory_.indexed(at, t, expression());
    accept(Token::RBRACKET);
    return t;
}

Tree* Parser::bracketsOpt(Tree* t) {
    while (token() == Token::LBRACKET) {
        Position at = pos();
        step();
        accept(Token::RBRACKET);
        t = factory_.typeArray(at, t);
    }
    return t;
}

TreeBuffer* Parser::arguments() {
    accept(Token::LPAREN);
    TreeBuffer* args = factory_.newList();
    if (token() != Token::RPAREN) {
        args = factory_.append(args, expression());
        args = moreExpressions(args);
    }
    accept(Token::RPAREN);
    return args;
}

/// Expressions, each behind a comma.
TreeBuffer* Parser::moreExpressions(TreeBuffer* list) {
    while (token() == Token::COMMA) {
        step();
        list = factory_.append(list, expression());
    }
    return list;
}

// Creators

/// What stands behind `new`.
Tree* Parser::creator() {
    Position start = pos();
    Tree* t = typeOrName(TYPE);
    if (token() == Token::LBRACKET) return arrayCreator(start, t);
    if (token() == Token::LPAREN) {
        Position at = pos();
        TreeBuffer* args = arguments();
        Tree* body = classBodyOpt();
        return factory_.newClass(at, nullptr, t, args, body);
    }
    syntaxError(pos(), messages::parenthesisOrBracketExpected);
    return erroneous();
}

Tree* Parser::arrayCreator(Position start, Tree* elemtype) {
    Position at = pos();
    step();
    if (token() == Token::RBRACKET) {
        step();
        Tree* arrayType = bracketsOpt(factory_.typeArray(at, elemtype));
        if (token() == Token::LBRACE) return arrayInitializer(arrayType);
        syntaxError(pos(), messages::tokenExpected, tokenName(Token::LBRACE));
        return erroneous();
    }
    TreeBuffer* dims = factory_.append(factory_.newList(), expression());
    accept(Token::RBRACKET);
    while (token() == Token::LBRACKET) {
        at = pos();
        step();
        if (token() == Token::RBRACKET) {
            step();
            elemtype = bracketsOpt(factory_.typeArray(at, elemtype));
        } else {
            dims = factory_.append(dims, expression());
            accept(Token::RBRACKET);
        }
    }
    return factory_.newArray(start, elemtype, dims);
}

/// What stands behind `outer.new`.
Tree* Parser::innerCreator(Tree* outer) {
    Position start = pos();
    Tree* clazz = factory_.ident(start, ident());
    TreeBuffer* args = arguments();
    Tree* body = classBodyOpt();
    return factory_.newClass(start, outer, clazz, args, body);
}

/// The body of an anonymous class; null if there is none.
Tree* Parser::classBodyOpt() {
    if (token() != Token::LBRACE) return nullptr;
    Position at = pos();
    Tree* body = classBody(nullptr, false);
    return factory_.classDef(at, nullptr, flag::LOCAL_CLASS, nullptr, nullptr, body);
}

Tree* Parser::arrayInitializer(Tree* elemtype) {
    Nesting nesting(*this);
    if (nesting.isTooDeep()) return giveUp();
    Position at = pos();
    step();
    TreeBuffer* elems = factory_.newList();
    if (token() == Token::COMMA) {
        step();
    } else {
        while (token() != Token::RBRACE) {
            elems = factory_.append(elems, variableInitializer());
            if (token() != Token::COMMA) break;
            step();
        }
    }
    accept(Token::RBRACE);
    return factory_.arrayInit(at, elems, elemtype);
}

Tree* Parser::variableInitializer() {
    return token() == Token::LBRACE ? arrayInitializer(nullptr) : expression();
}

} // namespace tarn
