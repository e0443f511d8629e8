#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// Names one entry of the catalogue; at the place of use it reads `messages::illegalCharacter`.
enum class MessageId : std::uint8_t {
#define MESSAGE(identifier, number, text) identifier,
#include "driver/messages.def"
#undef MESSAGE
};

namespace messages {
using enum MessageId;
}

constexpr std::size_t messageCount = 0
#define MESSAGE(identifier, number, text) +1
#include "driver/messages.def"
#undef MESSAGE
    ;

/// A message on its way to the user: a catalogue entry whose placeholders have been bound, or are still to be.
struct Message {
    int number;
    std::string text;
};

/// The number shown to the user. Two pairs of entries share theirs.
int messageNumber(MessageId id);

/// The English text as it stands in the catalogue.
std::string_view catalogueText(MessageId id);

/// The entry with the text that users of this language see: the translation, if `loadTranslation` found one for the
/// number, else the English text.
Message message(MessageId id);

/// The message with the first "%n" of its text replaced by the argument; unchanged if there is none. An argument that
/// itself holds a placeholder is bound over by a later call.
Message bind(Message message, std::string_view argument, int n);

/// Reads the translated catalogue, `lib/VXQ.properties` below `keelwright.home`, if the user's language is not English
/// and the file exists. Whatever keeps it from being read leaves English texts. The first message that is made does
/// this by itself; a call reads it anew.
void loadTranslation();

} // namespace tarn
