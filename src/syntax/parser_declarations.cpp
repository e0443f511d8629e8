#include "syntax/parser.h"

#include "semantic/flags.h"
#include "syntax/nesting.h"
#include "syntax/well_known_names.h"

namespace tarn {

namespace {

/// The flag of a modifier keyword; 0 for any other token.
std::uint32_t modifierFlag(Token token) {
    switch (token) {
    case Token::PUBLIC: return flag::PUBLIC;
    case Token::PRIVATE: return flag::PRIVATE;
    case Token::PROTECTED: return flag::PROTECTED;
    case Token::STATIC: return flag::STATIC;
    case Token::FINAL: return flag::FINAL;
    case Token::SYNCHRONIZED: return flag::SYNCHRONIZED;
    case Token::VOLATILE: return flag::VOLATILE;
    case Token::TRANSIENT: return flag::TRANSIENT;
    case Token::NATIVE: return flag::NATIVE;
    case Token::ABSTRACT: return flag::ABSTRACT;
    default: return 0;
    }
}

} // namespace

/// Any modifiers in any order; which of them may stand there is found out on entry.
std::uint32_t Parser::modifiers() {
    std::uint32_t flags = scanner_.deprecatedFlag ? std::uint32_t{flag::SOURCE_DEPRECATED} : 0;
    scanner_.deprecatedFlag = false;
    while (std::uint32_t modifier = modifierFlag(token())) {
        if (flags & modifier) report(pos(), messages::repeatedModifier);
        flags |= modifier;
        step();
    }
    return flags;
}

// Compilation units

TreeBuffer* Parser::compilationUnit() {
    TreeBuffer* defs = factory_.newList();
    if (token() == Token::PACKAGE) defs = factory_.append(defs, packageDeclaration());
    while (token() == Token::IMPORT) defs = factory_.append(defs, importDeclaration());
    while (token() != Token::END_OF_INPUT) defs = typeDeclaration(defs);
    return defs;
}

Tree* Parser::packageDeclaration() {
    Position start = pos();
    step();
    Tree* pid = typeOrName(NAME);
    accept(Token::SEMICOLON);
    return factory_.packageDecl(start, pid);
}

Tree* Parser::importDeclaration() {
    Position start = pos();
    step();
    Position at = pos();
    Tree* t = factory_.ident(at, ident());
    while (token() == Token::DOT) {
        step();
        at = pos();
        if (token() == Token::STAR) {
            t = factory_.select(at, t, names().star);
            step();
            break;
        }
        t = factory_.select(at, t, ident());
    }
    accept(Token::SEMICOLON);
    return factory_.importDecl(start, t);
}

TreeBuffer* Parser::typeDeclaration(TreeBuffer* list) {
    bool isStuck = scanner_.pos == scanner_.errorPos;
    while (isStuck && !atClass() && token() != Token::END_OF_INPUT) step();
    if (token() == Token::SEMICOLON) {
        step();
        return list;
    }
    std::uint32_t mods = modifiers();
    if (atClass()) return factory_.append(list, classOrInterface(mods));
    syntaxError(pos(), messages::classOrInterfaceExpected);
    while (token() == Token::RBRACE) step();
    return list;
}

// Classes

/// `class` or `interface` is the current token. A doc comment may stand behind the modifiers.
Tree* Parser::classOrInterface(std::uint32_t mods) {
    mods |= modifiers();
    if (inCode_) mods |= flag::LOCAL_CLASS;
    return token() == Token::CLASS ? classDeclaration(mods) : interfaceDeclaration(mods);
}

Tree* Parser::classDeclaration(std::uint32_t mods) {
    Position start = pos();
    step();
    Name* name = ident();
    Tree* extending = nullptr;
    if (token() == Token::EXTENDS) {
        step();
        extending = type();
    }
    TreeBuffer* implementing = nullptr;
    if (token() == Token::IMPLEMENTS) {
        step();
        implementing = types();
    }
    Tree* body = classBody(name, false);
    return factory_.classDef(start, name, mods, extending, implementing, body);
}

Tree* Parser::interfaceDeclaration(std::uint32_t mods) {
    Position start = pos();
    step();
    Name* name = ident();
    TreeBuffer* implementing = nullptr;
    if (token() == Token::EXTENDS) {
        step();
        implementing = types();
    }
    Tree* body = classBody(name, true);
    return factory_.classDef(start, name, mods | flag::INTERFACE, nullptr, implementing, body);
}

/// One or more types, separated by commas.
TreeBuffer* Parser::types() {
    TreeBuffer* list = factory_.append(factory_.newList(), type());
    while (token() == Token::COMMA) {
        step();
        list = factory_.append(list, type());
    }
    return list;
}

/// `name` is null for an anonymous class.
Tree* Parser::classBody(Name* name, bool isInterface) {
    Position start = pos();
    factory_.enterClass(start, name, inCode_);
    Nesting nesting(*this, CLASS_NESTING);
    if (nesting.isTooDeep()) giveUp();
    accept(Token::LBRACE);
    TreeBuffer* members = factory_.newList();
    while (token() != Token::RBRACE && token() != Token::END_OF_INPUT)
        members = classMember(members, name, isInterface);
    Tree* body = factory_.blockWithEnd(start, pos(), 0, members);
    accept(Token::RBRACE);
    return body;
}

TreeBuffer* Parser::classMember(TreeBuffer* list, Name* className, bool isInterface) {
    if (token() == Token::SEMICOLON) {
        step();
        return list;
    }
    bool wasInCode = inCode_;
    std::uint32_t mods = modifiers();
    // A comment with "@deprecated" says nothing about an initializer.
    bool isInitializer =
        token() == Token::LBRACE && !isInterface && (mods & ~(flag::STATIC | flag::SOURCE_DEPRECATED)) == 0;
    if (isInitializer) {
        inCode_ = true;
        list = factory_.append(list, codeBlock(mods & flag::STATIC));
    } else if (!atClass()) {
        inCode_ = true;
        list = fieldOrMethod(list, mods, className, isInterface);
    } else {
        inCode_ = false;
        list = factory_.append(list, classOrInterface(mods));
    }
    inCode_ = wasInCode;
    return list;
}

TreeBuffer* Parser::fieldOrMethod(TreeBuffer* list, std::uint32_t mods, Name* className, bool isInterface) {
    Position at = pos();
    Name* name = token() == Token::IDENTIFIER ? scanner_.name : nullptr;
    Tree* t = type();
    if (token() == Token::LPAREN) {
        bool isConstructor = !isInterface && factory_.lastTag == treetag::IDENT && name != nullptr && name == className;
        if (isConstructor) return factory_.append(list, methodRest(at, names().init, nullptr, mods));
    }
    bool isTypeMissing = token() == Token::LPAREN && factory_.isExpr;
    if (isTypeMissing) {
        report(pos(), messages::missingReturnType);
        t = factory_.ident(pos(), names().error);
    } else {
        at = pos();
        name = ident();
    }
    if (token() == Token::LPAREN) return factory_.append(list, methodRest(at, name, t, mods));
    list = variableDeclarators(list, at, isInterface, t, mods, name);
    accept(Token::SEMICOLON);
    return list;
}

// Methods

/// `restype` is null for a constructor, if trees are built at all.
Tree* Parser::methodRest(Position at, Name* name, Tree* restype, std::uint32_t mods) {
    TreeBuffer* params = formalParameters();
    bool isConstructor = name == names().init;
    if (!isConstructor) restype = bracketsOpt(restype);
    TreeBuffer* thrown = nullptr;
    if (token() == Token::THROWS) {
        step();
        thrown = types();
    }
    Tree* body = nullptr;
    if (token() == Token::SEMICOLON) {
        step();
    } else {
        body = codeBlock(0);
    }
    return factory_.methodDef(at, treetag::METHODDEF, name, mods, restype, params, thrown, body);
}

TreeBuffer* Parser::formalParameters() {
    accept(Token::LPAREN);
    TreeBuffer* params = factory_.newList();
    if (token() != Token::RPAREN) {
        for (;;) {
            std::uint32_t flags = finalOpt();
            params = factory_.append(params, formalParameter(flags, type()));
            if (token() != Token::COMMA) break;
            step();
        }
    }
    accept(Token::RPAREN);
    return params;
}

/// The flag of `final` if it stands here, which is the only modifier that a parameter may have.
std::uint32_t Parser::finalOpt() {
    if (token() != Token::FINAL) return 0;
    step();
    return flag::FINAL;
}

Tree* Parser::formalParameter(std::uint32_t flags, Tree* type) {
    Position at = pos();
    Name* name = ident();
    type = bracketsOpt(type);
    return factory_.varDef(at, name, flags, type, nullptr);
}

// Variables

TreeBuffer* Parser::declarators(TreeBuffer* list, std::uint32_t flags, Tree* type) {
    Position at = pos();
    Name* name = ident();
    return variableDeclarators(list, at, false, type, flags, name);
}

/// Variables of one type, the name of the first of which was read already.
TreeBuffer* Parser::variableDeclarators(TreeBuffer* list, Position at, bool requireInit, Tree* type,
                                        std::uint32_t flags, Name* name) {
    list = factory_.append(list, variableDeclarator(at, requireInit, type, flags, name));
    while (token() == Token::COMMA) {
        step();
        at = pos();
        name = ident();
        list = factory_.append(list, variableDeclarator(at, requireInit, type, flags, name));
    }
    return list;
}

Tree* Parser::variableDeclarator(Position at, bool requireInit, Tree* type, std::uint32_t flags, Name* name) {
    type = bracketsOpt(type);
    Tree* init = nullptr;
    if (token() == Token::ASSIGN) {
        step();
        init = variableInitializer();
    } else if (requireInit) {
        syntaxError(pos(), messages::missingInitializer);
    }
    return factory_.varDef(at, name, flags, type, init);
}

} // namespace tarn
