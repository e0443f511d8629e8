#include "program.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarn::edits {

namespace {

constexpr std::array PACKAGES = {"", "app", "app.view", "base", "data", "net"};
constexpr std::array CLASS_NAMES = {"Ant",  "Bat",   "Bee",  "Cat",  "Cod",  "Cow",  "Crab", "Crow", "Doe",  "Dog",
                                    "Duck", "Eel",   "Elk",  "Emu",  "Fly",  "Fox",  "Frog", "Gnat", "Gnu",  "Hare",
                                    "Hawk", "Hen",   "Jay",  "Kid",  "Kite", "Lamb", "Lark", "Lion", "Lynx", "Mole",
                                    "Moth", "Mouse", "Mule", "Newt", "Owl",  "Ox",   "Pig",  "Pike", "Pony", "Ram",
                                    "Rat",  "Seal",  "Slug", "Swan", "Tern", "Toad", "Wasp", "Wolf", "Worm", "Wren"};
constexpr std::array VALUE_TYPES = {"int", "long", "String", "double", "byte", "boolean"};
constexpr std::array FIELD_TYPES = {"int", "long", "String", "double", "Object", "char"};
constexpr std::array ACCESS = {"public ", "public ", "public ", "", "private ", "protected "};
constexpr std::array THROWN = {"Exception", "java.io.IOException", "RuntimeException", "InterruptedException"};
constexpr int CLASSES_PER_PACKAGE = 10;
constexpr int MOST_NAMES = 6; ///< of members of one kind: few, so that they hide and overload each other

bool has(const std::string& modifiers, std::string_view word) {
    return modifiers.find(word) != std::string::npos;
}

/// Puts the modifier in if it is not there, and takes it out if it is.
void toggle(std::string& modifiers, const std::string& word) {
    std::size_t at = modifiers.find(word);
    if (at == std::string::npos)
        modifiers += word;
    else
        modifiers.erase(at, word.size());
}

template <class Pool>
std::string oneOf(Random& random, const Pool& pool) {
    return random.oneOf(pool);
}

std::string argumentFor(const std::string& type) {
    if (type == "char") return "'c'";
    if (type == "String" || type == "Object") return "\"s\"";
    return type[0] == '#' || type[0] == '~' ? "#" + type.substr(1) : "1";
}

} // namespace

const std::vector<std::string>& Program::packages() {
    static const std::vector<std::string> all(PACKAGES.begin(), PACKAGES.end());
    return all;
}

// ---- growing

Program::Program(Random& random) {
    for (int i = 0; i < CLASSES_PER_PACKAGE; i++)
        for (const std::string& package : packages()) addClass(random, package, -1);
    for (Class& c : classes_)
        for (Member& m : c.members)
            if (!c.isInterface) chooseType(random, m);
    for (int c = 0; c < static_cast<int>(classes_.size()); c++)
        for (std::size_t i = 0; i < classes_[c].members.size(); i++) {
            Member m = classes_[c].members[i];
            addUses(random, c, m, 3);
            classes_[c].members[i] = m;
        }
}

