#include "unit/syntax/parsing.h"

#include "semantic/type.h"
#include "store/memory_store.h"
#include "syntax/operators.h"

#include <cstddef>
#include <cstdint>

namespace tarn::test {

std::string placeOf(Position position) {
    return std::to_string(lineOf(position)) + ":" + std::to_string(columnOf(position));
}

namespace {

std::string join(const std::vector<std::string>& texts, std::string_view separator) {
    std::string joined;
    for (const std::string& text : texts) {
        if (!joined.empty()) joined += separator;
        joined += text;
    }
    return joined;
}

/// Builds the dump of a tree.
class Dump {
public:
    explicit Dump(bool places) : places_(places) {}

    std::string of(const Tree* tree) const {
        if (tree == nullptr) return "-";
        std::string place = places_ ? placeOf(tree->pos) + "@" : "";
        return place + body(tree);
    }

private:
    static std::string of(const Name* name) { return name != nullptr ? name->toString() : "-"; }
    static std::string of(const char* text) { return text; }
    static std::string of(const std::string& text) { return text; }
    static std::string of(std::uint32_t flags) {
        std::string text = flagNames(flags);
        if (!text.empty()) text.pop_back();
        if (flags & flag::SOURCE_DEPRECATED) text += "+deprecated";
        if (flags & flag::LOCAL_CLASS) text += "+local";
        return "<" + text + ">";
    }
    std::string of(Trees trees) const {
        std::vector<std::string> texts;
        for (const Tree* tree : trees) texts.push_back(of(tree));
        return "[" + join(texts, " ") + "]";
    }
    template <class... Parts>
    std::string list(const Parts&... parts) const {
        return "(" + join({of(parts)...}, " ") + ")";
    }

    template <class Node>
    static const Node& as(const Tree* tree) {
        return dynamic_cast<const Node&>(*tree);
    }

    std::string body(const Tree* tree) const {
        int tag = tree->tag;
        if (tag >= treetag::OR_OR && tag <= treetag::MOD) {
            const auto& node = as<Binary>(tree);
            return list(operatorName(tag), node.lhs, node.rhs);
        }
        if (tag >= treetag::ASSIGN && tag <= treetag::MOD_ASG) {
            const auto& node = as<Assignop>(tree);
            return list(of(operatorName(tag)) + "=", node.lhs, node.rhs);
        }
        if (tag >= treetag::POS && tag <= treetag::POSTDEC) {
            std::string op = of(operatorName(tag));
            return list(tag >= treetag::POSTINC ? "post" + op : op, as<Unary>(tree).arg);
        }
        if (tag >= treetag::INT_LITERAL && tag <= treetag::STRING_LITERAL) return literal(as<Literal>(tree));
        return tag < treetag::VARDEF || tag == treetag::THIS || tag == treetag::SUPER ? name(tree) : construct(tree);
    }

    std::string literal(const Literal& node) const {
        const char* const kinds[] = {"", "L", "f", "d", "c", "s"};
        return node.value->stringValue()->toAscii() + kinds[node.tag - treetag::INT_LITERAL];
    }

    std::string name(const Tree* tree) const {
        switch (tree->tag) {
        case treetag::SELECT: return list(".", as<Select>(tree).selected, as<Select>(tree).name);
        case treetag::THIS:
        case treetag::SUPER: {
            const auto& node = as<Self>(tree);
            const char* word = tree->tag == treetag::THIS ? "this" : "super";
            return node.encl != nullptr ? list(word, node.encl) : word;
        }
        case treetag::ERRONEOUS:
            if (tree == Tree::erroneous()) return "ERROR";
            if (const auto* def = dynamic_cast<const VarDef*>(tree)) return list("var", of(def->name), def->init);
            if (const auto* select = dynamic_cast<const Select*>(tree))
                return list(".", select->selected, select->name);
            [[fallthrough]];
        default: return of(dynamic_cast<const NamedTree&>(*tree).name);
        }
    }

    std::string construct(const Tree* tree) const {
        switch (tree->tag) {
        case treetag::CONDITIONAL:
        case treetag::IF: {
            const auto& node = as<Conditional>(tree);
            return list(tree->tag == treetag::IF ? "if" : "?", node.cond, node.thenpart, node.elsepart);
        }
        case treetag::APPLY: return list("call", as<Apply>(tree).meth, as<Apply>(tree).args);
        case treetag::INDEXED: return list("index", as<Indexed>(tree).indexed, as<Indexed>(tree).index);
        case treetag::TYPETEST: return list("instanceof", as<TypeOp>(tree).expr, as<TypeOp>(tree).clazz);
        case treetag::TYPECAST: return list("cast", as<TypeOp>(tree).clazz, as<TypeOp>(tree).expr);
        case treetag::TYPEARRAY: return list("array", as<TypeArray>(tree).elemtype);
        case treetag::NEWARRAY: return list("new[]", as<NewArray>(tree).elemtype, as<NewArray>(tree).dims);
        case treetag::ARRAYINIT: return list("init", as<ArrayInit>(tree).elemtype, as<ArrayInit>(tree).elems);
        case treetag::NEWCLASS: {
            const auto& node = as<NewClass>(tree);
            return list("new", node.encl, node.clazz, node.args, node.def);
        }
        default: return statement(tree);
        }
    }

