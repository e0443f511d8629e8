#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

class Store;

/// Stores are shared: a path list, a source and a class symbol may all point to one place. Null means "no place".
using StoreRef = std::shared_ptr<Store>;

/// A path list: places that are searched in order. Shared, since the source path may be the very same list as the class
/// path, which is told by comparing the pointers. Null means "no list".
using PathList = std::shared_ptr<const std::vector<StoreRef>>;

using Bytes = std::vector<std::uint8_t>;

/// Counts two-second units of local time since 1601-01-01, rounded up; -1 for none.
using Date = std::int64_t;
constexpr Date NO_DATE = -1;

/// A place where a file or a directory may be, whether or not anything is there.
///
/// The compiler holds stores, not paths, so that what comes from an archive or from memory is handled like what lies on
/// disk. Operations that fail throw IoFailure with an English text, unless their comment says otherwise. Stores are
/// used by one thread and close themselves after each read and write.
class Store : public std::enable_shared_from_this<Store> {
public:
    virtual ~Store() = default;

    /// Same place and same date.
    [[nodiscard]] virtual bool equals(const Store& other) const = 0;
    [[nodiscard]] virtual std::uint32_t hashCode() const = 0;
    /// What search traces show: the canonical path, empty if there is none.
    [[nodiscard]] virtual std::string toString() const { return canonicalPath().value_or(std::string()); }
    /// When the contents changed last; NO_DATE if nothing is there.
    [[nodiscard]] virtual Date date() const = 0;
    /// Last component of the path.
    [[nodiscard]] virtual std::string name() const = 0;
    /// The path as it was built, not normalised.
    [[nodiscard]] virtual std::string path() const = 0;
    /// The path that identifies the place; absent if it cannot be had.
    [[nodiscard]] virtual std::optional<std::string> canonicalPath() const = 0;
    /// Path of the enclosing directory, if the path names one.
    [[nodiscard]] virtual std::optional<std::string> parent() const = 0;
    [[nodiscard]] virtual bool isDirectory() const = 0;

    /// The whole contents.
    virtual Bytes read() = 0;
    /// Fills `buffer` with as much as fits and returns the length of the whole contents. A result that is not smaller
    /// than the buffer asks the caller to come again with room for one byte more than the result.
    virtual std::size_t readInto(std::span<std::uint8_t> buffer) = 0;
    /// Replaces the contents, all at once.
    virtual void write(std::span<const std::uint8_t> contents) = 0;

    /// Names of the files in the directory; absent if it cannot be listed.
    virtual std::optional<std::vector<std::string>> list() = 0;
    /// The entry `name` (which may hold separators), or null if nothing is there.
    virtual StoreRef lookup(std::string_view name) = 0;
    /// The entry `name`, whether it exists or not.
    virtual StoreRef file(std::string_view name) = 0;
    /// The entry `name`, opened for writing; null if it cannot be. Must get one `write` or `close`.
    virtual StoreRef create(std::string_view name) = 0;
    /// The directory `name` below this one, made if it is missing.
    virtual StoreRef makeDirectory(std::string_view name) = 0;
    /// Closes what is open on this store; never fails.
    virtual void close() = 0;
};

} // namespace tarn