/// A class in a file of its own, or behind others in one; one without members so far has no uses of others either.
int Program::addClass(Random& random, const std::string& package, int outer) {
    Class added;
    int c = static_cast<int>(classes_.size());
    auto isTaken = [&](const std::string& name) {
        return std::any_of(classes_.begin(), classes_.end(), [&](const Class& other) {
            return other.alive && other.name == name &&
                   (outer < 0 ? other.outer < 0 && files_[other.file].package == package : other.outer == outer);
        });
    };
    do {
        bool isLikeOther = !classes_.empty() && random.oneIn(4);
        added.name = isLikeOther ? classes_[outermost(chooseClass(random))].name : oneOf(random, CLASS_NAMES);
        if (outer >= 0 && !random.oneIn(3)) added.name = "In" + std::to_string(random.below(4));
    } while (isTaken(added.name) || (outer >= 0 && added.name == classes_[outer].name));
    added.outer = outer;
    added.isInterface = outer < 0 && random.oneIn(5);
    if (outer >= 0) {
        added.file = classes_[outer].file;
        bool isInner = classes_[outer].outer >= 0 && !has(classes_[outer].modifiers, "static");
        added.modifiers = isInner || random.oneIn(3) ? "" : random.oneIn(3) ? "static " : "public static ";
    } else {
        std::vector<int> shared;
        for (const Class& other : classes_)
            if (other.alive && files_[other.file].package == package) shared.push_back(other.file);
        added.file = static_cast<int>(files_.size());
        if (!shared.empty() && random.oneIn(6))
            added.file = random.oneOf(shared);
        else
            files_.push_back({package, added.name, random.oneIn(2)});
    }
    classes_.push_back(added);
    if (!random.oneIn(3)) classes_[c].superclass = chooseSuperclass(random, c, false);
    for (std::size_t i = random.below(3); i > 0; i--) {
        int interface = chooseSuperclass(random, c, true);
        std::vector<int>& all = classes_[c].interfaces;
        if (interface >= 0 && std::find(all.begin(), all.end(), interface) == all.end()) all.push_back(interface);
    }
    if (classes_[c].isInterface) classes_[c].superclass = -1;
    bool inheritsAbstract =
        !classes_[c].interfaces.empty() ||
        (classes_[c].superclass >= 0 && has(classes_[classes_[c].superclass].modifiers, "abstract"));
    if (!classes_[c].isInterface && (inheritsAbstract || random.oneIn(10))) classes_[c].modifiers += "abstract ";
    for (std::size_t i = 2 + random.below(5); i > 0; i--) {
        constexpr std::array KINDS = {Member::FIELD,  Member::CONSTANT, Member::CONSTANT,
                                      Member::METHOD, Member::METHOD,   Member::CONSTRUCTOR};
        addMember(random, c, random.oneOf(KINDS));
    }
    if (!classes_[c].isInterface && (outer < 0 ? random.oneIn(3) : random.oneIn(6))) addClass(random, package, c);
    return c;
}

void Program::addMember(Random& random, int c, Member::Kind kind) {
    Class& to = classes_[c];
    bool isInner = to.outer >= 0 && !has(to.modifiers, "static");
    if (to.isInterface && kind != Member::METHOD) kind = Member::CONSTANT;
    if (isInner && kind == Member::CONSTANT) kind = Member::FIELD;
    Member m;
    m.kind = kind;
    std::size_t index = random.below(MOST_NAMES);
    m.salt = static_cast<int>(random.below(100));
    m.modifiers = to.isInterface ? "" : oneOf(random, ACCESS);
    switch (kind) {
    case Member::FIELD:
        m.name = "f" + std::to_string(index);
        m.type = oneOf(random, FIELD_TYPES);
        if (!isInner && random.oneIn(2)) m.modifiers += "static ";
        break;
    case Member::CONSTANT:
        m.name = "K" + std::to_string(index);
        m.type = oneOf(random, VALUE_TYPES);
        m.value = std::to_string(random.below(90));
        if (!to.isInterface) m.modifiers += "static final ";
        break;
    case Member::METHOD:
        if (isInner) index %= 4;
        m.name = "m" + std::to_string(index);
        m.type = index == 0 ? "void" : FIELD_TYPES[index];
        m.parameters = {FIELD_TYPES[random.oneIn(4) ? random.below(FIELD_TYPES.size()) : index]};
        if (!to.isInterface) m.modifiers = "public ";
        if (!to.isInterface && !isInner && index >= 4) m.modifiers += "static ";
        if (to.isInterface && index >= 4) m.name = "m1", m.type = FIELD_TYPES[1];
        if (m.name == "m3") m.thrown = {"java.io.IOException"};
        m.anonymous = random.oneIn(6);
        break;
    case Member::CONSTRUCTOR:
        m.name = "<init>";
        m.parameters = {FIELD_TYPES[random.below(FIELD_TYPES.size())]};
        break;
    }
    for (const Member& other : to.members)
        if (other.alive && other.name == m.name && other.parameters == m.parameters) return;
    to.members.push_back(m);
}

