// Three steps make the library. Selecting goes from the public classes of the wanted packages along supertypes, outer
// classes and visible member classes to everything that might be in. Excluding goes the other way: from the classes
// that need something which is not there to those that need them in turn. Selecting once more, around the excluded
// ones, gives the classes that are in, without those that only an excluded class had drawn in. Then each is pruned to
// the members that the old language knows and whose types are all in; since no member draws a class in, dropping
// one changes nothing for the classes, and the library is closed.

#include "classlib/legacy_library.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "classlib/class_parser.h"
#include "classlib/descriptor.h"

namespace tarn::classlib {

namespace {

using NameSet = std::unordered_set<std::string_view>;

constexpr std::uint16_t visible = flags::Public | flags::Protected;

/// The parsed classes of an image, each read when it is first asked for.
class ParsedClasses {
public:
    ParsedClasses(const RuntimeImage& image, std::deque<std::vector<std::uint8_t>>& decompressed)
        : image_(image), decompressed_(decompressed) {}

    /// Null if the image has no such class.
    const ClassModel* find(std::string_view name) {
        auto known = classes_.find(name);
        if (known != classes_.end()) return &known->second;
        return image_.hasClass(name) ? &parse(name) : nullptr;
    }

private:
    const ClassModel& parse(std::string_view name) try {
        std::vector<std::uint8_t> storage;
        Bytes file = image_.classFile(name, storage);
        if (!storage.empty()) decompressed_.push_back(std::move(storage)); // moving keeps the bytes where they are
        ClassModel model = parseClass(file);
        if (model.name != name) throw BadInput("it holds the class " + std::string(model.name));
        std::string_view key = model.name;
        return classes_.emplace(key, std::move(model)).first->second;
    } catch (const BadInput& failure) {
        throw BadInput("class " + std::string(name) + " is garbled: " + failure.what());
    }

    const RuntimeImage& image_;
    std::deque<std::vector<std::uint8_t>>& decompressed_;
    std::unordered_map<std::string_view, ClassModel> classes_;
};

/// Finds out which classes are in; see the head of this file.
class Selection {
public:
    /// `prefixes` are those of the names of the classes to begin with, as "java/".
    Selection(const RuntimeImage& image, ParsedClasses& classes, const std::vector<std::string>& prefixes)
        : classes_(classes) {
        for (std::string_view name : image.classNames())
            if (beginsWithOne(name, prefixes) && isRoot(name)) roots_.push_back(name);
    }

    [[nodiscard]] NameSet run() {
        select();
        exclude();
        select();
        return std::move(selected_);
    }

private:
    static bool beginsWithOne(std::string_view name, const std::vector<std::string>& prefixes) {
        return std::any_of(prefixes.begin(), prefixes.end(),
                           [&](const std::string& prefix) { return name.starts_with(prefix); });
    }

    bool isRoot(std::string_view name) {
        const ClassModel& model = *classes_.find(name);
        return (model.flags & flags::Public) != 0 && !model.synthetic && model.ownEntry() == nullptr;
    }

    /// What `model` cannot be in without. False if it cannot be in at all.
    template <typename Visit>
    static bool eachNeed(const ClassModel& model, Visit visit) {
        if (!model.superclass.empty()) visit(model.superclass);
        for (std::string_view interface : model.interfaces) visit(interface);
        const NestedClass* own = model.ownEntry();
        if (own != nullptr && !own->outer.empty()) visit(own->outer);
        bool isLocal = own != nullptr && (own->outer.empty() || own->simpleName.empty());
        return !isLocal && (model.superclass.empty() == (model.name == "java/lang/Object"));
    }

    void select() {
        selected_.clear();
        for (std::string_view root : roots_) draw(root);
        while (!pending_.empty()) {
            const ClassModel& model = *classes_.find(pending_.back());
            pending_.pop_back();
            (void)eachNeed(model, [this](std::string_view need) { draw(need); });
            for (const NestedClass& nested : model.nestedClasses)
                if (nested.outer == model.name && (nested.flags & visible) != 0 &&
                    (nested.flags & flags::Synthetic) == 0)
                    draw(nested.name);
        }
    }

    void draw(std::string_view name) {
        const ClassModel* model = excluded_.contains(name) ? nullptr : classes_.find(name);
        if (model != nullptr && selected_.insert(model->name).second) pending_.push_back(model->name);
    }

    void exclude() {
        std::unordered_map<std::string_view, std::vector<std::string_view>> dependents;
        for (std::string_view name : selected_) {
            bool possible = eachNeed(*classes_.find(name), [&](std::string_view need) {
                dependents[need].push_back(name);
                if (!selected_.contains(need) && excluded_.insert(need).second) pending_.push_back(need);
            });
            if (!possible && excluded_.insert(name).second) pending_.push_back(name);
        }
        while (!pending_.empty()) {
            std::string_view gone = pending_.back();
            pending_.pop_back();
            for (std::string_view name : dependents[gone])
                if (excluded_.insert(name).second) pending_.push_back(name);
        }
    }

