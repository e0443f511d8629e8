#pragma once

#include "store/store.h"

namespace tarn {

/// A file or directory held in memory. Holds contents or children, never both, and neither at first.
///
/// A parent owns its children; a child knows its parent while that lives. Made through `root` and through its parent.
class ByteArrayStore final : public Store {
    struct Key {};

public:
    /// For `root` and `addChild`; the parent is null for a root.
    ByteArrayStore(Key, std::weak_ptr<ByteArrayStore> parent, std::string name)
        : name_(std::move(name)), parent_(std::move(parent)) {}

    /// A new node without a parent.
    static std::shared_ptr<ByteArrayStore> root(std::string name);
    /// A new node as the last child of this one, which becomes a directory if it isn't one.
    std::shared_ptr<ByteArrayStore> addChild(std::string name);
    /// Makes this node an empty directory; children that it had are dropped.
    void becomeDirectory();

    [[nodiscard]] bool equals(const Store& other) const override;
    [[nodiscard]] std::uint32_t hashCode() const override;
    [[nodiscard]] std::string toString() const override;
    /// Counts the writes; 0 before the first.
    [[nodiscard]] Date date() const override { return version_; }
    [[nodiscard]] std::string name() const override { return name_; }
    [[nodiscard]] std::string path() const override;
    [[nodiscard]] std::optional<std::string> canonicalPath() const override;
    [[nodiscard]] std::optional<std::string> parent() const override;
    [[nodiscard]] bool isDirectory() const override { return children_.has_value(); }
    Bytes read() override;
    std::size_t readInto(std::span<std::uint8_t> buffer) override;
    void write(std::span<const std::uint8_t> contents) override;
    std::optional<std::vector<std::string>> list() override;
    StoreRef lookup(std::string_view name) override;
    StoreRef file(std::string_view name) override { return lookup(name); }
    StoreRef create(std::string_view name) override;
    StoreRef makeDirectory(std::string_view name) override;
    void close() override {}

private:
    std::shared_ptr<ByteArrayStore> find(std::string_view name) const;

    std::optional<Bytes> bytes_;                                           ///< absent until written
    std::optional<std::vector<std::shared_ptr<ByteArrayStore>>> children_; ///< absent unless a directory
    std::string name_;
    std::weak_ptr<ByteArrayStore> parent_; ///< null for a root
    std::int32_t version_ = 0;
};

} // namespace tarn