void Program::addUses(Random& random, int c, Member& member, std::size_t most) {
    if (classes_[c].isInterface && member.kind == Member::METHOD) return;
    if (member.kind == Member::CONSTANT) most = 1;
    for (std::size_t i = random.below(most + 1); i > 0; i--)
        for (int tries = 0; tries < 5 && !addUse(random, c, member); tries++) continue;
}

/// Some members get a class of the program in their type.
void Program::chooseType(Random& random, Member& m) {
    int type = chooseClass(random);
    bool isSeen = isPublic(type) && !files_[classes_[type].file].package.empty();
    if (m.kind == Member::CONSTANT || !isSeen || random.below(4) != 0) return;
    std::string named = (isAmbiguous(type) || random.oneIn(3) ? "#" : "~") + std::to_string(type);
    (m.kind == Member::FIELD ? m.type : m.parameters[0]) = named;
}

/// False if what was come upon is not for this place.
bool Program::addUse(Random& random, int c, Member& member) {
    Use use;
    use.target = chooseClass(random);
    bool isNear = random.oneIn(3);
    bool isOutside = false;
    if (isNear) { // the class itself, or what it inherits from or stands in
        use.target = c;
        for (std::size_t steps = random.below(3); steps > 0; steps--) {
            const Class& here = classes_[use.target];
            int next = here.outer >= 0 && random.oneIn(2) ? here.outer : here.superclass;
            isOutside |= next >= 0 && next == here.outer;
            if (next >= 0) use.target = next;
        }
    }
    Class& target = classes_[use.target];
    use.qualified = random.oneIn(4);
    use.qualified |= isAmbiguous(use.target);
    bool isSamePackage = files_[target.file].package == files_[classes_[c].file].package;
    bool isSameFile = outermost(c) == outermost(use.target);
    if (!isSamePackage && (!isPublic(use.target) || files_[target.file].package.empty())) return false;
    if (!isSameFile && has(target.modifiers, "private")) return false;
    if (member.kind == Member::CONSTANT && use.target >= c) return false;
    const Member* used = chooseMember(random, target);
    if (used == nullptr || (used->kind != Member::CONSTANT && random.oneIn(6))) {
        use.form = random.oneIn(2) ? Use::LITERAL : Use::ARRAY;
        bool canBeMade = !target.isInterface && !has(target.modifiers, "abstract") &&
                         (target.outer < 0 || has(target.modifiers, "static"));
        if (canBeMade && random.oneIn(2)) use.form = Use::NEW;
        if (member.kind == Member::CONSTANT) return false;
        member.uses.push_back(use);
        return true;
    }
    if (has(used->modifiers, "private") && !isSameFile) return false;
    if (!has(used->modifiers, "public") && !target.isInterface && !isSamePackage) return false;
    bool isNumber = used->type == "int" || used->type == "byte";
    if (member.kind == Member::CONSTANT && (used->kind != Member::CONSTANT || !isNumber)) return false;
    use.member = static_cast<int>(used - target.members.data());
    use.form = has(used->modifiers, "static") || target.isInterface ? Use::STATIC : Use::INSTANCE;
    if (used->kind == Member::METHOD && !has(used->modifiers, "static")) use.form = Use::INSTANCE;
    bool isInstance = use.form == Use::INSTANCE && (has(member.modifiers, "static") || classes_[c].isInterface);
    bool isHidden = (isOutside && !has(used->modifiers, "static")) || (use.target != c && hasMember(c, used->name));
    if (isNear && !isInstance && !isHidden && used->kind != Member::CONSTRUCTOR && random.below(3) != 0)
        use.form = Use::SIMPLE;
    if (used->kind == Member::CONSTANT && isNumber && member.kind == Member::METHOD && random.oneIn(4))
        use.form = Use::CASE;
    if (used->kind == Member::CONSTRUCTOR) {
        if (has(target.modifiers, "abstract") || (target.outer >= 0 && !has(target.modifiers, "static"))) return false;
        use.form = Use::NEW;
    }
    if (!used->parameters.empty()) use.argument = argumentFor(used->parameters[0]);
    member.uses.push_back(use);
    return true;
}

Member* Program::chooseMember(Random& random, Class& c) {
    if (c.members.empty()) return nullptr;
    Member& m = random.oneOf(c.members);
    return m.alive ? &m : nullptr;
}

