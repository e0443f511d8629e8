#include "classlib/class_writer.h"

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "classlib/byte_writer.h"

namespace tarn::classlib {

namespace {

/// The constant pool of the class being written. Equal constants share an entry.
class PoolWriter {
public:
    std::uint16_t utf8(std::string_view text) {
        if (std::uint16_t known = find(UTF8, text)) return known;
        ByteWriter entry;
        entry.u2(static_cast<std::uint32_t>(text.size()));
        entry.text(text);
        return add(UTF8, text, entry);
    }

    std::uint16_t classEntry(std::string_view name) {
        if (std::uint16_t known = find(CLASS, name)) return known;
        classNames_.push_back(name);
        return addReference(CLASS, name);
    }

    std::uint16_t constant(const Constant& constant) {
        if (std::uint16_t known = find(constant.tag, constant.data)) return known;
        if (constant.tag == STRING) return addReference(STRING, constant.data);
        ByteWriter entry;
        entry.text(constant.data);
        return add(constant.tag, constant.data, entry);
    }

    /// The names of the class entries in the order in which they came.
    [[nodiscard]] const std::vector<std::string_view>& classNames() const { return classNames_; }

    void writeTo(ByteWriter& out) const {
        out.u2(count_);
        out.append(entries_);
    }

private:
    [[nodiscard]] static std::string key(PoolTag tag, std::string_view data) {
        std::string result(1, static_cast<char>(tag));
        result += data;
        return result;
    }

    [[nodiscard]] std::uint16_t find(PoolTag tag, std::string_view data) const {
        auto known = indices_.find(key(tag, data));
        return known == indices_.end() ? 0 : known->second;
    }

    std::uint16_t addReference(PoolTag tag, std::string_view text) {
        ByteWriter entry;
        entry.u2(utf8(text));
        return add(tag, text, entry);
    }

    std::uint16_t add(PoolTag tag, std::string_view data, const ByteWriter& entry) {
        std::uint32_t index = count_;
        count_ += tag == LONG || tag == DOUBLE ? 2 : 1;
        if (count_ > 0xFFFF) throw BadInput("a class has too many constants");
        entries_.u1(tag);
        entries_.append(entry);
        return indices_[key(tag, data)] = static_cast<std::uint16_t>(index);
    }

    std::unordered_map<std::string, std::uint16_t> indices_;
    std::vector<std::string_view> classNames_;
    ByteWriter entries_;
    std::uint32_t count_ = 1;
};

class ClassWriter {
public:
    ClassWriter(const ClassModel& model, const LegacyLibrary& library) : model_(model), library_(library) {}

    std::vector<std::uint8_t> write() {
        writeBody();
        ByteWriter file;
        file.u4(0xCAFEBABE);
        file.u2(3);
        file.u2(45);
        pool_.writeTo(file);
        file.append(body_);
        return file.release();
    }

private:
    void writeBody() {
        body_.u2(model_.flags);
        body_.u2(pool_.classEntry(model_.name));
        body_.u2(model_.superclass.empty() ? 0 : pool_.classEntry(model_.superclass));
        body_.u2(static_cast<std::uint32_t>(model_.interfaces.size()));
        for (std::string_view interface : model_.interfaces) body_.u2(pool_.classEntry(interface));
        writeMembers(model_.fields);
        writeMembers(model_.methods);
        collectInnerClasses();
        body_.u2((model_.deprecated ? 1 : 0) + (innerClasses_.empty() ? 0 : 1));
        if (model_.deprecated) writeDeprecated();
        if (!innerClasses_.empty()) writeInnerClasses();
    }

    void writeMembers(const std::vector<Member>& members) {
        body_.u2(static_cast<std::uint32_t>(members.size()));
        for (const Member& member : members) writeMember(member);
    }

    void writeMember(const Member& member) {
        body_.u2(member.flags);
        body_.u2(pool_.utf8(member.name));
        body_.u2(pool_.utf8(member.descriptor));
        body_.u2((member.constant.exists() ? 1 : 0) + (member.exceptions.empty() ? 0 : 1) +
                 (member.deprecated ? 1 : 0));
        if (member.constant.exists()) {
            beginAttribute("ConstantValue", 2);
            body_.u2(pool_.constant(member.constant));
        }
        if (!member.exceptions.empty()) {
            beginAttribute("Exceptions", 2 + 2 * member.exceptions.size());
            body_.u2(static_cast<std::uint32_t>(member.exceptions.size()));
            for (std::string_view exception : member.exceptions) body_.u2(pool_.classEntry(exception));
        }
        if (member.deprecated) writeDeprecated();
    }

    void beginAttribute(std::string_view name, std::size_t length) {
        body_.u2(pool_.utf8(name));
        body_.u4(static_cast<std::uint32_t>(length));
    }

    void writeDeprecated() { beginAttribute("Deprecated", 0); }

    /// Every nested class that the pool has a class entry for, every member class, and what is around them, outer
    /// classes first. The class entries are found by index: naming an outer class adds one.
    void collectInnerClasses() {
        for (const NestedClass& nested : model_.nestedClasses) (void)pool_.classEntry(nested.name);
        for (std::size_t i = 0; i < pool_.classNames().size(); i++) enterInnerClass(pool_.classNames()[i]);
    }

    void enterInnerClass(std::string_view name) {
        std::vector<const NestedClass*> chain;
        while (const ClassModel* named = library_.find(name)) {
            const NestedClass* own = named->ownEntry();
            if (own == nullptr || !entered_.insert(name).second) break;
            chain.push_back(own);
            name = own->outer;
        }
        for (auto entry = chain.rbegin(); entry != chain.rend(); ++entry) {
            (void)pool_.classEntry((*entry)->outer);
            innerClasses_.push_back(*entry);
        }
    }

    void writeInnerClasses() {
        beginAttribute("InnerClasses", 2 + 8 * innerClasses_.size());
        body_.u2(static_cast<std::uint32_t>(innerClasses_.size()));
        for (const NestedClass* nested : innerClasses_) {
            body_.u2(pool_.classEntry(nested->name));
            body_.u2(pool_.classEntry(nested->outer));
            body_.u2(pool_.utf8(nested->simpleName));
            body_.u2(nested->flags);
        }
    }

    const ClassModel& model_;
    const LegacyLibrary& library_;
    PoolWriter pool_;
    ByteWriter body_;
    std::vector<const NestedClass*> innerClasses_;
    std::unordered_set<std::string_view> entered_; ///< names of the nested classes in `innerClasses_`
};

} // namespace

std::vector<std::uint8_t> writeClass(const ClassModel& model, const LegacyLibrary& library) {
    return ClassWriter(model, library).write();
}

} // namespace tarn::classlib
