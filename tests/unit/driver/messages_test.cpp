#include "driver/messages.h"

#include "unit/driver/surroundings.h"

#include <gtest/gtest.h>
#include <map>

namespace tarn {
namespace {

using test::ScopedDirectory;
using test::ScopedVariable;

TEST(CatalogueTest, NumbersAreUniqueButForTwoPairs) {
    std::map<int, int> entries;
    for (std::size_t i = 0; i < messageCount; ++i) ++entries[messageNumber(static_cast<MessageId>(i))];
    // What came later than the catalogue: the bounds on nesting and on class files.
    std::size_t later = entries.count(223) + entries.count(556);
    EXPECT_EQ(messageCount - later, 138u);
    for (auto [number, count] : entries) EXPECT_EQ(count, number == 901 || number == 902 ? 2 : 1) << number;
}

TEST(CatalogueTest, PlaceholdersOfATextAreNumberedWithoutGaps) {
    for (std::size_t i = 0; i < messageCount; ++i) {
        std::string_view text = catalogueText(static_cast<MessageId>(i));
        int used = 0;
        for (std::size_t at = 0; (at = text.find('%', at)) != text.npos; at += 2) {
            int n = text.at(at + 1) - '0';
            EXPECT_TRUE(n >= 1 && n <= 5) << text;
            used |= 1 << (n - 1);
        }
        EXPECT_EQ(used & (used + 1), 0) << text;
    }
}

TEST(TranslationTest, ReplacesTextsByNumberUnlessTheLanguageIsEnglish) {
    ScopedDirectory home;
    home.write("lib/VXQ.properties", "100 = unzul\\u00e4ssiges Zeichen\n364 = Typfehler\n901: Paket %1\n");
    ScopedVariable place("KEELWRIGHT_HOME", home.path());
    ScopedVariable all("LC_ALL", std::nullopt);
    ScopedVariable kind("LC_MESSAGES", std::nullopt);
    ScopedVariable german("LANG", "de_DE.UTF-8");
    loadTranslation();
    EXPECT_EQ(message(messages::illegalCharacter).text, "unzul\xC3\xA4ssiges Zeichen");
    EXPECT_EQ(message(messages::cannotCast).text, "Typfehler");
    EXPECT_EQ(message(messages::packageDoesNotMatchDirectory).text, "Paket %1");
    EXPECT_EQ(message(messages::packageDiffersInCase).text, "Paket %1");
    EXPECT_EQ(message(messages::unclosedComment).text, "unclosed comment");
    {
        ScopedVariable elsewhere("KEELWRIGHT_HOME", home.path() + "/lib");
        loadTranslation();
        EXPECT_EQ(message(messages::cannotCast).text, "cannot cast %1 to %2");
    }
    ScopedVariable english("LANG", "en_GB");
    loadTranslation();
    EXPECT_EQ(message(messages::cannotCast).text, "cannot cast %1 to %2");
}

} // namespace
} // namespace tarn