int Program::chooseClass(Random& random) const {
    for (;;)
        if (std::size_t c = random.below(classes_.size()); classes_[c].alive) return static_cast<int>(c);
}

/// -1 if the class that was come upon can't be one.
int Program::chooseSuperclass(Random& random, int c, bool isInterface) const {
    int found = chooseClass(random);
    const Class& other = classes_[found];
    if (other.isInterface != isInterface || inherits(found, c) || has(other.modifiers, "final")) return -1;
    if (other.outer >= 0 || outermost(c) == found) return -1;
    if (files_[other.file].package == files_[classes_[c].file].package) return found;
    return isPublic(found) && !files_[other.file].package.empty() ? found : -1;
}

void Program::pruneUses(int target, int member) {
    for (Class& c : classes_)
        for (Member& m : c.members)
            std::erase_if(m.uses,
                          [&](const Use& use) { return use.target == target && (member < 0 || use.member == member); });
}

// ---- looking

int Program::outermost(int c) const {
    while (classes_[c].outer >= 0) c = classes_[c].outer;
    return c;
}

bool Program::isPublic(int c) const {
    const Class& of = classes_[c];
    return of.outer < 0 ? of.name == files_[of.file].name : has(of.modifiers, "public") && isPublic(of.outer);
}

bool Program::hasMember(int c, const std::string& name) const {
    return std::any_of(classes_[c].members.begin(), classes_[c].members.end(),
                       [&](const Member& m) { return m.alive && m.name == name; });
}

/// Whether another class has the simple name of this one, or of one around it.
bool Program::isAmbiguous(int c) const {
    int top = outermost(c);
    return std::any_of(classes_.begin(), classes_.end(), [&](const Class& other) {
        return other.alive && &other != &classes_[top] && other.name == classes_[top].name;
    });
}

bool Program::inherits(int c, int from) const {
    if (c == from) return true;
    const Class& of = classes_[c];
    if (of.superclass >= 0 && inherits(of.superclass, from)) return true;
    if (of.outer >= 0 && inherits(of.outer, from)) return true;
    return std::any_of(of.interfaces.begin(), of.interfaces.end(), [&](int i) { return inherits(i, from); });
}

// ---- edits

std::string Program::edit(Random& random) {
    int c = chooseClass(random);
    editedPath_ = pathOf(c);
    std::string name = qualifiedName(c);
    std::size_t choice = random.below(20);
    if (choice < 13) return name + ": " + editMember(random, c);
    if (choice < 17) return name + ": " + editClass(random, c);
    return name + ": " + editFile(random, c);
}

std::string Program::editMember(Random& random, int c) {
    Class& in = classes_[c];
    Member* m = chooseMember(random, in);
    if (m == nullptr || random.oneIn(6)) {
        constexpr std::array KINDS = {Member::FIELD, Member::CONSTANT, Member::METHOD, Member::METHOD};
        std::size_t before = in.members.size();
        addMember(random, c, random.oneOf(KINDS));
        if (in.members.size() == before) return "nothing";
        Member added = in.members.back();
        chooseType(random, added);
        addUses(random, c, added, 2);
        classes_[c].members.back() = added;
        return "new member " + added.name;
    }
    std::string what = m->name + ": ";
    switch (random.below(7)) {
    case 0: return what + removeMember(random, c);
    case 1: m->name = m->name.substr(0, 1) + std::to_string(random.below(MOST_NAMES)); return what + "now " + m->name;
    case 2: {
        Member changed = *m;
        changed.salt++;
        if (!random.oneIn(3)) changed.uses.clear();
        addUses(random, c, changed, 3);
        in.members[static_cast<std::size_t>(m - in.members.data())] = changed;
        return what + "another body";
    }
    case 3:
        if (in.isInterface) return what + "nothing";
        toggle(m->modifiers, oneOf(random, std::array{"static ", "final ", "synchronized ", "transient "}));
        return what + "now " + m->modifiers;
    case 4:
        if (in.isInterface) return what + "nothing";
        for (const char* access : ACCESS)
            if (*access != 0 && has(m->modifiers, access)) toggle(m->modifiers, access);
        m->modifiers += oneOf(random, ACCESS);
        return what + "now " + m->modifiers;
    default: return what + editMethod(random, *m);
    }
}

