#include "classlib/class_parser.h"

#include <bit>

#include "classlib/descriptor.h"

namespace tarn::classlib {

namespace {

constexpr int maximumAnnotationDepth = 64;

/// Reads one class file, front to back. All indices into the pool are checked as they are followed.
class ClassParser {
public:
    explicit ClassParser(Bytes file) : reader_(file), file_(file) {}

    ClassModel parse();

private:
    struct Attribute {
        std::string_view name;
        Bytes body;
    };

    void indexPool();
    static void checkFlags(std::uint16_t ofClass);
    [[nodiscard]] ByteReader entry(std::size_t index, std::uint8_t tag) const;
    [[nodiscard]] std::string_view text(std::size_t index) const;
    [[nodiscard]] std::string_view className(std::size_t index) const;
    [[nodiscard]] std::string_view optionalClassName(std::size_t index) const;
    [[nodiscard]] Constant constant(std::size_t index) const;

    std::vector<std::string_view> classNames(ByteReader& reader) const;
    std::vector<Member> members(bool areMethods);
    Member member(bool isMethod);
    Attribute attribute();
    void readNestedClasses(Bytes body, ClassModel& model) const;

    [[nodiscard]] bool saysOldDeprecation(Bytes annotations) const;
    std::string_view sinceOf(ByteReader& annotation) const;
    void skipAnnotation(ByteReader& reader, int depth) const;
    void skipElementValue(ByteReader& reader, int depth) const;

