#pragma once

#include "fuzz/random.h"

#include <map>
#include <string>
#include <vector>

namespace tarn::edits {

using fuzz::Random;
using Texts = std::map<std::string, std::string>; ///< of sources, by relative path

/// Something that code does with a class or a member of it.
struct Use {
    enum Form { STATIC, INSTANCE, SIMPLE, CASE, NEW, LITERAL, ARRAY };
    Form form = STATIC;
    int target = 0;       ///< class
    int member = -1;      ///< of the target; -1 for the class itself
    std::string argument; ///< of a call; # and a number is null, as that class
    bool qualified = false;
};

struct Member {
    enum Kind { FIELD, CONSTANT, METHOD, CONSTRUCTOR };
    Kind kind = FIELD;
    std::string name;
    std::string type; ///< a class of the program is # and its number, or ~ if it is called by its simple name
    std::string modifiers;
    std::string value;                   ///< of a constant, unless it is a use of another
    std::vector<std::string> parameters; ///< types
    std::vector<std::string> thrown;
    std::vector<Use> uses;  ///< in the body, or in the initializer
    int salt = 0;           ///< makes one body differ from another
    bool anonymous = false; ///< the uses stand in an anonymous class in the body
    bool alive = true;
};

struct Class {
    std::string name;
    std::string modifiers; ///< but for `public`, which a class has that is named like its file
    int file = 0;
    int outer = -1;
    int superclass = -1;
    std::vector<int> interfaces;
    std::vector<Member> members;
    bool isInterface = false;
    bool alive = true;
};

struct File {
    std::string package;   ///< "" for the unnamed one
    std::string name;      ///< without ".java"
    bool onDemand = false; ///< how it imports
};

/// A program of some sixty classes in six packages, and edits of it such as people make. Some leave a program that does
/// not compile.
class Program {
public:
    explicit Program(Random& random);

    [[nodiscard]] Texts render() const;
    /// Makes one edit and tells which.
    std::string edit(Random& random);
    /// The file of the class that the last edit was about.
    [[nodiscard]] const std::string& editedPath() const { return editedPath_; }
    [[nodiscard]] static const std::vector<std::string>& packages();

private:
    // Growing
    int addClass(Random& random, const std::string& package, int outer);
    void addMember(Random& random, int c, Member::Kind kind);
    void chooseType(Random& random, Member& m);
    void addUses(Random& random, int c, Member& member, std::size_t most);
    bool addUse(Random& random, int c, Member& member);
    Member* chooseMember(Random& random, Class& c);
    int chooseClass(Random& random) const;
    int chooseSuperclass(Random& random, int c, bool isInterface) const;
    void pruneUses(int target, int member);

    // Edits
    std::string editMember(Random& random, int c);
    std::string editMethod(Random& random, Member& m);
    std::string editClass(Random& random, int c);
    std::string editFile(Random& random, int c);
    std::string removeMember(Random& random, int c);
    void removeClass(Random& random, int c);

    // Looking
    [[nodiscard]] int outermost(int c) const;
    [[nodiscard]] bool isPublic(int c) const;
    [[nodiscard]] bool hasMember(int c, const std::string& name) const;
    [[nodiscard]] bool isAmbiguous(int c) const;
    [[nodiscard]] bool inherits(int c, int from) const;
    [[nodiscard]] std::string pathOf(int c) const;

    // Rendering
    [[nodiscard]] std::string render(int file) const;
    [[nodiscard]] std::string imports(int file) const;
    void renderClass(std::string& text, int c, const std::string& indent) const;
    void renderMember(std::string& text, int c, const Member& m, const std::string& indent) const;
    [[nodiscard]] std::string body(int c, const Member& m, const std::string& indent) const;
    [[nodiscard]] std::string statement(int from, const Use& use) const;
    [[nodiscard]] std::string expression(int from, const Use& use) const;
    [[nodiscard]] std::string reference(int from, int target, bool qualified) const;
    [[nodiscard]] std::string qualifiedName(int c) const;

    std::vector<Class> classes_;
    std::vector<File> files_;
    std::string editedPath_;
};

} // namespace tarn::edits
