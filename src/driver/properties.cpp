#include "driver/properties.h"

#include "runtime/failure.h"
#include "runtime/process.h"
#include "runtime/unicode.h"
#include "runtime/utf8.h"
#include "store/directory_store.h"
#include "store/file_path.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unistd.h>

namespace tarn {

namespace {

// --- The surroundings ------------------------------------------------------------------------------------------------

std::optional<std::string> linkTarget(const char* path) {
    std::array<char, 4096> target;
    ssize_t length = ::readlink(path, target.data(), target.size());
    if (length <= 0) return std::nullopt;
    return std::string(target.data(), static_cast<std::size_t>(length));
}

std::string javaHome() {
    return environment("JAVA_HOME").value_or("/java");
}

std::string javaClassPath() {
    std::string home = javaHome();
    return environment("CLASSPATH").value_or(".") + ":" + home + "/classes:" + home + "/lib/classes.zip";
}

/// The directory that the tool was installed to: the executable's path less `bin/tarn`.
std::string toolHome() {
    if (std::optional<std::string> home = environment("KEELWRIGHT_HOME")) return *home;
    std::optional<std::string> path = linkTarget("/proc/self/exe");
    for (int component = 0; path && component < 2; ++component) path = parentPath(*path);
    return path.value_or("/keelwright");
}

std::string timeZone() {
    std::string zone = environment("TZ").value_or("");
    if (zone.starts_with(':')) zone.erase(0, 1);
    if (!zone.empty()) return zone;
    constexpr std::string_view folder = "/zoneinfo/";
    std::string target = linkTarget("/etc/localtime").value_or("");
    std::size_t at = target.find(folder);
    return at == std::string::npos ? "UTC" : target.substr(at + folder.size());
}

struct Locale {
    std::string_view language; ///< "en" if the locale names no language
    std::string_view region;   ///< empty if the locale names none
};

bool isWord(std::string_view text, char first, char last, std::size_t minimum, std::size_t maximum) {
    if (text.size() < minimum || text.size() > maximum) return false;
    for (char letter : text)
        if (letter < first || letter > last) return false;
    return true;
}

/// The locale for one category, whose name is `language[_REGION][.codeset][@modifier]`. Anything else ("C", "POSIX",
/// garbage) is plain English.
Locale locale(const char* category) {
    std::string_view name;
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(variable);
        if (!value || !*value) continue;
        name = value;
        break;
    }
    name = name.substr(0, name.find_first_of(".@"));
    std::size_t end = name.find('_');
    std::string_view language = name.substr(0, end);
    std::string_view region = end == std::string_view::npos ? std::string_view() : name.substr(end + 1);
    if (!isWord(language, 'a', 'z', 2, 3)) return {"en", ""};
    return {language, isWord(region, 'A', 'Z', 2, 2) ? region : std::string_view()};
}

struct LanguageEncoding {
    std::string_view language; ///< or language_REGION, which goes before the language alone
    std::string_view encoding;
};

constexpr LanguageEncoding languageEncodings[] = {
    {"ar", "Cp1256"}, {"be", "Cp1251"}, {"bg", "Cp1251"}, {"cs", "Cp1250"}, {"el", "Cp1253"},
    {"et", "Cp1257"}, {"he", "Cp1255"}, {"hu", "Cp1250"}, {"ja", "SJIS"},   {"ko", "KSC5601"},
    {"lt", "Cp1257"}, {"lv", "Cp1257"}, {"mk", "Cp1251"}, {"pl", "Cp1250"}, {"ro", "Cp1250"},
    {"ru", "Cp1251"}, {"sh", "Cp1250"}, {"sk", "Cp1250"}, {"sl", "Cp1250"}, {"sq", "Cp1250"},
    {"sr", "Cp1251"}, {"tr", "Cp1254"}, {"uk", "Cp1251"}, {"zh", "GB2312"}, {"zh_TW", "Big5"},
};

const LanguageEncoding* findEncoding(std::string_view language) {
    for (const LanguageEncoding& entry : languageEncodings)
        if (entry.language == language) return &entry;
    return nullptr;
}

// --- Properties texts ------------------------------------------------------------------------------------------------

bool isBlank(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\f';
}
bool isLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

/// Reads a properties text from its front, one key or value at a time.
class PropertiesReader {
public:
    explicit PropertiesReader(std::string_view text) : text_(text) {}

    /// Goes to the first character of the next line that holds a key; false at the end of the text.
    bool nextEntry() {
        for (;;) {
            while (at_ < text_.size() && (isBlank(text_[at_]) || isLineEnd(text_[at_]))) ++at_;
            if (at_ == text_.size()) return false;
            if (text_[at_] != '#' && text_[at_] != '!') return true;
            while (at_ < text_.size() && !isLineEnd(text_[at_])) ++at_;
        }
    }

