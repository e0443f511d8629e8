// The texts of the sources of a program.

#include "program.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tarn::edits {

Texts Program::render() const {
    Texts texts;
    for (int c = 0; c < static_cast<int>(classes_.size()); c++)
        if (classes_[c].alive && classes_[c].outer < 0) texts[pathOf(c)] = "";
    for (int file = 0; file < static_cast<int>(files_.size()); file++) {
        for (int c = 0; c < static_cast<int>(classes_.size()); c++) {
            if (!classes_[c].alive || classes_[c].outer >= 0 || classes_[c].file != file) continue;
            texts[pathOf(c)] = render(file);
            break;
        }
    }
    return texts;
}

std::string Program::pathOf(int c) const {
    const File& file = files_[classes_[c].file];
    std::string path = file.package;
    std::replace(path.begin(), path.end(), '.', '/');
    return (path.empty() ? "" : path + "/") + file.name + ".java";
}

std::string Program::render(int file) const {
    std::string text;
    if (!files_[file].package.empty()) text += "package " + files_[file].package + ";\n";
    text += imports(file);
    for (int c = 0; c < static_cast<int>(classes_.size()); c++)
        if (classes_[c].alive && classes_[c].outer < 0 && classes_[c].file == file) renderClass(text, c, "");
    return text;
}

/// Of all classes that the file names by their simple names.
std::string Program::imports(int file) const {
    std::set<std::string> lines;
    auto import = [&](int target) {
        int top = outermost(target);
        const std::string& package = files_[classes_[top].file].package;
        if (package.empty() || package == files_[file].package) return;
        lines.insert("import " + package + "." + (files_[file].onDemand ? "*" : classes_[top].name) + ";\n");
    };
    auto importType = [&](const std::string& type) {
        if (type[0] == '~') import(std::stoi(type.substr(1)));
    };
    for (const Class& c : classes_) {
        if (!c.alive || c.file != file) continue;
        for (const Member& m : c.members) {
            if (!m.alive) continue;
            if (!m.type.empty()) importType(m.type);
            for (const std::string& type : m.parameters) importType(type);
            for (const Use& use : m.uses)
                if (!use.qualified && use.form != Use::SIMPLE) import(use.target);
        }
    }
    std::string text;
    for (const std::string& line : lines) text += line;
    return text;
}

void Program::renderClass(std::string& text, int c, const std::string& indent) const {
    const Class& of = classes_[c];
    text += indent + (of.outer < 0 && isPublic(c) ? "public " : "") + of.modifiers;
    text += (of.isInterface ? "interface " : "class ") + of.name;
    if (of.superclass >= 0) text += " extends " + qualifiedName(of.superclass);
    const char* separator = of.isInterface ? " extends " : " implements ";
    for (int interface : of.interfaces) {
        text += separator + qualifiedName(interface);
        separator = ", ";
    }
    text += " {\n";
    bool hasConstructor = false;
    for (const Member& m : of.members) {
        if (!m.alive) continue;
        if (m.kind == Member::CONSTRUCTOR && !std::exchange(hasConstructor, true))
            text += indent + "    public " + of.name + "() { }\n";
        renderMember(text, c, m, indent + "    ");
    }
    for (int member = 0; member < static_cast<int>(classes_.size()); member++)
        if (classes_[member].alive && classes_[member].outer == c) renderClass(text, member, indent + "    ");
    text += indent + "}\n";
}

void Program::renderMember(std::string& text, int c, const Member& m, const std::string& indent) const {
    auto type = [&](const std::string& name) {
        bool isOfProgram = name[0] == '#' || name[0] == '~';
        return isOfProgram ? reference(c, std::stoi(name.substr(1)), name[0] == '#') : name;
    };
    text += indent + m.modifiers + (m.kind == Member::CONSTRUCTOR ? classes_[c].name : type(m.type) + " " + m.name);
    if (m.kind == Member::FIELD) {
        text += ";\n";
    } else if (m.kind == Member::CONSTANT) {
        std::string value = m.type == "String" ? "\"v" + m.value + "\"" : m.value;
        for (const Use& use : m.uses) value += " + " + expression(c, use);
        if (m.type == "boolean") value += " > 40";
        text += " = (" + m.type + ") (" + value + ");\n";
    } else {
        text += "(" + type(m.parameters[0]) + " x)";
        for (std::size_t i = 0; i < m.thrown.size(); i++) text += (i == 0 ? " throws " : ", ") + m.thrown[i];
        text += classes_[c].isInterface ? ";\n" : " {\n" + body(c, m, indent + "    ") + indent + "}\n";
    }
}

std::string Program::body(int c, const Member& m, const std::string& indent) const {
    std::string text = indent + "String s = \"" + std::to_string(m.salt) + "\";\n";
    std::string statements;
    for (const Use& use : m.uses) statements += indent + "    " + statement(c, use) + "\n";
    if (m.anonymous)
        statements = indent + "    new Object() { void run(String s) throws Throwable {\n" + statements + indent +
                     "    } }.run(\"\");\n";
    text += indent + "try {\n" + statements + indent + "} catch (Throwable t) { }\n";
    if (m.kind == Member::CONSTRUCTOR || m.type == "void") return text;
    if (m.type[0] == '#' || m.type[0] == '~' || m.type == "String" || m.type == "Object")
        return text + indent + "return null;\n";
    return text + indent + (m.type == "boolean" ? "return true;\n" : "return 1;\n");
}

std::string Program::statement(int from, const Use& use) const {
    const Class& target = classes_[use.target];
    std::string used = expression(from, use);
    if (use.form == Use::CASE) return "switch (s.length()) { case " + used + ": s += 1; }";
    if (use.form == Use::ARRAY) return "{ " + used + "[] a = null; }";
    bool isVoid = use.member >= 0 && target.members[use.member].type == "void";
    return isVoid ? used + ";" : "s += " + used + ";";
}

std::string Program::expression(int from, const Use& use) const {
    const Class& target = classes_[use.target];
    std::string type = reference(from, use.target, use.qualified);
    if (use.form == Use::LITERAL) return type + ".class";
    if (use.form == Use::ARRAY) return type;
    std::string argument = use.argument;
    if (argument[0] == '#') argument = "(" + qualifiedName(std::stoi(argument.substr(1))) + ") null";
    if (use.form == Use::NEW) return "new " + type + "(" + argument + ")";
    const Member& m = target.members[use.member];
    std::string name = m.kind == Member::METHOD ? m.name + "(" + argument + ")" : m.name;
    if (use.form == Use::SIMPLE) return name;
    return (use.form == Use::INSTANCE ? "((" + type + ") null)." : type + ".") + name;
}

std::string Program::reference(int from, int target, bool qualified) const {
    const Class& of = classes_[target];
    if (qualified) return qualifiedName(target);
    return of.outer < 0 ? of.name : reference(from, of.outer, false) + "." + of.name;
}

std::string Program::qualifiedName(int c) const {
    const Class& of = classes_[c];
    if (of.outer >= 0) return qualifiedName(of.outer) + "." + of.name;
    const std::string& package = files_[of.file].package;
    return (package.empty() ? "" : package + ".") + of.name;
}

} // namespace tarn::edits
