#pragma once

#include "store/store.h"

#include <cstdint>

namespace tarn {

/// A zip or jar file on a path list, read-only: the directory of its top-level members.
///
/// The central directory is read when the store is made, with one read, and is kept as it lies in the file; the index
/// beside it is an array of offsets, sorted by name. So opening an archive of thousands of members allocates twice, and
/// a lookup is a binary search without I/O. The file stays open for the members until `close`.
///
/// A file that is missing, or that is no plain zip (one disk, no zip64), gives an empty place without a message.
/// Names are bytes; "/" and "\" in them both separate.
class ArchiveStore final : public Store {
public:
    explicit ArchiveStore(std::string path);
    ~ArchiveStore() override { ArchiveStore::close(); }
    ArchiveStore(const ArchiveStore&) = delete;
    ArchiveStore& operator=(const ArchiveStore&) = delete;

    [[nodiscard]] bool isOpen() const { return file_ >= 0; }

    [[nodiscard]] bool equals(const Store& other) const override;
    [[nodiscard]] std::uint32_t hashCode() const override;
    [[nodiscard]] Date date() const override;
    [[nodiscard]] std::string name() const override;
    [[nodiscard]] std::string path() const override { return path_; }
    [[nodiscard]] std::optional<std::string> canonicalPath() const override;
    [[nodiscard]] std::optional<std::string> parent() const override;
    [[nodiscard]] bool isDirectory() const override { return isOpen(); }
    Bytes read() override;
    std::size_t readInto(std::span<std::uint8_t> buffer) override;
    void write(std::span<const std::uint8_t> contents) override;
    std::optional<std::vector<std::string>> list() override;
    StoreRef lookup(std::string_view name) override;
    /// This store for "."; else as `lookup`.
    StoreRef file(std::string_view name) override;
    StoreRef create(std::string_view name) override;
    StoreRef makeDirectory(std::string_view name) override;
    void close() override;

    /// What the central directory says of a member. Sizes and offsets are unchecked numbers from the file.
    struct Member {
        std::string_view name; ///< in the archive's memory
        std::uint32_t dosTime; ///< date in the high half, time in the low one
        std::uint32_t compressedSize;
        std::uint32_t size;
        std::uint32_t offset; ///< of the local header
    };

    [[nodiscard]] int memberCount() const { return static_cast<int>(index_.size()); }
    /// The member at `entry`, in the order of names.
    [[nodiscard]] Member member(int entry) const;
    /// The entry of the member of exactly that name, -1 if there is none.
    [[nodiscard]] int find(std::string_view name) const;
    /// Whether the name of any member begins with `prefix`.
    [[nodiscard]] bool findPrefix(std::string_view prefix) const;
    /// What follows `prefix` in the names that begin with it and have no separator behind it.
    [[nodiscard]] std::vector<std::string> listPrefix(std::string_view prefix) const;

    /// The contents of a member.
    Bytes readMember(int entry);
    /// The contents of a member into `buffer`, if they fit; see Store::readInto.
    std::size_t readMemberInto(int entry, std::span<std::uint8_t> buffer);

private:
    struct MemberData {
        Member member;
        std::uint64_t offset; ///< of the data in the file
        bool stored;          ///< else deflated
    };

    void openDirectory();
    [[nodiscard]] std::string_view nameAt(std::uint32_t record) const;
    [[nodiscard]] std::vector<std::uint32_t>::const_iterator lowerBound(std::string_view name) const;
    MemberData locate(int entry);
    void readData(const MemberData& data, std::span<std::uint8_t> into);
    void inflateData(const MemberData& data, std::span<std::uint8_t> into);

    std::string path_;
    int file_ = -1;              ///< file descriptor, -1 if the archive could not be read or is closed
    std::uint64_t fileSize_ = 0; ///< in bytes, when the archive was opened
    std::unique_ptr<std::uint8_t[]> directory_;
    std::vector<std::uint32_t> index_; ///< offsets in `directory_` of its records, by name; each lies within it, whole
    Bytes compressed_;                 ///< reused for the deflated data of one member after the other
};

/// A path inside an archive: a file, a directory (with or without an entry of its own), or nothing. Holds its archive.
class ZipStore final : public Store {
public:
    ZipStore(std::shared_ptr<ArchiveStore> archive, std::string_view name);

    /// Whether the archive has a member of this name or below it.
    [[nodiscard]] bool exists() const;

    [[nodiscard]] bool equals(const Store& other) const override;
    [[nodiscard]] std::uint32_t hashCode() const override;
    [[nodiscard]] Date date() const override;
    [[nodiscard]] std::string name() const override;
    [[nodiscard]] std::string path() const override;
    [[nodiscard]] std::optional<std::string> canonicalPath() const override;
    /// The archive's path, for a member at any depth.
    [[nodiscard]] std::optional<std::string> parent() const override;
    [[nodiscard]] bool isDirectory() const override;
    Bytes read() override;
    std::size_t readInto(std::span<std::uint8_t> buffer) override;
    void write(std::span<const std::uint8_t> contents) override;
    std::optional<std::vector<std::string>> list() override;
    /// Not checked for existence, unlike that of the archive.
    StoreRef lookup(std::string_view name) override;
    StoreRef file(std::string_view name) override { return lookup(name); }
    StoreRef create(std::string_view name) override;
    StoreRef makeDirectory(std::string_view name) override;
    void close() override {}

private:
    [[nodiscard]] std::string_view fullName() const;
    [[nodiscard]] int entry() const;

    std::shared_ptr<ArchiveStore> archive_; ///< never null
    std::string dirPrefix_;                 ///< the name, with a separator behind it
    std::size_t nameLength_;                ///< of the name, at the start of `dirPrefix_`
    mutable int entry_ = -1;                ///< in the archive; -1 while unknown or absent
    mutable Date date_ = 0;                 ///< 0 while unknown
};

} // namespace tarn