    ByteReader reader_;
    Bytes file_;
    std::vector<std::uint32_t> entries_; ///< where each pool entry's tag is; 0 for an index without an entry
};

ClassModel ClassParser::parse() {
    if (reader_.u4() != 0xCAFEBABE) throw BadInput("it is no class file");
    reader_.skip(4); // the version: nothing that is read here depends on it
    indexPool();
    ClassModel model;
    model.flags = reader_.u2();
    checkFlags(model.flags);
    model.name = className(reader_.u2());
    model.superclass = optionalClassName(reader_.u2());
    model.interfaces = classNames(reader_);
    model.fields = members(false);
    model.methods = members(true);
    model.synthetic = (model.flags & flags::Synthetic) != 0;
    for (unsigned left = reader_.u2(); left > 0; left--) {
        Attribute next = attribute();
        if (next.name == "InnerClasses")
            readNestedClasses(next.body, model);
        else if (next.name == "RuntimeVisibleAnnotations")
            model.deprecated = saysOldDeprecation(next.body);
        else if (next.name == "Synthetic")
            model.synthetic = true;
    }
    return model;
}

void ClassParser::checkFlags(std::uint16_t ofClass) {
    bool isFinal = (ofClass & flags::Final) != 0, isAbstract = (ofClass & flags::Abstract) != 0;
    bool isInterface = (ofClass & flags::Interface) != 0;
    if ((isFinal && isAbstract) || (isInterface && !isAbstract)) throw BadInput("its flags contradict each other");
}

void ClassParser::indexPool() {
    unsigned count = reader_.u2();
    entries_.resize(count);
    for (unsigned i = 1; i < count; i++) {
        entries_[i] = static_cast<std::uint32_t>(reader_.position());
        std::uint8_t tag = reader_.u1();
        switch (tag) {
        case UTF8: reader_.skip(reader_.u2()); break;
        case CLASS:
        case STRING:
        case 16: // method type
        case 19: // module
        case 20: // package
            reader_.skip(2);
            break;
        case 15: // method handle
            reader_.skip(3);
            break;
        case INTEGER:
        case FLOAT:
        case 9:  // field
        case 10: // method
        case 11: // interface method
        case 12: // name and type
        case 17: // dynamic constant
        case 18: // dynamic call
            reader_.skip(4);
            break;
        case LONG:
        case DOUBLE:
            reader_.skip(8);
            i++;
            break;
        default: throw BadInput("its constant pool has an entry of the unknown kind " + std::to_string(tag));
        }
    }
}

/// Stands behind the tag of the pool entry `index`, which must be of the kind `tag`.
ByteReader ClassParser::entry(std::size_t index, std::uint8_t tag) const {
    if (index == 0 || index >= entries_.size() || entries_[index] == 0 || file_[entries_[index]] != tag)
        throw BadInput("it refers to a constant that is not there");
    return ByteReader(file_.subspan(entries_[index] + 1));
}

std::string_view ClassParser::text(std::size_t index) const {
    ByteReader reader = entry(index, UTF8);
    return asText(reader.take(reader.u2()));
}

/// A class that is no array. The name becomes a file's name, so it must not lead out of its folder.
std::string_view ClassParser::className(std::size_t index) const {
    std::string_view name = text(entry(index, CLASS).u2());
    bool atStart = true;
    for (char c : name) {
        auto code = static_cast<unsigned char>(c);
        if (code < ' ' || c == '.' || c == ';' || c == '[' || c == '\\' || c == ':' || (atStart && c == '/'))
            throw BadInput("it has a bad class name");
        atStart = c == '/';
    }
    if (atStart) // empty, or with a slash at the end
        throw BadInput("it has a bad class name");
    return name;
}

std::string_view ClassParser::optionalClassName(std::size_t index) const {
    return index == 0 ? std::string_view() : className(index);
}

std::vector<std::string_view> ClassParser::classNames(ByteReader& reader) const {
    std::vector<std::string_view> names;
    for (unsigned left = reader.u2(); left > 0; left--) names.push_back(className(reader.u2()));
    return names;
}

Constant ClassParser::constant(std::size_t index) const {
    if (index == 0 || index >= entries_.size() || entries_[index] == 0)
        throw BadInput("it refers to a constant that is not there");
    auto tag = static_cast<PoolTag>(file_[entries_[index]]);
    ByteReader reader = entry(index, tag);
    switch (tag) {
    case INTEGER:
    case FLOAT: return {tag, asText(reader.take(4))};
    case LONG:
    case DOUBLE: return {tag, asText(reader.take(8))};
    case STRING: return {tag, text(reader.u2())};
    default: throw BadInput("a constant field of it has no value");
    }
}

std::vector<Member> ClassParser::members(bool areMethods) {
    std::vector<Member> result;
    for (unsigned left = reader_.u2(); left > 0; left--) result.push_back(member(areMethods));
    return result;
}

Member ClassParser::member(bool isMethod) {
    Member result;
    result.flags = reader_.u2();
    result.name = text(reader_.u2());
    result.descriptor = text(reader_.u2());
    result.synthetic = (result.flags & flags::Synthetic) != 0;
    if (result.name.empty() ||
        !(isMethod ? isMethodDescriptor(result.descriptor) : isFieldDescriptor(result.descriptor)))
        throw BadInput("it has a member with a bad name or type");
    if (std::popcount(static_cast<unsigned>(result.flags & (flags::Public | flags::Private | flags::Protected))) > 1)
        throw BadInput("the flags of a member contradict each other");
    for (unsigned left = reader_.u2(); left > 0; left--) {
        Attribute next = attribute();
        ByteReader body(next.body);
        if (next.name == "ConstantValue" && !isMethod)
            result.constant = constant(body.u2());
        else if (next.name == "Exceptions" && isMethod)
            result.exceptions = classNames(body);
        else if (next.name == "RuntimeVisibleAnnotations")
            result.deprecated = saysOldDeprecation(next.body);
        else if (next.name == "Synthetic")
            result.synthetic = true;
    }
    return result;
}

ClassParser::Attribute ClassParser::attribute() {
    std::string_view name = text(reader_.u2());
    std::uint32_t length = reader_.u4();
    return {name, reader_.take(length)};
}

void ClassParser::readNestedClasses(Bytes body, ClassModel& model) const {
    ByteReader reader(body);
    for (unsigned left = reader.u2(); left > 0; left--) {
        NestedClass nested;
        nested.name = className(reader.u2());
        nested.outer = optionalClassName(reader.u2());
        if (std::size_t simpleName = reader.u2()) nested.simpleName = text(simpleName);
        nested.flags = reader.u2();
        model.nestedClasses.push_back(nested);
    }
}

bool ClassParser::saysOldDeprecation(Bytes annotations) const {
    ByteReader reader(annotations);
    for (unsigned left = reader.u2(); left > 0; left--) {
        ByteReader ahead = reader;
        if (text(ahead.u2()) == "Ljava/lang/Deprecated;") return isDeprecatedIn11(sinceOf(ahead));
        skipAnnotation(reader, 0);
    }
    return false;
}

/// The element `since` of the annotation whose type has just been read; empty if it has none.
std::string_view ClassParser::sinceOf(ByteReader& annotation) const {
    for (unsigned left = annotation.u2(); left > 0; left--) {
        std::string_view element = text(annotation.u2());
        ByteReader value = annotation;
        if (element == "since" && value.u1() == 's') return text(value.u2());
        skipElementValue(annotation, 0);
    }
    return {};
}

void ClassParser::skipAnnotation(ByteReader& reader, int depth) const {
    reader.skip(2);
    for (unsigned left = reader.u2(); left > 0; left--) {
        reader.skip(2);
        skipElementValue(reader, depth + 1);
    }
}

void ClassParser::skipElementValue(ByteReader& reader, int depth) const {
    if (depth > maximumAnnotationDepth) throw BadInput("its annotations are nested too deeply");
    switch (reader.u1()) {
    case 'e': reader.skip(4); break;
    case '@': skipAnnotation(reader, depth + 1); break;
    case '[':
        for (unsigned left = reader.u2(); left > 0; left--) skipElementValue(reader, depth + 1);
        break;
    default: reader.skip(2);
    }
}

} // namespace

ClassModel parseClass(Bytes file) {
    return ClassParser(file).parse();
}

bool isDeprecatedIn11(std::string_view since) {
    if (since.starts_with("JDK")) since.remove_prefix(3);
    bool of10 = since == "1.0" || since.starts_with("1.0.");
    return of10 || since == "1.1";
}

} // namespace tarn::classlib