    std::string key() {
        std::string key = element(true);
        skipBlanks();
        if (at_ < text_.size() && (text_[at_] == '=' || text_[at_] == ':')) {
            ++at_;
            skipBlanks();
        }
        return key;
    }

    std::string value() { return element(false); }

private:
    /// The text up to the end of the line, or of the key, with its escapes resolved.
    std::string element(bool isKey) {
        std::string element;
        while (at_ < text_.size() && !isLineEnd(text_[at_])) {
            char byte = text_[at_];
            if (isKey && (isBlank(byte) || byte == '=' || byte == ':')) break;
            ++at_;
            if (byte != '\\') {
                append(element, static_cast<unsigned char>(byte));
            } else if (!skipLineEnd()) {
                escape(element);
            }
        }
        endSurrogate(element);
        return element;
    }

    void skipBlanks() {
        while (at_ < text_.size()) {
            if (isBlank(text_[at_])) {
                ++at_;
            } else if (text_[at_] == '\\' && at_ + 1 < text_.size() && isLineEnd(text_[at_ + 1])) {
                ++at_;
                skipLineEnd();
            } else {
                return;
            }
        }
    }

    /// Behind a backslash: passes over the line end, if there is one, and the blanks that the next line begins with.
    bool skipLineEnd() {
        if (at_ == text_.size() || !isLineEnd(text_[at_])) return false;
        if (text_[at_++] == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
        while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
        return true;
    }

    void escape(std::string& element) {
        if (at_ == text_.size()) return;
        char byte = text_[at_++];
        switch (byte) {
        case 't': return append(element, '\t');
        case 'n': return append(element, '\n');
        case 'r': return append(element, '\r');
        case 'f': return append(element, '\f');
        case 'u': return append(element, unicodeEscape());
        default: return append(element, static_cast<unsigned char>(byte));
        }
    }

    char32_t unicodeEscape() {
        char32_t unit = 0;
        for (int digits = 0; digits < 4 && at_ < text_.size() && digitValue(text_[at_], 16) >= 0; ++digits)
            unit = unit << 4 | static_cast<char32_t>(digitValue(text_[at_++], 16));
        return unit;
    }

    /// Appends a UTF-16 unit; a pair of surrogates makes one character.
    void append(std::string& element, char32_t unit) {
        if (highSurrogate_ && isLowSurrogate(unit)) {
            appendUtf8(element, characterOf(highSurrogate_, unit));
            highSurrogate_ = 0;
            return;
        }
        endSurrogate(element);
        if (isHighSurrogate(unit)) {
            highSurrogate_ = unit;
        } else {
            appendUtf8(element, unit);
        }
    }

    void endSurrogate(std::string& element) {
        if (highSurrogate_) appendUtf8(element, highSurrogate_);
        highSurrogate_ = 0;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    char32_t highSurrogate_ = 0; ///< a first half that waits for its second; 0 for none
};

constexpr std::size_t largestFile = 1 << 20;

Bytes readRegularFile(const std::string& path) {
    try {
        DirectoryStore file(path);
        Bytes text(std::min(file.readInto({}), largestFile));
        file.readInto(text);
        return text;
    } catch (const IoFailure&) {
        return {};
    }
}

} // namespace

std::optional<std::string> systemProperty(std::string_view key) {
    if (key == "java.home") return javaHome();
    if (key == "java.class.path") return javaClassPath();
    if (key == "file.separator") return "/";
    if (key == "path.separator") return ":";
    if (key == "line.separator") return "\n";
    if (key == "user.dir") return ".";
    if (key == "user.language") return std::string(locale("LC_MESSAGES").language);
    if (key == "user.region") {
        std::string_view region = locale("LC_MESSAGES").region;
        return region.empty() ? std::nullopt : std::optional<std::string>(region);
    }
    if (key == "file.encoding") {
        Locale used = locale("LC_CTYPE");
        return std::string(encodingOfLanguage(used.language, used.region));
    }
    if (key == "file.encoding.pkg") return "sun.io";
    if (key == "user.timezone") return timeZone();
    if (key == "keelwright.home") return toolHome();
    return std::nullopt;
}

std::string_view encodingOfLanguage(std::string_view language, std::string_view region) {
    const LanguageEncoding* entry = findEncoding(std::string(language) + "_" + std::string(region));
    if (!entry) entry = findEncoding(language);
    return entry ? entry->encoding : "8859_1";
}

Properties Properties::parse(std::string_view text) {
    Properties properties;
    PropertiesReader reader(text);
    while (reader.nextEntry()) {
        std::string key = reader.key();
        properties.values_[std::move(key)] = reader.value();
    }
    return properties;
}

Properties Properties::fromFile(const std::string& path) {
    Bytes text = readRegularFile(path);
    return parse({reinterpret_cast<const char*>(text.data()), text.size()});
}

const std::string* Properties::find(const std::string& key) const {
    auto found = values_.find(key);
    return found == values_.end() ? nullptr : &found->second;
}

} // namespace tarn
