#include "driver/properties.h"

#include "unit/driver/surroundings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

namespace tarn {
namespace {

using test::ScopedDirectory;
using test::ScopedVariable;

const std::optional<std::string> none;

TEST(SystemPropertyTest, ComesFromTheEnvironmentOrADefault) {
    ScopedVariable classPath("CLASSPATH", none);
    ScopedVariable home("JAVA_HOME", none);
    EXPECT_EQ(systemProperty("java.home"), "/java");
    EXPECT_EQ(systemProperty("java.class.path"), ".:/java/classes:/java/lib/classes.zip");

    ScopedVariable otherClassPath("CLASSPATH", "a.zip");
    ScopedVariable otherHome("JAVA_HOME", "/opt/jdk");
    EXPECT_EQ(systemProperty("java.home"), "/opt/jdk");
    EXPECT_EQ(systemProperty("java.class.path"), "a.zip:/opt/jdk/classes:/opt/jdk/lib/classes.zip");

    EXPECT_EQ(systemProperty("file.separator"), "/");
    EXPECT_EQ(systemProperty("path.separator"), ":");
    EXPECT_EQ(systemProperty("line.separator"), "\n");
    EXPECT_EQ(systemProperty("user.dir"), ".");
    EXPECT_EQ(systemProperty("file.encoding.pkg"), "sun.io");
    EXPECT_EQ(systemProperty("keelwright.compiler.file.encoding"), none);
    EXPECT_EQ(systemProperty(""), none);
}

TEST(SystemPropertyTest, TheToolsHomeIsTwoLevelsAboveItsExecutable) {
    ScopedVariable home("KEELWRIGHT_HOME", none);
    std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(systemProperty("keelwright.home"), executable.parent_path().parent_path().string());
    ScopedVariable elsewhere("KEELWRIGHT_HOME", "/elsewhere");
    EXPECT_EQ(systemProperty("keelwright.home"), "/elsewhere");
}

TEST(SystemPropertyTest, LocaleFollowsTheUsualVariables) {
    struct Row {
        std::optional<std::string> all, messages, characters, lang;
        std::string language;
        std::optional<std::string> region;
        std::string encoding;
    };
    const Row rows[] = {
        {none, none, none, none, "en", none, "8859_1"},
        {none, none, none, "C", "en", none, "8859_1"},
        {none, none, none, "POSIX", "en", none, "8859_1"},
        {none, none, none, "C.UTF-8", "en", none, "8859_1"},
        {none, none, none, "de_DE.UTF-8@euro", "de", "DE", "8859_1"},
        {none, none, none, "en_US", "en", "US", "8859_1"},
        {none, none, none, "ru", "ru", none, "Cp1251"},
        {none, none, none, "sr@latin", "sr", none, "Cp1251"},
        {none, none, none, "ja_JP.UTF-8", "ja", "JP", "SJIS"},
        {none, none, none, "zh_CN.UTF-8", "zh", "CN", "GB2312"},
        {none, none, none, "zh_TW", "zh", "TW", "Big5"},
        {none, none, none, "zh", "zh", none, "GB2312"},
        {none, "fr_FR", none, "pl_PL", "fr", "FR", "Cp1250"},
        {none, none, "tr_TR", "pl_PL", "pl", "PL", "Cp1254"},
        {"el_GR", "fr_FR", "tr_TR", "pl_PL", "el", "GR", "Cp1253"},
        {"", "", "", "ko_KR", "ko", "KR", "KSC5601"},
        {"C", "fr_FR", "tr_TR", "pl_PL", "en", none, "8859_1"},
        {none, none, none, "_", "en", none, "8859_1"},
        {none, none, none, "../../etc/passwd", "en", none, "8859_1"},
        {none, none, none, "12_34", "en", none, "8859_1"},
        {none, none, none, "de_", "de", none, "8859_1"},
    };
    for (const Row& row : rows) {
        ScopedVariable all("LC_ALL", row.all);
        ScopedVariable texts("LC_MESSAGES", row.messages);
        ScopedVariable characters("LC_CTYPE", row.characters);
        ScopedVariable lang("LANG", row.lang);
        std::string name = row.lang.value_or("(none)");
        EXPECT_EQ(systemProperty("user.language"), row.language) << name;
        EXPECT_EQ(systemProperty("user.region"), row.region) << name;
        EXPECT_EQ(systemProperty("file.encoding"), row.encoding) << name;
    }
}

TEST(SystemPropertyTest, TimeZoneIsAName) {
    ScopedVariable zone("TZ", ":Europe/Berlin");
    EXPECT_EQ(systemProperty("user.timezone"), "Europe/Berlin");
    ScopedVariable unset("TZ", none);
    EXPECT_NE(systemProperty("user.timezone"), none);
}

/// The entry `k` of a properties text.
std::string valueOf(std::string_view text) {
    Properties properties = Properties::parse(text);
    const std::string* value = properties.find("k");
    return value ? *value : "(absent)";
}

TEST(PropertiesTest, ReadsKeysAndValues) {
    struct Row {
        std::string_view text;
        const char* value;
    };
    const Row rows[] = {
        {"k=v", "v"},
        {"k:v\n", "v"},
        {"k v\r\n", "v"},
        {"k \t=\f v w ", "v w "},
        {"k = = v", "= v"},
        {"k", ""},
        {"k\n=v", ""},
        {"# c\n! k=no\n\n \t\n  k=v", "v"},
        {"# no continuation \\\nk=v", "v"},
        {"k=1\nk=2", "2"},
        {"other=1", "(absent)"},
        {"a\\ b\\=c=1\nk=2", "2"},
        {"k=a\\\n    b", "ab"},
        {"k=a\\\r\n\tb\\\rc", "abc"},
        {"k\\\n = v", "v"},
        {"k = \\\n  v", "v"},
        {"k=a\\\\\nb=c", "a\\"},
        {"\\k=\\t\\n\\r\\f\\\"\\=\\:\\#", "\t\n\r\f\"=:#"},
        {"\\u006b=\\u00e9\\u00E9", "\xC3\xA9\xC3\xA9"},
        {"k=\\u41\\u4z", "A\x04z"}, // up to four digits
        {"k=\\ud83d\\ude00", "\xF0\x9F\x98\x80"},
        {"k=\\ud83dx\\ude00", "\xEF\xBF\xBDx\xEF\xBF\xBD"},
        {"k=\xE9", "\xC3\xA9"}, // Latin-1
        {"k=100% of %1", "100% of %1"},
        {"k=v\\", "v"},
    };
    for (const Row& row : rows) EXPECT_EQ(valueOf(row.text), row.value) << row.text;
    EXPECT_EQ(*Properties::parse("a\\ b\\=c=1").find("a b=c"), "1");
}

constexpr std::string_view sample = "# comment\n! comment\r\n100 = illegal \\u00e9\\ud83d\\ude00 \\\n   more\n"
                                    "key\\ with\\:escapes : v\\tw\r901=%1\\\\\n\n  last";

TEST(PropertiesHostileTest, AnyBytesAreRead) {
    for (std::size_t length = 0; length <= sample.size(); ++length) {
        // In memory of exactly this length, so that a look beyond the end shows.
        std::vector<char> cut(sample.begin(), sample.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_LE(Properties::parse({cut.data(), cut.size()}).size(), 4u);
    }
    for (std::size_t at = 0; at < sample.size(); ++at) {
        for (char byte : {'\0', '\\', '\n', '\r', 'u', '=', ' ', '#', '\xFF'}) {
            std::vector<char> changed(sample.begin(), sample.end());
            changed[at] = byte;
            EXPECT_LE(Properties::parse({changed.data(), changed.size()}).size(), 7u);
        }
    }
}

TEST(PropertiesHostileTest, OnlyRegularFilesAreRead) {
    ScopedDirectory directory;
    directory.write("good.properties", "k=v");
    directory.write("empty.properties", "");
    EXPECT_EQ(*Properties::fromFile("good.properties").find("k"), "v");
    directory.write("large.properties", "k=v\nlast=");
    std::filesystem::resize_file("large.properties", 1L << 30);
    EXPECT_EQ(*Properties::fromFile("large.properties").find("k"), "v");
    EXPECT_LE(Properties::fromFile("large.properties").find("last")->size(), 1u << 20);
    EXPECT_EQ(::mkfifo("pipe.properties", 0600), 0);
    for (const char* name : {"empty.properties", "missing.properties", ".", "pipe.properties", "/dev/zero", ""})
        EXPECT_EQ(Properties::fromFile(name).size(), 0u) << name;
}

} // namespace
} // namespace tarn
