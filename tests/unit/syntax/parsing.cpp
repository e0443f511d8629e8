#include "unit/syntax/parsing.h"

#include "store/memory_store.h"

#include <cstddef>
#include <cstdint>

namespace tarn::test {

std::string placeOf(Position position) {
    return std::to_string(lineOf(position)) + ":" + std::to_string(columnOf(position));
}

std::string MessageLog::text() const {
    std::string joined;
    for (const std::string& message : messages) joined.append(joined.empty() ? "" : "; ").append(message);
    return joined;
}

StoreRef sourceOf(std::string_view text) {
    auto store = ByteArrayStore::root("Test.java");
    store->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return store;
}

ParsedSource::ParsedSource(std::string_view text) {
    StoreRef source = sourceOf(text);
    ScopedSource current(source);
    Scanner scanner(*source, std::nullopt);
    Parser parser(scanner, builder);
    TreeBuffer* list = parser.compilationUnit();
    defs = *list;
}

std::string messagesOfParse(std::string_view source) {
    return ParsedSource(source).log.text();
}

std::string messagesOfScan(std::string_view text) {
    MessageLog log;
    StoreRef source = sourceOf(text);
    ScopedSource current(source);
    Scanner scanner(*source, std::nullopt);
    DependencyScanner factory;
    Parser(scanner, factory).compilationUnit();
    return log.text();
}

std::string repeat(std::string_view text, int count) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; i++) result += text;
    return result;
}

} // namespace tarn::test