/// Of a field or constant, its type and value.
std::string Program::editMethod(Random& random, Member& m) {
    if (m.kind == Member::CONSTANT && !random.oneIn(5)) {
        m.value = std::to_string(random.below(90));
        return "now " + m.value;
    }
    if (m.kind == Member::CONSTANT) return "now " + (m.type = oneOf(random, VALUE_TYPES));
    if (m.kind == Member::FIELD) return "now " + (m.type = oneOf(random, FIELD_TYPES));
    switch (random.below(3)) {
    case 0: m.thrown = {oneOf(random, THROWN)}; return "throws " + m.thrown[0];
    case 1: m.type = oneOf(random, FIELD_TYPES); return "gives " + m.type;
    default: m.parameters = {oneOf(random, FIELD_TYPES)}; return "takes " + m.parameters[0];
    }
}

std::string Program::removeMember(Random& random, int c) {
    std::vector<Member>& members = classes_[c].members;
    std::size_t at = random.below(members.size());
    members[at].alive = false;
    if (!random.oneIn(3)) pruneUses(c, static_cast<int>(at));
    return "removed " + members[at].name;
}

std::string Program::editClass(Random& random, int c) {
    Class& in = classes_[c];
    switch (random.below(7)) {
    case 0: toggle(in.modifiers, random.oneIn(2) ? "abstract " : "final "); return "now " + in.modifiers;
    case 1:
        if (in.isInterface) return "nothing";
        in.superclass = chooseSuperclass(random, c, false);
        return in.superclass < 0 ? "no superclass" : "extends " + qualifiedName(in.superclass);
    case 2: {
        int interface = chooseSuperclass(random, c, true);
        if (interface < 0 || !in.interfaces.empty()) return in.interfaces.clear(), "no interfaces";
        in.interfaces = {interface};
        return "implements " + qualifiedName(interface);
    }
    case 3: {
        if (in.isInterface) return "nothing";
        int added = addClass(random, files_[in.file].package, c);
        return "new member class " + classes_[added].name;
    }
    case 4:
        if (in.outer < 0) return "nothing";
        toggle(in.modifiers, "static ");
        return "now " + in.modifiers;
    case 5: removeClass(random, c); return "removed";
    default: in.name = oneOf(random, CLASS_NAMES); return "now called " + in.name;
    }
}

void Program::removeClass(Random& random, int c) {
    classes_[c].alive = false;
    bool isPruned = !random.oneIn(4);
    if (isPruned) pruneUses(c, -1);
    for (int other = 0; other < static_cast<int>(classes_.size()); other++) {
        Class& of = classes_[other];
        if (of.alive && of.outer == c) removeClass(random, other);
        if (!isPruned) continue;
        if (of.superclass == c) of.superclass = -1;
        std::erase(of.interfaces, c);
        for (Member& m : of.members) {
            for (const std::string& type : {"#" + std::to_string(c), "~" + std::to_string(c)}) {
                if (m.type == type) m.type = "Object";
                std::replace(m.parameters.begin(), m.parameters.end(), type, std::string("Object"));
            }
        }
    }
}

std::string Program::editFile(Random& random, int c) {
    File& file = files_[classes_[c].file];
    switch (random.below(4)) {
    case 0: file.onDemand = !file.onDemand; return "other imports";
    case 1: {
        int added = addClass(random, std::string(file.package), -1);
        editedPath_ = pathOf(added);
        return "new neighbour " + classes_[added].name;
    }
    case 2: file.name += "x"; return "file now " + file.name;
    default: {
        int to = classes_[chooseClass(random)].file;
        if (files_[to].package != file.package) return "nothing";
        int top = outermost(c);
        int from = classes_[top].file;
        for (int other = 0; other < static_cast<int>(classes_.size()); other++)
            if (classes_[other].file == from && outermost(other) == top) classes_[other].file = to;
        return "moved to " + files_[to].name;
    }
    }
}

} // namespace tarn::edits
