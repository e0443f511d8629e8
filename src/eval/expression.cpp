#include "eval/expression.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "eval/eval_item.h"
#include "eval/eval_reporter.h"
#include "make/compiler.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "store/directory_store.h"
#include "store/encoding.h"
#include "store/memory_store.h"
#include "syntax/parser.h"
#include "syntax/position.h"
#include "syntax/tree_builder.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <memory>
#include <ranges>
#include <vector>

namespace tarn::eval {

// ---- parsing

namespace {

constexpr std::string_view UTF8 = "UTF8";

Bytes bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

StoreRef storeOf(const Bytes& bytes) {
    auto store = ByteArrayStore::root(std::string(EvalReporter::EXPRESSION));
    store->write(bytes);
    return store;
}

/// The encoding of the text; absent for one byte a character.
std::optional<std::string> encodingOf(const Bytes& bytes) {
    std::string name(UTF8);
    try {
        decodeSource(bytes, name);
    } catch (const MalformedInput&) {
        return std::nullopt;
    }
    return name;
}

/// Builds an expression, which becomes one class and can't bring others along.
class ExpressionBuilder final : public TreeBuilder {
public:
    using TreeBuilder::TreeBuilder;

    Tree* newClass(int pos, Tree* encl, Tree* clazz, TreeBuffer* args, Tree* def) override {
        if (def != nullptr) reportError(pos, messages::expressionNotEvaluable);
        return TreeBuilder::newClass(pos, encl, clazz, args, def);
    }
};

/// One expression, and nothing behind the ";" that was put behind it.
Tree* parseAll(Scanner& scanner, TreeFactory& factory) {
    Tree* tree = Parser(scanner, factory).expression();
    if (scanner.token == Token::SEMICOLON) scanner.nextToken();
    if (scanner.token != Token::END_OF_INPUT) reportError(scanner.pos, messages::malformedExpression);
    return tree;
}

} // namespace

Tree* parseExpression(std::string_view expression, Arena& arena) {
    Bytes bytes = bytesOf(expression);
    bytes.push_back(';');
    try {
        StoreRef store = storeOf(bytes);
        setSource(store);
        Scanner scanner(*store, encodingOf(bytes));
        ExpressionBuilder builder(arena);
        return parseAll(scanner, builder);
    } catch (const IoFailure&) {
        throw InternalError("parse");
    }
}

namespace {

std::string qualified(const ClassName& name, std::string_view simpleName) {
    return std::string(name.prefix) + "." + std::string(simpleName);
}

Name* flatNameOf(const ClassName& name) {
    return Name::fromString(qualified(name, name.className));
}

bool isIdentifier(std::string_view text) {
    ScopedSuppress quiet;
    try {
        Scanner scanner(*storeOf(bytesOf(text)), std::string(UTF8));
        if (scanner.token != Token::IDENTIFIER || scanner.name->view() != text) return false;
        scanner.nextToken();
        return scanner.token == Token::END_OF_INPUT;
    } catch (const IoFailure&) {
        return false;
    }
}

} // namespace

bool isLegal(const ClassName& name) {
    // What the class itself is made of.
    for (std::string_view taken : {"EvalSupport", "IEvaluatorContext", "IExpression", "Object"})
        if (name.className == taken) return false;
    auto isPart = [](auto part) { return isIdentifier(std::string_view(part.begin(), part.end())); };
    return isIdentifier(name.className) && std::ranges::all_of(name.prefix | std::views::split('.'), isPart) &&
           context().findClass(flatNameOf(name)) == nullptr;
}

// ---- attribution

namespace {

/// Opens the scopes around a place once more, those around a local class too. What is declared behind the line is not
/// visible there.
class ReenteredScopes {
public:
    ReenteredScopes(const Env* env, int line) {
        for (; env != nullptr; env = env->outer) addAll(env->scope);
        for (const Reentered& each : scopes_ | std::views::reverse) {
            Symbol*& newest = each.scope->elems;
            while (newest != nullptr && isDeclaredBehind(*newest->sym, line)) newest = newest->sibling;
            each.scope->reenter();
        }
    }
    ~ReenteredScopes() {
        for (const Reentered& each : scopes_) {
            each.scope->leave();
            each.scope->elems = each.elems;
        }
    }
    ReenteredScopes(const ReenteredScopes&) = delete;
    ReenteredScopes& operator=(const ReenteredScopes&) = delete;

private:
    struct Reentered {
        Scope* scope;
        Symbol* elems;
    };

    void addAll(Scope* innermost) {
        for (Scope* scope = innermost; !scope->active; scope = scope->next) {
            scopes_.push_back({scope, scope->elems});
            if (scope->next == nullptr || scope->next->table != scope->table) break;
        }
    }

    static bool isDeclaredBehind(const Symbol& symbol, int line) {
        return (symbol.flags & flag::PARAMETER) == 0 && lineOf(symbol.pos) > line;
    }

