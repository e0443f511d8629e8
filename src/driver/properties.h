#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarn {

/// What the surroundings say about the run: paths and locale, computed afresh from the environment at each call. Absent
/// for an unknown key, and for `user.region` if the locale names none.
///
/// The locale is the first of LC_ALL, LC_MESSAGES (for `file.encoding`: LC_CTYPE) and LANG that is set and not empty.
/// `file.encoding` goes by its language and region; the codeset in its name plays no part.
std::optional<std::string> systemProperty(std::string_view key);

/// The source encoding that is usual where this language is spoken in this region; "8859_1" unless the table of
/// languages says otherwise.
std::string_view encodingOfLanguage(std::string_view language, std::string_view region);

/// A Java properties text: lines of key and value in Latin-1 with backslash escapes. Values are kept in UTF-8.
///
/// Any bytes are a properties text: an escape that is cut short counts for what is there of it.
class Properties {
public:
    static Properties parse(std::string_view text);
    /// The first megabyte of the file, which is far more than a catalogue; empty if it is no regular file.
    static Properties fromFile(const std::string& path);

    /// The value, or null. Of two lines with one key the later holds.
    [[nodiscard]] const std::string* find(const std::string& key) const;
    [[nodiscard]] std::size_t size() const { return values_.size(); }

private:
    std::unordered_map<std::string, std::string> values_;
};

} // namespace tarn
