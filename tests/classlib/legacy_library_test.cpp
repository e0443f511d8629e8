#include <gtest/gtest.h>

#include "classlib/class_parser.h"
#include "classlib/image_source.h"
#include "classlib/library_run.h"

namespace tarn::classlib::test {

namespace {

using Lines = std::vector<std::string>;

constexpr unsigned PUBLIC = 1, PRIVATE = 2, PROTECTED = 4, STATIC = 8, FINAL = 0x10, SUPER = 0x20;
constexpr unsigned BRIDGE = 0x40, VARARGS = 0x80, NATIVE = 0x100, INTERFACE = 0x200, ABSTRACT = 0x400, STRICT = 0x800;
constexpr unsigned SYNTHETIC = 0x1000, ANNOTATION = 0x2000, ENUM = 0x4000;

const ClassSource object{.flags = PUBLIC | SUPER, .name = "java/lang/Object", .superclass = ""};
const ClassSource string{.flags = PUBLIC | SUPER | FINAL, .name = "java/lang/String"};

/// What becomes of these classes, with Object and String around them, if these packages are asked for besides.
std::map<std::string, OldClass> libraryOf(std::vector<ClassSource> classes, const Lines& packages = {}) {
    classes.push_back(object);
    classes.push_back(string);
    ByteVector image = imageOf(classes);
    return readClosedArchive(classFilesOf(RuntimeImage(image), packages));
}

/// The names of what becomes of these classes, without Object and String.
Lines namesOf(const std::vector<ClassSource>& classes, const Lines& packages = {}) {
    Lines names;
    for (const auto& [name, read] : libraryOf(classes, packages))
        if (name != object.name && name != string.name) names.push_back(name);
    return names;
}

} // namespace

TEST(LegacyLibrary, KeepsConstantsOfStaticFinalFieldsWhoseTypeFits) {
    auto field = [](unsigned flags, std::string type, std::optional<int> number, std::optional<std::string> text = {}) {
        return MemberSource{.flags = PUBLIC | flags,
                            .name = "f",
                            .descriptor = std::move(type),
                            .intConstant = number,
                            .stringConstant = std::move(text)};
    };
    struct {
        MemberSource field;
        std::string line;
    } rows[] = {
        {field(STATIC | FINAL, "I", -7), "field 19 f I = -7"},
        {field(STATIC | FINAL, "Z", 1), "field 19 f Z = 1"},
        {field(STATIC | FINAL, "Ljava/lang/String;", {}, "a\xC0\x80z"),
         std::string("field 19 f Ljava/lang/String; = \"a\xC0\x80z\"")},
        {field(FINAL, "I", 5), "field 11 f I"},
        {field(STATIC, "I", 5), "field 9 f I"},
        {field(STATIC | FINAL, "J", 5), "field 19 f J"},
        {field(STATIC | FINAL, "Ljava/lang/Object;", {}, "x"), "field 19 f Ljava/lang/Object;"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(libraryOf({{.flags = PUBLIC | SUPER, .name = "java/A", .fields = {row.field}}}).at("java/A").lines[1],
                  row.line);
}

TEST(LegacyLibrary, DrawsInWhatItsClassesExtendAndImplement) {
    std::vector<ClassSource> classes = {
        {.flags = PUBLIC | SUPER, .name = "java/A", .superclass = "java/Hidden", .interfaces = {"sun/I"}},
        {.flags = SUPER | ABSTRACT, .name = "java/Hidden", .superclass = "sun/Outer$Base"},
        {.flags = INTERFACE | ABSTRACT, .name = "sun/I"},
        {.flags = SUPER, .name = "sun/Outer", .superclass = "com/Far"},
        {.flags = SUPER,
         .name = "sun/Outer$Base",
         .nested = {{"sun/Outer$Base", "sun/Outer", "Base", PRIVATE | STATIC}}},
        {.flags = SUPER, .name = "com/Far"},
        // None of these is asked for by anything but the name of the package:
        {.flags = PUBLIC | SUPER, .name = "sun/below/Public"},
        {.flags = SUPER, .name = "sun/below/OfPackage"},
        {.flags = PUBLIC | SUPER, .name = "sunset/Public"},
        {.flags = SUPER, .name = "java/OfPackage"},
        {.flags = PUBLIC | SUPER, .name = "javac/Other"},
        {.flags = PUBLIC | SUPER | SYNTHETIC, .name = "java/package-info"}};
    Lines names = {"com/Far", "java/A", "java/Hidden", "sun/I", "sun/Outer", "sun/Outer$Base"};
    EXPECT_EQ(namesOf(classes), names);
    names.push_back("sun/below/Public");
    EXPECT_EQ(namesOf(classes, {"sun"}), names);
    names.push_back("sunset/Public");
    EXPECT_EQ(namesOf(classes, {"sun.below", "sunset", "java"}), names);
    for (const char* missing : {"su", "sun.be", "sun.below.Public", "zero", ""})
        EXPECT_THROW(namesOf(classes, {missing}), BadInput) << missing;
    auto library = libraryOf(classes);
    EXPECT_EQ(library.at("java/Hidden").lines,
              (Lines{"class 420 java/Hidden extends sun/Outer$Base", "inner a sun/Outer$Base = Base of sun/Outer"}));
}

TEST(LegacyLibrary, LeavesOutWhatNamesAClassThatIsNotIn) {
    std::vector<ClassSource> classes = {
        {.flags = PUBLIC | SUPER,
         .name = "java/A",
         .fields = {{PUBLIC, "f", "[[Lsun/X;"}, {PUBLIC, "g", "Ljava/Broken;"}, {PUBLIC, "h", "Ljava/A;"}},
         .methods = {{PUBLIC, "m", "(ILsun/X;)V"},
                     {PUBLIC, "n", "()Ljava/Broken$Nested;"},
                     {.flags = PUBLIC, .name = "o", .descriptor = "()V", .exceptions = {"java/lang/Object", "sun/X"}},
                     {.flags = PUBLIC, .name = "p", .descriptor = "()V", .exceptions = {"java/lang/Object"}}}},
        {.flags = PUBLIC | SUPER, .name = "sun/X"},
        {.flags = PUBLIC | SUPER,
         .name = "java/Broken",
         .superclass = "sun/Missing",
         .interfaces = {"sun/OnlyForBroken"},
         .nested = {{"java/Broken$Nested", "java/Broken", "Nested", PUBLIC | STATIC}}},
        {.flags = PUBLIC | SUPER,
         .name = "java/Broken$Nested",
         .nested = {{"java/Broken$Nested", "java/Broken", "Nested", PUBLIC | STATIC}}},
        {.flags = PUBLIC | SUPER, .name = "java/ExtendsBroken", .superclass = "java/Broken$Nested"},
        {.flags = PUBLIC | INTERFACE | ABSTRACT, .name = "sun/OnlyForBroken"}};
    EXPECT_EQ(namesOf(classes), (Lines{"java/A"}));
    auto library = libraryOf(classes);
    EXPECT_EQ(library.at("java/A").lines, (Lines{"class 21 java/A extends java/lang/Object", "field 1 h Ljava/A;",
                                                 "method 1 p ()V throws java/lang/Object"}));
}

TEST(LegacyLibrary, KeepsDeprecationsThatAreNotNewerThan11) {
    struct {
        const char* since;
        bool kept;
    } rows[] = {{"1.1", true},    {"JDK1.1", true}, {"1.0", true}, {"JDK1.0", true}, {"1.0.2", true}, {"1.2", false},
                {"1.1.4", false}, {"1.10", false},  {"9", false},  {"11", false},    {"1", false},    {"", false}};
    for (const auto& row : rows) {
        auto library = libraryOf({{.flags = PUBLIC | SUPER,
                                   .name = "java/A",
                                   .fields = {{.flags = PUBLIC, .name = "f", .descriptor = "I", .since = row.since}},
                                   .methods = {{.flags = PUBLIC, .name = "m", .descriptor = "()V", .since = row.since}},
                                   .since = row.since}});
        std::string mark = row.kept ? " deprecated" : "";
        EXPECT_EQ(library.at("java/A").lines, (Lines{"class 21 java/A extends java/lang/Object" + mark,
                                                     "field 1 f I" + mark, "method 1 m ()V" + mark}))
            << row.since;
    }
}

TEST(LegacyLibrary, SurvivesClassesThatNeedOneAnother) {
    std::vector<ClassSource> classes = {{.flags = PUBLIC | SUPER, .name = "java/A", .superclass = "java/B"},
                                        {.flags = PUBLIC | SUPER, .name = "java/B", .superclass = "java/A"}};
    EXPECT_EQ(namesOf(classes), (Lines{"java/A", "java/B"}));
    classes[1].interfaces = {"sun/Missing"};
    EXPECT_EQ(namesOf(classes), Lines{});
}

TEST(LegacyLibrary, RefusesGarbledClassesByName) {
    struct {
        ClassSource source;
        std::string text;
    } rows[] = {
        {{.flags = PUBLIC | SUPER, .name = "java/A", .superclass = "../../B"}, "it has a bad class name"},
        {{.flags = PUBLIC | SUPER, .name = "java/A", .methods = {{PUBLIC, "m", "(I"}}},
         "it has a member with a bad name or type"},
        {{.flags = PUBLIC | SUPER, .name = "java/A", .fields = {{PUBLIC, "f", "V"}}},
         "it has a member with a bad name or type"},
    };
    for (const auto& row : rows) {
        try {
            libraryOf({row.source});
            ADD_FAILURE() << row.text;
        } catch (const BadInput& failure) {
            EXPECT_EQ(failure.what(), "class java/A is garbled: " + row.text);
        }
    }
}

} // namespace tarn::classlib::test