    std::string statement(const Tree* tree) const {
        switch (tree->tag) {
        case treetag::EXEC: return list("exec", as<Exec>(tree).expr);
        case treetag::BLOCK: {
            const auto& node = as<Block>(tree);
            std::string kind = node.flags & flag::STATIC ? "static{}" : "{}";
            if (places_) kind += "-" + placeOf(node.endPos);
            return list(kind, node.stats);
        }
        case treetag::FORLOOP: {
            const auto& node = as<ForLoop>(tree);
            return list("for", node.init, node.cond, node.step, node.body);
        }
        case treetag::WHILELOOP: return list("while", as<WhileLoop>(tree).cond, as<WhileLoop>(tree).body);
        case treetag::DOLOOP: return list("do", as<DoLoop>(tree).body, as<DoLoop>(tree).cond);
        case treetag::LABELLED: return list("label", as<Labelled>(tree).label, as<Labelled>(tree).body);
        case treetag::SWITCH: return list("switch", as<Switch>(tree).selector, as<Switch>(tree).cases);
        case treetag::CASE: return list("case", as<Case>(tree).pat, as<Case>(tree).stats);
        case treetag::TRY: return list("try", as<Try>(tree).body, as<Try>(tree).catchers, as<Try>(tree).finalizer);
        case treetag::SYNCHRONIZED: return list("synchronized", as<Synchronized>(tree).lock, as<Try>(tree).body);
        case treetag::RETURN: return list("return", as<Return>(tree).expr);
        case treetag::THROW: return list("throw", as<Throw>(tree).expr);
        case treetag::BREAK: return list("break", as<Break>(tree).label);
        case treetag::CONTINUE: return list("continue", as<Continue>(tree).label);
        default: return declaration(tree);
        }
    }

    std::string declaration(const Tree* tree) const {
        switch (tree->tag) {
        case treetag::VARDEF: {
            const auto& node = as<VarDef>(tree);
            return list("var", node.flags, node.vartype, node.name, node.init);
        }
        case treetag::METHODDEF:
        case treetag::CATCH: {
            const auto& node = as<MethodDef>(tree);
            if (tree->tag == treetag::CATCH) return list("catch", node.params, node.body);
            return list("method", node.flags, node.restype, node.name, node.params, node.thrown, node.body);
        }
        case treetag::CLASSDEF: {
            const auto& node = as<ClassDef>(tree);
            return list("class", node.flags, node.name, node.extending, node.implementing, node.body->stats);
        }
        case treetag::IMPORT: return list("import", as<Import>(tree).tree);
        case treetag::PACKAGEDECL: return list("package", as<PackageDecl>(tree).pid);
        default: return "?" + std::to_string(tree->tag);
        }
    }

    bool places_;
};

/// The dump of what `select` takes from the parse of a source, and the messages.
template <class Choice>
std::string parsed(const std::string& source, bool places, Choice choose) {
    ParsedSource unit(source);
    std::string text;
    for (const Tree* tree : choose(unit)) text += (text.empty() ? "" : " ") + dump(tree, places);
    return unit.log.messages.empty() ? text : text + " | " + unit.log.text();
}

Trees membersOf(const ParsedSource& unit) {
    return dynamic_cast<ClassDef&>(*unit.defs.at(0)).body->stats;
}

} // namespace

std::string MessageLog::text() const {
    return join(messages, "; ");
}

StoreRef sourceOf(std::string_view text) {
    auto store = ByteArrayStore::root("Test.java");
    store->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return store;
}

ParsedSource::ParsedSource(std::string_view text) {
    StoreRef source = sourceOf(text);
    ScopedSource current(source);
    Scanner scanner(*source, std::nullopt);
    Parser parser(scanner, builder);
    TreeBuffer* list = parser.compilationUnit();
    defs = *list;
}

std::string ParsedSource::text() const {
    std::vector<std::string> texts;
    for (const Tree* tree : defs) texts.push_back(dump(tree));
    return join(texts, " ");
}

std::string messagesOfParse(std::string_view source) {
    return ParsedSource(source).log.text();
}

std::string messagesOfScan(std::string_view text) {
    MessageLog log;
    StoreRef source = sourceOf(text);
    ScopedSource current(source);
    Scanner scanner(*source, std::nullopt);
    DependencyScanner factory;
    Parser(scanner, factory).compilationUnit();
    return log.text();
}

std::string dump(const Tree* tree, bool places) {
    return Dump(places).of(tree);
}

std::string parseExpression(std::string_view source, bool places) {
    return parsed("class C { Object o =\n" + std::string(source) + "\n;}", places, [](const ParsedSource& unit) {
        return std::vector<Tree*>{dynamic_cast<VarDef&>(*membersOf(unit)[0]).init};
    });
}

std::string parseStatements(std::string_view source, bool places) {
    return parsed("class C { void m() {\n" + std::string(source) + "\n}}", places,
                  [](const ParsedSource& unit) { return dynamic_cast<MethodDef&>(*membersOf(unit)[0]).body->stats; });
}

std::string parseMembers(std::string_view source, bool places) {
    return parsed("class C {\n" + std::string(source) + "\n}", places,
                  [](const ParsedSource& unit) { return membersOf(unit); });
}

std::string repeat(std::string_view text, int count) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; i++) result += text;
    return result;
}

} // namespace tarn::test