    std::vector<Reentered> scopes_; ///< the innermost first
};

/// The class by its name, wherever the expression stands, and whatever the name means there.
Tree* supportClass(const ClassName& name, Arena& arena) {
    Name* flatName = Name::fromString(qualified(name, "EvalSupport"));
    try {
        return arena.make<KnownType>(NO_POSITION, context().classReader->load(flatName)->type);
    } catch (const IoFailure& failure) {
        reportError(NO_POSITION, messages::cannotAccess, "class", flatName, failure.what());
        return Tree::erroneous();
    }
}

/// `EvalSupport.box(tree)`, attributed as if it stood at the line. Overload resolution takes the place of a conversion.
Tree* box(const ClassName& name, Tree* tree, Env* env, int line, Arena& arena) {
    Tree* callee = arena.make<Select>(NO_POSITION, Name::fromBytes("box"), supportClass(name, arena));
    Tree* const arguments[] = {tree};
    auto* call = arena.make<Apply>(tree->pos, callee, arena.copyArray<Tree*>(arguments));
    ReenteredScopes scopes(env, line);
    call->attr(env->dup(call), VAL, context().objectType);
    return call;
}

// ---- the class around it

/// Trees of a class without a source.
class ClassBuilder {
public:
    ClassBuilder(const ClassName& name, CompileTask& task) : name_(name), task_(task), arena_(*task.arena) {}

    /// The class, attributed; `eval` returns null.
    ClassDef* build() {
        result_ = arena_.make<Return>(NO_POSITION, ident("null"));
        Tree* const members[] = {evalMethod()};
        Tree* const interfaces[] = {dotted(qualified(name_, "IExpression"))};
        auto* def = arena_.make<ClassDef>(NO_POSITION, Name::fromString(name_.className), flag::PUBLIC, nullptr,
                                          list(interfaces), block(members));
        Tree* const defs[] = {arena_.make<PackageDecl>(NO_POSITION, dotted(std::string(name_.prefix))), def};
        auto source = std::make_shared<DirectoryStore>(std::string(EvalReporter::EXPRESSION));
        task_.unit = arena_.make<CompilationUnit>(arena_, list(defs), source);
        task_.unit->enter();
        task_.unit->memberEnter(nullptr);
        task_.unit->attribute();
        return def;
    }

    /// What `eval` returns.
    Tree*& result() { return result_->expr; }

private:
    Tree* evalMethod() {
        Tree* const parameters[] = {arena_.make<VarDef>(NO_POSITION, Name::fromBytes("$context"), 0,
                                                        dotted(qualified(name_, "IEvaluatorContext")), nullptr)};
        Tree* const statements[] = {result_};
        return arena_.make<MethodDef>(arena_, NO_POSITION, treetag::METHODDEF, Name::fromBytes("eval"), flag::PUBLIC,
                                      ident("Object"), list(parameters), Trees{}, block(statements));
    }

    Tree* ident(std::string_view name) { return arena_.make<Ident>(NO_POSITION, Name::fromString(name)); }

    Tree* dotted(std::string_view name) {
        std::size_t dot = name.rfind('.');
        if (dot == std::string_view::npos) return ident(name);
        return arena_.make<Select>(NO_POSITION, Name::fromString(name.substr(dot + 1)), dotted(name.substr(0, dot)));
    }

    Trees list(std::span<Tree* const> trees) { return arena_.copyArray<Tree*>(trees); }
    Block* block(std::span<Tree* const> statements) { return arena_.make<Block>(NO_POSITION, list(statements)); }

    const ClassName& name_;
    CompileTask& task_;
    Arena& arena_;
    Return* result_ = nullptr;
};

/// Knows the class of an expression only while it is made: a later expression can't mean it.
class ScopedClass {
public:
    explicit ScopedClass(const ClassName& name) : flatName_(flatNameOf(name)) {}
    ~ScopedClass() { context().classes.erase(flatName_); }
    ScopedClass(const ScopedClass&) = delete;
    ScopedClass& operator=(const ScopedClass&) = delete;

private:
    Name* flatName_;
};

/// What is in the first file below the directory.
Bytes onlyFile(StoreRef place) {
    while (place->isDirectory()) place = place->lookup(place->list().value().front());
    return place->read();
}

} // namespace

Bytes translate(const ClassName& name, Tree* tree, Env* env, int line, CompileTask& task) {
    Tree* value = box(name, tree, env, line, *task.arena);
    ScopedClass made(name);
    ClassBuilder builder(name, task);
    ClassDef* def = builder.build();
    builder.result() = value;
    auto output = ByteArrayStore::root("<output>");
    output->becomeDirectory();
    try {
        ScopedPlace place(env);
        def->genClass(output);
        return onlyFile(output);
    } catch (const IoFailure& failure) {
        throw InternalError(std::string("genCode - ") + failure.what());
    }
}

} // namespace tarn::eval
