#pragma once

#include "store/store.h"

namespace tarn {

/// A place that holds nothing and accepts everything: what is written there disappears, and a search through it ends
/// there at once. Where a text may be absent it is, else it is empty.
class NullStore final : public Store {
public:
    /// The object that all of the process uses. As the store of a class it marks that the class's source is in the air;
    /// it is told by its identity.
    static const StoreRef& instance();

    [[nodiscard]] bool equals(const Store& other) const override { return this == &other; }
    [[nodiscard]] std::uint32_t hashCode() const override { return 0; }
    [[nodiscard]] Date date() const override { return 0; }
    [[nodiscard]] std::string name() const override { return {}; }
    [[nodiscard]] std::string path() const override { return {}; }
    [[nodiscard]] std::optional<std::string> canonicalPath() const override { return std::nullopt; }
    [[nodiscard]] std::optional<std::string> parent() const override { return std::nullopt; }
    [[nodiscard]] bool isDirectory() const override { return true; }
    Bytes read() override { return {}; }
    std::size_t readInto(std::span<std::uint8_t>) override { return 0; }
    void write(std::span<const std::uint8_t>) override {}
    std::optional<std::vector<std::string>> list() override { return std::nullopt; }
    StoreRef lookup(std::string_view) override { return shared_from_this(); }
    StoreRef file(std::string_view) override { return shared_from_this(); }
    StoreRef create(std::string_view) override { return shared_from_this(); }
    StoreRef makeDirectory(std::string_view) override { return shared_from_this(); }
    void close() override {}
};

} // namespace tarn
