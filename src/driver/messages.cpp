#include "driver/messages.h"

#include "driver/properties.h"

#include <array>
#include <optional>
#include <utility>

namespace tarn {

namespace {

struct CatalogueEntry {
    int number;
    std::string_view text;
};

constexpr std::array<CatalogueEntry, messageCount> catalogue{{
#define MESSAGE(identifier, number, text) {number, text},
#include "driver/messages.def"
#undef MESSAGE
}};

constexpr bool isInOrderOfNumber() {
    for (std::size_t i = 1; i < catalogue.size(); ++i)
        if (catalogue[i - 1].number > catalogue[i].number) return false;
    return true;
}
static_assert(isInOrderOfNumber());

/// The translated texts by decimal number, for the rest of the process; null until the first message is made. Most runs
/// report nothing and never look for them.
const Properties* translation = nullptr;

std::optional<std::string> translationPath() {
    if (systemProperty("user.language") == "en") return std::nullopt;
    std::string home = systemProperty("keelwright.home").value_or("");
    if (home.empty()) return std::nullopt;
    return home + "/lib/VXQ.properties";
}

} // namespace

int messageNumber(MessageId id) {
    return catalogue[static_cast<std::size_t>(id)].number;
}

std::string_view catalogueText(MessageId id) {
    return catalogue[static_cast<std::size_t>(id)].text;
}

void loadTranslation() {
    static Properties loaded;
    std::optional<std::string> path = translationPath();
    loaded = path ? Properties::fromFile(*path) : Properties();
    translation = &loaded;
}

Message message(MessageId id) {
    if (!translation) loadTranslation();
    int number = messageNumber(id);
    if (const std::string* text = translation->find(std::to_string(number))) return {number, *text};
    return {number, std::string(catalogueText(id))};
}

Message bind(Message message, std::string_view argument, int n) {
    const char placeholder[] = {'%', static_cast<char>('0' + n)};
    std::size_t at = message.text.find(std::string_view(placeholder, 2));
    if (at != std::string::npos) message.text.replace(at, 2, argument);
    return message;
}

} // namespace tarn
