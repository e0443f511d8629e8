#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarn {

/// A bump allocator for things that live and die together: the trees of one unit, the symbols and types of a run.
///
/// What is made here is handed around as a plain pointer and never deleted by itself; destructors are not run, so a
/// type that owns memory of its own (a vector, a string) does not belong here unless leaking that memory until the
/// process ends is meant. `clear` keeps the first block for the next user.
class Arena {
public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    void* allocate(std::size_t size, std::size_t alignment) {
        std::uintptr_t at = (next_ + alignment - 1) & ~(alignment - 1);
        if (at + size > end_) [[unlikely]]
            return allocateSlow(size, alignment);
        next_ = at + size;
        return reinterpret_cast<void*>(at);
    }

    template <class T, class... Arguments>
    T* make(Arguments&&... arguments) {
        return new (allocate(sizeof(T), alignof(T))) T(std::forward<Arguments>(arguments)...);
    }

    /// An array of `count` value-initialised elements; may be empty.
    template <class T>
    std::span<T> makeArray(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T>);
        if (count == 0) return {};
        T* first = static_cast<T*>(allocate(count * sizeof(T), alignof(T)));
        std::uninitialized_value_construct_n(first, count);
        return {first, count};
    }

    /// A copy of `elements` in the arena.
    template <class T>
    std::span<T> copyArray(std::span<const T> elements) {
        std::span<T> copy = makeArray<T>(elements.size());
        std::copy(elements.begin(), elements.end(), copy.begin());
        return copy;
    }

    /// Forgets all that was made and keeps the blocks' memory down to the first one.
    void clear() {
        if (blocks_.size() > 1) blocks_.resize(1);
        if (!blocks_.empty()) open(blocks_.front());
    }

    /// Bytes held from the system.
    [[nodiscard]] std::size_t capacity() const {
        std::size_t sum = 0;
        for (const Block& block : blocks_) sum += block.size;
        return sum;
    }

private:
    struct Block {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };

    void* allocateSlow(std::size_t size, std::size_t alignment) {
        std::size_t wanted = std::max(blockSize, size + alignment);
        blocks_.push_back({std::unique_ptr<std::byte[]>(new std::byte[wanted]), wanted});
        open(blocks_.back());
        return allocate(size, alignment);
    }

    void open(const Block& block) {
        next_ = reinterpret_cast<std::uintptr_t>(block.memory.get());
        end_ = next_ + block.size;
    }

    static constexpr std::size_t blockSize = 256 * 1024;

    std::uintptr_t next_ = 0;
    std::uintptr_t end_ = 0;
    std::vector<Block> blocks_;
};

} // namespace tarn
