#pragma once

#include "store/store.h"

namespace tarn {

/// A file or directory of the file system.
///
/// Idle, but for a store that `create` made: that one is open for writing until its first `write` or `close`.
///
/// A write leaves the whole new contents or an error, never the first half of a file: if it fails, the file is removed.
/// It overwrites in place and cuts what is left of longer old contents. Truncating first, or writing a second file and
/// renaming it, was measured and dropped: on a journaling file system they cost seven and ninety times as much for a
/// file that is there already (about 9, 60 and 850 microseconds), which is the common case of a make.
class DirectoryStore final : public Store {
public:
    explicit DirectoryStore(std::string path) : path_(std::move(path)) {}
    /// On files that are open already: `in` and `out` are file descriptors, -1 for none. The store owns them.
    DirectoryStore(std::string path, int in, int out) : path_(std::move(path)), in_(in), out_(out) {}
    ~DirectoryStore() override { DirectoryStore::close(); }
    DirectoryStore(const DirectoryStore&) = delete;
    DirectoryStore& operator=(const DirectoryStore&) = delete;

    /// True while something is open here, else whether anything is at the path.
    [[nodiscard]] bool exists() const;

    [[nodiscard]] bool equals(const Store& other) const override;
    [[nodiscard]] std::uint32_t hashCode() const override;
    [[nodiscard]] Date date() const override;
    [[nodiscard]] std::string name() const override;
    [[nodiscard]] std::string path() const override { return path_; }
    [[nodiscard]] std::optional<std::string> canonicalPath() const override;
    [[nodiscard]] std::optional<std::string> parent() const override;
    [[nodiscard]] bool isDirectory() const override;

    /// Reading takes regular files only, of less than 2 GB.
    Bytes read() override;
    std::size_t readInto(std::span<std::uint8_t> buffer) override;
    void write(std::span<const std::uint8_t> contents) override;

    /// The regular files, in the order of their names' bytes: a directory or a link to nothing has no contents to
    /// offer, whatever its name.
    std::optional<std::vector<std::string>> list() override;
    StoreRef lookup(std::string_view name) override;
    StoreRef file(std::string_view name) override;
    StoreRef create(std::string_view name) override;
    /// Makes one level only; a failure to make it is ignored and shows when something is created in it.
    StoreRef makeDirectory(std::string_view name) override;
    void close() override;

    /// Makes the file younger by that many units of a date, and its date a full unit. What cannot be is left undone.
    void moveDateOn(Date units);

private:
    void openForReading();

    std::string path_; ///< as given, not normalised
    int in_ = -1;      ///< file descriptor of the file being read, -1 if none
    int out_ = -1;     ///< file descriptor of the file being written, -1 if none
};

} // namespace tarn