    ParsedClasses& classes_;
    std::vector<std::string_view> roots_;
    std::vector<std::string_view> pending_;
    NameSet selected_;
    NameSet excluded_;
};

/// Makes the old format's view of one class.
class Pruner {
public:
    Pruner(const NameSet& selected, ParsedClasses& classes) : selected_(selected), classes_(classes) {}

    [[nodiscard]] ClassModel prune(const ClassModel& model) {
        ClassModel result;
        isInterface_ = (model.flags & flags::Interface) != 0;
        result.flags = model.flags & flags::OfOldClass & ~(isInterface_ ? flags::Super : 0);
        result.deprecated = model.deprecated;
        result.name = model.name;
        result.superclass = model.superclass;
        result.interfaces = model.interfaces;
        for (const Member& field : model.fields)
            if (isVisible(field)) result.fields.push_back(pruneField(field));
        for (const Member& method : model.methods)
            if (isVisible(method) && isOldMethod(method)) {
                result.methods.push_back(method);
                result.methods.back().flags &= flags::OfOldMethod;
            }
        addNestedClasses(model, result);
        return result;
    }

private:
    [[nodiscard]] bool isVisible(const Member& member) const {
        auto isIn = [this](std::string_view name) { return selected_.contains(name); };
        return (member.flags & visible) != 0 && !member.synthetic && allClassesOf(member.descriptor, isIn) &&
               std::all_of(member.exceptions.begin(), member.exceptions.end(), isIn);
    }

    /// In an interface the old language knows abstract methods only. A static or a default method must not show: an
    /// abstract class would be given an abstract method in its place.
    [[nodiscard]] bool isOldMethod(const Member& method) const {
        if ((method.flags & flags::Bridge) != 0 || method.name == "<clinit>") return false;
        return !isInterface_ || (method.flags & (flags::Abstract | flags::Static)) == flags::Abstract;
    }

    [[nodiscard]] static Member pruneField(const Member& field) {
        Member result = field;
        result.flags &= flags::OfOldField;
        constexpr std::uint16_t ofConstant = flags::Static | flags::Final;
        if ((field.flags & ofConstant) != ofConstant || field.constant.tag != constantTag(field.descriptor))
            result.constant = {};
        return result;
    }

    /// The kind of constant that a field of this type may have; UTF8 for none.
    [[nodiscard]] static PoolTag constantTag(std::string_view descriptor) {
        if (descriptor == "Ljava/lang/String;") return STRING;
        switch (descriptor[0]) {
        case 'Z':
        case 'B':
        case 'C':
        case 'S':
        case 'I': return INTEGER;
        case 'J': return LONG;
        case 'F': return FLOAT;
        case 'D': return DOUBLE;
        default: return UTF8;
        }
    }

    void addNestedClasses(const ClassModel& model, ClassModel& result) {
        auto add = [&result](NestedClass nested) {
            nested.flags &= flags::OfOldMemberClass;
            result.nestedClasses.push_back(nested);
        };
        if (const NestedClass* own = model.ownEntry()) add(*own);
        for (const NestedClass& nested : model.nestedClasses) {
            if (nested.outer != model.name || !selected_.contains(nested.name)) continue;
            // The nested class's own entry is what every other class file says of it, so it holds here too.
            const NestedClass* own = classes_.find(nested.name)->ownEntry();
            if (own != nullptr && own->outer == model.name) add(*own);
        }
    }

    const NameSet& selected_;
    ParsedClasses& classes_;
    bool isInterface_ = false;
};

/// What the names of the classes of `java.*`, of `javax.*` and of these packages begin with.
std::vector<std::string> prefixesOf(const RuntimeImage& image, const std::vector<std::string>& packages) {
    std::vector<std::string> prefixes = {"java/", "javax/"};
    std::vector<std::string_view> names = image.classNames();
    for (const std::string& package : packages) {
        std::string prefix = package + "/";
        std::replace(prefix.begin(), prefix.end(), '.', '/');
        auto first = std::lower_bound(names.begin(), names.end(), prefix);
        if (first == names.end() || !first->starts_with(prefix))
            throw BadInput("the runtime has no package " + package);
        prefixes.push_back(std::move(prefix));
    }
    return prefixes;
}

} // namespace

LegacyLibrary::LegacyLibrary(const RuntimeImage& image, const std::vector<std::string>& packages) {
    ParsedClasses parsed(image, decompressed_);
    NameSet selected = Selection(image, parsed, prefixesOf(image, packages)).run();
    Pruner pruner(selected, parsed);
    for (std::string_view name : selected) classes_.emplace(name, pruner.prune(*parsed.find(name)));
}

std::size_t LegacyLibrary::packageCount() const {
    std::set<std::string_view> packages;
    for (const auto& [name, model] : classes_) packages.insert(name.substr(0, name.rfind('/')));
    return packages.size();
}

} // namespace tarn::classlib
