#include "codegen/gen.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/env.h"
#include "semantic/scope.h"
#include "store/file_path.h"
#include "store/path_list.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tarn {

namespace {

/// Keeps the emitter on a class, also if generation is broken off.
class ScopedClass {
public:
    explicit ScopedClass(ClassSymbol* c) { emitter().startClass(c, c->pool); }
    ~ScopedClass() { emitter().endClass(); }
    ScopedClass(const ScopedClass&) = delete;
    ScopedClass& operator=(const ScopedClass&) = delete;
};

/// Adds to the pool what the class file need not name, but the make engine wants to know of.
void recordReferences(const ClassDef* tree, const ClassSymbol* c) {
    Emitter& out = emitter();
    for (const Symbol* member = c->members->elems; member != nullptr; member = member->sibling) {
        Type* type = member->sym->type; // the entry of a member class is an alias
        if (type->tag == typetag::CLASS || type->tag == typetag::ARRAY || type->tag == typetag::METHOD)
            out.poolClass(type);
    }
    if (tree->extending != nullptr) out.poolPut(c->superclass);
    for (ClassSymbol* i : c->interfaces) out.poolPut(i);
}

void writeClass(ClassDef* tree, ClassSymbol* c, const StoreRef& outputDirectory) {
    ClassFile& writer = *context().classReader;
    StoreRef out;
    try {
        out = tree->outFile(outputDirectory);
        if (out == nullptr) throw IoFailure("cannot create output file");
        writer.writeClass(c, out);
        writer.classWritten(out, c, tree->env->toplevel->source);
        out->close();
    } catch (const IoFailure& failure) {
        if (out != nullptr) out->close();
        if (outputDirectory != nullptr && !outputDirectory->isDirectory())
            reportError(tree->pos, messages::missingOutputDirectory, outputDirectory.get());
        else
            reportError(tree->pos, messages::errorWriting, c, failure.what());
    }
}

} // namespace

Item* ClassDef::gen() {
    throw InternalError("gen");
}

void ClassDef::genClass(const StoreRef& outputDirectory) {
    ClassSymbol* c = classSymbol();
    Context& current = context();
    c->pool = current.classReader->newPool();
    ScopedClass scope(c);
    int errors = currentReporter()->errorCount();
    normalizeDefs();
    codegen::genStatements(body->stats);
    if (currentReporter()->errorCount() == errors) writeClass(this, c, outputDirectory);
    if (current.options.trackDependencies) {
        recordReferences(this, c);
    } else {
        current.classReader->freePool(c->pool);
        c->pool = nullptr;
    }
}

StoreRef ClassDef::outFile(const StoreRef& outputDirectory) {
    const ClassSymbol* c = classSymbol();
    if (outputDirectory == nullptr) return storeBeside(*env->toplevel->source, c->name->toString() + ".class");
    std::string path = c->flatName->toString();
    std::replace(path.begin(), path.end(), '.', FILE_SEPARATOR);
    return outputStore(outputDirectory, path, ".class");
}

namespace {

/// Whether code must give the field its first value. A virtual machine takes the value of a constant from its attribute
/// only if the field is static; in an object it would stay 0 for who looks with reflection.
bool needsInitializer(const VarDef* field) {
    return field->init != nullptr && !(field->sym->isStatic() && field->sym->type->isConstant());
}

/// The initializer of a field as the statement that it is when a class or an object is made. The definition loses it.
Tree* takeInitializer(Arena& arena, VarDef* field) {
    auto* target = arena.make<Ident>(field->pos, field->name);
    target->sym = field->sym;
    target->type = withoutValue(field->sym->type);
    auto* assignment = arena.make<Assignop>(field->pos, treetag::ASSIGN, target, field->init, target->type);
    field->init = nullptr;
    return arena.make<Exec>(field->pos, assignment, target->type);
}

/// `<clinit>` with these statements.
Tree* makeClassInitializer(Arena& arena, ClassDef* tree, Trees statements) {
    Context& current = context();
    MethodSymbol* symbol = tree->clinit;
    if (symbol == nullptr) {
        symbol = current.arena.make<MethodSymbol>();
        symbol->init(flag::STATIC, MTH, names().clinit, current.methodType({}, current.voidType, nullptr), tree->sym);
        tree->clinit = symbol;
    }
    int pos = statements.front()->pos;
    auto* method = arena.make<MethodDef>(arena, pos, treetag::METHODDEF, symbol->name, flag::STATIC, nullptr, Trees(),
                                         Trees(), arena.make<Block>(pos, statements));
    method->sym = symbol;
    method->type = symbol->type;
    method->env = tree->env;
    tree->classSymbol()->members->enter(symbol);
    return method;
}

/// The initializers of objects, which several constructors may run. What is wrong with them is told once.
class Initializers final : public Block {
public:
    using Block::Block;
    Item* gen() override {
        std::optional<ScopedSuppress> toldAlready;
        if (wasGenerated_) toldAlready.emplace();
        wasGenerated_ = true;
        return Block::gen();
    }

private:
    bool wasGenerated_ = false;
};

} // namespace

void ClassDef::normalizeDefs() {
    Arena& arena = env->toplevel->arena;
    std::vector<Tree*> defs;
    std::vector<Tree*> initCode;
    std::vector<Tree*> clinitCode;
    for (Tree* def : body->stats) {
        switch (def->tag) {
        case treetag::BLOCK: {
            bool isStatic = (static_cast<const Block*>(def)->flags & flag::STATIC) != 0;
            (isStatic ? clinitCode : initCode).push_back(def);
            break;
        }
        case treetag::VARDEF: {
            auto* field = static_cast<VarDef*>(def);
            if (needsInitializer(field))
                (field->sym->isStatic() ? clinitCode : initCode).push_back(takeInitializer(arena, field));
            defs.push_back(def);
            break;
        }
        case treetag::METHODDEF: defs.push_back(def); break;
        default: throw InternalError("normalize " + std::to_string(def->tag));
        }
    }
    if (!initCode.empty()) {
        auto* shared = arena.make<Initializers>(initCode.front()->pos, arena.copyArray<Tree*>(initCode));
        for (Tree* def : defs)
            if (def->tag == treetag::METHODDEF) static_cast<MethodDef*>(def)->normalizeMethod(shared);
    }
    if (!clinitCode.empty()) defs.push_back(makeClassInitializer(arena, this, arena.copyArray<Tree*>(clinitCode)));
    body->stats = arena.copyArray<Tree*>(defs);
}

} // namespace tarn
